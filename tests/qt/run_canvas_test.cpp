// Tests of the Qt surfaces' batching: runs per pen in drawing order, clipping, the scale and
// the helpers that convert texts and filters for Qt.
#include "ui/qt/control_binding.h"
#include "ui/qt/qt_canvas.h"
#include "ui/qt/qt_ui.h"
#include "view/stroke_font.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace vorna::qt {
namespace {

using Kind = PaintRun::Kind;
constexpr Rgb kRed = 0x0000FF, kBlue = 0xFF0000;

// A 200 x 100 pixel surface showing x 0..20, y 0..10 (y up): 10 pixels per unit.
class RecordingRunCanvas : public RunCanvas {
public:
    RecordingRunCanvas() : RunCanvas(QSize(200, 100)) { SetScale({0, 10, 20, -10}); }
    std::vector<PaintRun> runs;
    int erased = 0, shown = 0;
    using RunCanvas::ShapePixels;

protected:
    void Paint(const PaintRun &run) override { runs.push_back(run); }
    void Erase() override { ++erased; }
    void Show() override { ++shown; }
};

TEST(RunCanvas, OnePenMakesOneRunAndDrawingOrderIsKept) {
    RecordingRunCanvas c;
    c.Line(0, 10, 1, 9, Pen{kRed});
    c.Line(1, 9, 2, 8, Pen{kRed});
    c.SetLineWidth(4);
    c.Line(2, 8, 3, 7, Pen{kRed});
    c.Line(3, 7, 4, 6, Pen{kBlue});
    c.Arc(5, 5, 1, Pen{kBlue}, 0, 0);
    c.Arc(6, 5, 1, Pen{kBlue}, 0, 0);
    c.Arc(7, 5, 2, Pen{kBlue}, 0, 0);
    c.FilledCircle(8, 5, 1, kBlue);
    c.Line(4, 6, 5, 5, Pen{kBlue});
    EXPECT_EQ(c.runs.size(), 6u) << "the last run waits for a pen change or a refresh";
    c.Refresh();
    EXPECT_EQ(c.shown, 1);
    ASSERT_EQ(c.runs.size(), 7u);
    EXPECT_EQ(c.runs[0].kind, Kind::Lines);
    EXPECT_EQ(c.runs[0].lines.size(), 2u);
    EXPECT_EQ(c.runs[0].lines[0], QLineF(0, 0, 10, 10));
    EXPECT_EQ(c.runs[0].width, 1);
    EXPECT_EQ(c.runs[1].width, 4);
    EXPECT_EQ(c.runs[1].colour, kRed);
    EXPECT_EQ(c.runs[2].colour, kBlue);
    EXPECT_EQ(c.runs[3].kind, Kind::Circles);
    EXPECT_EQ(c.runs[3].centres.size(), 2u);
    EXPECT_DOUBLE_EQ(c.runs[3].radius, 10);
    EXPECT_EQ(c.runs[3].centres[1], QPointF(60, 50));
    EXPECT_DOUBLE_EQ(c.runs[4].radius, 20) << "another radius is another stamp";
    EXPECT_EQ(c.runs[5].kind, Kind::Discs);
    EXPECT_EQ(c.runs[6].kind, Kind::Lines);
}

TEST(RunCanvas, WhatCannotBeSeenIsDroppedOrClipped) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    RecordingRunCanvas c;
    c.Line(100, 5, 200, 5, Pen{kRed});  // right of the surface
    c.Line(nan, 5, 1, 5, Pen{kRed});    // not a number
    c.Line(0, 5, inf, 5, Pen{kRed});    // no end
    c.Arc(-50, 5, 1, Pen{kRed}, 0, 0);  // far left
    c.Arc(1, 5, nan, Pen{kRed}, 0, 0);  // no radius
    c.Arc(1, 5, 1e12, Pen{kRed}, 0, 0); // larger than any screen
    c.FilledCircle(inf, 5, 1, kRed);
    c.Refresh();
    EXPECT_TRUE(c.runs.empty());

    c.Line(10, 5, 1e9, 5, Pen{kRed});   // leaves the surface: cut at the margin
    c.Arc(-0.5, 5, 1, Pen{kRed}, 0, 0); // centre outside, outline inside
    c.Refresh();
    ASSERT_EQ(c.runs.size(), 2u);
    EXPECT_EQ(c.runs[0].lines[0], QLineF(100, 50, 203, 50));
    EXPECT_EQ(c.runs[1].centres.size(), 1u);

    c.runs.clear();
    c.SetScale({0, 0, 0, 0}); // a surface without a scale draws nothing
    c.Line(0, 0, 1, 1, Pen{kRed});
    c.Arc(0, 0, 1, Pen{kRed}, 0, 0);
    c.Refresh();
    EXPECT_TRUE(c.runs.empty());
}

