// The program's dialogs as real modal Qt dialogs bound to their controls by name.
#include "ui/qt/dialog_window.h"

#include "ui/qt/qt_ui.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vorna::qt {

namespace {

constexpr int kSwatchSize = 18;

std::string Indexed(const char *name, int i) {
    return std::string(name) + "(" + std::to_string(i) + ")";
}

} // namespace

DialogWindow::DialogWindow(Dialog &dialog, QWidget *parent) : QDialog(parent), dialog_(dialog) {
    setWindowTitle(ToQString(dialog.Caption()));
    setModal(true);
    if (dialog.Name() == "FormOpt")
        BuildFormOpt();
    else if (dialog.Name() == "FormOptInt")
        BuildFormOptInt();
    else if (dialog.Name() == "FormPercheNo")
        BuildFormPercheNo();
    else
        BuildFormTipiNodo();
    for (Binding &b : bindings_)
        b.control = dialog_.Find(b.name);
    Show();
}

QWidget *DialogWindow::Bind(const std::string &name, QWidget *widget, BindingStyle style) {
    return AddBinding(bindings_, name, widget, style);
}

QWidget *DialogWindow::Button(const std::string &name) {
    auto *button = new QPushButton(this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, name] { Raise(name); });
    return Bind(name, button);
}

QWidget *DialogWindow::Check(const std::string &name) {
    auto *box = new QCheckBox(this);
    // The click and the button's release, whether by mouse or by keyboard.
    connect(box, &QCheckBox::clicked, this, [this, name] { Raise(name, true); });
    return Bind(name, box);
}

QWidget *DialogWindow::Option(const std::string &name) {
    auto *button = new QRadioButton(this);
    connect(button, &QRadioButton::clicked, this, [this, name] { Raise(name); });
    return Bind(name, button);
}

QWidget *DialogWindow::Swatch(const std::string &name, QWidget *parent) {
    auto *swatch = new QLabel(parent ? parent : this);
    swatch->setFixedSize(kSwatchSize, kSwatchSize);
    swatch->setAutoFillBackground(true);
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    return Bind(name, swatch, BindingStyle::Swatch);
}

QWidget *DialogWindow::Field(const std::string &name) {
    auto *edit = new QLineEdit(this);
    edit->setMaximumWidth(90);
    return Bind(name, edit);
}

QWidget *DialogWindow::Text(const std::string &name) {
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    return Bind(name, label);
}

void DialogWindow::BuildFormOpt() {
    auto *column = new QVBoxLayout(this);
    column->addWidget(Check("CheckSpGus"));
    auto *sizes = new QGridLayout;
    int row = 0;
    for (auto [label, box] : {std::pair{"Label1", "SpMinGus"},
                              {"Label3", "SpNonSel"},
                              {"Label2", "SpSel"},
                              {"Label5", "Raggio"}}) {
        QWidget *caption = Text(label);
        QWidget *field = Field(box);
        qobject_cast<QLabel *>(caption)->setBuddy(field);
        sizes->addWidget(caption, row, 0);
        sizes->addWidget(field, row++, 1);
    }
    column->addLayout(sizes);
    column->addWidget(Option("EvColSel"));
    column->addWidget(Option("EvColNonSel"));

    auto *frame = new QGroupBox(this);
    Bind("Frame3", frame);
    auto *numbering = new QGridLayout(frame);
    numbering->addWidget(Check("CheckTxtNodi"), 0, 0);
    for (int i = 0; i < 2; ++i)
        numbering->addWidget(Check(Indexed("TxtNodi", i)), 0, 1 + i);
    numbering->addWidget(Check("CheckTxtAste"), 1, 0);
    for (int i = 0; i < 5; ++i)
        numbering->addWidget(Check(Indexed("TxtAste", i)), 1 + i / 3, 1 + i % 3);
    row = 3;
    for (auto [label, box] :
         {std::pair{"Label6", "BaseTxt"}, {"Label7", "AltezzaTxt"}, {"Label4", "DistTxt"}}) {
        numbering->addWidget(Text(label), row, 0, 1, 2);
        numbering->addWidget(Field(box), row++, 2);
    }
    numbering->addWidget(Text("Label8"), row, 0);
    auto *swatches = new QHBoxLayout;
    swatches->setSpacing(2);
    for (int i = 1; i <= 9; ++i) {
        // The frame around each swatch tells the chosen one (cyan) from the others (red).
        auto *border = new QLabel(frame);
        border->setAutoFillBackground(true);
        border->setFixedSize(kSwatchSize + 6, kSwatchSize + 6);
        Bind(Indexed("LabelBordCol", i), border, BindingStyle::Swatch);
        QWidget *swatch = Swatch(Indexed("LabelCol", i), border);
        swatch->move(3, 3);
        swatch->setCursor(Qt::PointingHandCursor);
        swatch->installEventFilter(this);
        swatch->setProperty("swatch", QString::fromStdString(Indexed("LabelCol", i)));
        swatches->addWidget(border);
    }
    swatches->addStretch();
    numbering->addLayout(swatches, row, 1, 1, 3);
    column->addWidget(frame);

    auto *colours = new QGridLayout;
    row = 0;
    for (auto [label, swatch, button] : {std::tuple{"Label10", "ColoreNodoBase", "Command1"},
                                         {"Label11", "ColoreAsteBase", "Command2"},
                                         {"Label12", "ColoreAsteConfl", "Command3"},
                                         {"Label9", "ColoreSel", "Command4"}}) {
        colours->addWidget(Text(label), row, 0);
        colours->addWidget(Swatch(swatch), row, 1);
        colours->addWidget(Button(button), row++, 2);
    }
    column->addLayout(colours);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Button("Salva"));
    buttons->addWidget(Button("Chiudi"));
    column->addLayout(buttons);
}

