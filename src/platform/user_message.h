// A message box's contents, handed back by the part that has something to say for a command or
// start-up to show.
#pragma once

#include <string>

namespace vorna {

enum class MsgIcon { None = 0, Critical = 16, Exclamation = 48, Information = 64 };

struct UserMessage {
    std::string text; // Windows-1252
    std::string title;
    MsgIcon icon = MsgIcon::None;
};

} // namespace vorna
