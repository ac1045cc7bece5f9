// The window as an engineer uses it on the demo job: real widgets, real mouse and key events,
// sizes changed as a window manager changes them, and what ends up on screen.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/startup.h"
#include "test_support.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_canvas.h"
#include "ui/qt/qt_ui.h"
#include "ui/qt/surface_widget.h"
#include "window_support.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <cstdlib>

namespace vorna::qt {
namespace {

// The real window started on a fresh demo suite, as the suite starts the program.
struct DemoWindow {
    test::TempDir dir;
    MainWindow window;
    std::unique_ptr<Program> program;

    DemoWindow(Ui &ui, QSize size) {
        const std::string root = (dir.path() / "suite").string();
        EXPECT_EQ(test::MakeDemoSuite(root), 0);
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.resize(size);
        window.show();
        program = std::make_unique<Program>(ui, window.Disegno(), window.Picture1());
        window.Attach(*program, MainWindow::InitialSize::FromWindow);
        window.Run([&](Program &p) { RunStartUp(p, "|diroot=" + root + "|"); });
        QApplication::setActiveWindow(&window);
    }

    QWidget *Widget(const std::string &name) { return test::BoundWidget(window, name); }
    QWidget *Disegno() { return Widget("Disegno"); }
    QAction *Item(const char *name) {
        for (QAction *a : window.findChildren<QAction *>())
            if (a->text() == name)
                return a;
        ADD_FAILURE() << name << " is not offered";
        return nullptr;
    }
    QRect InClient(const QWidget *w) { return test::InClient(window, w); }
    // The pixel of Disegno where the node of that name is drawn.
    QPoint NodePixel(int name) {
        const StructureModel &m = program->model;
        for (int i = 0; i < m.nodeCount; ++i)
            if (m.nodes[i].name == name) {
                const int point = m.nodes[i].pointIndex;
                return static_cast<QtCanvas &>(window.Disegno())
                    .ToPixel(program->view.projectedX[point], program->view.projectedY[point])
                    .toPoint();
            }
        ADD_FAILURE() << "no node " << name;
        return {};
    }
    // The mouse moved over Disegno with those buttons held.
    void MoveOver(QPoint at, Qt::MouseButtons held = Qt::NoButton) {
        QMouseEvent move(QEvent::MouseMove, at, Disegno()->mapToGlobal(at), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(Disegno(), &move);
    }
    void ChooseBaseNode(int name) {
        Item("&Scegli nodo base")->trigger();
        QTest::mouseClick(Disegno(), Qt::LeftButton, {}, NodePixel(name));
        ASSERT_GE(program->connection.baseNode, 0);
    }
    // Lets the window take a new size as a window manager gives it, with the redraw it queues.
    void Settle() {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
};

TEST(WindowUse, TypeLabelsSitOnTheSchemaAtEverySize) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    w.ChooseBaseNode(18);
    QWidget *picture = w.Widget("Picture1");
    for (QSize size : {QSize(1600, 1000), QSize(1000, 700), QSize(733, 546), QSize(1280, 800)}) {
        w.window.resize(size);
        w.Settle();
        const QRect schema = w.InClient(picture);
        int shown = 0;
        for (int k = 1; k <= 30; ++k) {
            QWidget *label = w.Widget("LabelTipo(" + std::to_string(k) + ")");
            if (!label->isVisible())
                continue;
            ++shown;
            EXPECT_TRUE(schema.contains(w.InClient(label).center()))
                << "LabelTipo(" << k << ") off the schema at " << size.width() << "x"
                << size.height();
        }
        EXPECT_EQ(shown, 4) << size.width() << "x" << size.height();
        // Where the side bar's scroll bar lies over the drawing's edge, it covers it to the
        // drawing's bottom: no sliver of the drawing shows below it.
        const QRect bar = w.InClient(picture->parentWidget()->parentWidget()->parentWidget());
        const QRect drawing = w.InClient(w.Disegno());
        if (bar.left() <= drawing.right()) {
            EXPECT_GE(bar.bottom(), drawing.bottom()) << size.width() << "x" << size.height();
        }
    }
    // The side bar, schema included, is whole or scrolls: its bottom is above the status row.
    QWidget *angles = w.Widget("Angolo(0)");
    const QRect sideBar = w.InClient(picture->parentWidget()->parentWidget());
    EXPECT_LE(sideBar.bottom(), w.InClient(angles).top());
    // And a click on a label still cycles its type.
    auto *label = static_cast<QLabel *>(w.Widget("LabelTipo(1)"));
    const QString before = label->text();
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_NE(label->text(), before);
}

TEST(WindowUse, TheSchemaComesIntoSightWithItsLabels) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    w.window.resize(200, 300); // the form's smallest size
    w.Settle();
    QWidget *picture = w.Widget("Picture1");
    QWidget *viewport = picture->parentWidget()->parentWidget();
    QScrollBar *bar = static_cast<QScrollArea *>(viewport->parentWidget())->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0) << "the side bar does not scroll at the smallest size";
    auto inSight = [&](const char *when) {
        const QRect sight = w.InClient(viewport);
        EXPECT_TRUE(sight.contains(w.InClient(picture))) << "the schema " << when;
        for (int k = 1; k <= 30; ++k) {
            QWidget *label = w.Widget("LabelTipo(" + std::to_string(k) + ")");
            EXPECT_TRUE(!label->isVisible() || sight.contains(w.InClient(label)))
                << "LabelTipo(" << k << ") " << when;
        }
    };
    w.ChooseBaseNode(18);
    inSight("after the base node is chosen");
    // Scrolled back to the top, it comes into sight again when the window takes a new size.
    bar->setValue(0);
    ASSERT_FALSE(w.InClient(viewport).contains(w.InClient(picture)));
    w.window.resize(733, 546);
    w.Settle();
    inSight("after a resize");
}

TEST(WindowUse, AMiddleButtonDragKeepsThePointUnderTheCursor) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    const QPoint start = w.NodePixel(18);
    QTest::mousePress(w.Disegno(), Qt::MiddleButton, {}, start);
    for (int k = 1; k <= 12; ++k)
        w.MoveOver(start + QPoint(10 * k, 0), Qt::MiddleButton);
    QTest::mouseRelease(w.Disegno(), Qt::MiddleButton, {}, start + QPoint(120, 0));
    const QPoint end = w.NodePixel(18);
    EXPECT_NEAR(end.x(), start.x() + 120, 1);
    EXPECT_NEAR(end.y(), start.y(), 1);
}

