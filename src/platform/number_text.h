// Number text: the lenient leading-number parse, the strict parse, rounding to 16-bit integers
// and the plain decimal texts the files use.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// Length of the longest leading part of text (after `skipped` leading blanks and tabs) that reads
// as a decimal number: optional sign, digits, optional "." and fraction, optional exponent.
struct NumberSpan {
    std::size_t skipped = 0;
    std::size_t length = 0;
};
NumberSpan LeadingNumberSpan(std::string_view text);

// The readers' common case, a short integer at the very start of text (an optional sign and 1 to
// 15 digits, which a double holds exactly) that no ".", "e" or "E" continues: its value and
// length. Nothing otherwise, and then LeadingNumberIfAny reads the text.
struct ShortInteger {
    double value = 0;
    std::size_t length = 0;
};
inline std::optional<ShortInteger> LeadingShortInteger(std::string_view text) {
    const bool negative = !text.empty() && text[0] == '-';
    const std::size_t first = !text.empty() && (negative || text[0] == '+') ? 1 : 0;
    std::size_t i = first;
    std::uint64_t n = 0; // wraps round past 19 digits, which are not taken
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        n = n * 10 + static_cast<unsigned char>(text[i] - '0');
    if (i == first || i - first > 15 ||
        (i < text.size() && (text[i] == '.' || text[i] == 'e' || text[i] == 'E')))
        return std::nullopt;
    return ShortInteger{negative ? -static_cast<double>(n) : static_cast<double>(n), i};
}

// The leading number of a text, 0 when there is none (blanks before it are skipped).
double LeadingNumber(std::string_view text);
// The same, but nothing when the text does not start with a number.
std::optional<double> LeadingNumberIfAny(std::string_view text);
// The whole text, trimmed, must be one number; otherwise nothing.
std::optional<double> StrictNumber(std::string_view text);

// Nearest integer, a half going to the even neighbour.
double RoundHalfEven(double value);
// Rounded to the nearest integer (half to even); nothing when outside the type's range or NaN.
// Inline: the readers call it for nearly every field.
inline std::optional<std::int16_t> ToInt16(double value) {
    // Most values are whole already: no rounding call for them.
    if (!(value >= -32768.0 && value <= 32767.0 && static_cast<int>(value) == value))
        value = RoundHalfEven(value);
    if (!(value >= -32768.0 && value <= 32767.0))
        return std::nullopt;
    return static_cast<std::int16_t>(value);
}
std::optional<std::int32_t> ToInt32(double value);

// Shortest decimal text that reads back as the same value, "." as separator, no blanks.
std::string NumberText(double value);
std::string IntText(long long value);
// A figure with a fixed number of decimals, "." as separator; never "-0.0".
std::string FixedText(double value, int decimals);
// A number as the drawing files print it: one blank before a value that is not negative, "-"
// before a negative one; shortest round-trip digits with no leading zero before the point
// (" .5", "-.25"); exponent form ("1E+16", "1.5E-05") for magnitudes from 1e15 up or below
// 1e-4. Zero, -0 and the non-finite values print as " 0".
std::string PrintedNumber(double value);

} // namespace vorna
