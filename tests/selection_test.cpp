// Tests of node selection: the selection string, the pick, the designating loops and the
// selection commands on a small hand-made model.
#include "app/command_steps.h"
#include "app/commands.h"
#include "model/messages.h"
#include "platform/plain_canvas.h"
#include "selection/designate.h"
#include "selection/pick.h"
#include "selection/selection_string.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

namespace vorna {
namespace {

using Values = std::vector<int>;
using F = ActiveFunction;

Values Parse(std::string_view text) {
    return ParseSelectionString(text, kNameSelectionCapacity).value_or(Values{-999});
}

TEST(SelectionString, NumbersRangesAndSeparators) {
    EXPECT_EQ(Parse("1,2,5-8"), (Values{1, 2, 5, 6, 7, 8}));
    EXPECT_EQ(Parse("8-5"), Values{});
    EXPECT_EQ(Parse("1,2,"), (Values{1, 2, 0})); // a trailing separator appends 0
    EXPECT_EQ(Parse("1, 4 - 7"), (Values{1, 4, 5, 6, 7}));
    EXPECT_EQ(Parse("2.9"), Values{2});
    EXPECT_EQ(Parse("abc"), Values{0});
    EXPECT_EQ(Parse(""), Values{});
    EXPECT_EQ(Parse("1-3-5"), (Values{3, 4, 5})); // a second "-" replaces the start
}

TEST(SelectionString, LimitsNeitherOverflowNorHang) {
    EXPECT_EQ(Parse("1-20000").size(), 20000u);
    EXPECT_FALSE(ParseSelectionString("1-20001", kNameSelectionCapacity));
    EXPECT_FALSE(ParseSelectionString("0,1-100", kCardSelectionCapacity));
    EXPECT_EQ(Parse("32767-32769"), (Values{32767, 32768, 32769}));
    EXPECT_EQ(Parse("99999999999"), Values{INT_MAX});
    EXPECT_EQ(Parse("2147483646-1e999"), (Values{INT_MAX - 1, INT_MAX}));
    EXPECT_FALSE(ParseSelectionString("32000-99999", kNameSelectionCapacity));
}

// Nodes and bars placed directly in the drawing plane, all shown and live.
struct Scene {
    StructureModel model;
    ViewState view;
    ConnectionState connection;
    Values offered; // nodes handed to the analogy test, in order