TEST(WindowUse, NamesTypedRightAfterNomeReachTheAnswerLine) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    w.ChooseBaseNode(18);
    w.Item("&Aggiungi nodi")->trigger();
    w.Item("N&ome elemento")->trigger();
    QWidget *focus = QApplication::focusWidget();
    ASSERT_EQ(focus, w.Widget("Risposta"));
    QTest::keyClicks(focus, "30-31");
    QTest::keyClick(focus, Qt::Key_Return);
    EXPECT_NE(w.program->form.StringaSel.caption.find("30-31"), std::string::npos)
        << w.program->form.StringaSel.caption;
}

TEST(WindowUse, EscInTheColourChooserLeavesTheOptionsDialogOpen) {
    MainWindow *parent = nullptr;
    QtUi ui(parent);
    DemoWindow w(ui, {1000, 700});
    bool optionsOpenAfterEsc = false;
    // Each step runs once the dialog before it waits for the user.
    QTimer::singleShot(0, [&] {
        auto *options = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(options, nullptr);
        QTimer::singleShot(0, [&, options] {
            auto *chooser = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(chooser, nullptr);
            // The press closes the chooser; the release then reaches the dialog below it, as
            // the window system delivers it to the window that is active by then.
            QTest::keyPress(chooser, Qt::Key_Escape);
            QTest::keyRelease(options, Qt::Key_Escape);
            QTimer::singleShot(0, [&, options] {
                optionsOpenAfterEsc = options->isVisible();
                options->reject();
            });
        });
        for (QPushButton *b : options->findChildren<QPushButton *>())
            if (b->text() == "Modifica") {
                b->click();
                return;
            }
        ADD_FAILURE() << "no Modifica button";
    });
    w.Item("O&pzioni...")->trigger();
    EXPECT_TRUE(optionsOpenAfterEsc);
}

