// What the rendering is given: the program's view, options and font, and the highlights of the
// connection being defined; and the connection's pictures (schema, typed bars) as lines to draw.
#pragma once

#include "app/program.h"
#include "connection/bar_types.h"
#include "connection/base_node.h"
#include "connection/connection_state.h"
#include "view/render.h"
#include "view/schema.h"

#include <vector>

namespace vorna {

inline Highlights HighlightsOf(const ConnectionState &connection) {
    return {connection.baseNode,
            std::span<const std::int16_t>(connection.baseBars.data(), BaseBarsInTable(connection)),
            ListedOf(connection)};
}

inline DrawInput DrawInputOf(const Program &p) {
    Highlights highlights = HighlightsOf(p.connection);
    highlights.lookedAt = &p.lookedAt;
    return DrawInput{p.model,    p.view, p.displayOptions,       p.internalOptions,
                     highlights, p.font, p.form.VisAssi.checked, p.jointTypeFills};
}

inline void PaintBaseNodeSchema(Canvas &canvas, const BaseNodeSchema &schema) {
    std::vector<ColouredLine> bars;
    for (const SchemaBar &bar : schema.bars)
        bars.push_back({0, 0, bar.x, bar.y, bar.colour});
    DrawBaseNodeSchema(canvas, schema.planar, schema.length, bars);
}

// Each bar from end to end as the view projects it.
inline std::vector<ColouredLine> ProjectedLines(const Program &p,
                                                const std::vector<TypedBar> &typed) {
    std::vector<ColouredLine> lines;
    for (const TypedBar &t : typed) {
        const Bar &b = p.model.bars[t.bar];
        lines.push_back({ProjectedXOf(p.view, b.pointI), ProjectedYOf(p.view, b.pointI),
                         ProjectedXOf(p.view, b.pointJ), ProjectedYOf(p.view, b.pointJ), t.colour});
    }
    return lines;
}

} // namespace vorna