    std::int16_t Point(double x, double y) {
        view.projectedX[model.pointCount] = x;
        view.projectedY[model.pointCount] = y;
        ++view.projectionGeneration;
        return model.pointCount++;
    }
    int AddNode(double x, double y, int name, int colour = 1) {
        model.nodes[model.nodeCount] = {Point(x, y), 0, static_cast<std::int16_t>(colour),
                                        static_cast<std::int16_t>(name), 0};
        view.nodeShown[model.nodeCount] = 1;
        return model.nodeCount++;
    }
    int AddBar(double x1, double y1, double x2, double y2, int name, int colour = 1) {
        Bar &b = model.bars[model.barCount];
        b.pointI = Point(x1, y1);
        b.pointJ = Point(x2, y2);
        b.name = static_cast<std::int16_t>(name);
        b.colour = static_cast<std::int16_t>(colour);
        view.barShown[model.barCount] = 1;
        connection.baseBars[connection.baseBarCount++] = model.barCount;
        return model.barCount++;
    }
    void List(int node) {
        AnalogousNode r;
        r.node = static_cast<std::int16_t>(node);
        AppendAnalogous(connection, r);
    }
    Values Listed() const {
        Values nodes;
        for (const AnalogousNode &r : connection.analogousNodes)
            nodes.push_back(r.node);
        return nodes;
    }
    Values BaseBars() const {
        return {connection.baseBars.begin(), connection.baseBars.begin() + connection.baseBarCount};
    }
    SelectionContext Context(F function) {
        return {model, view, connection, function, [this](int node) { offered.push_back(node); }};
    }
    int Pick(F function, double x, double y, double radius = 1) {
        return PickElement(model, view, connection, function, x, y, radius);
    }
};

TEST(Pick, NearestLiveShownNodeWinsAndTiesGoToTheEarlier) {
    Scene s;
    s.AddNode(0.5, 0, 11);
    s.AddNode(0, 0.5, 12); // as far from the origin as the first
    s.AddNode(0.2, 0, 13);
    s.AddNode(0.1, 0, 14, 0);
    s.AddNode(0.1, 0, 15);
    s.view.nodeShown[4] = 0;
    EXPECT_EQ(s.Pick(F::ChooseBaseNode, 0, 0), 13);
    EXPECT_EQ(s.Pick(F::ChooseBaseNode, 0, 0, 0.2), 0); // strictly inside the radius
    s.model.nodes[2].name = 0;
    EXPECT_EQ(s.Pick(F::ChooseBaseNode, 0, 0), 11);
    EXPECT_EQ(s.Pick(F::None, 0, 0), 0);
}

TEST(Pick, MoreThanFiftyCandidatesPickNothing) {
    Scene s;
    for (int i = 0; i < 51; ++i)
        s.AddNode(0.01 * i, 0, i + 1);
    EXPECT_EQ(s.Pick(F::AddNodes, 0, 0), 0);
    s.view.nodeShown[50] = 0;
    EXPECT_EQ(s.Pick(F::AddNodes, 0, 0), 1);
}

TEST(Pick, BarsArePickedAlongTheSegmentButNotOnItsProlongation) {
    Scene s;
    s.AddBar(0, 0, 10, 10, 7);
    s.AddBar(20, 0, 20.00005, 0, 8); // seen end-on
    EXPECT_EQ(s.Pick(F::RemoveBaseBars, 5, 5.5), 7);
    EXPECT_EQ(s.Pick(F::RemoveBaseBars, 10.5, 10.5), 7);
    EXPECT_EQ(s.Pick(F::RemoveBaseBars, 11.5, 11.5), 0);
    EXPECT_EQ(s.Pick(F::RemoveBaseBars, 20, 0), 0);
    EXPECT_EQ(s.Pick(F::AddNodes, 5, 5), 0); // adding picks nodes only
}

// The choice as first written: an exchange sort that swaps only on a strictly smaller distance,
// then a walk from the nearest.
int ReferenceChoice(std::vector<PickCandidate> c, F function, const Scene &s) {
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (std::size_t i = 0; i + 1 < c.size(); ++i)
            if (c[i + 1].distance < c[i].distance) {
                std::swap(c[i], c[i + 1]);
                swapped = true;
            }
    }
    for (const PickCandidate &k : c) {
        int position = FindInAnalogous(s.connection, k.index);
        if ((function == F::AddNodes && position == 0) ||
            (function == F::RemoveNodes && position > 0))
            return s.model.nodes[k.index].name;
    }
    return s.model.nodes[c.front().index].name;
}

TEST(Pick, ChoiceMatchesTheExchangeSortOnRandomTies) {
    Scene s;
    for (int i = 0; i < 200; ++i)
        s.AddNode(0, 0, i + 1);
    std::mt19937 random(12345);
    const F functions[] = {F::AddNodes, F::RemoveNodes, F::ChooseBaseNode};
    for (int trial = 0; trial < 3000; ++trial) {
        ClearAnalogous(s.connection);
        std::vector<PickCandidate> candidates;
        for (int i = 0; i < 200 && candidates.size() < kMaxPickCandidates; ++i) {
            if (random() % 3 != 0)
                continue;
            // Few distinct distances, so that ties are common.
            candidates.push_back(
                {static_cast<std::int16_t>(i), 0.25 * static_cast<double>(random() % 6)});
            if (random() % 2 == 0)
                s.List(i);
        }
        F f = functions[trial % 3];
        if (candidates.empty())
            continue;
        ASSERT_EQ(ChoosePickCandidate(candidates, PickKind::Nodes, f, s.model, s.connection),
                  ReferenceChoice(candidates, f, s))
            << "trial " << trial;
    }
}

TEST(Designate, WindowTakesOneUnitAroundTheRectangleInEitherDirection) {
    Scene s;
    int on = s.AddNode(-1.0, 5, 1);
    s.AddNode(-1.01, 5, 2);
    int inside = s.AddNode(5, 5, 3);
    int hidden = s.AddNode(6, 6, 4);
    s.view.nodeShown[hidden] = 0;
    SelectionContext add = s.Context(F::AddNodes);
    EXPECT_FALSE(SelectByWindow(add, 0, 10, 10, 10));
    SelectByWindow(add, 10, 0, -10, -10); // dragged from the other corner
    EXPECT_EQ(s.offered, (Values{on, inside, on, inside}));

    for (int node : {0, 1, 2, 3})
        s.List(node);
    SelectionContext remove = s.Context(F::RemoveNodes);
    SelectByWindow(remove, 0, 10, 10, 10);
    EXPECT_EQ(s.Listed(), (Values{1, hidden}));
}

TEST(Designate, NamesCardsColoursAndPointTypesTakeShownNodesInTypedOrder) {
    Scene s;
    int a = s.AddNode(0, 0, 5, 3);
    int b = s.AddNode(1, 0, 3);
    int c = s.AddNode(2, 0, 5);
    int hidden = s.AddNode(3, 0, 3, 3);
    s.view.nodeShown[hidden] = 0;
    s.model.nodes[b].constraintCard = 1;
    s.model.nodes[c].pointType = 2;
    SelectionContext add = s.Context(F::AddNodes);
    EXPECT_FALSE(SelectByNames(add, {3, 5, 3, 40000, 0}));
    EXPECT_EQ(s.offered, (Values{b, a, c, b}));
    s.offered.clear();
    SelectByConstraintCards(add, {2}); // card 2 is stored as 1
    SelectByColour(add, 3);
    SelectByPointType(add, 2);
    EXPECT_EQ(s.offered, (Values{b, a, c}));

    for (int node : {a, b, c, hidden})
        s.List(node);
    SelectionContext remove = s.Context(F::RemoveNodes);
    EXPECT_FALSE(SelectByColour(remove, kAllCodes));
    EXPECT_EQ(s.Listed(), Values{hidden});
}

TEST(Designate, BaseBarsGoByWindowColourAndName) {
    Scene s;
    s.AddBar(0, 0, 5, 5, 1, 3);
    int half = s.AddBar(5, 5, 20, 5, 2, 4);
    int hiddenRed = s.AddBar(1, 1, 2, 2, 3, 3);
    s.view.barShown[hiddenRed] = 0;
    SelectionContext c = s.Context(F::RemoveBaseBars);
    EXPECT_TRUE(SelectByColour(c, 9)); // no match: unchanged, but the caller still redraws
    EXPECT_TRUE(SelectByColour(c, 3)); // shown bars only
    EXPECT_EQ(s.BaseBars(), (Values{half, hiddenRed}));
    EXPECT_TRUE(SelectByWindow(c, 0, 10, 10, 10)); // both ends inside, shown or not
    EXPECT_EQ(s.BaseBars(), Values{half});
    EXPECT_TRUE(SelectByNames(c, {2}));
    EXPECT_TRUE(s.BaseBars().empty());

    s.connection.baseBarCount = kTooManyBaseBars; // no usable base bars to drop
    SelectByColour(c, kAllCodes);
    EXPECT_EQ(s.connection.baseBarCount, kTooManyBaseBars);
}

TEST(Designate, InvertingOffersEveryShownNodeThatWasNotListed) {
    Scene s;
    for (int i = 0; i < 5; ++i)
        s.AddNode(0, 0, i + 1);
    s.view.nodeShown[4] = 0;
    s.List(1);
    s.List(3);
    SelectionContext c = s.Context(F::None);
    InvertSelection(c);
    EXPECT_TRUE(s.Listed().empty());
    EXPECT_EQ(s.offered, (Values{0, 2}));
}

// Name selection as first written: for each name a scan of every node, removals one at a time.
TEST(Designate, NamesMatchTheNodeByNodeProcedureOnRandomModels) {
    std::mt19937 random(777);
    for (int trial = 0; trial < 40; ++trial) {
        Scene fast;
        for (int i = 0; i < 300; ++i) {
            fast.AddNode(0, 0, static_cast<int>(random() % 60) - 5);
            fast.view.nodeShown[i] = random() % 4 != 0;
            if (random() % 2 == 0)
                fast.List(i);
        }
        Scene slow = fast;
        Values names;
        for (int k = 0; k < 30; ++k)
            names.push_back(static_cast<int>(random() % 70) - 5);
        SelectionContext add = fast.Context(F::AddNodes), remove = fast.Context(F::RemoveNodes);
        SelectByNames(add, names);
        SelectByNames(remove, names);
        for (int name : names)
            for (int i = 0; i < slow.model.nodeCount; ++i)
                if (slow.model.nodes[i].name == name && slow.view.nodeShown[i])
                    slow.offered.push_back(i);
        for (int name : names)
            for (int i = 0; i < slow.model.nodeCount; ++i)
                if (slow.model.nodes[i].name == name && slow.view.nodeShown[i])
                    if (int position = FindInAnalogous(slow.connection, i); position > 0)
                        RemoveAnalogousRecord(slow.connection, position);
        ASSERT_EQ(fast.offered, slow.offered) << "trial " << trial;
        ASSERT_EQ(fast.Listed(), slow.Listed()) << "trial " << trial;
    }
}

// The commands on a program whose surface maps 100 x 100 drawing units onto 100 x 100 pixels.
struct Commands : ::testing::Test {
    test::RecordingUi ui;
    PlainCanvas disegno{1500, 1500}, picture1{1500, 1500};
    std::unique_ptr<Program> owned = std::make_unique<Program>(ui, disegno, picture1);
    Program &p = *owned;

