// The running function and the way of selecting, which together decide what a click does.
#pragma once

#include <cstdint>

namespace vorna {

enum class ActiveFunction : std::uint8_t {
    None = 0,
    AddNodes = 1,
    RemoveNodes = 2,
    ChooseBaseNode = 3,
    RemoveBaseBars = 4,
    ShowBarTypes = 5,
    WhyNot = 6, // "Perché no?": one node set against the base node
};

enum class SelectionMode : std::uint8_t {
    None = 0,
    Window = 1,
    Material = 2,
    Name = 3,
    Direct = 4,
    ConstraintCard = 9,
    FindNode = 10, // the answer line takes the name of a node to zoom to
};

struct CommandState {
    ActiveFunction activeFunction = ActiveFunction::None;
    SelectionMode selectionMode = SelectionMode::None;
    bool autoWindow = false; // the current window was started by a click on empty space
};

} // namespace vorna
