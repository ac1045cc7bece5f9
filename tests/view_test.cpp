// Tests of the 3D view: projection, filters and fit, rendering, the stroke font and primitives,
// the drawing buffers, and the navigation gestures through the window's commands.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/dispatch.h"
#include "app/draw_input.h"
#include "projection/navigation.h"
#include "projection/projection.h"
#include "projection/visibility.h"
#include "recording_canvas.h"
#include "test_support.h"
#include "view/primitives.h"
#include "view/render.h"
#include "view/schema.h"
#include "view/stroke_font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>

namespace vorna {
namespace {

using test::CanvasCall;
using test::RecordingCanvas;

constexpr Rgb kGreen = 65280, kCyan = 16776960, kYellow = 65535, kBlue = 16711680;

// A model built by hand, seen at angles 0, 0, 0: drawing x = model x, drawing y = model z.
struct Scene {
    StructureModel model;
    ViewState view;
    DisplayOptions display;
    InternalOptions internal;
    ConnectionState connection;
    StrokeFont font;

    Scene() {
        SetDefaultDisplayOptions(display);
        font.glyphPointCount.fill(-1);
    }
    int Pt(double x, double z, double y = 0) {
        model.points[model.pointCount] = {x, y, z};
        return model.pointCount++;
    }
    int AddNode(int point, int colour, int name, int constraint = 0) {
        model.nodes[model.nodeCount] = {
            static_cast<std::int16_t>(point), 0, static_cast<std::int16_t>(colour),
            static_cast<std::int16_t>(name), static_cast<std::int16_t>(constraint)};
        return model.nodeCount++;
    }
    int AddBar(int i, int j, int colour, int name) {
        Bar &b = model.bars[model.barCount];
        b = {};
        b.pointI = static_cast<std::int16_t>(i);
        b.pointJ = static_cast<std::int16_t>(j);
        b.colour = static_cast<std::int16_t>(colour);
        b.name = static_cast<std::int16_t>(name);
        return model.barCount++;
    }
    int AddShell(std::array<std::int16_t, 4> v, int colour, int thicknessCard) {
        model.shells[model.shellCount] = {v, static_cast<std::int16_t>(model.shellCount + 1),
                                          static_cast<std::int16_t>(thicknessCard),
                                          static_cast<std::int16_t>(colour)};
        return model.shellCount++;
    }
    void Project(double a = 0, double b = 0, double c = 0) {
        ProjectStructure(model, view, a, b, c);
    }
    void ShowAll() {
        std::fill(view.nodeShown.begin(), view.nodeShown.end(), 1);
        std::fill(view.barShown.begin(), view.barShown.end(), 1);
        std::fill(view.shellShown.begin(), view.shellShown.end(), 1);
    }
    DrawInput Input(bool axes = false) const {
        return {model, view, display, internal, HighlightsOf(connection), font, axes};
    }
    void Glyph(unsigned char c, std::initializer_list<std::pair<int, int>> points) {
        int k = 0;
        for (auto [x, y] : points) {
            font.glyphX[c][k] = static_cast<std::int16_t>(x);
            font.glyphY[c][k++] = static_cast<std::int16_t>(y);
        }
        font.glyphPointCount[c] = static_cast<std::int16_t>(k);
    }
};

// The program with recording fakes, the model of a Scene, and the first view built.
struct App {
    test::RecordingUi ui;
    RecordingCanvas disegno{15000, 15000};
    RecordingCanvas picture;
    std::unique_ptr<Program> p = std::make_unique<Program>(ui, disegno, picture);

