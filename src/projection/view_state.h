// The state of the 3D view: rotation, projected point positions, shown flags and windows.
#pragma once

#include "model/structure_model.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

// A window in drawing units.
struct ViewWindow {
    double xMax = 0;
    double xMin = 0;
    double yMax = 0;
    double yMin = 0;
};

struct ViewState {
    std::array<std::array<double, 3>, 3> viewMatrix{}; // rows 0 (drawing x) and 2 (drawing y) used
    std::vector<double> projectedX = std::vector<double>(kPointCapacity);
    std::vector<double> projectedY = std::vector<double>(kPointCapacity);
    std::array<double, 6> axisImage{}; // drawing x, y of the model's unit X, Y and Z
    // Counts the projections: whatever was computed from the projected positions (the bars at a
    // position) is current while this stays the same. Code that writes positions itself counts.
    std::uint64_t projectionGeneration = 0;
    std::vector<std::uint8_t> nodeShown = std::vector<std::uint8_t>(kNodeCapacity);
    std::vector<std::uint8_t> barShown = std::vector<std::uint8_t>(kBarCapacity);
    std::vector<std::uint8_t> shellShown = std::vector<std::uint8_t>(kShellCapacity);
    ViewWindow zoomWindow;  // all 0: fit the shown elements
    ViewWindow shownWindow; // mapped onto the surface by the last SetViewScale, margin included
    double viewScale = 0;   // twips per drawing unit
    std::array<double, 3> lastAngles{30, 30, 0}; // the last angles that read as numbers
    // The text of each angle box the user was last told is not a number, so that the redraws
    // of a gesture do not repeat the message.
    std::array<std::optional<std::string>, 3> refusedAngleTexts;
};

// Projected position of a point index; indices outside the table read as the origin.
inline double ProjectedXOf(const ViewState &v, int point) {
    return point >= 0 && point < kPointCapacity ? v.projectedX[point] : 0.0;
}
inline double ProjectedYOf(const ViewState &v, int point) {
    return point >= 0 && point < kPointCapacity ? v.projectedY[point] : 0.0;
}

} // namespace vorna
