// The main window FormVorna: events in as commands, the form out as widget state.
//
// Sections: Qt's buttons and modifiers as the program's; attaching a program and the window's
// size; the form shown on the widgets (SyncFromForm, the side bar, menus, overlays); running a
// command (Run); Disegno's mouse, wheel and keys; resizing, closing and the shortcuts over text
// boxes. The rows under the drawing are laid out in window_rows.cpp.
#include "ui/qt/main_window.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "app/dispatch.h"
#include "ui/qt/qt_ui.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>

#include <algorithm>

namespace vorna::qt {

namespace {

// The form's outer size counts a frame around the client area and, above it, the title and
// menu bars of the design; with them the layout rule's bottom row ends just inside the client.
constexpr double kFrameTwipsX = 60, kFrameTwipsY = 750;

MouseButton ButtonOf(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return kLeftButton;
    case Qt::RightButton:
        return kRightButton;
    case Qt::MiddleButton:
        return kMiddleButton;
    default:
        return kNoButton;
    }
}

int ButtonsHeld(Qt::MouseButtons buttons) {
    return (buttons & Qt::LeftButton ? kLeftButton : 0) |
           (buttons & Qt::RightButton ? kRightButton : 0) |
           (buttons & Qt::MiddleButton ? kMiddleButton : 0);
}

Modifiers ModifiersOf(Qt::KeyboardModifiers modifiers) {
    return {(modifiers & Qt::ShiftModifier) != 0, (modifiers & Qt::ControlModifier) != 0,
            (modifiers & Qt::AltModifier) != 0};
}

// Whether Qt is linked into the program (the Windows build), for "Informazioni su vorna".
#ifdef QT_STATIC
constexpr bool kQtStatic = true;
#else
constexpr bool kQtStatic = false;
#endif

} // namespace

MainWindow::MainWindow() {
    auto *client = new QWidget(this);
    setCentralWidget(client);
    BuildMenus();
    BuildControls(client);
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] { Run(Interrompi_Click); });
}

double MainWindow::TwipsPerPixel() const {
    return 1440.0 / logicalDpiX();
}

void MainWindow::KeepStatusRowWhole(bool keep) {
    keepStatusRowWhole_ = keep;
    if (!keep)
        setMinimumWidth(0);
}

void MainWindow::Attach(Program &program, InitialSize initialSize) {
    program_ = &program;
    program.toolkit = {qVersion(), kQtStatic};
    for (Binding &b : bindings_) {
        b.control = FindControl(program.form, b.name);
        b.shown.reset();
    }
    for (MenuAction &a : actions_)
        a.control = FindControl(program.form, a.name);
    // An off-screen window has no real screen to fit: the form keeps its own width for it.
    if (QScreen *s = screen(); s && QGuiApplication::platformName() != "offscreen") {
        const QSize room = s->availableGeometry().size();
        program.form.screenWidth = room.width() * TwipsPerPixel();
        // A form larger than the screen (a small screen, or a large scale factor) opens as large
        // as the screen allows, its title bar included.
        constexpr int kTitleBar = 40;
        if (initialSize == InitialSize::FromForm) {
            const QSize wanted = WindowSizeOfForm();
            const double tpp = TwipsPerPixel();
            if (wanted.width() > room.width())
                program.form.width = room.width() * tpp + kFrameTwipsX;
            if (wanted.height() > room.height() - kTitleBar)
                program.form.height =
                    (room.height() - kTitleBar - menuBar()->sizeHint().height()) * tpp +
                    kFrameTwipsY;
        }
    }
    if (initialSize == InitialSize::FromWindow)
        TakeSizeFromWindow();
    LayOutForm(program);
    SyncFromForm();
}

void MainWindow::TakeSizeFromWindow() {
    const double tpp = TwipsPerPixel();
    const int menu = menuBar()->sizeHint().height();
    program_->form.width = width() * tpp + kFrameTwipsX;
    program_->form.height = (height() - menu) * tpp + kFrameTwipsY;
    appliedSize_ = size();
}

QSize MainWindow::WindowSizeOfForm() const {
    const double tpp = TwipsPerPixel();
    const FormVorna &f = program_->form;
    return {std::max(1, Pixels(f.width - kFrameTwipsX, tpp)),
            std::max(1, Pixels(f.height - kFrameTwipsY, tpp)) + menuBar()->sizeHint().height()};
}

