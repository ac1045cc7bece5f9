// The message a drawing writer hands back for its caller to show.
#pragma once

#include "platform/ui.h"

#include <string>

namespace vorna {

struct ExportMessage {
    std::string text;
    std::string title;
    MsgIcon icon = MsgIcon::None;
};

} // namespace vorna
