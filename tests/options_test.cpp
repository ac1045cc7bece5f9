// Tests of the display and internal options files.
#include "options/options.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

TEST(InternalOptions, LinesOfTheFormValueBarPcKBarSetOptionK) {
    InternalOptions o;
    ParseInternalOptions("20|PC1|trappola\r\n3,5|pc2|x\r\n9|PC6|x\r\n8|PC3\r\n1.5|PC4|a\r\n", o);
    EXPECT_EQ(o(1), 20);
    EXPECT_EQ(o(2), 3.5); // the suite may write a decimal comma
    EXPECT_EQ(o(3), 7);   // one bar only: ignored
    EXPECT_EQ(o(4), 1.5);
    EXPECT_EQ(o(5), 1); // default kept

    InternalOptions later;
    ParseInternalOptions("20|PC1|a\r\n30|PC1|b\r\nabc|PC2|c\r\n", later);
    EXPECT_EQ(later(1), 30);
    EXPECT_EQ(later(2), 25); // not a number: unchanged
}

TEST(DisplayOptions, MissingFileGivesDefaultsShortFileLeavesOptionsUnset) {
    test::TempDir dir;
    DisplayOptions o;
    ReadDisplayOptions(dir.path().string(), o);
    EXPECT_EQ(o(4), 4);
    EXPECT_EQ(o(30), 16711680);
    EXPECT_EQ(o.values[5].kind, OptionValue::Kind::Unset);
    EXPECT_EQ(o.values[22].number, 1);

    ParseDisplayOptions("0\r\n2.5\r\nabc\r\n", o);
    EXPECT_EQ(o(1), 0);
    EXPECT_EQ(o(2), 2.5);
    EXPECT_EQ(o.values[3].kind, OptionValue::Kind::Text);
    EXPECT_EQ(o.values[4].kind, OptionValue::Kind::Unset);
    EXPECT_EQ(o(4), 0);
}

TEST(DisplayOptions, SavedOptionsReadBackTheSameAndFailuresSayMessage5) {
    test::TempDir dir;
    MessageCatalogue messages;
    FillMessageCatalogue(messages);
    DisplayOptions o;
    SetDefaultDisplayOptions(o);
    o.values[2] = OptionValue::Of(0.25);
    EXPECT_EQ(WriteDisplayOptions(dir.path().string(), o, messages), " Opzioni salvate ");
    std::string bytes = test::ReadBytes(dir.path() / "VorNOpzi.txt");
    EXPECT_EQ(bytes.substr(0, 15), "1\r\n0.25\r\n1\r\n4\r\n");
    DisplayOptions back;
    ReadDisplayOptions(dir.path().string(), back);
    for (int k = 1; k <= kDisplayOptionCount; ++k) {
        EXPECT_EQ(back.values[k].kind, o.values[k].kind) << k;
        EXPECT_EQ(back(k), o(k)) << k;
    }
    EXPECT_EQ(WriteDisplayOptions((dir.path() / "none").string(), o, messages),
              " Problemi nel salvataggio delle opzioni ");
}

} // namespace
} // namespace vorna