TEST(RunCanvas, TextsOutOfSightOrUnderAPixelAreLeftOutAndRunsStayShort) {
    RecordingRunCanvas c; // 10 pixels per unit, x 0..20, y 0..10
    EXPECT_TRUE(c.ShowsText(1, 1, 2, 2, 0.1));
    EXPECT_TRUE(c.ShowsText(-5, -5, 0.1, 0.1, 0.1)) << "a corner reaches in";
    EXPECT_TRUE(c.ShowsText(20.2, 1, 30, 2, 0.1)) << "within the margin of a line";
    EXPECT_FALSE(c.ShowsText(21, 1, 30, 2, 0.1));
    EXPECT_FALSE(c.ShowsText(1, -9, 2, -1, 0.1));
    EXPECT_FALSE(c.ShowsText(1, 1, 2, 2, 0.09)) << "characters under a pixel";
    c.SetScale({0, 10, 20, -1000}); // one axis squeezed: the larger scale decides
    EXPECT_TRUE(c.ShowsText(1, 1, 2, 2, 0.1));

    // One pen for longer than a run holds: several runs, every line in its order.
    c.SetScale({0, 10, 20, -10});
    for (int k = 0; k < 20000; ++k)
        c.Line(0, 0, k % 20, 10, Pen{kRed});
    c.Refresh();
    std::size_t lines = 0, longest = 0;
    for (const PaintRun &run : c.runs) {
        for (const QLineF &line : run.lines)
            ASSERT_DOUBLE_EQ(line.x2(), static_cast<double>(lines++ % 20 * 10));
        longest = std::max(longest, run.lines.size());
    }
    EXPECT_EQ(lines, 20000u);
    EXPECT_LE(longest, 8192u);
}

TEST(RunCanvas, HeldShapesAreStampedUntilTheGridChanges) {
    RecordingRunCanvas c; // 10 pixels per unit, y up
    const ShapeName name{'A', 0, 1, 1};
    EXPECT_FALSE(c.Stamp(name, 1, 1, Pen{kRed})) << "not held yet";
    const double dash[] = {0, 0, 0.2, 0.1, 0.2, 0.1, 0.2, 0.1};
    ASSERT_TRUE(c.HoldShape(name, dash));
    EXPECT_TRUE(c.Stamp(name, 1, 1, Pen{kRed}));
    EXPECT_TRUE(c.Stamp(name, 100, 1, Pen{kRed})) << "out of sight: nothing left to draw";
    EXPECT_TRUE(c.Stamp(name, 2, 1, Pen{kRed}));
    c.Refresh();
    ASSERT_EQ(c.runs.size(), 1u);
    ASSERT_EQ(c.runs[0].kind, Kind::Stamps);
    ASSERT_EQ(c.runs[0].stamps.size(), 2u);
    EXPECT_EQ(c.runs[0].stamps[0].at, QPoint(10, 90));
    EXPECT_EQ(c.runs[0].stamps[1].at, QPoint(20, 90));
    // Half way between two rows the stroke covers each by half; the point at its end adds nothing.
    EXPECT_EQ(
        c.ShapePixels(c.runs[0].stamps[0].shape),
        (std::vector<CoveredPixel>{{{1, -1}, 128}, {{2, -1}, 256}, {{0, 0}, 256}, {{1, 0}, 128}}));

    c.SetScale({0, 10, 40, -20}); // another grid: the shape must be given again
    EXPECT_FALSE(c.Stamp(name, 1, 1, Pen{kRed}));
    const double wide[] = {0, 0, 200, 0};
    EXPECT_FALSE(c.HoldShape(name, wide)) << "too large to be worth a stamp";
}

// A surface that keeps no shapes: every glyph is stroked line by line.
class StrokingCanvas : public QtCanvas {
public:
    using QtCanvas::QtCanvas;
    bool HoldShape(const ShapeName &, std::span<const double>) override { return false; }
};

// Lit pixels of a that have no lit pixel within one pixel in b.
int Strays(const QImage &a, const QImage &b) {
    int strays = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) == qRgb(0, 0, 0))
                continue;
            bool near = false;
            for (int dy = -1; dy <= 1 && !near; ++dy)
                for (int dx = -1; dx <= 1 && !near; ++dx)
                    near = b.valid(x + dx, y + dy) && b.pixel(x + dx, y + dy) != qRgb(0, 0, 0);
            strays += near ? 0 : 1;
        }
    return strays;
}