    Commands() {
        disegno.SetScale({0, 100, 100, -100});
        p.internalOptions.values[opt::kPickBoxSize] = 2;
        p.model.nodes[0] = {0, 0, 1, 1, 0};
        p.model.nodes[1] = {1, 0, 1, 2, 0};
        p.model.nodes[2] = {2, 0, 1, 3, 0};
        p.model.nodeCount = p.model.pointCount = 3;
        for (int i = 0; i < 3; ++i) {
            p.view.projectedX[i] = 50 + 10 * i;
            p.view.projectedY[i] = 50;
            p.view.nodeShown[i] = 1;
            AnalogousNode r;
            r.node = static_cast<std::int16_t>(i);
            AppendAnalogous(p.connection, r);
        }
    }
    void SetWindow(double left, double top, double width, double height) {
        p.form.Shape.left = left, p.form.Shape.top = top;
        p.form.Shape.width = width, p.form.Shape.height = height;
        p.navigation.windowCornerSet = true;
    }
};

TEST_F(Commands, FunctionsSetCaptionsMenusAndInterrompi) {
    Aggiungi_Click(p);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Direct);
    EXPECT_TRUE(p.form.SchVincolo.enabled && p.form.TipoPunto.enabled && p.form.Finestra.enabled);
    EXPECT_TRUE(p.form.Interrompi.enabled && p.form.btnInterrompi.enabled);
    StartFunction(p, F::RemoveBaseBars);
    EXPECT_EQ(p.form.FunAttiva.caption, "Rimuovi aste base");
    EXPECT_FALSE(p.form.SchVincolo.enabled || p.form.TipoPunto.enabled);
    EXPECT_TRUE(p.form.Colore.enabled && p.form.Nome.enabled && p.form.Tutto.enabled);
    Finestra_Click(p);
    EXPECT_EQ(p.form.Disegno.pointer, Pointer::Cross);
    Interrompi_Click(p);
    EXPECT_EQ(p.command.activeFunction, F::None);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::None);
    EXPECT_EQ(p.form.FunAttiva.caption + p.form.SottoFunAttiva.caption, "");
    EXPECT_EQ(p.form.Disegno.pointer, Pointer::Default);
    EXPECT_FALSE(p.form.Finestra.enabled || p.form.Colore.enabled || p.form.Nome.enabled);
    EXPECT_FALSE(p.form.Interrompi.enabled || p.form.btnInterrompi.enabled);
    PickAt(p, 10, 10); // clicks do nothing now
    EXPECT_EQ(p.command.selectionMode, SelectionMode::None);
}

