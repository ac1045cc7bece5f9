// Single-byte Windows-1252 text: conversion to and from UTF-8, trimming and lower case.
#include "platform/text.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace vorna {
namespace {

// Code points of bytes 0x80..0x9F; the five undefined bytes map to the C1 controls so that
// any byte survives a round trip.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t CodePoint(unsigned char c) {
    return c >= 0x80 && c < 0xA0 ? kHigh[c - 0x80] : c;
}

void AppendUtf8(std::string &out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

char ByteOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
        return static_cast<char>(cp);
    for (std::size_t i = 0; i < kHigh.size(); ++i)
        if (kHigh[i] == cp)
            return static_cast<char>(0x80 + i);
    return '?';
}

// The lead bytes of UTF-8 sequences of two, three and four bytes: the bits they carry and the
// least code point of that length (a smaller one is an overlong form).
struct LeadByte {
    unsigned char first, last;
    std::size_t length;
    unsigned char bits;
    char32_t least;
};
constexpr std::array<LeadByte, 3> kLeads = {
    {{0xC2, 0xDF, 2, 0x1F, 0x80}, {0xE0, 0xEF, 3, 0x0F, 0x800}, {0xF0, 0xF4, 4, 0x07, 0x10000}}};

// The length of the well-formed UTF-8 sequence that starts at text[i] (overlong forms,
// surrogates and code points beyond U+10FFFF are not), with its code point; 0 when there is none.
std::size_t ValidSequence(std::string_view text, std::size_t i, char32_t &cp) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
        cp = c;
        return 1;
    }
    for (const LeadByte &lead : kLeads) {
        if (c < lead.first || c > lead.last)
            continue;
        if (text.size() - i < lead.length)
            return 0;
        cp = c & lead.bits;
        for (std::size_t k = 1; k < lead.length; ++k) {
            const auto next = static_cast<unsigned char>(text[i + k]);
            if ((next & 0xC0) != 0x80)
                return 0;
            cp = (cp << 6) | (next & 0x3Fu);
        }
        const bool valid = cp >= lead.least && cp <= 0x10FFFF && (cp < 0xD800 || cp > 0xDFFF);
        return valid ? lead.length : 0;
    }
    return 0;
}

// A byte taken as Windows-1252 text; the five bytes that have no character there become "?".
char OwnCharacter(unsigned char c) {
    return c >= 0x80 && c < 0xA0 && CodePoint(c) == c ? '?' : static_cast<char>(c);
}

bool IsBlank(char c) {
    return c == ' ';
}

} // namespace

std::string Cp1252ToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        AppendUtf8(out, CodePoint(static_cast<unsigned char>(c)));
    return out;
}

std::string Utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        char32_t cp = 0;
        if (const std::size_t n = ValidSequence(text, i, cp)) {
            out += ByteOf(cp);
            i += n;
        } else { // Latin-1 or Windows-1252 text, or a cut sequence: the byte stands for itself
            out += OwnCharacter(static_cast<unsigned char>(text[i]));
            ++i;
        }
    }
    return out;
}

std::string TrimLeft(std::string_view text) {
    std::size_t b = 0;
    while (b < text.size() && IsBlank(text[b]))
        ++b;
    return std::string(text.substr(b));
}

std::string TrimRight(std::string_view text) {
    std::size_t e = text.size();
    while (e > 0 && IsBlank(text[e - 1]))
        --e;
    return std::string(text.substr(0, e));
}

std::string Trim(std::string_view text) {
    return TrimLeft(TrimRight(text));
}

std::string LowerCase(std::string_view text) {
    std::string out(text);
    for (char &ch : out) {
        auto c = static_cast<unsigned char>(ch);
        if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7))
            ch = static_cast<char>(c + 0x20);
        else if (c == 0x8A || c == 0x8C || c == 0x8E)
            ch = static_cast<char>(c + 0x10);
        else if (c == 0x9F)
            ch = static_cast<char>(0xFF);
    }
    return out;
}

std::string UpperCase(std::string_view text) {
    std::string out(text);
    for (char &ch : out) {
        auto c = static_cast<unsigned char>(ch);
        if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7))
            ch = static_cast<char>(c - 0x20);
        else if (c == 0x9A || c == 0x9C || c == 0x9E)
            ch = static_cast<char>(c - 0x10);
        else if (c == 0xFF)
            ch = static_cast<char>(0x9F);
    }
    return out;
}

} // namespace vorna
