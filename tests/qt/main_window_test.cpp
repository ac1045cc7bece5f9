// Tests of the main window as the form's mirror: names bound, widgets and menus following the
// form, edits and events reaching the commands, the end of the program, and the script host.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/script_runner.h"
#include "test_support.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_script_host.h"
#include "ui/qt/qt_ui.h"
#include "window_support.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QShortcut>
#include <QToolBar>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <sstream>

namespace vorna::qt {
namespace {

struct WindowTest : testing::Test {
    test::RecordingUi ui;
    MainWindow window;
    std::unique_ptr<Program> program;

    void SetUp() override {
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.resize(1280, 800);
        window.show();
        program = std::make_unique<Program>(ui, window.Disegno(), window.Picture1());
        window.Attach(*program, MainWindow::InitialSize::FromWindow);
    }

    QWidget *Widget(const std::string &name) { return test::BoundWidget(window, name); }
    // A menu item or icon-bar button by its text or tooltip as shown.
    QAction *Action(const QString &shown) {
        for (QAction *a : window.findChildren<QAction *>())
            if (a->text() == shown || (a->toolTip() == shown && !a->menu()))
                return a;
        ADD_FAILURE() << shown.toStdString() << " is not offered";
        return nullptr;
    }
    QRect InClient(const QWidget *w) { return test::InClient(window, w); }
    void Send(QWidget *w, QEvent &&event) { QApplication::sendEvent(w, &event); }
    void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held) {
        QWidget *disegno = Widget("Disegno");
        Send(disegno,
             QMouseEvent(type, at, disegno->mapToGlobal(at), button, held, Qt::NoModifier));
    }
};

TEST_F(WindowTest, EveryControlAndMenuItemIsBoundToTheForm) {
    for (const Binding &b : window.Bindings())
        EXPECT_NE(b.control, nullptr) << b.name;
    for (const FormRow &row : FormVornaRows()) {
        if (row.kind == RowKind::MenuItem) {
            QAction *a = Action(ToQString(row.controls(program->form)[0].caption));
            if (a) {
                EXPECT_EQ(a->shortcut(), QKeySequence(row.shortcut)) << row.name;
            }
        } else if (row.kind == RowKind::Button) {
            Action(ToQString(row.controls(program->form)[0].tooltip));
        }
    }
}

TEST_F(WindowTest, MenuTreeAndIconBarGroupsFollowTheTable) {
    QStringList selezioni;
    for (QAction *a : Action("&Selezioni")->menu()->actions())
        selezioni << a->text();
    EXPECT_EQ(selezioni, QStringList({"&Finestra", "&Colore", "Tipo &punto", "Vincolo",
                                      "N&ome elemento", "T&utto"}));
    EXPECT_EQ(Action("&Colore")->menu()->actions().size(), 10);
    QString bar;
    for (QAction *a : window.findChild<QToolBar *>()->actions()) {
        bar += a->isSeparator() ? "|" : "b";
        EXPECT_TRUE(a->isSeparator() || !a->icon().isNull()) << a->toolTip().toStdString();
    }
    EXPECT_EQ(bar, "bbbb|bbbb|bbbbb|b");
}

TEST_F(WindowTest, MenusFollowCaptionsChecksAndEnabling) {
    UpdateBaseNodeCommands(*program);
    program->form.Trappola.caption = "Trappola (9)...";
    program->form.VisAssi.checked = false;
    window.SyncFromForm();
    EXPECT_FALSE(Action("&Aggiungi nodi")->isEnabled());
    EXPECT_FALSE(Action("Aggiungi nodi")->isEnabled()) << "the icon-bar button";
    EXPECT_TRUE(Action("&Scegli nodo base")->isEnabled());
    EXPECT_TRUE(Action("&Visualizza Coordinate")->isChecked());
    EXPECT_FALSE(Action("Visualizza &Assi")->isChecked());
    EXPECT_TRUE(Action("Trappola (9)...")->isEnabled());
    EXPECT_TRUE(Action("Salva &disegno...")->isEnabled());
}

TEST_F(WindowTest, WidgetsShowTheFormAndEditsReachTheNextCommand) {
    FormVorna &f = program->form;
    f.FunAttiva.caption = "Aggiungi nodi";
    f.Risposta.enabled = true;
    f.Risposta.backColour = kWindowColour;
    f.caption = "Collegamento - demo01";
    window.SyncFromForm();
    EXPECT_EQ(static_cast<QLabel *>(Widget("FunAttiva"))->text(), "Aggiungi nodi");
    EXPECT_EQ(static_cast<QLabel *>(Widget("Label1(0)"))->text(), QString::fromUtf8("α"));
    EXPECT_TRUE(Widget("Risposta")->isEnabled());
    EXPECT_EQ(Widget("Risposta")->palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(window.windowTitle(), "Collegamento - demo01");
    const double tpp = window.TwipsPerPixel();
    EXPECT_EQ(InClient(Widget("FrameSel")), TwipsToPixels(f.FrameSel, tpp));

    static_cast<QLineEdit *>(Widget("Angolo(0)"))->setText("45");
    static_cast<QAbstractButton *>(Widget("NodiAtt"))->setChecked(false);
    static_cast<QAbstractButton *>(Widget("OpzMetodo(2)"))->click();
    std::string angle;
    window.Run([&](Program &p) { angle = p.form.Angolo[0].text; });
    EXPECT_EQ(angle, "45");
    EXPECT_FALSE(f.NodiAtt.checked);
    EXPECT_TRUE(f.OpzMetodo[2].checked);
    EXPECT_FALSE(f.OpzMetodo[0].checked);
}

TEST_F(WindowTest, IconBarButtonRunsItsCommandAndTheWindowFollowsTheForm) {
    const int width = window.width();
    Action("Attiva o disattiva la barra laterale")->trigger();
    EXPECT_FALSE(program->form.BarraLat.checked);
    EXPECT_FALSE(Widget("FrameSel")->isVisible());
    EXPECT_EQ(window.width(), width - static_cast<int>(std::lround(2900 / window.TwipsPerPixel())));
    EXPECT_EQ(Widget("Disegno")->width(),
              TwipsToPixels(program->form.Disegno, window.TwipsPerPixel()).width());
    Action("Aggiunge la barra laterale")->trigger();
    EXPECT_TRUE(Widget("FrameSel")->isVisible());
    EXPECT_EQ(window.width(), width);
}

TEST_F(WindowTest, DisegnoEventsArriveInDrawingUnits) {
    QWidget *disegno = Widget("Disegno");
    window.Disegno().SetScale({0, 100, 200, -100});
    window.Run(ZoomIn_Click);
    EXPECT_EQ(disegno->cursor().shape(), Qt::CrossCursor);
    const double w = disegno->width(), h = disegno->height();
    Mouse(QEvent::MouseButtonPress, {w / 4, h / 2}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_NEAR(program->form.Shape.left, 50, 1e-9);
    EXPECT_NEAR(program->form.Shape.top, 50, 1e-9);
    Mouse(QEvent::MouseMove, {w / 2, h / 4}, Qt::NoButton, Qt::NoButton);
    EXPECT_NEAR(program->form.Shape.width, 50, 1e-9);

    // One notch forward narrows the window by a tenth on each side; half notches add up.
    program->view.zoomWindow = {100, 0, 100, 0};
    for (int i = 0; i < 2; ++i)
        Send(disegno, QWheelEvent({10, 10}, disegno->mapToGlobal(QPointF(10, 10)), {}, {0, 60},
                                  Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    EXPECT_DOUBLE_EQ(program->view.zoomWindow.xMax, 90);
    EXPECT_DOUBLE_EQ(program->view.zoomWindow.xMin, 10);
}

TEST_F(WindowTest, RightClickPopsUpTheViewMenu) {
    Mouse(QEvent::MouseButtonPress, {20, 20}, Qt::RightButton, Qt::RightButton);
    Mouse(QEvent::MouseButtonRelease, {21, 21}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(ui.popUps, std::vector<std::string>{"Visualizza"});
    // The window's Ui opens the menu of that name.
    QtUi windowUi(&window);
    windowUi.PopUpMenu("Visualizza");
    QMenu *visualizza = Action("&Visualizza")->menu();
    ASSERT_NE(visualizza, nullptr);
    EXPECT_TRUE(visualizza->isVisible());
    visualizza->close();
}

TEST_F(WindowTest, KeysEscapeAndShortcutsOverTextBoxes) {
    program->command.activeFunction = ActiveFunction::AddNodes;
    QShortcut *escape = window.findChild<QShortcut *>();
    ASSERT_NE(escape, nullptr);
    EXPECT_EQ(escape->key(), QKeySequence(Qt::Key_Escape));
    emit escape->activated();
    EXPECT_EQ(program->command.activeFunction, ActiveFunction::None);

    // Ctrl+Z is the Zoom command even in a text box; Ctrl+C stays the box's own copy.
    QWidget *angle = Widget("Angolo(0)");
    QKeyEvent zoom(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    QApplication::sendEvent(angle, &zoom);
    EXPECT_FALSE(zoom.isAccepted());
    QKeyEvent copy(QEvent::ShortcutOverride, Qt::Key_C, Qt::ControlModifier);
    QApplication::sendEvent(angle, &copy);
    EXPECT_TRUE(copy.isAccepted());
}

TEST_F(WindowTest, EveryEventRunsUnderTheBusyPointer) {
    bool busy = false;
    window.Run([&](Program &) { busy = ui.busy; });
    EXPECT_TRUE(busy);
    EXPECT_FALSE(ui.busy);
}

TEST_F(WindowTest, TheProgramEndsWithItsStatus) {
    Action("&Esci")->trigger();
    EXPECT_TRUE(program->exitRequested);
    EXPECT_EQ(ui.exitStatus, 0);
    EXPECT_FALSE(window.isVisible());
    // Once ended, nothing more runs.
    bool ran = false;
    window.Run([&](Program &) { ran = true; });
    EXPECT_FALSE(ran);
}

TEST_F(WindowTest, ClosingTheWindowEndsTheProgramNormally) {
    window.close();
    EXPECT_TRUE(program->exitRequested);
    EXPECT_EQ(ui.exitStatus, 0);
}

TEST(QtScriptHost, ResizesAndPhotographsTheWindow) {
    test::TempDir dir;
    const std::string root = (dir.path() / "suite").string();
    ASSERT_EQ(test::MakeDemoSuite(root), 0);
    const auto shot = dir.path() / "shot.png";
    dir.Write("run.script", "resize 20010 12000\nscreenshot " + shot.string() + "\n");
    QtScriptHost host;
    std::ostringstream out;
    EXPECT_EQ(RunScript(dir.path() / "run.script", "|diroot=" + root + "|", out, host), 0)
        << out.str();
    EXPECT_EQ(out.str().find("error|"), std::string::npos) << out.str();
    EXPECT_EQ(host.Window().width(), (20010 - 60) / 15);
    EXPECT_EQ(test::ReadBytes(shot).substr(0, 8), "\x89PNG\r\n\x1a\n");
}

} // namespace
} // namespace vorna::qt
