// Tests of the platform layer: number text, code page, field and line reading, paths, writing.
#include "model/load_structure.h"
#include "model/tokens.h"
#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace vorna {
namespace {

TEST(NumberText, LeadingNumberTakesThePrefixStrictNumberTheWholeText) {
    const std::pair<const char *, double> leading[] = {
        {"  12.5abc", 12.5}, {"-3e2x", -300}, {"1e", 1}, {".5", 0.5},
        {"abc", 0},          {"", 0},         {"-", 0},  {"+7", 7}};
    for (auto [text, value] : leading)
        EXPECT_EQ(LeadingNumber(text), value) << text;
    EXPECT_TRUE(std::isinf(LeadingNumber("1e999")));
    EXPECT_EQ(StrictNumber(" 30 "), 30.0);
    EXPECT_EQ(StrictNumber("-12.75"), -12.75);
    for (const char *text : {"30x", "", "1,5"})
        EXPECT_FALSE(StrictNumber(text)) << text;
}

// What a field's leading number means: the float parser's reading of the span LeadingNumberSpan
// finds. Short integers are read without the float parser, by LeadingNumberIfAny and in one pass
// by ReadLeadingNumber; both must give its value, bit for bit.
std::optional<double> SpanValue(std::string_view text) {
    const NumberSpan span = LeadingNumberSpan(text);
    if (span.length == 0)
        return std::nullopt;
    return StrictNumber(text.substr(span.skipped, span.length));
}

std::string Bits(std::optional<double> value) {
    return value ? testing::PrintToString(std::bit_cast<std::uint64_t>(*value)) : "none";
}

TEST(NumberText, ShortIntegersReadAsTheFloatParserReadsThem) {
    std::vector<std::string> texts = {"-0",
                                      "+0",
                                      "007",
                                      "-12x",
                                      "+",
                                      "-",
                                      "12e",
                                      "12e3",
                                      "12E-1",
                                      "12.",
                                      "12.5",
                                      ".5",
                                      "1e999",
                                      "999999999999999",
                                      "-999999999999999",
                                      "9999999999999999",
                                      "0000000000000001",
                                      "18446744073709551616",
                                      "99999999999999999999999",
                                      "12,3",
                                      "1 2",
                                      "\"7\"",
                                      "7\"1\""};
    std::mt19937 random(41);
    const std::string alphabet = "0123456789000+-.eE ,\"x\t";
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        for (auto length = random() % 24; length > 0; --length)
            text += alphabet[random() % alphabet.size()];
        texts.push_back(text);
    }
    std::string lines;
    for (const std::string &text : texts) {
        ASSERT_EQ(Bits(LeadingNumberIfAny(text)), Bits(SpanValue(text))) << text;
        lines += text + (text.size() % 3 == 0 ? "\r\n" : ",");
    }
    // The fields of the same lines, read in one pass and cut out first.
    TextCursor fast{lines}, cut{lines};
    for (;;) {
        std::optional<double> value;
        std::string_view field;
        const bool more = ReadLeadingNumber(fast, value);
        ASSERT_EQ(more, ReadNumberField(cut, field));
        if (!more)
            break;
        ASSERT_EQ(Bits(value), Bits(SpanValue(field))) << field;
    }
}

TEST(NumberText, RoundingIsHalfToEvenAndRangeChecked) {
    const std::pair<double, int> rounded[] = {
        {2.5, 2}, {3.5, 4}, {-2.5, -2}, {32767.4, 32767}, {-32768.0, -32768}};
    for (auto [value, expected] : rounded)
        EXPECT_EQ(ToInt16(value), expected) << value;
    for (double value : {32767.5, -32769.0, std::nan("")})
        EXPECT_FALSE(ToInt16(value)) << value;
    EXPECT_FALSE(ToInt32(1e10));
    EXPECT_EQ(NumberText(16776960), "16776960");
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(-0.0), "0");
}

TEST(Text, Cp1252RoundTripsEveryByte) {
    std::string all;
    for (int c = 0; c < 256; ++c)
        all += static_cast<char>(c);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
    EXPECT_EQ(Utf8ToCp1252("è€"), "\xE8\x80");
    EXPECT_EQ(LowerCase("C:\\SUITE\xC8"), "c:\\suite\xE8");
}