    explicit App(const Scene &scene) {
        p->model = scene.model;
        p->font = scene.font;
        SetDefaultDisplayOptions(p->displayOptions);
        for (auto &a : p->form.Angolo)
            a.text = "0";
        p->structureLoaded = true;
        BuildFirstView(*p);
    }
    void Mouse(MouseEvent::Kind kind, double x, double y, MouseButton button = kLeftButton) {
        Disegno_Mouse(*p, {.kind = kind, .button = button, .x = x, .y = y});
    }
    void Click(double x, double y, MouseButton button = kLeftButton) {
        Mouse(MouseEvent::Kind::Press, x, y, button);
        Mouse(MouseEvent::Kind::Release, x, y, button);
    }
    void Move(double x, double y, int held = kNoButton) {
        Disegno_Mouse(*p, {.kind = MouseEvent::Kind::Move, .held = held, .x = x, .y = y});
    }
};

void ExpectWindow(const ViewWindow &w, double xMax, double xMin, double yMax, double yMin) {
    EXPECT_NEAR(w.xMax, xMax, 1e-4);
    EXPECT_NEAR(w.xMin, xMin, 1e-4);
    EXPECT_NEAR(w.yMax, yMax, 1e-4);
    EXPECT_NEAR(w.yMin, yMin, 1e-4);
}

TEST(ViewFilter, IntervalsToleranceReversedBoxesAndCheckBoxes) {
    Scene s;
    for (double x : {0.7, 9.4, -0.5})
        s.AddNode(s.Pt(x, 0), 3, s.model.nodeCount + 1);
    s.AddBar(0, 1, 2, 1);
    s.AddShell({0, 1, 1, -1}, 2, 0);
    VisibilityFilter f;
    // The three nodes, then the bar and the shell: 1 where shown.
    auto shown = [&] {
        ApplyVisibilityFilter(s.model, ListedOf(s.connection), f, s.view);
        std::string out;
        for (int i = 0; i < 3; ++i)
            out += char('0' + s.view.nodeShown[i]);
        return out + ' ' + char('0' + s.view.barShown[0]) + char('0' + s.view.shellShown[0]);
    };
    f.x0 = 1, f.x1 = 9;
    EXPECT_EQ(shown(), "110 11");
    std::swap(f.x0, f.x1);
    EXPECT_EQ(shown(), "110 11");
    f.nodes = false; // hides nodes only
    EXPECT_EQ(shown(), "000 11");
    f.nodes = true; // with an empty list every element is non-analogous
    f.nonAnalogous = false;
    EXPECT_EQ(shown(), "000 01");
    s.connection.nodeListed[0] = 1;
    s.connection.barUses[0] = 2;
    EXPECT_EQ(shown(), "100 11");
}

TEST(ViewFilter, ThinShellsHiddenBelowTheMinimumAndNotDrawnAtIt) {
    Scene s;
    const int a = s.Pt(0, 0), b = s.Pt(10, 0), c = s.Pt(10, 10);
    s.model.thicknessCardCount = 3;
    s.model.thicknessValues[0] = 19.99;
    s.model.thicknessValues[1] = 20;
    s.model.thicknessValues[2] = 20.01;
    for (int card = 0; card < 3; ++card)
        s.AddShell({std::int16_t(a), std::int16_t(b), std::int16_t(c), -1}, 2 + card, card);
    VisibilityFilter f;
    f.x0 = 0, f.x1 = 10, f.z0 = 0, f.z1 = 10;
    f.hideThinShells = true;
    f.minShellThickness = 20;
    s.Project();
    ApplyVisibilityFilter(s.model, ListedOf(s.connection), f, s.view);
    EXPECT_EQ(s.view.shellShown[0], 0);
    EXPECT_EQ(s.view.shellShown[1], 1);
    EXPECT_EQ(s.view.shellShown[2], 1);

    s.display.values[opt::kMinShellThickness] = OptionValue::Of(20);
    RecordingCanvas canvas;
    DrawStructure(s.Input(), canvas);
    auto lines = canvas.Of(CanvasCall::Line);
    ASSERT_EQ(lines.size(), 3u); // only the 20.01 shell, drawn in its own colour
    EXPECT_EQ(lines[0].colour, ColourOfCode(4));

    s.display.values[opt::kHideThinShells] = OptionValue::Of(0);
    RecordingCanvas all;
    DrawStructure(s.Input(), all);
    EXPECT_EQ(all.Of(CanvasCall::Line).size(), 6u); // the filter still hides the thinnest
}

TEST(ViewFit, MarginCentringZoomWindowAndDegenerateExtents) {
    Scene s;
    s.AddNode(s.Pt(0, 0), 3, 1);
    s.AddNode(s.Pt(100, 100), 3, 2);
    s.Project();
    RecordingCanvas wide(30000, 15000);
    VisibilityFilter f;
    f.x0 = f.z0 = 0, f.x1 = f.z1 = 100;
    ASSERT_TRUE(SetViewScale(s.model, ListedOf(s.connection), f, s.view, wide));
    // 10 % on the maximum side, 11 % on the minimum side: 1.21 times the structure.
    ExpectWindow(s.view.shownWindow, 110, -11, 110, -11);
    const ScaleRect sc = wide.Scale();
    EXPECT_NEAR(sc.height, -121, 1e-9); // the height fixes the scale
    EXPECT_NEAR(sc.width, 242, 1e-9);
    EXPECT_NEAR(sc.left + sc.width / 2, 50 - 0.005 * 100, 1e-9);
    EXPECT_NEAR(sc.top, 49.5 + 60.5, 1e-9);
    EXPECT_NEAR(s.view.viewScale, 15000.0 / 121, 1e-9);

    s.view.zoomWindow = {40, 20, 60, 40};
    ASSERT_TRUE(SetViewScale(s.model, ListedOf(s.connection), f, s.view, wide));
    ExpectWindow(s.view.shownWindow, 42, 17.8, 62, 37.8);
    s.view.zoomWindow = {30, 30, 60, 40}; // no width: fit again
    ASSERT_TRUE(SetViewScale(s.model, ListedOf(s.connection), f, s.view, wide));
    ExpectWindow(s.view.shownWindow, 110, -11, 110, -11);

    f.x1 = 50; // only node 0 shown: no extent, the scale stays
    wide.calls.clear();
    EXPECT_FALSE(SetViewScale(s.model, ListedOf(s.connection), f, s.view, wide));
    EXPECT_TRUE(wide.calls.empty());
}

// Two shells, three bars and three nodes with a base node, a base bar, an analogous node and
// an analogous bar; dead elements that must never appear. The colours of each highlight are
// compared with a plain lookup below.
TEST(ViewRender, OrderAndWidthsOfEveryHighlight) {
    Scene s;
    const int p0 = s.Pt(0, 0), p1 = s.Pt(10, 0), p2 = s.Pt(10, 10), p3 = s.Pt(0, 10),
              p4 = s.Pt(20, 0);
    s.model.thicknessCardCount = 1;
    s.model.thicknessValues[0] = 30;
    s.AddShell({std::int16_t(p0), std::int16_t(p1), std::int16_t(p2), std::int16_t(p3)}, 6, 0);
    s.AddShell({std::int16_t(p1), std::int16_t(p4), std::int16_t(p2), -1}, 7, 0);
    s.AddBar(p0, p1, 3, 1); // base bar, also in the base node's record
    s.AddBar(p1, p4, 2, 2); // bar of an analogous node
    s.AddBar(p3, p2, 4, 3);
    s.AddBar(p0, p2, 4, 0);  // name 0
    s.AddBar(p0, p3, 12, 5); // colour 12
    s.AddNode(p0, 5, 1);     // base node, listed too
    s.AddNode(p1, 3, 2);     // analogous
    s.AddNode(p4, 9, 3);
    s.AddNode(p2, 10, 4);
    s.AddNode(p3, 2, 0);
    s.connection.baseNode = 0;
    s.connection.baseBars[0] = 0;
    s.connection.baseBarCount = 1;
    s.connection.nodeListed[0] = s.connection.nodeListed[1] = 1;
    s.connection.barUses[0] = s.connection.barUses[1] = 1;
    s.Project();
    s.ShowAll();
    RecordingCanvas canvas;
    DrawStructure(s.Input(), canvas);
    // Clear, shells at width 1, base bar and analogous bar at 4, plain bar at 1, base node and
    // analogous node at 4, plain node at 1, refresh; widths only where they change.
    EXPECT_EQ(canvas.Sequence(), "CWLLLLLLLWLLWLWAAWAR");
    std::vector<int> widths;
    for (const auto &c : canvas.Of(CanvasCall::Width))
        widths.push_back(c.width);
    EXPECT_EQ(widths, (std::vector<int>{1, 4, 1, 4, 1}));

    // Non-analogous nodes highlighted instead: with nothing listed every node takes the colour.
    s.display.values[opt::kColourAnalogous] = OptionValue::Of(0);
    s.connection = ConnectionState{};
    RecordingCanvas swapped;
    DrawStructure(s.Input(), swapped);
    for (const auto &a : swapped.Of(CanvasCall::Arc))
        EXPECT_EQ(a.colour, kBlue);

    // Joint types coloured: a filled circle under the node's own circle, on the screen only;
    // the drawing export is the same as without.
    const std::vector<Rgb> fills = {0, 0, PackRgb(128, 128, 0)};
    DrawInput filled = s.Input();
    filled.nodeFills = fills;
    RecordingCanvas screen;
    DrawStructure(filled, screen);
    ASSERT_EQ(screen.Of(CanvasCall::FilledCircle).size(), 1u);
    EXPECT_EQ(screen.Sequence().find("FA"), screen.Sequence().rfind('F'));
    EXPECT_EQ(NodeDrawnColour(filled, 2), PackRgb(128, 128, 0));
    EXPECT_EQ(NodeDrawnColour(filled, 1), kBlue);
    DrawBuffers plain, withFills;
    ExportDrawing(s.Input(), screen, plain);
    ExportDrawing(filled, screen, withFills);
    EXPECT_EQ(withFills.arcs.size(), plain.arcs.size());
    EXPECT_EQ(withFills.coordX, plain.coordX);

    // A joint looked at in the review, over the nodes: its bar at twice the selected width in
    // its own colour, then a ring about its node; on the screen only.
    const LookedAtJoint joint{1, {{1, PackRgb(128, 0, 255)}}};
    DrawInput looked = s.Input();
    looked.highlights.lookedAt = &joint;
    RecordingCanvas over;
    DrawStructure(looked, over);
    const std::string sequence = over.Sequence();
    ASSERT_NE(sequence.find("AWLWAR"), std::string::npos) << sequence;
    EXPECT_EQ(over.Of(CanvasCall::Width).end()[-3].width, 8);
    EXPECT_EQ(over.Of(CanvasCall::Line).back().colour, PackRgb(128, 0, 255));
    EXPECT_GT(over.Of(CanvasCall::Arc).back().radius, over.Of(CanvasCall::Arc).front().radius);
    DrawBuffers withJoint;
    ExportDrawing(looked, screen, withJoint);
    EXPECT_EQ(withJoint.lines.size(), plain.lines.size());
    EXPECT_EQ(withJoint.arcs.size(), plain.arcs.size());
}

TEST(ViewRender, DrawingMatchesLinearLookupsOnRandomConnections) {
    std::mt19937 rng(7);
    for (int round = 0; round < 20; ++round) {
        Scene s;
        const int points = 60;
        for (int i = 0; i < points; ++i)
            s.Pt(static_cast<double>(rng() % 100), static_cast<double>(rng() % 100));
        for (int i = 0; i < 300; ++i)
            s.AddBar(int(rng() % points), int(rng() % points), int(rng() % 11), int(rng() % 4));
        for (int i = 0; i < points; ++i)
            s.AddNode(i, int(rng() % 11), int(rng() % 4));
        // Base bars in gathering order, not sorted; records with bars drawn at random.
        ConnectionState &c = s.connection;
        c.baseNode = static_cast<std::int16_t>(rng() % points);
        c.baseBarCount = static_cast<std::int16_t>(rng() % 30);
        for (int k = 0; k < c.baseBarCount; ++k)
            c.baseBars[k] = static_cast<std::int16_t>(rng() % 300);
        for (int r = 0, n = int(rng() % 20); r < n; ++r) {
            AnalogousNode a;
            a.node = static_cast<std::int16_t>(rng() % points);
            a.barCount = 3;
            for (int k = 0; k < 3; ++k)
                a.bars[k] = static_cast<std::int16_t>(rng() % 300);
            c.analogousNodes.push_back(a);
            c.nodeListed[a.node] = 1;
            for (int k = 0; k < 3; ++k)
                ++c.barUses[a.bars[k]];
        }
        s.Project();
        s.ShowAll();
        for (int i = 0; i < 300; i += 7)
            s.view.barShown[i] = 0;
        RecordingCanvas canvas;
        DrawStructure(s.Input(), canvas);

        // The written procedure: linear searches of the base bars and of every record.
        std::vector<std::pair<Rgb, int>> expected, drawn;
        auto inRecords = [&](auto test) {
            return std::any_of(c.analogousNodes.begin(), c.analogousNodes.end(), test);
        };
        for (int i = 0; i < s.model.barCount; ++i) {
            const Bar &b = s.model.bars[i];
            // A bar whose ends meet on screen draws nothing.
            if (!IsLive(b) || !s.view.barShown[i] ||
                (std::abs(ProjectedXOf(s.view, b.pointI) - ProjectedXOf(s.view, b.pointJ)) <=
                     0.0001 &&
                 std::abs(ProjectedYOf(s.view, b.pointI) - ProjectedYOf(s.view, b.pointJ)) <=
                     0.0001))
                continue;
            const bool base = std::find(c.baseBars.begin(), c.baseBars.begin() + c.baseBarCount,
                                        i) != c.baseBars.begin() + c.baseBarCount;
            const bool listed = inRecords([&](const AnalogousNode &a) {
                return std::find(a.bars.begin(), a.bars.begin() + a.barCount, i) !=
                       a.bars.begin() + a.barCount;
            });
            expected.push_back(base     ? std::pair{kCyan, 4}
                               : listed ? std::pair{kYellow, 4}
                                        : std::pair{ColourOfCode(b.colour), 1});
        }
        for (int i = 0; i < s.model.nodeCount; ++i) {
            const Node &n = s.model.nodes[i];
            if (!IsLive(n))
                continue;
            const bool listed = inRecords([&](const AnalogousNode &a) { return a.node == i; });
            expected.push_back(i == c.baseNode ? std::pair{kGreen, 4}
                               : listed        ? std::pair{kBlue, 4}
                                               : std::pair{ColourOfCode(n.colour), 1});
        }
        int width = 0;
        for (const auto &call : canvas.calls) {
            if (call.kind == CanvasCall::Width)
                width = call.width;
            else if (call.kind == CanvasCall::Line || call.kind == CanvasCall::Arc)
                drawn.emplace_back(call.colour, width);
        }
        ASSERT_EQ(drawn, expected) << "round " << round;
    }
}

// Where labels go and at what angle the demo's exported drawings show; here the texts they hold.
TEST(ViewRender, LabelTextsAndTheirParts) {
    Scene s;
    s.display.values[opt::kNodeLabels] = OptionValue::Of(1);
    s.display.values[opt::kBarLabels] = OptionValue::Of(1);
    s.model.sectionNames[1] = " HEA200 ";
    s.AddNode(s.Pt(100, 50), 3, 12, 2);
    s.AddBar(s.Pt(0, 0), s.Pt(0, 10), 2, 7);
    s.model.bars[0].sectionCard = 1;
    s.model.bars[0].orientationCard = 2;
    s.model.bars[0].releaseCard = 3;
    s.Project();
    s.ShowAll();
    // The export pass in drawing mode "gendis" keeps the texts whole and draws nothing on screen.
    RecordingCanvas metrics;
    DrawBuffers buffers;
    ExportDrawing(s.Input(), metrics, buffers);
    ASSERT_EQ(buffers.texts.size(), 2u);
    EXPECT_EQ(buffers.texts[0].text, "N12 V3");
    EXPECT_EQ(buffers.texts[1].text, "A7 HEA200 S2 O3 C4");
    EXPECT_TRUE(metrics.calls.empty());

    s.display.values[opt::kNodeLabelName] = OptionValue::Of(0);
    s.display.values[opt::kBarLabels] = OptionValue::Of(0);
    s.model.nodes[0].constraintCard = 0;
    DrawBuffers again;
    ExportDrawing(s.Input(), metrics, again);
    ASSERT_EQ(again.texts.size(), 1u);
    EXPECT_EQ(again.texts[0].text, "V1");
}

TEST(ViewRender, AxisTriadStaysInTheBottomLeftCorner) {
    Scene s;
    for (char c : {'X', 'Y', 'Z'}) // one baseline stroke each
        s.Glyph(static_cast<unsigned char>(c), {{0, 30}, {99, 30}});
    // However the model is turned, the triad and its letters keep to the corner: within a fifth
    // of the picture from its left and bottom edges. Seen end-on, an axis has no line.
    for (auto [turn, lineCount] : {std::pair{0.0, 5u}, std::pair{180.0, 5u}, std::pair{45.0, 6u}}) {
        s.Project(0, turn, 0);
        RecordingCanvas canvas;
        DrawStructure(s.Input(true), canvas);
        const ScaleRect view = canvas.Scale();
        const double bottom = view.top + view.height;
        const auto lines = canvas.Of(CanvasCall::Line);
        EXPECT_EQ(lines.size(), lineCount) << turn;
        for (const auto &l : lines)
            for (auto [x, y] : {std::pair{l.x1, l.y1}, std::pair{l.x2, l.y2}}) {
                EXPECT_GE(x, view.left) << turn;
                EXPECT_LE(x, view.left + std::abs(view.width) / 5) << turn;
                EXPECT_GE(y, bottom) << turn;
                EXPECT_LE(y, bottom + std::abs(view.height) / 5) << turn;
            }
    }
}

// A screen showing x and y in 0..10 and characters of at least one unit.
class WindowCanvas : public RecordingCanvas {
public:
    bool ShowsText(double xMin, double yMin, double xMax, double yMax,
                   double charSize) const override {
        return xMax >= 0 && xMin <= 10 && yMax >= 0 && yMin <= 10 && charSize >= 1;
    }
};

bool Touches(const CanvasCall &line) {
    for (double t = 0; t <= 1; t += 0.125) {
        const double x = line.x1 + t * (line.x2 - line.x1), y = line.y1 + t * (line.y2 - line.y1);
        if (x >= 0 && x <= 10 && y >= 0 && y <= 10)
            return true;
    }
    return false;
}

// Labels at every angle, size, distance and narrowing, with glyphs reaching the corners of the
// cell: a label the screen leaves out draws no stroke in sight.
TEST(ViewRender, ScreenLeavesOutOnlyLabelsThatCannotBeSeen) {
    std::mt19937 random(15);
    std::uniform_real_distribution<double> place(-30, 40), size(0.3, 3), distance(-4, 4);
    int touching = 0;
    for (int round = 0; round < 200; ++round) {
        Scene s;
        for (unsigned char c : std::string("NVASOC0123456789"))
            s.Glyph(c, {{-99, -99}, {99, 99}, {99, -99}, {-99, 99}, {0, 50}, {50, 0}});
        s.font.glyphNarrowing = static_cast<std::int16_t>(random() % 101) - 50;
        s.display.values[opt::kNodeLabels] = OptionValue::Of(1);
        s.display.values[opt::kBarLabels] = OptionValue::Of(1);
        s.display.values[opt::kTextWidth] = OptionValue::Of(size(random));
        s.display.values[opt::kTextHeight] = OptionValue::Of(size(random));
        s.display.values[opt::kTextDistance] = OptionValue::Of(distance(random));
        // Names and cards of every length, the longest section name among them.
        auto number = [&random] { return static_cast<int>(random() % 65536) - 32768; };
        s.model.sectionNames[1] = " IPE300 ";
        s.model.sectionNames[2] = "HEB1000X500";
        for (unsigned char c : std::string("-EHBIPX"))
            s.Glyph(c, {{-99, 99}, {99, -99}});
        for (int k = 0; k < 6; ++k) {
            s.AddNode(s.Pt(place(random), place(random)), 1, number(), number());
            const int bar = s.AddBar(s.Pt(place(random), place(random)),
                                     s.Pt(place(random), place(random)), 2, number());
            Bar &b = s.model.bars[bar];
            b.sectionCard = static_cast<std::int16_t>(random() % 3);
            b.orientationCard = static_cast<std::int16_t>(number());
            b.releaseCard = static_cast<std::int16_t>(number());
        }
        s.Project();
        s.ShowAll();
        RecordingCanvas all;
        WindowCanvas window;
        DrawStructure(s.Input(), all);
        DrawStructure(s.Input(), window);
        const auto shown = window.Of(CanvasCall::Line);
        auto drawn = [&](const CanvasCall &a) {
            return std::any_of(shown.begin(), shown.end(), [&](const CanvasCall &b) {
                return a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2;
            });
        };
        const double charSize = std::max(s.display(opt::kTextWidth), s.display(opt::kTextHeight));
        if (charSize < 1) {
            Scene bare = s;
            bare.display.values[opt::kNodeLabels] = OptionValue::Of(0);
            bare.display.values[opt::kBarLabels] = OptionValue::Of(0);
            RecordingCanvas bars;
            DrawStructure(bare.Input(), bars);
            EXPECT_EQ(shown.size(), bars.Of(CanvasCall::Line).size()) << "characters under a pixel";
            continue;
        }
        for (const CanvasCall &line : all.Of(CanvasCall::Line)) {
            if (!Touches(line))
                continue;
            ++touching;
            ASSERT_TRUE(drawn(line)) << "round " << round;
        }
    }
    EXPECT_GT(touching, 1000);
}

TEST(StrokeFont, GlyphLinesNarrowingAndMessages) {
    StrokeFont font;
    std::string long60 = "C";
    for (int k = 0; k < 120; ++k)
        long60 += "1020";
    ASSERT_TRUE(ParseStrokeFont("10\r\nA1030204050607080\r\nB103020405060   \r\n"
                                "B103020405060708010203040\r\n" +
                                    long60 + "\r\nD99\r\n",
                                font));
    EXPECT_EQ(font.glyphNarrowing, 10);
    EXPECT_EQ(font.glyphPointCount['A'], 4);
    EXPECT_EQ(font.glyphX['A'][3], 70);
    EXPECT_EQ(font.glyphY['A'][3], 80);
    EXPECT_EQ(font.glyphPointCount['B'], 6); // the later line replaced the first
    EXPECT_EQ(font.glyphPointCount['C'], 100);
    EXPECT_EQ(font.glyphPointCount['D'], 0); // round(2 / 8) strokes
    EXPECT_EQ(font.glyphPointCount['E'], -1);

    StrokeFont shortLine;
    ASSERT_TRUE(ParseStrokeFont("0\r\nB103020405060\r\n", shortLine));
    EXPECT_EQ(shortLine.glyphPointCount['B'], 4); // round(1.5) = 2 strokes
    EXPECT_EQ(shortLine.glyphX['B'][2], 50);
    EXPECT_EQ(shortLine.glyphX['B'][3], 0);
    EXPECT_EQ(shortLine.glyphY['B'][3], 0);

    // A missing font's message is checked with the other start-up messages.
    test::TempDir dir;
    const std::string folder = dir.path().string() + "\\progra";
    dir.Write("progra/font.001", "99999\r\nA1030204050607080\r\n");
    auto message = LoadStrokeFont(folder, shortLine);
    ASSERT_TRUE(message);
    EXPECT_EQ(message->text, "Errore in lettura del file " + folder + "\\font.001 !");
}

// The demo suite's font, built from the Hershey fonts, read back by the program's loader.
TEST(StrokeFont, BuiltFontLoadsWithinTheCell) {
    test::TempDir dir;
    ASSERT_EQ(test::MakeDemoSuite(dir.path()), 0);
    StrokeFont font;
    ASSERT_FALSE(LoadStrokeFont(dir.path().string() + "\\progra", font));
    EXPECT_EQ(font.glyphNarrowing, 0);
    EXPECT_EQ(font.glyphPointCount[' '], -1);
    for (int c = 33; c <= 126; ++c) {
        const int n = font.glyphPointCount[c];
        ASSERT_TRUE(n >= 2 && n <= kGlyphPoints && n % 2 == 0) << char(c);
        for (int k = 0; k < n; ++k)
            ASSERT_TRUE(font.glyphX[c][k] >= 0 && font.glyphX[c][k] <= 99 &&
                        font.glyphY[c][k] >= 0 && font.glyphY[c][k] <= 99)
                << char(c);
    }
    // Capitals stand on the baseline and reach the top; "]" is the diameter sign.
    const auto &ay = font.glyphY['H'];
    const auto [low, high] =
        std::minmax_element(ay.begin(), ay.begin() + font.glyphPointCount['H']);
    EXPECT_EQ(*low, 30);
    EXPECT_GE(*high, 97);
    EXPECT_EQ(font.glyphPointCount[']'], 34);
}

TEST(StrokeFont, DrawTextAdvancesRotatesAndNarrows) {
    Scene s;
    s.Glyph('I', {{0, 30}, {0, 99}, {10, 30}, {10, 30}}); // a stem and a zero-length stroke
    s.Glyph('-', {{0, 30}, {99, 30}});
    RecordingCanvas canvas;
    DrawText(s.font, "I?I", 10, 20, 0, 5, 5, 3, canvas);
    auto lines = canvas.Of(CanvasCall::Line);
    ASSERT_EQ(lines.size(), 2u); // no glyph for "?", still one advance
    EXPECT_NEAR(lines[0].x1, 10, 1e-12);
    EXPECT_NEAR(lines[0].y2, 25, 1e-12);
    EXPECT_NEAR(lines[1].x1, 20, 1e-12);
    EXPECT_EQ(lines[1].colour, ColourOfCode(3));

    canvas.calls.clear(); // angle 90: characters stack upwards, strokes turned left
    DrawText(s.font, "II", 10, 20, 90, 5, 5, 3, canvas);
    lines = canvas.Of(CanvasCall::Line);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].x2, 5, 1e-9);
    EXPECT_NEAR(lines[0].y2, 20, 1e-9);
    EXPECT_NEAR(lines[1].y1, 25, 1e-9);

