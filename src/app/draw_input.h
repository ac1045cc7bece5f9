// What the rendering is given: the program's view, options and font, and the highlights of the
// connection being defined.
#pragma once

#include "app/program.h"
#include "connection/connection_state.h"
#include "view/render.h"

namespace vorna {

inline Highlights HighlightsOf(const ConnectionState &connection) {
    return {connection.baseNode,
            std::span<const std::int16_t>(connection.baseBars.data(), BaseBarsInTable(connection)),
            ListedOf(connection)};
}

inline DrawInput DrawInputOf(const Program &p) {
    return DrawInput{p.model,
                     p.view,
                     p.displayOptions,
                     p.internalOptions,
                     HighlightsOf(p.connection),
                     p.font,
                     p.form.VisAssi.checked,
                     p.jointTypeFills};
}

} // namespace vorna