// A byte that does not belong to a valid UTF-8 sequence (Latin-1 text, a cut sequence) stands
// for itself and takes nothing from the characters around it.
TEST(Text, InvalidUtf8IsConvertedByteByByte) {
    EXPECT_EQ(Utf8ToCp1252("caff\xE8 \xC3\xA8"), "caff\xE8 \xE8");
    EXPECT_EQ(Utf8ToCp1252(std::string("\xE8") + "abc"), std::string("\xE8") + "abc");
    EXPECT_EQ(Utf8ToCp1252("\xF0\xE2\x82\xAC"), "\xF0\x80");
    EXPECT_EQ(Utf8ToCp1252("\xC0\xAF\xED\xA0\x80"), "\xC0\xAF\xED\xA0\x80"); // overlong, surrogate
    EXPECT_EQ(Utf8ToCp1252("\x81\x8D\x8F\x90\x9D\xC2\x81"), "?????\x81"); // no character of its own
    EXPECT_EQ(Utf8ToCp1252("\xF0\x9F\x98\x80."), "?.");

    // Random text made of pieces whose conversion is known on their own: characters the code
    // page holds or not, bytes that never start a sequence, and sequences cut short before a
    // plain character.
    std::string utf8Of[256];
    for (int b = 0; b < 256; ++b)
        utf8Of[b] = Cp1252ToUtf8(std::string(1, static_cast<char>(b)));
    const auto byteOf = [&](const std::string &encoded) -> char {
        for (int b = 0; b < 256; ++b)
            if (utf8Of[b] == encoded)
                return static_cast<char>(b);
        return '?';
    };
    const auto encode = [](char32_t cp) {
        std::string out;
        if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
        } else if (cp < 0x10000) {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (cp >> 18));
            out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        }
        return out + static_cast<char>(0x80 | (cp & 0x3F));
    };
    // The five bytes without a character of their own.
    const auto own = [](char c) {
        return std::string_view("\x81\x8D\x8F\x90\x9D").find(c) == std::string::npos ? c : '?';
    };
    std::mt19937 rng(5);
    for (int round = 0; round < 2000; ++round) {
        std::string text, expected;
        for (auto n = rng() % 12; n > 0; --n) {
            switch (rng() % 4) {
            case 0: { // a character of the code page
                const std::string &piece = utf8Of[rng() % 256];
                text += piece;
                expected += byteOf(piece);
                break;
            }
            case 1: { // a character beyond it
                auto cp = static_cast<char32_t>(0x100 + rng() % (0x10FFFF - 0x100));
                if (cp >= 0xD800 && cp <= 0xDFFF)
                    cp += 0x800;
                text += encode(cp);
                expected += byteOf(encode(cp));
                break;
            }
            case 2: { // a byte that cannot start a sequence
                const std::string_view never = "\x80\x81\x9D\xA0\xBF\xC0\xC1\xF5\xFF";
                const char c = never[rng() % never.size()];
                text += c;
                expected += own(c);
                break;
            }
            default: { // a sequence cut short, then a plain character
                const std::string full = encode(static_cast<char32_t>(0x80 + rng() % 0x10000));
                const std::string cut = full.substr(0, 1 + rng() % (full.size() - 1));
                text += cut + 'x';
                for (char c : cut)
                    expected += own(c);
                expected += 'x';
                break;
            }
            }
        }
        ASSERT_EQ(Utf8ToCp1252(text), expected) << testing::PrintToString(text);
    }
}

TEST(TextFile, FieldsFollowTheCommaSeparatedRules) {
    TextCursor c{std::string("  \"P_HEA 200\" , 12 3,x y \r\n\r\n  7\r\nlast")};
    std::string_view f;
    ASSERT_TRUE(ReadTextField(c, f));
    EXPECT_EQ(f, "P_HEA 200");
    ASSERT_TRUE(ReadNumberField(c, f));
    EXPECT_EQ(f, "12"); // a blank ends a number
    ASSERT_TRUE(ReadNumberField(c, f));
    EXPECT_EQ(f, "3");
    ASSERT_TRUE(ReadTextField(c, f));
    EXPECT_EQ(f, "x y");                // text runs to the line end, trailing blanks dropped
    ASSERT_TRUE(ReadNumberField(c, f)); // empty lines before a number are skipped
    EXPECT_EQ(f, "7");
    ASSERT_TRUE(ReadLine(c, f));
    EXPECT_EQ(f, "last");
    EXPECT_FALSE(ReadLine(c, f));
    EXPECT_FALSE(ReadTextField(c, f));
    EXPECT_FALSE(ReadNumberField(c, f));
}