    canvas.calls.clear();
    s.font.glyphNarrowing = 20;
    DrawText(s.font, "-", 0, 0, 0, 5, 5, 1, canvas);
    DrawText(s.font, "-", 0, 0, 0, 0, 5, 1, canvas);
    ASSERT_EQ(canvas.Of(CanvasCall::Line).size(), 1u);
    EXPECT_NEAR(canvas.Of(CanvasCall::Line)[0].x2, 4, 1e-12);
}

TEST(DrawBuffersTest, CoordinatesAreSharedWithinTheLast31) {
    DrawBuffers b;
    AddLineElement(b, 0, 0, 1, 1, 2);
    AddLineElement(b, 1, 1.00005, 2, 0, 0);
    EXPECT_EQ(b.coordX.size(), 3u);
    EXPECT_EQ(b.lines[1].start, 1);
    EXPECT_EQ(b.lines[1].colour, 0);
    for (int k = 0; k < 28; ++k)
        AddCoordinate(b, 100 + k, 0);
    EXPECT_EQ(AddCoordinate(b, 0, 0), 0); // the 31st newest: found
    AddCoordinate(b, 500, 0);
    EXPECT_EQ(AddCoordinate(b, 0, 0), 32); // the 32nd newest: stored again

    RecordingCanvas metrics;
    BufferCanvas target(metrics, b, false);
    DrawLine(target, 5, 5, 5.00005, 5, PenOfCode(1)); // too short to draw
    EXPECT_EQ(b.lines.size(), 2u);
    // Arcs, and whole texts in drawing mode, are in the demo's exported drawings.
    Scene s;
    s.Glyph('N', {{0, 30}, {0, 99}});
    DrawText(s.font, "N1", 3, 4, 30, 2.26, 3, 0, target); // strokes outside drawing mode
    EXPECT_EQ(b.lines.size(), 3u);
    BufferCanvas gendis(metrics, b, true);
    DrawText(s.font, "N1", 3, 4, 30, 2.26, 3, 0, gendis);
    ASSERT_EQ(b.texts.size(), 1u);
    EXPECT_EQ(b.texts[0].width, 23); // tenths, rounded
    EXPECT_TRUE(b.warnings.empty());
}