TEST_F(Commands, AnswerLineSelectsByNameAndRefusesTooLongStrings) {
    Rimuovi_Click(p);
    Nome_Click(p);
    EXPECT_EQ(p.form.Domanda.caption, "Inserire i nomi degli elementi e premere INVIO");
    EXPECT_EQ(p.form.SottoFunAttiva.caption, "Seleziona per nome elemento");
    EXPECT_TRUE(p.form.Risposta.enabled);
    EXPECT_EQ(p.form.Risposta.backColour, kWindowColour);
    p.form.Risposta.text = "2,2";
    Risposta_KeyDown(p, Key::Home); // only Enter submits
    EXPECT_EQ(p.connection.analogousNodes.size(), 3u);
    Risposta_KeyDown(p, Key::Enter);
    EXPECT_EQ(FindInAnalogous(p.connection, 1), 0);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Name); // the line stays open

    p.form.Risposta.text = "1-20001";
    Risposta_KeyDown(p, Key::Enter);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, " La stringa di selezione comprende troppi elementi ");
    EXPECT_EQ(ui.messages[0].title, "ERRORE");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(p.connection.analogousNodes.size(), 2u);

    Finestra_Click(p); // another way of selecting closes the line
    EXPECT_FALSE(p.form.Risposta.enabled);
    EXPECT_EQ(p.form.Risposta.text, "");
}

