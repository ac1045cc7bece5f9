// Colours as the program keeps them: packed RGB, and the suite's nine colour codes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vorna {

// Colours are packed red + 256 green + 65536 blue.
using Rgb = std::uint32_t;

constexpr Rgb PackRgb(int red, int green, int blue) {
    return static_cast<Rgb>(red) | (static_cast<Rgb>(green) << 8) | (static_cast<Rgb>(blue) << 16);
}

// RGB of the suite's colour codes: 0 black, 1 white, 2 blue ... 9 orange; any other code white.
constexpr Rgb ColourOfCode(int code) {
    constexpr std::array<Rgb, 10> kColours = {
        PackRgb(0, 0, 0),       PackRgb(255, 255, 255), PackRgb(0, 0, 192), PackRgb(255, 0, 0),
        PackRgb(0, 255, 0),     PackRgb(255, 255, 0),   PackRgb(0, 128, 0), PackRgb(255, 0, 255),
        PackRgb(160, 197, 250), PackRgb(255, 163, 70)};
    return code >= 0 && code < 10 ? kColours[static_cast<std::size_t>(code)]
                                  : PackRgb(255, 255, 255);
}

} // namespace vorna