// The menu "?" after Opzioni: F1 opens the gestures and keys, the other item the version and
// the licences; each dialog fits on the screen at any scale, its lists and paragraphs wrapped
// to its width, and Esc closes it.
TEST(WindowUse, TheHelpMenuOpensDialogsThatFitTheScreen) {
    MainWindow *parent = nullptr;
    QtUi ui(parent);
    DemoWindow w(ui, {733, 546});
    const QList<QAction *> menus = w.window.menuBar()->actions();
    ASSERT_GE(menus.size(), 2);
    EXPECT_EQ(menus[menus.size() - 2]->text(), "Op&zioni");
    EXPECT_EQ(menus.back()->text(), "?");
    int opened = 0;
    auto check = [&](const char *caption, auto inspect) {
        QTimer::singleShot(0, [&, caption, inspect] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            ++opened;
            EXPECT_EQ(dialog->windowTitle(), caption);
            const QSize room = dialog->screen()->availableGeometry().size();
            EXPECT_LE(dialog->width(), room.width());
            EXPECT_LE(dialog->height(), room.height());
            inspect(dialog);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
    };
    check("Comandi di mouse e tastiera", [](QDialog *dialog) {
        auto *list = dialog->findChild<QTreeWidget *>();
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->topLevelItemCount(), 14);
        EXPECT_LE(list->header()->length(), list->viewport()->width()) << "cut on the right";
    });
    QTest::keyClick(&w.window, Qt::Key_F1);
    check("Informazioni su vorna", [](QDialog *dialog) {
        bool qtNamed = false;
        for (QLabel *label : dialog->findChildren<QLabel *>())
            qtNamed = qtNamed || label->text().startsWith("Qt " + QString(qVersion()) + ",");
        EXPECT_TRUE(qtNamed);
    });
    w.Item("Informazioni su vorna")->trigger();
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(WindowUse, TheStatusRowIsWholeInTheNarrowestWindow) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    w.ChooseBaseNode(18);
    w.Item("&Aggiungi nodi")->trigger();
    w.Item("N&ome elemento")->trigger();
    for (bool sideBar : {true, false}) {
        if (!sideBar)
            w.Item("&Barra laterale")->trigger();
        w.window.resize(200, 300);
        w.Settle();
        w.MoveOver(w.NodePixel(18));
        EXPECT_FALSE(w.program->form.LabCoord.caption.empty());
        int right = 0;
        for (const char *name : {"FunAttiva", "SottoFunAttiva", "Label6", "LabCoord"}) {
            auto *label = static_cast<QLabel *>(w.Widget(name));
            const QRect place = w.InClient(label);
            EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text()))
                << name << " cut: " << label->text().toStdString();
            EXPECT_GT(place.left(), right) << name << " overlaps the caption before it";
            EXPECT_LE(place.right(), w.window.centralWidget()->width()) << name;
            right = place.right();
        }
    }
}