void DialogWindow::BuildFormOptInt() {
    auto *column = new QVBoxLayout(this);
    auto *frame = new QGroupBox(this);
    Bind("Frame1", frame);
    auto *row = new QHBoxLayout(frame);
    auto *caption = qobject_cast<QLabel *>(Text("Label1"));
    caption->setParent(frame);
    QWidget *size = Field("TextTrappola");
    size->setParent(frame);
    caption->setBuddy(size);
    row->addWidget(caption);
    row->addWidget(size);
    column->addWidget(frame);
    auto *close = qobject_cast<QPushButton *>(Button("Command1"));
    close->setDefault(true);
    column->addWidget(close, 0, Qt::AlignRight);
    size->setFocus();
    qobject_cast<QLineEdit *>(size)->selectAll();
}

// A list whose column titles are the caption of the label titles, split at tabs; choosing a row
// is a click on the list.
QWidget *DialogWindow::List(const std::string &name, const char *titles, QWidget *parent) {
    auto *list = new QTreeWidget(parent ? parent : this);
    list->setRootIsDecorated(false);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setMinimumWidth(520);
    if (Control *header = dialog_.Find(titles)) {
        const QStringList columns = ToQString(header->caption).split('\t');
        list->setColumnCount(static_cast<int>(columns.size()));
        list->setHeaderLabels(columns);
    }
    connect(list, &QTreeWidget::itemSelectionChanged, this, [this, name] { Raise(name); });
    return Bind(name, list);
}

void DialogWindow::BuildFormTipiNodo() {
    auto *column = new QVBoxLayout(this);
    typeList_ = qobject_cast<QTreeWidget *>(List("ListaTipi", "Label1"));
    column->addWidget(typeList_);
    column->addWidget(Text("Label2"));
    schema_ = new SurfaceWidget(QColor(40, 44, 52), this);
    schema_->setFixedSize(240, 170);
    schema_->installEventFilter(this); // drawn again once it has its size
    column->addWidget(schema_, 0, Qt::AlignHCenter);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Check("ColoraTipi"));
    buttons->addStretch();
    buttons->addWidget(Button("EsportaCSV"));
    auto *use = qobject_cast<QPushButton *>(Button("Usa"));
    use->setDefault(true);
    buttons->addWidget(use);
    column->addLayout(buttons);
}

