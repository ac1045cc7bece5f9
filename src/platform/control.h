// One control, menu item or button of a window as data: the properties that behaviour reads
// and writes, which each front end shows.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"

#include <string>
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

} // namespace vorna