TEST(QtCanvas, StampedGlyphsLieWhereTheirStrokesWould) {
    StrokeFont font;
    font.glyphPointCount.fill(-1);
    auto glyph = [&font](unsigned char c, std::initializer_list<int> points) {
        int k = 0;
        for (auto v = points.begin(); v != points.end(); v += 2) {
            font.glyphX[c][k] = static_cast<std::int16_t>(*v);
            font.glyphY[c][k++] = static_cast<std::int16_t>(*(v + 1));
        }
        font.glyphPointCount[c] = static_cast<std::int16_t>(k);
    };
    glyph('A', {0, 30, 50, 99, 50, 99, 99, 30, 25, 60, 75, 60});
    glyph('1', {50, 30, 50, 99, 20, 80, 50, 99});
    glyph('O', {10, 30, 90, 30, 90, 30, 90, 99, 90, 99, 10, 99, 10, 99, 10, 30, 40, 40, 41, 40});
    QtCanvas stamped(QSize(300, 200), Qt::black);
    StrokingCanvas stroked(QSize(300, 200), Qt::black);
    for (QtCanvas *c : {static_cast<QtCanvas *>(&stamped), static_cast<QtCanvas *>(&stroked)}) {
        c->SetScale({0, 20, 30, -20});
        double y = 2;
        for (int angle : {0, 37, 90, -45, 180}) {
            DrawText(font, "A1OAO11A", 1.3 + y / 30, y, angle, 1.7, 2.1, 3, *c);
            y += 3.5;
        }
        c->Refresh();
    }
    const QImage a = stamped.Image(), b = stroked.Image();
    int lit = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            lit += a.pixel(x, y) != qRgb(0, 0, 0) ? 1 : 0;
    EXPECT_GT(lit, 1000);
    EXPECT_EQ(Strays(a, b), 0);
    EXPECT_EQ(Strays(b, a), 0);
}

TEST(RunCanvas, ClearForgetsWhatWasNotPaintedYet) {
    RecordingRunCanvas c;
    c.Line(0, 0, 1, 1, Pen{kRed});
    c.Clear();
    c.Refresh();
    EXPECT_EQ(c.erased, 1);
    EXPECT_TRUE(c.runs.empty());
}

TEST(RunCanvas, ArcsRunCounterClockwiseFromStartToEnd) {
    RecordingRunCanvas c;
    const double pi = std::numbers::pi;
    c.Arc(10, 5, 1, Pen{kRed}, 0, pi / 2);
    c.Arc(10, 5, 1, Pen{kRed}, 3 * pi / 2, pi / 2); // across zero
    c.Refresh();
    ASSERT_EQ(c.runs.size(), 1u);
    ASSERT_EQ(c.runs[0].arcs.size(), 2u);
    EXPECT_EQ(c.runs[0].arcs[0].start16, 0);
    EXPECT_EQ(c.runs[0].arcs[0].span16, 90 * 16);
    EXPECT_EQ(c.runs[0].arcs[1].start16, 270 * 16);
    EXPECT_EQ(c.runs[0].arcs[1].span16, 180 * 16);
}

TEST(RunCanvas, SizeInTwipsAndPixelsBackToUnits) {
    RecordingRunCanvas c;
    EXPECT_DOUBLE_EQ(c.TwipsPerPixelX(), 15);
    EXPECT_DOUBLE_EQ(c.WidthTwips(), 3000);
    EXPECT_DOUBLE_EQ(c.HeightTwips(), 1500);
    c.SetDpi(120, 144);
    EXPECT_DOUBLE_EQ(c.TwipsPerPixelX(), 12);
    EXPECT_DOUBLE_EQ(c.HeightTwips(), 1000);
    QPointF back = c.ToUnits(c.ToPixel(3.5, 7.25));
    EXPECT_DOUBLE_EQ(back.x(), 3.5);
    EXPECT_DOUBLE_EQ(back.y(), 7.25);
}

TEST(QtCanvas, ShowsOnlyWhatChangedAndKeepsItsPictureOnResizing) {
    QtCanvas c(QSize(40, 30), Qt::black);
    c.SetScale({0, 3, 4, -3});
    c.Image();
    EXPECT_FALSE(c.NeedsShowing());
    c.Line(0, 0, 4, 3, Pen{0xFFFFFF});
    EXPECT_TRUE(c.NeedsShowing()) << "a pending run must reach the screen too";
    c.Image();
    EXPECT_FALSE(c.NeedsShowing());
    c.Resize(QSize(80, 60));
    EXPECT_EQ(c.Image().size(), QSize(80, 60));
    EXPECT_DOUBLE_EQ(c.WidthTwips(), 1200);
}

TEST(QtTexts, FiltersSymbolFontAndCodePage) {
    EXPECT_EQ(SaveFilters("Disegno (*.dis)|*.dis|File DXF|*.dxf;*.DXF"),
              QStringList({"Disegno (*.dis)", "File DXF (*.dxf *.DXF)"}));
    EXPECT_EQ(SaveFilters("Solo descrizione"), QStringList());
    EXPECT_EQ(SymbolFontText("a"), QString::fromUtf8("α"));
    EXPECT_EQ(SymbolFontText("x1"), QString::fromUtf8("ξ1"));
    EXPECT_EQ(ToQString("perch\xE8"), QString::fromUtf8("perchè"));
    EXPECT_EQ(FromQString(QString::fromUtf8("perchè")), "perch\xE8");
}

} // namespace
} // namespace vorna::qt