void MainWindow::SyncFromForm() {
    if (!program_)
        return;
    FormVorna &f = program_->form;
    const double tpp = TwipsPerPixel();
    if (tpp != shownTwipsPerPixel_) {
        for (Binding &b : bindings_)
            b.shown.reset();
        shownTwipsPerPixel_ = tpp;
    }
    if (!f.minimised && WindowSizeOfForm() != appliedSize_) {
        if (isMaximized() || isFullScreen()) {
            // Such a window keeps its size: the form is laid out on it again instead.
            TakeSizeFromWindow();
            LayOutForm(*program_);
        } else {
            appliedSize_ = WindowSizeOfForm();
            resize(appliedSize_);
        }
    }
    // The side bar's controls are placed in its container, which starts where FrameSel does.
    const QPoint sideOrigin = TwipsToPixels(f.FrameSel, tpp).topLeft();
    for (Binding &b : bindings_)
        if (b.widget->parentWidget() == sideBar_->widget() && b.origin != sideOrigin) {
            b.origin = sideOrigin;
            b.shown.reset();
        }
    for (Binding &b : bindings_)
        ApplyBinding(b, tpp);
    SyncSideBar();
    SyncStatusRow(SyncAngleRow());
    SyncMenus();
    if (QString title = ToQString(f.caption); title != windowTitle())
        setWindowTitle(title);
    SyncOverlays();
    if (!f.focusRequest.empty()) {
        for (Binding &b : bindings_)
            if (b.name == f.focusRequest && b.widget->isEnabled())
                b.widget->setFocus(Qt::OtherFocusReason);
        f.focusRequest.clear();
    }
    for (SurfaceWidget *surface : {disegno_, picture1_})
        if (surface->Canvas().NeedsShowing())
            surface->update();
}

void MainWindow::SyncMenus() {
    for (MenuAction &a : actions_) {
        if (!a.control)
            continue;
        const Control &c = *a.control;
        if (a.name.rfind("Toolbar1.", 0) == 0) {
            a.action->setToolTip(ToQString(c.tooltip));
        } else {
            a.action->setText(ToQString(c.caption));
            a.action->setCheckable(c.checked);
            a.action->setChecked(c.checked);
        }
        a.action->setEnabled(c.enabled);
        a.action->setVisible(c.visible);
    }
}

QWidget *MainWindow::Widget(std::string_view name) const {
    for (const Binding &b : bindings_)
        if (b.name == name)
            return b.widget;
    return nullptr;
}

// The side bar keeps its controls where the form places them, and scrolls when the status row
// leaves it less room than its height (its scroll bar then takes room from the drawing's edge).
void MainWindow::SyncSideBar() {
    const FormVorna &f = program_->form;
    const double tpp = TwipsPerPixel();
    const QPoint origin = TwipsToPixels(f.FrameSel, tpp).topLeft();
    QRect used;
    for (const Control *c : {&f.FrameSel, &f.FrameAtt, &f.Label7, &f.Picture1})
        used |= TwipsToPixels(*c, tpp).translated(-origin);
    QWidget *content = sideBar_->widget();
    content->resize(used.right() + 1, used.bottom() + 1);
    constexpr int kGap = 4;
    int room = std::max(1, TwipsToPixels(f.Angolo[0], tpp).top() - origin.y() - kGap);
    const bool scrolls = content->height() > room;
    // Its scroll bar lies over the drawing's edge, so it reaches down as far as the drawing does.
    if (scrolls)
        room = std::max(room, TwipsToPixels(f.Disegno, tpp).bottom() + 1 - origin.y());
    sideBar_->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    const int bar = scrolls ? sideBar_->verticalScrollBar()->sizeHint().width() : 0;
    sideBar_->setGeometry(origin.x() - bar, origin.y(), content->width() + bar,
                          scrolls ? room : content->height());
    sideBar_->setVisible(f.FrameSel.visible);
    // A schema drawn for a new base node, or a new window size while one is set, is brought into
    // sight: setting its bar types comes next, and a short window leaves it below the fold.
    const QSizeF formSize(f.width, f.height);
    const int node = program_->connection.baseNode;
    if (node == schemaNode_ && formSize == schemaFormSize_)
        return;
    schemaNode_ = node;
    schemaFormSize_ = formSize;
    if (node >= 0 && f.FrameSel.visible && f.Label7.enabled)
        ScrollToSchema();
}

// Scrolls the side bar the least that shows the schema with its caption and labels, taken from
// where the widgets are; where the window is too short for all of it, its top stays in sight.
void MainWindow::ScrollToSchema() {
    QRect schema = picture1_->geometry() | Widget("Label7")->geometry();
    for (const Binding &b : bindings_)
        if (b.name.starts_with("LabelTipo(") && !b.widget->isHidden())
            schema |= b.widget->geometry();
    QScrollBar *bar = sideBar_->verticalScrollBar();
    const int sight = sideBar_->viewport()->height();
    bar->setValue(std::min(schema.top(), std::max(bar->value(), schema.bottom() + 1 - sight)));
}