// A platform's own font (Windows draws with its own) can be larger than the one the design's
// twips were drawn for: the angle row then takes the room its text needs, clear of the drawing
// above and of the status row below, in the shortest window.
TEST(WindowUse, TheAngleRowStaysWholeAboveTheStatusRowInALargerFont) {
    const QFont usual = QApplication::font();
    for (double scale : {1.0, 1.25}) {
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * scale);
        QApplication::setFont(font);
        test::RecordingUi ui;
        DemoWindow w(ui, {1000, 700});
        w.window.resize(1000, 200);
        w.Settle();
        const int drawing = w.InClient(w.Disegno()).bottom();
        const int status = w.InClient(w.Widget("Frame2(0)")).top();
        for (const char *name : {"Label1(0)", "Label2(0)", "Angolo(0)", "Label1(2)", "Label2(2)",
                                 "Angolo(2)", "Label5", "StringaSel"}) {
            const QRect place = w.InClient(w.Widget(name));
            EXPECT_GT(place.top(), drawing) << name << " over the drawing, font x" << scale;
            EXPECT_LT(place.bottom(), status) << name << " over the status row, font x" << scale;
        }
        auto *box = static_cast<QLineEdit *>(w.Widget("Angolo(0)"));
        const int frame = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, box);
        EXPECT_GE(box->height() - 2 * frame, box->fontMetrics().height()) << "font x" << scale;
        auto *caption = static_cast<QLabel *>(w.Widget("Label5"));
        EXPECT_GE(caption->width(), caption->fontMetrics().horizontalAdvance(caption->text()));
        for (const char *name : {"Frame2(1)", "FrameCoord", "SottoFunAttiva", "LabCoord"}) {
            auto *widget = w.Widget(name);
            EXPECT_LE(w.InClient(widget).bottom(), w.window.centralWidget()->height() - 1)
                << name << " below the window, font x" << scale;
            EXPECT_GE(widget->height(), widget->fontMetrics().height()) << name;
        }
    }
    QApplication::setFont(usual);
}

TEST(WindowUse, QtsOwnDialogsSpeakItalian) {
    ASSERT_TRUE(LoadItalianTranslations());
    QMessageBox box(QMessageBox::Question, "t", "x", QMessageBox::Yes | QMessageBox::Cancel);
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Annulla");
    EXPECT_EQ(box.button(QMessageBox::Yes)->text(), QString::fromUtf8("&Sì"));
}

TEST(WindowUse, AnAngleThatIsNoNumberIsNamedAndTheViewKept) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    const std::vector<double> before = w.program->view.projectedX;
    auto *box = static_cast<QLineEdit *>(w.Widget("Angolo(0)"));
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "22,5");
    QTest::keyClick(box, Qt::Key_R, Qt::ControlModifier);
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Angolo alfa x: \"22,5\" non \xE8 un numero (il separatore "
                                   "decimale \xE8 il punto). Resta l'angolo 30.");
    EXPECT_EQ(w.program->view.projectedX, before);
    // The redraws of a gesture do not repeat it; a new Ctrl+R does.
    QWheelEvent wheel({5, 5}, w.Disegno()->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(w.Disegno(), &wheel);
    EXPECT_EQ(ui.messages.size(), 1u);
    QTest::keyClick(box, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(ui.messages.size(), 2u);
}

// The tolerance boxes take what is typed when the user leaves them or presses Enter: a value out
// of range is told once and the last valid one stays; a good one is kept in the job's file.
TEST(WindowUse, ATypedToleranceIsTakenWhenTheBoxIsLeft) {
    test::RecordingUi ui;
    DemoWindow w(ui, {733, 546});
    auto *box = static_cast<QLineEdit *>(w.Widget("TolAngoli"));
    const QRect frame = w.InClient(w.Widget("FrameSel"));
    EXPECT_TRUE(frame.contains(w.InClient(box))) << "the box lies within its frame";
    box->setFocus();
    QTest::keyClicks(box, "60");
    w.Widget("TolLunghezze")->setFocus(); // Tab, or a click elsewhere
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "Toll. angoli (\xB0): \"60\" non \xE8 un numero da 0 a 45. "
                                   "Resta il valore 0.");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "1.5");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(w.program->tolerances.angle.value, 1.5);
    EXPECT_EQ(test::ReadBytes(w.dir.path() / "suite" / "lavori" / "demo01" / "VornaTolleranze.txt"),
              "TolAngoli=1.5\r\nTolLunghezze=\r\n");
}

