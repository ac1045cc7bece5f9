// Building the main window: menus and the icon bar from the form's table, and every control of
// the form as a widget bound to it by name.
#include "app/command_steps.h"
#include "app/commands.h"
#include "ui/qt/main_window.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QToolBar>
#include <QVBoxLayout>

#include <map>

namespace vorna::qt {

namespace {

QLabel *Label(QWidget *parent) {
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

QWidget *MainWindow::Bind(const std::string &name, QWidget *widget, BindingStyle style) {
    return AddBinding(bindings_, name, widget, style);
}

void MainWindow::AddMenuItem(QMenu *menu, const FormRow &row) {
    QAction *action = menu->addAction(row.name);
    if (*row.shortcut != '\0') {
        action->setShortcut(QKeySequence(row.shortcut));
        shortcuts_.push_back(action->shortcut());
    }
    std::string itemName = row.name;
    connect(action, &QAction::triggered, this,
            [this, itemName] { Run([&](Program &p) { RunMenuItem(p, itemName); }); });
    actions_.push_back({row.name, action, nullptr});
}

// The menu tree in the table's order: each menu under its parent, each item under its menu.
void MainWindow::BuildMenus() {
    std::map<std::string_view, QMenu *> menus;
    for (const FormRow &row : FormVornaRows()) {
        if (row.kind == RowKind::Menu) {
            auto parent = menus.find(row.parent);
            QMenu *menu = parent != menus.end() ? parent->second->addMenu(row.name)
                                                : menuBar()->addMenu(row.name);
            menu->setObjectName(row.name);
            actions_.push_back({row.name, menu->menuAction(), nullptr});
            menus[row.name] = menu;
        } else if (row.kind == RowKind::MenuItem) {
            AddMenuItem(menus.at(row.parent), row);
        }
    }
}

void MainWindow::BuildToolbar(QWidget *client) {
    toolbar_ = new QToolBar(client);
    toolbar_->setIconSize(QSize(20, 20));
    toolbar_->setMovable(false);
    toolbar_->setFloatable(false);
    for (const FormRow &row : FormVornaRows()) {
        if (row.kind == RowKind::Gap) {
            toolbar_->addSeparator();
        } else if (row.kind == RowKind::Button) {
            std::string key = row.name;
            QAction *action =
                toolbar_->addAction(QIcon(QString(":/icons/%1.svg").arg(row.name)), row.name);
            connect(action, &QAction::triggered, this,
                    [this, key] { Run([&](Program &p) { RunToolbarButton(p, key); }); });
            actions_.push_back({std::string(row.parent) + "." + key, action, nullptr});
        }
    }
    Bind("Toolbar1", toolbar_, BindingStyle::Placed);
}

void MainWindow::BuildSideBar(QWidget *client) {
    // The side bar scrolls where the window is too short for it: its controls live in a
    // container that SyncSideBar places and sizes.
    sideBar_ = new QScrollArea(client);
    sideBar_->setFrameShape(QFrame::NoFrame);
    sideBar_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sideBar_->setWidgetResizable(false);
    client = new QWidget;
    sideBar_->setWidget(client);
    auto *frameSel = new QGroupBox(client);
    auto *sel = new QVBoxLayout(frameSel);
    sel->setSpacing(2);
    for (int i = 0; i < 4; ++i)
        sel->addWidget(Bind("OpzMetodo(" + std::to_string(i) + ")", new QRadioButton(frameSel),
                            BindingStyle::Plain));
    for (const char *name : {"analLun", "AnalSezAste", "AnalColAste", "analLinAste"})
        sel->addWidget(Bind(name, new QCheckBox(frameSel), BindingStyle::Plain));
    // Each tolerance box shows its caption beside it: two widgets of one control, the box
    // bound first, as the control's own widget.
    auto *tolerances = new QGridLayout;
    tolerances->setHorizontalSpacing(6);
    tolerances->setVerticalSpacing(2);
    int row = 0;
    for (const char *name : {"TolAngoli", "TolLunghezze"}) {
        auto *box = new QLineEdit(frameSel);
        box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("000.000")) + 12);
        connect(box, &QLineEdit::editingFinished, this,
                [this] { Run([](Program &p) { Tolleranza_Change(p); }); });
        Bind(name, box, BindingStyle::Plain);
        tolerances->addWidget(Bind(name, Label(frameSel), BindingStyle::Plain), row, 0);
        tolerances->addWidget(box, row++, 1);
    }
    tolerances->setColumnStretch(2, 1);
    sel->addLayout(tolerances);
    sel->addStretch();
    Bind("FrameSel", frameSel, BindingStyle::Placed);

