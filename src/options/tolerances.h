// The analogy's tolerances as the engineer sets them (the boxes TolAngoli and TolLunghezze), and
// the job's file "VornaTolleranze.txt" that keeps them from one run to the next.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

inline constexpr double kMostAngleTolerance = 45;  // degrees
inline constexpr double kMostLengthTolerance = 50; // percent
inline constexpr const char *kToleranceFileName = "VornaTolleranze.txt";

// One box: the value in force, the text it was taken from, and the last text refused (told
// once, as the angle boxes are).
struct ToleranceBox {
    double value = 0;
    std::string taken;
    std::optional<std::string> refused;
};

struct Tolerances {
    ToleranceBox angle;  // TolAngoli
    ToleranceBox length; // TolLunghezze
};

// A box's text as a tolerance: empty (or blanks) is 0; else one number from 0 to most, "." as
// decimal separator; nothing otherwise.
std::optional<double> ToleranceValue(std::string_view text, double most);

// The file: "TolAngoli=TEXT" and "TolLunghezze=TEXT", a line each (Windows-1252, CR LF), an
// empty text for an empty box.
std::string ToleranceFileText(std::string_view angleText, std::string_view lengthText);

enum class ToleranceFileRead { Missing, Read, Bad };
// The texts of the two boxes as the file keeps them. Bad: the file cannot be read, or a line is
// not one of the two keys with a value the box takes (each key at most once); the texts are
// then left as they were.
ToleranceFileRead ReadToleranceFile(const std::filesystem::path &path, std::string &angleText,
                                    std::string &lengthText);

} // namespace vorna