TEST(DrawBuffersTest, LimitsWarnOnceThenDrop) {
    DrawBuffers b;
    RecordingCanvas metrics;
    BufferCanvas target(metrics, b, true);
    b.lines.resize(kLineCapacity - 1);
    DrawLine(target, 0, 0, 1, 0, PenOfCode(1));
    DrawLine(target, 0, 0, 2, 0, PenOfCode(1));
    EXPECT_EQ(b.lines.size(), std::size_t(kLineCapacity));
    b.arcs.resize(kArcCapacity - 1);
    DrawArc(target, 0, 0, 1, PenOfCode(1));
    DrawArc(target, 0, 0, 1, PenOfCode(1));
    EXPECT_EQ(b.arcs.size(), std::size_t(kArcCapacity));
    b.texts.resize(kTextCapacity - 1);
    Scene s;
    DrawText(s.font, "a", 0, 0, 0, 1, 1, 1, target);
    DrawText(s.font, "b", 0, 0, 0, 1, 1, 1, target);
    EXPECT_EQ(b.texts.size(), std::size_t(kTextCapacity));
    EXPECT_EQ(b.warnings, (std::vector<std::string>{" Numero eccessivo di elementi di disegno ",
                                                    " Numero eccessivo di elementi di disegno ",
                                                    " Numero eccessivo di testi "}));

    // A full coordinate buffer drops the element that needs a new point.
    DrawBuffers full;
    full.coordX.resize(kCoordCapacity - 1, -1);
    full.coordY.resize(kCoordCapacity - 1, -1);
    EXPECT_EQ(AddCoordinate(full, 7, 7), kCoordCapacity - 1);
    EXPECT_EQ(AddCoordinate(full, 8, 8), -1);
    AddLineElement(full, 9, 9, 7, 7, 1);
    EXPECT_TRUE(full.lines.empty());
    EXPECT_EQ(full.warnings, std::vector<std::string>{" Numero eccessivo di coordinate "});
}

