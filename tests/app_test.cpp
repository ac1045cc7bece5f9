// Tests of the folders, the start-up sequence, the form's table and its commands, and the script
// runner's first commands.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/folders.h"
#include "app/script_runner.h"
#include "platform/plain_canvas.h"
#include "platform/text.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>
#include <sstream>

namespace vorna {
namespace {

// A suite root with its settings files; the job folder holds what each test adds.
struct Suite {
    test::TempDir dir;
    std::string root = dir.path().string();
    explicit Suite(const std::string &dirlav = "", const std::string &lavoro = "job001\r\n") {
        dir.Write("impostazioni/dirlav", (dirlav.empty() ? root + "/Lavori" : dirlav) + "\r\n");
        dir.Write("impostazioni/lavoro", lavoro);
        dir.Write("progra/font.001", "0\r\n");
        std::filesystem::create_directories(dir.path() / "lavori/job001");
    }
    std::string Argument() const { return "|diroot=  " + root + "|"; }
};

std::string Fatal(const std::string &argument) {
    test::RecordingUi ui;
    EXPECT_FALSE(SetUpFolders(argument, ui));
    return ui.messages.empty() ? "" : ui.messages[0].text;
}

TEST(Folders, ArgumentAndSettingsFilesGiveTheFolders) {
    Suite suite;
    test::RecordingUi ui;
    auto f = SetUpFolders("vorna |DIROOT=" + suite.root + "\\| trailing", ui);
    ASSERT_TRUE(f) << (ui.messages.empty() ? "" : ui.messages[0].text);
    EXPECT_EQ(f->rootFolder, LowerCase(suite.root));
    EXPECT_EQ(f->jobsFolder, LowerCase(suite.root) + "/lavori\\");
    EXPECT_EQ(f->jobName, "job001");
    EXPECT_EQ(f->jobFolder, LowerCase(suite.root) + "/lavori\\job001");
    EXPECT_EQ(f->programsFolder, LowerCase(suite.root) + "\\progra");
    EXPECT_EQ(f->customFolder, LowerCase(suite.root) + "\\custom");
}

// A job name that is not the suite's is checked end to end.
TEST(Folders, EveryFatalConditionHasItsMessage) {
    for (const char *argument : {"   ", "|root=x|", "|diroot=c:\\suite"})
        EXPECT_EQ(Fatal(argument), "Avvio del programma: argomento non presente") << argument;
    Suite notLavori("d:\\myjobs\\"), relative("lavori");
    EXPECT_EQ(Fatal(notLavori.Argument()),
              "Errore: il direttorio dei lavori deve terminare con < \\lavori >");
    EXPECT_EQ(Fatal(relative.Argument()), "Errore: file " + LowerCase(relative.root) +
                                              "\\impostazioni\\dirlav errato o mancante");
    test::TempDir empty;
    EXPECT_EQ(Fatal("|diroot=" + empty.path().string() + "|"),
              "Errore: file " + LowerCase(empty.path().string()) +
                  "\\impostazioni\\dirlav errato o mancante");
}

int RunIn(const Suite &suite, const std::string &script, std::string &output) {
    suite.dir.Write("script.txt", script);
    std::ostringstream out;
    int status = RunScript(suite.dir.path() / "script.txt", suite.Argument(), out);
    output = out.str();
    return status;
}

// The readers only say what happened; start-up tells the user, step by step in this order.
TEST(StartUp, ReadersMessagesComeInTheOrderOfTheSteps) {
    Suite suite;
    std::filesystem::remove(suite.dir.path() / "progra/font.001");
    suite.dir.Write("lavori/job001/STRUTTUR.STR",
                    "release\r\n1\r\n1 2 3\r\n1\r\n0 1 2\r\n32001 0\r\n0\r\n0\r\n");
    std::string out;
    EXPECT_EQ(RunIn(suite, "", out), 0);
    const std::string root = LowerCase(suite.root), job = root + "/lavori\\job001\\";
    const std::string cannotRead = "message|Problema|16| Impossibile leggere il file ";
    EXPECT_EQ(out, "message|ERRORE|16|File " + root + "\\progra\\font.001 inesistente!\n" +
                       cannotRead + job + "spessori\n" + cannotRead + job + "sezioni_\n" +
                       "message|ERRORE IN STRUTTUR.STR|48|Nome nodo maggiore di 32000.\n"
                       "message|Problema|16|Errore nella lettura della struttura\n");
}

TEST(StartUp, FatalMessagesEndWithStatusOne) {
    Suite suite;
    suite.dir.Write("lavori/job001/STRUTTUR.STR", "3.8\r\n");
    std::string out;
    EXPECT_EQ(RunIn(suite, "dump folders\n", out), 1);
    EXPECT_NE(out.find("message|Attenzione|16|Versione 3.8 o precedente."), std::string::npos);
    EXPECT_EQ(out.find("rootFolder="), std::string::npos); // nothing runs after the end

    Suite many;
    many.dir.Write("lavori/job001/spessori", "101\r\n");
    EXPECT_EQ(RunIn(many, "", out), 1);
    EXPECT_EQ(out, "message|Problema|16| Troppe schede di spessore \n");
}

TEST(ScriptRunner, UnknownLinesAreReportedAndDumpsShowUnsetOptions) {
    Suite suite;
    suite.dir.Write("custom/VorNOpzi.txt", "1\r\n2\r\n");
    suite.dir.Write("lavori/job001/STRUTTUR.STR",
                    "release\r\n1\r\n1 2 3\r\n1\r\n0 1 2\r\n5 0\r\n0\r\n0\r\n");
    std::string out;
    EXPECT_EQ(RunIn(suite, "dump options\ndump model\nfly away\n", out), 2);
    EXPECT_NE(out.find("display 2=2\ndisplay 3=unset\n"), std::string::npos);
    EXPECT_NE(out.find("internal 1=15\n"), std::string::npos);
    EXPECT_NE(out.find("model points=1 nodes=1 bars=0 shells=0 thicknessCards=0\n"
                       "point 0 x=1 y=2 z=3\n"
                       "node 0 pointIndex=0 pointType=1 colour=2 name=5 constraintCard=0\n"),
              std::string::npos);
    EXPECT_NE(out.find("error|fly away\n"), std::string::npos);
}

// What the menus, the icon bar and the lookups of names rely on: every name once, every item in
// a menu declared before it, every element inside its array, a command behind every item.
TEST(FormTable, RowsHangTogether) {
    FormVorna form = InitialForm();
    std::set<std::string> names;
    ForEachControl(form, [&](std::string_view name, Control &) {
        EXPECT_TRUE(names.emplace(name).second) << name << " twice";
    });
    std::set<std::string> menus;
    const FormRow *array = nullptr;
    for (const FormRow &row : FormVornaRows()) {
        const std::string parent = row.parent;
        switch (row.kind) {
        case RowKind::Menu:
            EXPECT_TRUE(parent.empty() || menus.contains(parent)) << row.name;
            menus.insert(row.name);
            break;
        case RowKind::MenuItem:
            EXPECT_TRUE(menus.contains(parent)) << row.name;
            break;
        case RowKind::Button:
            EXPECT_NE(FindControl(form, parent), nullptr) << row.name;
            break;
        case RowKind::Array:
            array = &row;
            EXPECT_EQ(row.controls(form).size(), static_cast<std::size_t>(row.last) + 1);
            break;
        case RowKind::Element:
            ASSERT_NE(array, nullptr) << row.name;
            EXPECT_STREQ(row.name, array->name);
            EXPECT_TRUE(row.first >= array->first && row.first <= array->last) << row.name;
            break;
        default:
            break;
        }
    }
    EXPECT_EQ(FindControl(form, "Toolbar1.Zoom"), &form.btnZoom);
    EXPECT_EQ(FindControl(form, "LabelTipo(0)"), nullptr) << "shown from 1";
}

TEST(FormTable, CommandsRunOnlyWhenTheyAndTheirMenusAreEnabled) {
    test::RecordingUi ui;
    PlainCanvas surface(1500, 1500);
    auto owned = std::make_unique<Program>(ui, surface, surface);
    Program &p = *owned;
    EXPECT_TRUE(IsMenuItem("ZoomIn") && !IsMenuItem("Zoom") && !IsMenuItem("Selezioni"));
    EXPECT_TRUE(IsToolbarButton("Zoom") && !IsToolbarButton("ZoomIn"));

    EXPECT_TRUE(RunMenuItem(p, "BarraIcone"));
    EXPECT_FALSE(p.form.Toolbar1.visible);
    p.form.BarraIcone.enabled = false;
    EXPECT_FALSE(RunMenuItem(p, "BarraIcone"));
    EXPECT_FALSE(p.form.Toolbar1.visible);

    p.form.Colore.enabled = false;
    EXPECT_TRUE(p.form.Rosso.enabled);
    EXPECT_FALSE(RunMenuItem(p, "Rosso")) << "its submenu is off";

    const double width = p.form.width;
    EXPECT_TRUE(RunToolbarButton(p, "AggiungiBarraLat"));
    EXPECT_FALSE(p.form.BarraLat.checked);
    EXPECT_LT(p.form.width, width);
    p.form.btnAggiungiBarraLat.enabled = false;
    EXPECT_FALSE(RunToolbarButton(p, "AggiungiBarraLat"));
    EXPECT_FALSE(RunToolbarButton(p, "Nope") || RunMenuItem(p, "Nope"));

    p.exitRequested = true;
    EXPECT_FALSE(RunMenuItem(p, "VisAssi"));
    EXPECT_TRUE(p.form.VisAssi.checked);
}

TEST(Layout, TheDrawingFillsItsSpaceAfterAnyTogglesAndResizes) {
    test::RecordingUi ui;
    PlainCanvas surface(1500, 1500);
    auto owned = std::make_unique<Program>(ui, surface, surface);
    Program &p = *owned;
    LayOutForm(p);
    std::mt19937 rng(7);
    for (int step = 0; step < 400; ++step) {
        switch (rng() % 3) {
        case 0:
            BarraIcone_Click(p);
            break;
        case 1:
            BarraLat_Click(p);
            break;
        default:
            p.form.width = 3000 + static_cast<double>(rng() % 20000);
            p.form.height = 3000 + static_cast<double>(rng() % 15000);
            LayOutForm(p);
        }
        const FormVorna &f = p.form;
        const bool bar = f.Toolbar1.visible;
        ASSERT_EQ(f.BarraIcone.checked, bar);
        ASSERT_EQ(f.BarraLat.checked, f.FrameSel.visible);
        // Under the icon bar (or the menu when it is hidden) down to the row of angle boxes.
        ASSERT_EQ(f.Disegno.top, bar ? 990 : 590) << step;
        ASSERT_EQ(f.Disegno.top + f.Disegno.height, f.height - 1482) << step;
        ASSERT_EQ(f.Disegno.width, f.width - (f.FrameSel.visible ? 4656 : 124)) << step;
        ASSERT_EQ(f.FrameInput.top, bar ? 400 : 0) << step;
    }
}

} // namespace
} // namespace vorna
