// The display options ("VorNOpzi.txt", read and written) and the internal options
// ("VorOpInt.txt", read only) of the suite's custom folder.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace vorna {

// An option read from the file: a number, a text, or nothing at all (a distinct state, not 0).
struct OptionValue {
    enum class Kind { Unset, Number, Text };
    Kind kind = Kind::Unset;
    double number = 0;
    std::string text;

    static OptionValue Of(double value) { return {Kind::Number, value, {}}; }
    // The value where a number is needed: a text counts by its leading number, unset as 0.
    double Number() const;
    // The value as the options file holds it; unset is an empty text.
    std::string Text() const;
};

constexpr int kDisplayOptionCount = 30;
constexpr int kInternalOptionCount = 5;

struct DisplayOptions {
    std::array<OptionValue, kDisplayOptionCount + 1> values; // 1..30
    double operator()(int number) const { return values.at(number).Number(); }
};

struct InternalOptions {
    std::array<double, kInternalOptionCount + 1> values{0, 15, 25, 7, 15, 1}; // 1..5
    double operator()(int number) const { return values.at(number); }
};

// Option numbers the rest of the program reads by name.
namespace opt {
constexpr int kHideThinShells = 1, kMinShellThickness = 2, kWidthNormal = 3, kWidthSelected = 4,
              kColourAnalogous = 6, kNodeRadius = 7, kNodeLabels = 8, kBarLabels = 9,
              kTextWidth = 11, kTextHeight = 12, kTextColour = 13, kTextDistance = 14,
              kNodeLabelName = 15, kNodeLabelConstraint = 16, kBarLabelName = 17,
              kBarLabelSection = 18, kBarLabelSectionCard = 19, kBarLabelOrientation = 20,
              kBarLabelRelease = 21, kBaseNodeColour = 27, kBaseBarColour = 28,
              kAnalogousBarColour = 29, kHighlightColour = 30;
constexpr int kPickBoxSize = 1, kAxisLength = 2, kAxisLetterSize = 3, kAxisMargin = 4,
              kAxisColour = 5;
} // namespace opt

void SetDefaultDisplayOptions(DisplayOptions &options);

// A missing file gives the defaults; otherwise options missing from the file stay unset.
void ReadDisplayOptions(std::string_view customFolder, DisplayOptions &options);
void ParseDisplayOptions(std::string text, DisplayOptions &options);

// Starts from the defaults; lines "value|PCk|comment" with k in 1..5 set option k. The value may
// use "." or "," as decimal separator, as the suite writes either depending on the locale.
void ReadInternalOptions(std::string_view customFolder, InternalOptions &options);
void ParseInternalOptions(std::string_view text, InternalOptions &options);

// Writes the 30 options, one per line; returns the message that says whether they were saved.
std::string_view WriteDisplayOptions(std::string_view customFolder, const DisplayOptions &options);
std::string DisplayOptionsText(const DisplayOptions &options);

} // namespace vorna
