// Tests of the display and internal options files and of the two options dialogs.
#include "options/form_opt.h"
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

TEST(InternalOptions, PickBoxSizeIsTheTypedNumberRoundedDownThenPositive) {
    EXPECT_EQ(PickBoxSizeOf("12.7"), 12);
    EXPECT_EQ(PickBoxSizeOf("-12.7"), 13);
    EXPECT_EQ(PickBoxSizeOf("7px"), 7);
    EXPECT_EQ(PickBoxSizeOf(""), 0);
    EXPECT_EQ(PickBoxSizeOf("x"), 0);
    EXPECT_EQ(PickBoxSizeOf("1e999"), 0) << "too large to be a size";
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

struct Dialogs : ::testing::Test {
    Dialogs() { SetDefaultDisplayOptions(options); }
    test::TempDir dir;
    DisplayOptions options;
    test::RecordingUi ui;
    FormOptDialog Open() { return FormOptDialog(options, dir.path().string(), ui); }
};

TEST_F(Dialogs, FormOptShowsTheOptionsWithItsFallbacksAndEnabling) {
    options.values[opt::kWidthNormal] = OptionValue::Of(0);
    options.values[opt::kTextColour] = OptionValue::Of(4);
    options.values[opt::kBarLabels] = OptionValue::Of(1);
    FormOptDialog d = Open();
    EXPECT_EQ(d.form.SpNonSel.text, "1"); // a width of 0 is shown as 1
    EXPECT_EQ(d.form.SpSel.text, "4");
    EXPECT_EQ(d.form.ColoreAsteBase.backColour, 16776960u);
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(d.form.LabelBordCol[i].backColour, i == 4 ? 0x00FFFF00u : 0x0000FFu) << i;
    EXPECT_FALSE(d.form.TxtNodi[0].enabled);
    EXPECT_TRUE(d.form.TxtAste[4].enabled);
    EXPECT_TRUE(d.form.DistTxt.enabled && d.form.LabelCol[9].enabled);
    d.form.CheckTxtAste.checked = false;
    d.MouseUp("CheckTxtAste");
    EXPECT_FALSE(d.form.DistTxt.enabled || d.form.Label8.enabled || d.form.LabelCol[9].enabled);
    d.form.CheckSpGus.checked = false;
    d.Click("CheckSpGus");
    EXPECT_FALSE(d.form.SpMinGus.enabled || d.form.Label1.enabled);

    d.Click("Chiudi"); // the shown fallback is taken over
    EXPECT_TRUE(d.closed);
    EXPECT_EQ(options(opt::kWidthNormal), 1);
    EXPECT_EQ(options(opt::kBarLabels), 0);
    EXPECT_EQ(options(opt::kHideThinShells), 0);
}

TEST_F(Dialogs, AnEmptyTextSizeTurnsOffEveryLabelAndEscTakesNothing) {
    options.values[opt::kNodeLabels] = OptionValue::Of(1);
    options.values[opt::kBarLabels] = OptionValue::Of(1);
    FormOptDialog esc = Open();
    esc.form.BaseTxt.text = "";
    esc.Click("LabelCol(7)");
    esc.Escape();
    EXPECT_EQ(options(opt::kTextWidth), 5);
    EXPECT_EQ(options(opt::kTextColour), 1);

    FormOptDialog d = Open();
    d.form.BaseTxt.text = "";
    d.form.DistTxt.text = "x";
    d.Click("LabelCol(7)");
    d.Click("Chiudi");
    EXPECT_EQ(options(opt::kNodeLabels), 0);
    EXPECT_EQ(options(opt::kBarLabels), 0);
    EXPECT_EQ(options(opt::kTextWidth), 0);
    EXPECT_EQ(options(opt::kTextHeight), 5);
    EXPECT_EQ(options(opt::kTextDistance), 0); // not a number
    EXPECT_EQ(options(opt::kTextColour), 7);
}

TEST_F(Dialogs, ColoursComeFromTheChooserAndSalvaWritesWhatReadsBack) {
    ui.colours = {0x123456u, std::nullopt};
    FormOptDialog d = Open();
    d.Click("Command4");
    d.Click("Command1"); // cancelled: unchanged
    EXPECT_EQ(d.form.ColoreSel.backColour, 0x123456u);
    EXPECT_EQ(d.form.ColoreNodoBase.backColour, 65280u);
    d.form.SpMinGus.text = "2.5cm";
    d.Click("Salva");
    EXPECT_FALSE(d.closed);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, " Opzioni salvate ");
    EXPECT_EQ(ui.messages[0].title, "INFORMAZIONE");
    DisplayOptions back;
    ReadDisplayOptions(dir.path().string(), back);
    for (int k = 1; k <= kDisplayOptionCount; ++k)
        EXPECT_EQ(back.values[k].Text(), options.values[k].Text()) << k;
    EXPECT_EQ(back(opt::kMinShellThickness), 2.5);
    EXPECT_EQ(back(opt::kHighlightColour), 0x123456);
}

} // namespace
} // namespace vorna