// A 100 x 100 square seen at 0, 0, 0 on a square surface: fitted to -11 .. 110.
Scene Square() {
    Scene s;
    s.AddNode(s.Pt(0, 0), 3, 1);
    s.AddNode(s.Pt(100, 100), 3, 2);
    s.AddNode(s.Pt(-0.5, -3.2, 2.7), 3, 17);
    s.AddBar(0, 1, 2, 1);
    return s;
}

TEST(ViewCommands, StartUpViewIntervalsAnglesAndToggles) {
    App app(Square());
    Program &p = *app.p;
    EXPECT_EQ(p.form.IntX[0].text, "0"); // Int(-0.5 + 0.5)
    EXPECT_EQ(p.form.IntX[1].text, "100");
    EXPECT_EQ(p.form.IntZ[0].text, "-3");
    EXPECT_EQ(p.form.IntY[1].text, "3");
    EXPECT_TRUE(p.form.LabCoord.visible);
    EXPECT_EQ(app.disegno.Sequence().substr(0, 2), "SC");

    // A half-typed angle keeps the last valid one; the view is redrawn all the same.
    p.form.Angolo[0].text = "";
    p.form.Angolo[1].text = "30x";
    p.form.Angolo[2].text = "90";
    Ridis_Click(p);
    EXPECT_EQ(p.view.lastAngles, (std::array<double, 3>{0, 0, 90}));
    EXPECT_NEAR(p.view.projectedX[1], 100, 1e-6); // turned in the picture plane
    EXPECT_NEAR(p.view.projectedY[1], -100, 1e-6);

    app.disegno.calls.clear();
    VisAssi_Click(p);
    EXPECT_FALSE(p.form.VisAssi.checked);
    EXPECT_EQ(app.disegno.Of(CanvasCall::Clear).size(), 1u);
    VisCoord_Click(p);
    EXPECT_FALSE(p.form.LabCoord.visible || p.form.Label6.visible);
}

