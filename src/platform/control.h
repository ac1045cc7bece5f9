// One control, menu item or button of a window as data: the properties that behaviour reads
// and writes, which each front end shows.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// Sizes are twips; texts are Windows-1252.
struct Control {
    std::string caption;
    std::string text;
    std::string tooltip;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    Rgb backColour = 0;
    Pointer pointer = Pointer::Default;
    double left = 0, top = 0, width = 0, height = 0;
    // The rows of a list; its text is then the 1-based row selected ("" for none). Columns of a
    // row are separated by tabs.
    std::vector<std::string> items;
};

// The controls of an array, from index first, each by its name "name(i)".
template <std::size_t N>
void ForEachOfArray(const char *name, std::array<Control, N> &controls, std::size_t first,
                    const std::function<void(std::string_view, Control &)> &fn) {
    for (std::size_t i = first; i < N; ++i)
        fn(std::string(name) + "(" + std::to_string(i) + ")", controls[i]);
}

} // namespace vorna