TEST(WindowUse, ADrawingNamedWithoutExtensionGetsTheTypes) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    const auto job = w.dir.path() / "suite" / "lavori" / "demo01";
    for (int type : {1, 2}) {
        ui.saveChoices.push_back(SaveDialogResult{(job / "vista").string(), type});
        w.Item("Salva &disegno...")->trigger();
    }
    EXPECT_TRUE(std::filesystem::exists(job / "vista.dis"));
    EXPECT_TRUE(std::filesystem::exists(job / "vista.dxf"));
    EXPECT_FALSE(std::filesystem::exists(job / "vista"));
}

TEST(WindowUse, ARightDragOrbitsAndARightClickStillPopsUp) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    const QPoint start = w.NodePixel(18);
    // 100 pixels right and 20 up in four moves, each redrawing the turned view: 50° and 10°.
    QTest::mousePress(w.Disegno(), Qt::RightButton, {}, start);
    for (int k = 1; k <= 4; ++k)
        w.MoveOver(start + QPoint(25, -5) * k, Qt::RightButton);
    QTest::mouseRelease(w.Disegno(), Qt::RightButton, {}, start + QPoint(100, -20));
    EXPECT_EQ(static_cast<QLineEdit *>(w.Widget("Angolo(0)"))->text(), "40");
    EXPECT_EQ(static_cast<QLineEdit *>(w.Widget("Angolo(1)"))->text(), "80");
    EXPECT_TRUE(ui.popUps.empty());

    QTest::mousePress(w.Disegno(), Qt::RightButton, {}, start);
    QTest::mouseRelease(w.Disegno(), Qt::RightButton, {}, start + QPoint(2, 1));
    EXPECT_EQ(ui.popUps, std::vector<std::string>{"Visualizza"});
    EXPECT_EQ(static_cast<QLineEdit *>(w.Widget("Angolo(1)"))->text(), "80");
}

TEST(WindowUse, TheNodeUnderTheRestingCursorIsRingedOverThePicture) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    auto *disegno = static_cast<SurfaceWidget *>(w.Disegno());
    const qint64 picture = disegno->Canvas().Image().cacheKey();
    const QPoint node = w.NodePixel(18);
    w.MoveOver(node + QPoint(2, 1));
    ASSERT_TRUE(disegno->ShownOverlays().hover.has_value());
    EXPECT_NEAR(disegno->ShownOverlays().hover->centre.x(), node.x(), 1);
    EXPECT_NEAR(disegno->ShownOverlays().hover->centre.y(), node.y(), 1);
    EXPECT_EQ(disegno->Canvas().Image().cacheKey(), picture) << "the model was drawn again";
    w.MoveOver(QPoint(3, 3));
    EXPECT_FALSE(disegno->ShownOverlays().hover.has_value());
}

// "Perché no?" on a picked node: the failing cell stands out, a near miss chosen on the second
// tab centres the view on it; then Esito in the status row tells a verdict whole in its tooltip.
TEST(WindowUse, WhyNotMarksTheFailingCellAndANearMissCentresTheView) {
    MainWindow *parent = nullptr;
    QtUi ui(parent);
    DemoWindow w(ui, {1000, 700});
    w.ChooseBaseNode(18);
    QString marked;
    QColor markedColour;
    int chosenNode = -1;
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto *tabs = dialog->findChild<QTabWidget *>();
        ASSERT_NE(tabs, nullptr);
        auto *comparison = qobject_cast<QTreeWidget *>(tabs->widget(0));
        auto *misses = qobject_cast<QTreeWidget *>(tabs->widget(1));
        ASSERT_TRUE(comparison && misses);
        marked = comparison->topLevelItem(2)->text(3);
        markedColour = comparison->topLevelItem(2)->foreground(3).color();
        tabs->setCurrentIndex(1);
        misses->setCurrentItem(misses->topLevelItem(1));
        chosenNode = misses->topLevelItem(1)->text(1).toInt();
        dialog->reject();
    });
    w.Item("&Perch\u00e9 no?...")->trigger();
    QTest::mouseClick(w.Disegno(), Qt::LeftButton, {}, w.NodePixel(17));
    EXPECT_EQ(marked, QString::fromUtf8("\u00bb 90.0\u00b0"));
    EXPECT_EQ(markedColour, QColor(200, 0, 0));
    ASSERT_GT(chosenNode, 0);
    const QPoint centre = w.Disegno()->rect().center(), node = w.NodePixel(chosenNode);
    // Centred up to the fit's uneven margins (10 % on one side, 11 % on the other).
    const QSize size = w.Disegno()->size();
    EXPECT_LE((node - centre).manhattanLength(), (size.width() + size.height()) / 100)
        << node.x() << ',' << node.y();

    w.Item("&Aggiungi nodi")->trigger();
    QTest::mouseClick(w.Disegno(), Qt::LeftButton, {}, w.NodePixel(17));
    auto *esito = qobject_cast<QLabel *>(w.Widget("Esito"));
    ASSERT_NE(esito, nullptr);
    EXPECT_TRUE(esito->text().startsWith("Nodo 17 non analogo: asta base 3"));
    EXPECT_EQ(esito->toolTip(), QString::fromUtf8("Nodo 17 non analogo: asta base 3, direzione "
                                                  "diversa di 90.0\u00b0"));
    EXPECT_TRUE(w.InClient(w.Widget("FrameCoord")).contains(w.InClient(esito)));
}