// The busy pointer belongs to the dispatch: on for the whole of each event, a gesture that ends
// in a redraw included, and off after it, mouse moves apart; once the program ends nothing more
// runs.
TEST(ViewCommands, TheBusyPointerLastsAsLongAsEachEvent) {
    App app(Square());
    Program &p = *app.p;
    std::vector<bool> seen;
    auto press = [&](double x, double y) {
        Dispatch(p, [&](Program &q) {
            Disegno_Mouse(q,
                          {.kind = MouseEvent::Kind::Press, .button = kLeftButton, .x = x, .y = y});
            seen.push_back(app.ui.busy);
        });
        seen.push_back(app.ui.busy);
    };
    Dispatch(p, Sposta_Click);
    press(0, 0);
    press(10, 5); // the move: the view is drawn again
    p.structureLoaded = false;
    Dispatch(p, Sposta_Click);
    press(0, 0);
    press(10, 5);
    EXPECT_EQ(seen, (std::vector<bool>{true, false, true, false, true, false, true, false}));
    // Mouse moves leave the pointer as it is.
    bool busyDuringMove = true;
    Dispatch(
        p, [&](Program &) { busyDuringMove = app.ui.busy; }, BusyWhile::Never);
    EXPECT_FALSE(busyDuringMove);

    EndProgram(p, 0);
    bool ran = false;
    EXPECT_FALSE(Dispatch(p, [&](Program &) { ran = true; }));
    EXPECT_FALSE(ran || app.ui.busy);
}