// The verdict over two tabs: the base bars against the node's, and the near misses.
void DialogWindow::BuildFormPercheNo() {
    auto *column = new QVBoxLayout(this);
    QWidget *verdict = Text("Verdetto");
    QFont bold = verdict->font();
    bold.setBold(true);
    verdict->setFont(bold);
    column->addWidget(verdict);
    column->addWidget(Text("Dettagli"));
    tabs_ = new QTabWidget(this);
    const Control *titles = dialog_.Find("Schede");
    const char *lists[][2] = {{"Confronto", "Label1"}, {"ListaQuasi", "Label2"}};
    for (std::size_t t = 0; t < 2; ++t) {
        QWidget *list = List(lists[t][0], lists[t][1], tabs_);
        list->setMinimumSize(640, 220);
        tabs_->addTab(list, titles && t < titles->items.size() ? ToQString(titles->items[t])
                                                               : QString::fromLatin1(lists[t][0]));
    }
    connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
        if (Control *c = dialog_.Find("Schede"); c && index >= 0) {
            c->text = std::to_string(index + 1);
            Raise("Schede");
        }
    });
    column->addWidget(tabs_);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(Button("Chiudi"));
    column->addLayout(buttons);
}

void DialogWindow::Raise(const std::string &control, bool mouseUp) {
    for (Binding &b : bindings_)
        ReadBinding(b);
    dialog_.Click(control);
    if (mouseUp)
        dialog_.MouseUp(control);
    Show();
}

void DialogWindow::Show() {
    for (Binding &b : bindings_)
        ApplyBinding(b, 15);
    ShowTypeSwatches();
    if (const Control *tab = tabs_ ? dialog_.Find("Schede") : nullptr) {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(std::max(0, ToQString(tab->text).toInt() - 1));
    }
    PaintSchema();
    if (dialog_.closed)
        done(QDialog::Accepted);
}

// Esc closes on its release, and only when it was pressed here too: the release of an Esc that
// closed a colour chooser above this dialog belongs to that chooser.
void DialogWindow::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        if (!event->isAutoRepeat())
            escapePressed_ = true;
        return;
    }
    QDialog::keyPressEvent(event);
}

void DialogWindow::keyReleaseEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) {
        if (escapePressed_ && !event->isAutoRepeat()) {
            escapePressed_ = false;
            reject();
        }
        return;
    }
    QDialog::keyReleaseEvent(event);
}

// Esc, or the window's close button: nothing is taken over.
void DialogWindow::reject() {
    dialog_.Escape();
    QDialog::reject();
}

// Beside each type's row, the colour its nodes are drawn in, while the types are coloured.
void DialogWindow::ShowTypeSwatches() {
    const Control *colours = typeList_ ? dialog_.Find("ColoriTipi") : nullptr;
    if (!colours)
        return;
    for (int r = 0; r < typeList_->topLevelItemCount(); ++r) {
        QIcon icon;
        const QStringList rgb = r < static_cast<int>(colours->items.size())
                                    ? ToQString(colours->items[r]).split(',')
                                    : QStringList();
        if (rgb.size() == 3) {
            QPixmap swatch(kSwatchSize - 4, kSwatchSize - 4);
            swatch.fill(QColor(rgb[0].toInt(), rgb[1].toInt(), rgb[2].toInt()));
            icon = QIcon(swatch);
        }
        typeList_->topLevelItem(r)->setIcon(0, icon);
    }
}

void DialogWindow::PaintSchema() {
    if (!schema_)
        return;
    dialog_.Paint("Schema", schema_->Canvas());
    schema_->update();
}

bool DialogWindow::eventFilter(QObject *watched, QEvent *event) {
    if (watched == schema_ && event->type() == QEvent::Resize) {
        // Before the surface's own resize: give its canvas the new size first.
        schema_->Canvas().SetDpi(schema_->logicalDpiX(), schema_->logicalDpiY());
        schema_->Canvas().Resize(schema_->size());
        PaintSchema();
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        auto *swatch = qobject_cast<QWidget *>(watched);
        auto *mouse = static_cast<QMouseEvent *>(event);
        QVariant name = watched->property("swatch");
        if (swatch && name.isValid() && swatch->isEnabled() && mouse->button() == Qt::LeftButton &&
            swatch->rect().contains(mouse->position().toPoint()))
            Raise(name.toString().toStdString());
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace vorna::qt