// "Revisione nodi analoghi" at its smallest and at every screen scale: titles, cells and buttons
// whole; the furthest node looked at first; a header click sorts; Space on a row's check box
// takes its node out of the list; the ring goes with the dialog.
TEST(WindowUse, TheReviewTableIsWholeAndActsOnTheList) {
    MainWindow *parent = nullptr;
    QtUi ui(parent);
    DemoWindow w(ui, {1000, 700});
    QTest::mouseClick(w.Widget("OpzMetodo(2)"), Qt::LeftButton);
    w.ChooseBaseNode(13);
    w.Item("&Aggiungi nodi")->trigger();
    w.window.Run([](Program &p) { ColourCommand(p, kAllCodes); });
    ASSERT_EQ(w.program->form.StringaSel.caption, "13,24-25,36");
    std::vector<QString> looked, sorted;
    int lookedAtNode = -2;
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto *table = dialog->findChild<QTableView *>();
        ASSERT_NE(table, nullptr);
        QAbstractItemModel *model = table->model();
        auto cell = [&](int row, int column) {
            return model->index(row, column).data().toString();
        };
        looked.push_back(cell(table->currentIndex().row(), 1));
        lookedAtNode = w.program->lookedAt.node;
        dialog->resize(1, 1);
        QApplication::processEvents();
        QHeaderView *header = table->horizontalHeader();
        const QFontMetrics titles(header->font()), cells(table->font());
        for (int c = 0; c < model->columnCount(); ++c) {
            const QString title = model->headerData(c, Qt::Horizontal).toString();
            EXPECT_GE(header->sectionSize(c), titles.horizontalAdvance(title))
                << title.toStdString();
            for (int r = 0; r < model->rowCount(); ++r)
                EXPECT_GE(header->sectionSize(c), cells.horizontalAdvance(cell(r, c)))
                    << cell(r, c).toStdString();
        }
        EXPECT_GE(table->viewport()->height(), 4 * table->rowHeight(0)) << "rows out of sight";
        for (QPushButton *button : dialog->findChildren<QPushButton *>())
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        // A click on "Nodo" sorts by the node, then again the other way.
        for (int click = 0; click < 2; ++click) {
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              QPoint(header->sectionViewportPosition(1) + 4, header->height() / 2));
            QString order;
            for (int r = 0; r < model->rowCount(); ++r)
                order += cell(r, 1) + " ";
            sorted.push_back(order);
        }
        looked.push_back(cell(table->currentIndex().row(), 1));
        // Node 25's check box, by the keyboard.
        for (int r = 0; r < model->rowCount(); ++r)
            if (cell(r, 1) == "25")
                table->setCurrentIndex(model->index(r, 0));
        QTest::keyClick(table, Qt::Key_Space);
        EXPECT_EQ(w.program->form.StringaSel.caption, "13,24,36");
        for (int r = 0; r < model->rowCount(); ++r)
            if (cell(r, 1) == "13") {
                EXPECT_FALSE(model->flags(model->index(r, 0)) & Qt::ItemIsUserCheckable);
            }
        for (QPushButton *button : dialog->findChildren<QPushButton *>())
            if (button->text() == "Chiudi")
                QTest::mouseClick(button, Qt::LeftButton);
    });
    w.Item("Revisione &nodi analoghi...")->trigger();
    EXPECT_EQ(looked, (std::vector<QString>{"24", "24"}));
    EXPECT_EQ(sorted, (std::vector<QString>{"13 24 25 36 ", "36 25 24 13 "}));
    ASSERT_GE(lookedAtNode, 0);
    EXPECT_EQ(w.program->model.nodes[lookedAtNode].name, 24);
    EXPECT_EQ(w.program->lookedAt.node, -1);
    EXPECT_EQ(w.program->form.StringaSel.caption, "13,24,36");
}