TEST(ViewCommands, ZoomRectangleEitherWayMoveAndFit) {
    for (bool reversed : {false, true}) {
        App app(Square());
        Program &p = *app.p;
        p.command.selectionMode = SelectionMode::Direct;
        ZoomIn_Click(p);
        EXPECT_EQ(p.form.SottoFunAttiva.caption, "Zoom");
        EXPECT_EQ(p.form.Disegno.pointer, Pointer::Cross);
        const double x1 = reversed ? 40 : 10, y1 = reversed ? 60 : 80;
        const double x2 = reversed ? 10 : 40, y2 = reversed ? 80 : 60;
        app.Click(x1, y1);
        EXPECT_TRUE(p.form.Shape.visible);
        app.Move(x2, y2);
        EXPECT_NEAR(p.form.Shape.left, 10, 1e-9);
        EXPECT_NEAR(p.form.Shape.top, 80, 1e-9);
        app.Move(500, 500); // outside the surface: the band stays
        EXPECT_NEAR(p.form.Shape.width, 30, 1e-9);
        app.Click(x2, y2);
        ExpectWindow(p.view.zoomWindow, 40, 10, 80, 60);
        EXPECT_FALSE(p.navigation.zoomWindowPending || p.form.Shape.visible);
        EXPECT_EQ(p.form.SottoFunAttiva.caption, "Selezione diretta");
        EXPECT_EQ(p.form.Disegno.pointer, Pointer::Default);
    }

    App app(Square());
    Program &p = *app.p;
    p.view.zoomWindow = {60, 20, 70, 30};
    Ridis_Click(p);
    const ScaleRect before = app.disegno.Scale();
    Sposta_Click(p);
    app.Click(0, 0);
    app.Move(10, 5);
    EXPECT_TRUE(p.form.LineSposta.visible);
    app.Click(10, 5);
    ExpectWindow(p.view.zoomWindow, 50, 10, 65, 25);
    EXPECT_NEAR(app.disegno.Scale().left, before.left - 10, 1e-9); // drawn 10 further right
    EXPECT_NEAR(app.disegno.Scale().top, before.top - 5, 1e-9);
    EXPECT_FALSE(p.navigation.movePending || p.form.LineSposta.visible);

    app.Mouse(MouseEvent::Kind::DoubleClick, 0, 0, kLeftButton);
    EXPECT_NE(p.view.zoomWindow.xMax, 0);
    app.Mouse(MouseEvent::Kind::DoubleClick, 0, 0, kMiddleButton);
    ExpectWindow(p.view.zoomWindow, 0, 0, 0, 0);
    ExpectWindow(p.view.shownWindow, 110.05, -11.555, 110.32, -14.552);
}