    auto *frameAtt = new QGroupBox(client);
    auto *att = new QVBoxLayout(frameAtt);
    att->setSpacing(2);
    for (const char *name : {"NodiAtt", "AsteAtt", "GusciAtt", "ElSelez", "ElNonSelez"})
        att->addWidget(Bind(name, new QCheckBox(frameAtt), BindingStyle::Plain));
    att->addSpacing(4);
    att->addWidget(Bind("Label3(0)", Label(frameAtt), BindingStyle::Plain));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(2);
    const char *axes[] = {"X", "Y", "Z"};
    for (int k = 0; k < 3; ++k) {
        std::string axis = axes[k];
        grid->addWidget(
            Bind("Label3(" + std::to_string(k + 1) + ")", Label(frameAtt), BindingStyle::Plain), k,
            0);
        grid->addWidget(Bind("Int" + axis + "(0)", new QLineEdit(frameAtt), BindingStyle::Plain), k,
                        1);
        grid->addWidget(
            Bind("Label4(" + std::to_string(k) + ")", Label(frameAtt), BindingStyle::Plain), k, 2);
        grid->addWidget(Bind("Int" + axis + "(1)", new QLineEdit(frameAtt), BindingStyle::Plain), k,
                        3);
        auto *all = new QPushButton(frameAtt);
        const std::string name = "Tutto" + axis;
        connect(all, &QPushButton::clicked, this,
                [this, name] { Run([&](Program &p) { RunCommandButton(p, name); }); });
        grid->addWidget(Bind(name, all, BindingStyle::Plain), k, 4);
    }
    att->addLayout(grid);
    att->addStretch();
    Bind("FrameAtt", frameAtt, BindingStyle::Placed);

    Bind("Label7", Label(client), BindingStyle::Placed);
    picture1_ = new SurfaceWidget(QColor(40, 44, 52), client);
    Bind("Picture1", picture1_, BindingStyle::Placed);
    // The bar-type labels lie over the schema, placed in the client area like it.
    for (int k = 1; k <= 30; ++k) {
        QLabel *label = Label(client);
        label->setAlignment(Qt::AlignCenter);
        label->setAutoFillBackground(true);
        label->setFrameStyle(QFrame::Box | QFrame::Plain);
        label->setProperty("labelTipo", k);
        label->installEventFilter(this);
        Bind("LabelTipo(" + std::to_string(k) + ")", label, BindingStyle::Placed);
    }
}

void MainWindow::BuildControls(QWidget *client) {
    // Frames first: the controls placed over them are created later and so lie on top.
    for (const char *name : {"Frame2(0)", "Frame2(1)", "FrameCoord", "FrameInput"})
        Bind(name, new QGroupBox(client), BindingStyle::Placed);

    disegno_ = new SurfaceWidget(Qt::black, client);
    disegno_->setMouseTracking(true);
    using Kind = MouseEvent::Kind;
    connect(disegno_, &SurfaceWidget::Pressed, this,
            [this](QMouseEvent *e) { DisegnoMouse(e, Kind::Press); });
    connect(disegno_, &SurfaceWidget::Moved, this,
            [this](QMouseEvent *e) { DisegnoMouse(e, Kind::Move); });
    connect(disegno_, &SurfaceWidget::Released, this,
            [this](QMouseEvent *e) { DisegnoMouse(e, Kind::Release); });
    connect(disegno_, &SurfaceWidget::DoubleClicked, this,
            [this](QMouseEvent *e) { DisegnoMouse(e, Kind::DoubleClick); });
    connect(disegno_, &SurfaceWidget::Wheeled, this, &MainWindow::DisegnoWheel);
    connect(disegno_, &SurfaceWidget::KeyPressed, this, [this](QKeyEvent *e) { DisegnoKey(e); });
    Bind("Disegno", disegno_, BindingStyle::Placed);

    for (const char *name : {"Domanda", "Label5", "StringaSel", "FunAttiva", "SottoFunAttiva",
                             "Label6", "LabCoord", "Esito"})
        Bind(name, Label(client), BindingStyle::Placed);
    auto *risposta = new QLineEdit(client);
    connect(risposta, &QLineEdit::returnPressed, this,
            [this] { Run([](Program &p) { Risposta_KeyDown(p, Key::Enter); }); });
    Bind("Risposta", risposta, BindingStyle::Placed);

    for (int i = 0; i < 3; ++i) {
        std::string index = "(" + std::to_string(i) + ")";
        QLabel *alpha = Label(client);
        alpha->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Bind("Label1" + index, alpha, BindingStyle::SymbolPlaced);
        QLabel *axis = Label(client);
        QFont small = axis->font();
        small.setPointSizeF(small.pointSizeF() * 0.75);
        axis->setFont(small);
        axis->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
        Bind("Label2" + index, axis, BindingStyle::Placed);
        Bind("Angolo" + index, new QLineEdit(client), BindingStyle::Placed);
    }
    BuildSideBar(client);
    BuildToolbar(client);

    for (Binding &b : bindings_)
        if (qobject_cast<QLineEdit *>(b.widget))
            b.widget->installEventFilter(this);
}

} // namespace vorna::qt