void MainWindow::SyncOverlays() {
    const FormVorna &f = program_->form;
    const QtCanvas &canvas = disegno_->Canvas();
    Overlays overlays;
    if (f.Shape.visible) {
        // The rubber band is kept in drawing units: left, top (the larger y), width, height.
        const Control &s = f.Shape;
        overlays.band = QRectF(canvas.ToPixel(s.left, s.top),
                               canvas.ToPixel(s.left + s.width, s.top - s.height))
                            .normalized();
    }
    if (f.LineSposta.visible) {
        // The move line is kept in drawing units as (left, top) to (width, height).
        const Control &l = f.LineSposta;
        overlays.moveLine =
            QLineF(canvas.ToPixel(l.left, l.top), canvas.ToPixel(l.width, l.height));
    }
    // The rings sit around the node's circle, a few pixels out.
    const NavigationState &n = program_->navigation;
    auto ring = [&](int node, double gap) -> std::optional<Ring> {
        if (node < 0 || node >= program_->model.nodeCount)
            return std::nullopt;
        const int point = program_->model.nodes[node].pointIndex;
        return Ring{canvas.ToPixel(ProjectedXOf(program_->view, point),
                                   ProjectedYOf(program_->view, point)),
                    program_->displayOptions(opt::kNodeRadius) + gap};
    };
    overlays.hover = ring(n.hoverNode, 3);
    overlays.marker = ring(n.markedNode, 8);
    disegno_->SetOverlays(overlays);
}

void MainWindow::Run(const std::function<void(Program &)> &command, BusyWhile busyWhile) {
    // A command never runs inside another (a message box's own loop may deliver events).
    if (!program_ || running_ || program_->exitRequested)
        return;
    running_ = true;
    for (Binding &b : bindings_)
        ReadBinding(b);
    Dispatch(*program_, command, busyWhile);
    running_ = false;
    SyncFromForm();
    if (program_->exitRequested)
        close();
}

void MainWindow::DisegnoMouse(QMouseEvent *event, MouseEvent::Kind kind) {
    const QPointF at = disegno_->Canvas().ToUnits(event->position());
    MouseEvent e{.kind = kind,
                 .button = ButtonOf(event->button()),
                 .held = ButtonsHeld(event->buttons()),
                 .modifiers = ModifiersOf(event->modifiers()),
                 .x = at.x(),
                 .y = at.y()};
    if (kind == MouseEvent::Kind::Move) {
        // Moves come by the hundred and each answers at once: no busy pointer for them.
        Run([&](Program &p) { Disegno_Mouse(p, e); }, BusyWhile::Never);
    } else if (e.button != kNoButton) {
        Run([&](Program &p) { Disegno_Mouse(p, e); });
    }
}

void MainWindow::DisegnoWheel(int steps, QPointF at, Qt::KeyboardModifiers modifiers) {
    const QPointF units = disegno_->Canvas().ToUnits(at);
    const MouseEvent e{.kind = MouseEvent::Kind::Wheel,
                       .modifiers = ModifiersOf(modifiers),
                       .x = units.x(),
                       .y = units.y(),
                       .wheelSteps = steps};
    Run([&](Program &p) { Disegno_Mouse(p, e); });
}

void MainWindow::DisegnoKey(QKeyEvent *event) {
    static const std::pair<int, Key> keys[] = {
        {Qt::Key_Left, Key::Left}, {Qt::Key_Right, Key::Right},   {Qt::Key_Up, Key::Up},
        {Qt::Key_Down, Key::Down}, {Qt::Key_PageUp, Key::PageUp}, {Qt::Key_PageDown, Key::PageDown},
        {Qt::Key_Home, Key::Home}};
    for (const auto &[qtKey, key] : keys)
        if (event->key() == qtKey && event->modifiers() == Qt::NoModifier) {
            Run([key](Program &p) { Disegno_KeyDown(p, key); });
            return;
        }
    event->ignore();
}

void MainWindow::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    // A size the form asked for is already laid out; only the user's sizes need the rule.
    if (!program_ || running_ || size() == appliedSize_)
        return;
    Run([this](Program &p) {
        TakeSizeFromWindow();
        LayOutForm(p);
    });
    // The picture follows the new size once the surface has it, as a user expects of a resize.
    if (program_->structureLoaded && !redrawQueued_) {
        redrawQueued_ = true;
        QTimer::singleShot(0, this, [this] {
            redrawQueued_ = false;
            Run([](Program &p) { RedrawView(p); });
        });
    }
}

void MainWindow::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (program_ && event->type() == QEvent::WindowStateChange)
        program_->form.minimised = isMinimized();
}

void MainWindow::closeEvent(QCloseEvent *event) {
    if (program_ && !program_->exitRequested)
        EndProgram(*program_, 0);
    event->accept();
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event) {
    // The menu shortcuts win over a text box's own keys (Ctrl+Z, Ctrl+A), as the menus expect.
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        QKeySequence pressed(key->keyCombination());
        for (const QKeySequence &s : shortcuts_)
            if (s == pressed)
                return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        auto *label = qobject_cast<QWidget *>(watched);
        QVariant k = watched->property("labelTipo");
        if (label && k.isValid() && mouse->button() == Qt::LeftButton &&
            label->rect().contains(mouse->position().toPoint()))
            Run([k = k.toInt()](Program &p) { LabelTipo_Click(p, k); });
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace vorna::qt