TEST(ViewCommands, PanWheelPopupAndCoordinateReadout) {
    App app(Square());
    Program &p = *app.p;
    const ScaleRect atPress = app.disegno.Scale();
    app.Mouse(MouseEvent::Kind::Press, 0, 0, kMiddleButton);
    app.Move(10, 5, kMiddleButton); // from the fit state: the shown extent, no margin
    ExpectWindow(p.view.zoomWindow, 90, -10.5, 95, -8.2);
    // The next move comes in the units of the redrawn picture: the spot of the surface that
    // was (20, 5) at the press moves the view by (20, 5).
    const auto [x, y] = InScaleOf(app.disegno.Scale(), atPress, 20, 5);
    app.Move(x, y, kMiddleButton);
    ExpectWindow(p.view.zoomWindow, 80, -20.5, 95, -8.2);

    p.view.zoomWindow = {100, 0, 100, 0};
    app.disegno.calls.clear();
    Disegno_Mouse(p, {.kind = MouseEvent::Kind::Wheel, .wheelSteps = 1});
    ExpectWindow(p.view.zoomWindow, 90, 10, 90, 10);
    EXPECT_EQ(app.disegno.Of(CanvasCall::SetScale).size(), 1u);
    // A step out, about the centre too; from the fit state it starts from the window on screen.
    ViewState v;
    v.zoomWindow = {100, 0, 50, 0};
    EXPECT_TRUE(WheelZoomWindow(v, -1));
    ExpectWindow(v.zoomWindow, 110, -10, 55, -5);
    v.zoomWindow = {};
    v.shownWindow = {900000, 0, 10, 0};
    EXPECT_FALSE(WheelZoomWindow(v, -1));
    ExpectWindow(v.zoomWindow, 990000, -90000, 11, -1);

    app.Click(5, 5, kRightButton);
    EXPECT_EQ(app.ui.popUps, std::vector<std::string>{"Visualizza"});

    app.Move(-0.4, -3.1);
    EXPECT_EQ(p.form.LabCoord.caption, "-1, 2, -4 [N17]");
    app.Move(50, 50);
    EXPECT_EQ(p.form.LabCoord.caption, "");
    double distance = 0;
    EXPECT_FALSE(NodePickDistance(p.model, p.view, 0, 3, 4, 5, distance));
    EXPECT_DOUBLE_EQ(distance, 5);
}

// The schema fills its surface at one scale on both axes, the node in the middle; without a
// plane it is only cleared.
TEST(Schema, ScaledAroundTheNodeOrCleared) {
    RecordingCanvas picture(2100, 1500);
    const ColouredLine bars[] = {{0, 0, 3, 0, 0xFF}, {0, 0, 0, -3, 0xFF00}};
    DrawBaseNodeSchema(picture, true, 3, bars);
    EXPECT_EQ(picture.Sequence(), "CSWLLWFR");
    const ScaleRect s = picture.Scale();
    EXPECT_DOUBLE_EQ(s.height, -2 * 1.4 * 3);
    EXPECT_DOUBLE_EQ(s.width / s.height, -2100.0 / 1500);
    EXPECT_DOUBLE_EQ(s.left + s.width / 2, 0);
    RecordingCanvas cleared;
    DrawBaseNodeSchema(cleared, false, 1, {});
    EXPECT_EQ(cleared.Sequence(), "CR");
}

TEST(ViewCommands, LeftButtonStartsWindowsOnlyWhereAllowed) {
    App app(Square());
    Program &p = *app.p;
    p.command.selectionMode = SelectionMode::Window;
    p.command.activeFunction = ActiveFunction::ChooseBaseNode;
    app.Click(10, 10);
    EXPECT_FALSE(p.navigation.windowCornerSet);
    p.command.activeFunction = ActiveFunction::AddNodes;
    app.Click(10, 10);
    EXPECT_TRUE(p.navigation.windowCornerSet && p.form.Shape.visible);
    EXPECT_EQ(p.form.Shape.left, 10);
    EXPECT_EQ(p.form.Shape.width, 0);
}

} // namespace
} // namespace vorna
