// Number text: the lenient leading-number parse, the strict parse, rounding to 16-bit integers
// and the plain decimal texts the files use.
#include "platform/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace vorna {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t Digits(std::string_view t, std::size_t i) {
    while (i < t.size() && IsDigit(t[i]))
        ++i;
    return i;
}

// The value of a span LeadingNumberSpan found.
double ParseSpan(std::string_view span) {
    if (!span.empty() && span.front() == '+')
        span.remove_prefix(1);
    double value = 0;
    auto res = std::from_chars(span.data(), span.data() + span.size(), value);
    if (res.ec == std::errc::result_out_of_range) // strtod gives the signed infinity or 0
        return std::strtod(std::string(span).c_str(), nullptr);
    return value;
}

} // namespace

NumberSpan LeadingNumberSpan(std::string_view t) {
    NumberSpan span;
    std::size_t i = 0;
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t'))
        ++i;
    span.skipped = i;
    std::size_t start = i;
    if (i < t.size() && (t[i] == '+' || t[i] == '-'))
        ++i;
    std::size_t intEnd = Digits(t, i);
    bool digits = intEnd > i;
    i = intEnd;
    if (i < t.size() && t[i] == '.') {
        std::size_t fracEnd = Digits(t, i + 1);
        if (digits || fracEnd > i + 1) {
            digits = true;
            i = fracEnd;
        }
    }
    if (!digits)
        return span;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < t.size() && (t[j] == '+' || t[j] == '-'))
            ++j;
        std::size_t expEnd = Digits(t, j);
        if (expEnd > j)
            i = expEnd;
    }
    span.length = i - start;
    return span;
}

std::optional<double> LeadingNumberIfAny(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    if (auto integer = LeadingShortInteger(text.substr(i)))
        return integer->value;
    NumberSpan span = LeadingNumberSpan(text);
    if (span.length == 0)
        return std::nullopt;
    return ParseSpan(text.substr(span.skipped, span.length));
}

double LeadingNumber(std::string_view text) {
    return LeadingNumberIfAny(text).value_or(0.0);
}

std::optional<double> StrictNumber(std::string_view text) {
    std::size_t b = 0, e = text.size();
    while (b < e && (text[b] == ' ' || text[b] == '\t'))
        ++b;
    while (e > b && (text[e - 1] == ' ' || text[e - 1] == '\t'))
        --e;
    std::string_view core = text.substr(b, e - b);
    NumberSpan span = LeadingNumberSpan(core);
    if (span.length == 0 || span.length != core.size())
        return std::nullopt;
    return ParseSpan(core);
}

double RoundHalfEven(double value) {
    return std::nearbyint(value);
}

std::optional<std::int32_t> ToInt32(double value) {
    double r = RoundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0))
        return std::nullopt;
    return static_cast<std::int32_t>(r);
}

std::string FixedText(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    std::string s = text;
    if (s.starts_with('-') && s.find_first_not_of("-0.") == std::string::npos)
        s.erase(0, 1);
    return s;
}

std::string NumberText(double value) {
    if (value == 0)
        return "0"; // also for -0
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, value);
    return std::string(buf, res.ptr);
}

std::string IntText(long long value) {
    return std::to_string(value);
}

std::string PrintedNumber(double value) {
    if (value == 0 || !std::isfinite(value))
        return " 0";
    const double magnitude = std::abs(value);
    const bool exponent = magnitude >= 1e15 || magnitude < 1e-4;
    char buf[64];
    buf[0] = value < 0 ? '-' : ' ';
    // to_chars writes the shortest digits; its exponent already has a sign and two digits.
    auto res = std::to_chars(buf + 1, buf + sizeof buf, magnitude,
                             exponent ? std::chars_format::scientific : std::chars_format::fixed);
    std::string text(buf, res.ptr);
    if (exponent)
        std::replace(text.begin(), text.end(), 'e', 'E');
    else if (text.size() > 2 && text[1] == '0' && text[2] == '.')
        text.erase(1, 1);
    return text;
}

} // namespace vorna
