// The program's geometric tolerance and its value of pi.
#pragma once

namespace vorna {

// Two coordinates, vector components or projected positions agree when they differ by less
// than this (in model or drawing units).
constexpr double kTolerance = 0.0001;

// The suite rounds pi this way; keeping it keeps every angle, projected position and file
// identical to the suite's.
constexpr double kPi = 3.141592654;

} // namespace vorna