TEST_F(Commands, RemovingAllLeavesHiddenNodesAndEndsTheFunction) {
    p.view.nodeShown[2] = 0;
    RimTutto_Click(p);
    EXPECT_EQ(FindInAnalogous(p.connection, 2), 1);
    EXPECT_EQ(p.connection.analogousNodes.size(), 1u);
    EXPECT_EQ(p.command.activeFunction, F::None);
    EXPECT_FALSE(p.form.Interrompi.enabled);
}

TEST_F(Commands, PickOnEmptySpaceStartsAOneShotWindow) {
    Rimuovi_Click(p);
    PickAt(p, 10, 10);
    EXPECT_TRUE(p.command.autoWindow);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Window);
    EXPECT_TRUE(p.navigation.windowCornerSet); // the click is the first corner
    EXPECT_EQ(p.form.Shape.left, 10);
    EXPECT_EQ(p.navigation.pickRadius, 2);

    SetWindow(10, 10, 0, 0); // two clicks on one spot: nothing, still the window
    FinishWindowSelection(p);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Window);
    EXPECT_FALSE(p.navigation.windowCornerSet);
    SetWindow(45, 55, 10, 10);
    FinishWindowSelection(p);
    EXPECT_EQ(p.connection.analogousNodes.size(), 2u);
    EXPECT_FALSE(p.command.autoWindow);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Direct);
    EXPECT_EQ(p.form.SottoFunAttiva.caption, "Selezione diretta");
    EXPECT_FALSE(p.form.Shape.visible);

    Finestra_Click(p); // chosen from the menu, the window stays
    SetWindow(55, 55, 10, 10);
    FinishWindowSelection(p);
    EXPECT_EQ(p.connection.analogousNodes.size(), 1u);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Window);
}

TEST_F(Commands, PickRadiusFollowsTheSmallerAxisAndBaseNodeChoiceStartsNoWindow) {
    disegno.SetScale({0, 0, 200, -500}); // 2 units per pixel across, 5 down
    p.internalOptions.values[opt::kPickBoxSize] = 3;
    StartFunction(p, F::ChooseBaseNode);
    PickAt(p, 0, 0);
    EXPECT_EQ(p.navigation.pickRadius, 6);
    EXPECT_EQ(p.command.selectionMode, SelectionMode::Direct);
    EXPECT_FALSE(p.navigation.windowCornerSet);
}

TEST_F(Commands, PickBoxDialogTakesOverTheSizeAndWarnsOnZero) {
    p.internalOptions.values[opt::kPickBoxSize] = 15;
    std::string opened;
    auto type = [&](std::string text) {
        ui.dialogUsers.emplace_back([&opened, text](Dialog &d) {
            opened = d.Find("TextTrappola")->text;
            d.Find("TextTrappola")->text = text;
            d.Click("Command1");
        });
    };
    Trappola_Click(p); // Esc
    EXPECT_EQ(ui.dialogsShown, std::vector<std::string>{"FormOptInt"});
    EXPECT_EQ(p.internalOptions(opt::kPickBoxSize), 15);
    EXPECT_EQ(p.form.Trappola.caption, "&Trappola...");
    type("-12.7");
    Trappola_Click(p);
    EXPECT_EQ(opened, "15");
    EXPECT_EQ(p.internalOptions(opt::kPickBoxSize), 13);
    EXPECT_EQ(p.form.Trappola.caption, "Trappola (13)...");
    EXPECT_TRUE(ui.messages.empty());
    type("");
    Trappola_Click(p);
    EXPECT_EQ(p.form.Trappola.caption, "Trappola (0)...");
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].title, "ATTENZIONE");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].text, MessageText(Msg::NoDirectPickWithoutBox));
}

} // namespace
} // namespace vorna