// Run once more with QT_SCALE_FACTOR=2 (a test of its own): the picture then has twice the
// pixels each way, while the program keeps seeing the window's logical size.
TEST(WindowUse, ThePictureHasTheScreensPixelsAndHairlinesStayOneDevicePixel) {
    test::RecordingUi ui;
    DemoWindow w(ui, {1000, 700});
    auto *disegno = static_cast<SurfaceWidget *>(w.Disegno());
    const double ratio = disegno->devicePixelRatioF();
    if (const char *scale = std::getenv("QT_SCALE_FACTOR")) {
        ASSERT_DOUBLE_EQ(ratio, std::atof(scale)) << "the platform ignored the screen scale";
    }
    QtCanvas &canvas = disegno->Canvas();
    const QImage shown = canvas.Image();
    EXPECT_EQ(shown.size(), disegno->size() * ratio);
    EXPECT_DOUBLE_EQ(shown.devicePixelRatio(), ratio);
    EXPECT_EQ(canvas.PixelSize(), disegno->size());
    EXPECT_DOUBLE_EQ(canvas.WidthTwips(), disegno->width() * canvas.TwipsPerPixelX());

    // One unit a logical pixel, y down; each line on a pixel row.
    canvas.SetScale(
        {0, 0, static_cast<double>(disegno->width()), static_cast<double>(disegno->height())});
    canvas.Clear();
    canvas.Line(10, 20, 200, 20, Pen{0xFFFFFF});
    canvas.SetLineWidth(3);
    canvas.Line(10, 60, 200, 60, Pen{0xFFFFFF});
    canvas.SetLineWidth(1);
    canvas.FilledCircle(300, 100, 10, 0xFFFFFF);
    canvas.Refresh();
    const QImage image = canvas.Image();
    // How many pixels' worth of pen a column crosses: smoothed edges count by their share.
    auto litRows = [&](double x, double fromY, double toY) {
        double lit = 0;
        const int column = static_cast<int>(x * ratio);
        for (int y = static_cast<int>(fromY * ratio); y < static_cast<int>(toY * ratio); ++y)
            lit += qRed(image.pixel(column, y)) / 255.0;
        return lit;
    };
    EXPECT_NEAR(litRows(100, 10, 30), 1, 0.05) << "a hairline is one device pixel at any scale";
    EXPECT_NEAR(litRows(100, 50, 70), 3 * ratio, 0.05) << "a wide pen grows with it";
    EXPECT_NEAR(litRows(300, 80, 120), 20 * ratio + 1, 1) << "so does a circle";
    // What the window shows is that picture, at the screen's pixels.
    const QImage grabbed = disegno->grab().toImage();
    EXPECT_EQ(grabbed.size(), image.size());
    EXPECT_EQ(grabbed.pixel(static_cast<int>(100 * ratio), static_cast<int>(20 * ratio)),
              qRgb(255, 255, 255));
}

} // namespace
} // namespace vorna::qt