// Every read of a file taken in pieces, with lines and line ends across the pieces' seams, agrees
// with the same reads of the text in memory.
TEST(TextFile, AFileReadInPiecesReadsAsTheSameTextInMemory) {
    std::mt19937 random(16);
    const std::string alphabet = " ,\"\r\n\t1a";
    std::string text;
    while (text.size() < 300000)
        text += random() % 50 == 0 ? std::string(random() % 70000, '7')
                                   : std::string(1, alphabet[random() % alphabet.size()]);
    text.replace(64 * 1024 - 1, 2, "\r\n"); // one line end across the first seam (64 KiB)
    test::TempDir dir;
    dir.Write("t.txt", text);
    auto file = TextCursor::Open(dir.path() / "t.txt");
    ASSERT_TRUE(file);
    TextCursor memory{text};
    for (int read = 0;; ++read) {
        std::string_view a, b;
        const int kind = static_cast<int>(random() % 3);
        const bool more = kind == 0   ? ReadLine(*file, a)
                          : kind == 1 ? ReadTextField(*file, a)
                                      : ReadNumberField(*file, a);
        ASSERT_EQ(more, kind == 0   ? ReadLine(memory, b)
                        : kind == 1 ? ReadTextField(memory, b)
                                    : ReadNumberField(memory, b))
            << read;
        ASSERT_EQ(a, b) << read;
        if (!more)
            break;
    }
}

// A line longer than any the files hold is one bad value, never held whole; the line after it is
// read as usual.
TEST(TextFile, AnOverlongLineReadsAsOneBadValue) {
    TextCursor c{std::string(kMaxLineLength + 1, '5') + "\r\n7, 8\r\n" +
                 std::string(kMaxLineLength * 2, ' ')};
    std::string_view f;
    ASSERT_TRUE(ReadNumberField(c, f));
    EXPECT_EQ(f, std::string(1, '\0'));
    ASSERT_TRUE(ReadLine(c, f));
    EXPECT_EQ(f, "7, 8");
    ASSERT_TRUE(ReadLine(c, f));
    EXPECT_FALSE(ReadLine(c, f));
    StructureModel model;
    EXPECT_EQ(ParseStructure(std::string(kMaxLineLength + 1, 'x') + "release\r\n0\r\n", model),
              LoadResult::OldVersion);
}

TEST(Tokens, NextTokenCutsBlankSeparatedTokens) {
    std::string line = "12\t3   1";
    for (const char *token : {"12", "3", "1", ""})
        EXPECT_EQ(NextToken(line, " "), token);
    std::string text = "aXbxc";
    EXPECT_EQ(ReplaceAll(text, "x", "xx", true), 5u);
    EXPECT_EQ(text, "axxbxxc");
}

// The structure reader reads the numbers of a token line itself for speed; it must agree with
// NextToken and LeadingNumber.
TEST(Tokens, TokenNumbersAgreeWithNextToken) {
    std::mt19937 rng(7);
    const char alphabet[] = {' ', ' ', '\t', 'a', '1', '7', '-', '+', '.', 'e'};
    for (int round = 0; round < 4000; ++round) {
        std::string line;
        for (auto n = rng() % 24; n > 0; --n)
            line += alphabet[rng() % sizeof alphabet];
        std::array<double, 6> fast;
        ParseTokenNumbers(line, fast);
        std::string rest = line;
        for (double number : fast)
            ASSERT_EQ(Bits(number), Bits(LeadingNumber(NextToken(rest, " "))))
                << '"' << line << '"';
    }
}

#ifdef _WIN32
// Windows resolves drive letters, both separators and letter case itself; the names must reach
// it with every Windows-1252 character intact.
TEST(Paths, NativePathLeavesNamesToTheFileSystem) {
    test::TempDir dir;
    dir.Write("Suite/Impostazioni/DirLav", "x");
    const std::string root = LowerCase(Utf8ToCp1252(dir.path().generic_string()));
    EXPECT_EQ(test::ReadBytes(NativePath(root + "/suite\\impostazioni\\dirlav")), "x");
    EXPECT_EQ(test::ReadBytes(NativePath(UpperCase(root) + "\\SUITE/IMPOSTAZIONI/DIRLAV")), "x");

    ASSERT_TRUE(WriteFileAtomic(NativePath(root + "\\suite\\Perch\xE9 \x80.txt"), "y"));
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "Suite" / u8"Perché €.txt"));
}
#else
TEST(Paths, NativePathMatchesComponentsIgnoringCase) {
    test::TempDir dir;
    dir.Write("Suite/Impostazioni/DirLav", "x");
    std::string name = dir.path().string() + "/suite\\impostazioni\\dirlav";
    EXPECT_EQ(NativePath(name), dir.path() / "Suite/Impostazioni/DirLav");
    EXPECT_EQ(NativePath(dir.path().string() + "\\suite\\new.txt"), dir.path() / "Suite/new.txt");
}
#endif

} // namespace
} // namespace vorna
