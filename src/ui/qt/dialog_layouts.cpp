// The layout of each dialog, one builder apiece, and the table that finds a dialog's builder by
// its name: adding a dialog is its builder and one row of the table.
#include "ui/qt/dialog_window.h"

#include "ui/qt/dialog_table_model.h"
#include "ui/qt/qt_ui.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace vorna::qt {

namespace {

std::string Indexed(const char *name, int i) {
    return std::string(name) + "(" + std::to_string(i) + ")";
}

// A label whose text wraps at the dialog's width and can be selected (and copied).
QLabel *Paragraph(QWidget *label) {
    auto *paragraph = qobject_cast<QLabel *>(label);
    paragraph->setWordWrap(true);
    paragraph->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return paragraph;
}

// Cells that wrap their text at their column's width, from the top, the row as tall as its
// tallest cell and a little more: QTreeView measures rows without the columns' widths.
class WrappingCells : public QStyledItemDelegate {
public:
    explicit WrappingCells(QTreeWidget *list) : QStyledItemDelegate(list), list_(list) {}
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        QStyleOptionViewItem cell = option;
        // A valid rectangle: the style wraps only within one.
        cell.rect = QRect(0, 0, list_->header()->sectionSize(index.column()), 1);
        cell.features |= QStyleOptionViewItem::WrapText;
        return QStyledItemDelegate::sizeHint(cell, index) + QSize(0, kRowGap);
    }

protected:
    void initStyleOption(QStyleOptionViewItem *cell, const QModelIndex &index) const override {
        QStyledItemDelegate::initStyleOption(cell, index);
        cell->displayAlignment = Qt::AlignLeft | Qt::AlignTop;
    }

private:
    static constexpr int kRowGap = 4;
    QTreeWidget *list_;
};

QHBoxLayout *ClosingRow(QWidget *close) {
    qobject_cast<QPushButton *>(close)->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(close);
    return buttons;
}

} // namespace

DialogWindow::LayoutBuilder DialogWindow::LayoutOf(std::string_view dialog) {
    static constexpr std::pair<std::string_view, LayoutBuilder> kLayouts[] = {
        {"FormOpt", &DialogWindow::BuildFormOpt},
        {"FormOptInt", &DialogWindow::BuildFormOptInt},
        {"FormTipiNodo", &DialogWindow::BuildFormTipiNodo},
        {"FormPercheNo", &DialogWindow::BuildFormPercheNo},
        {"FormRevisione", &DialogWindow::BuildFormRevisione},
        {"FormComandi", &DialogWindow::BuildFormComandi},
        {"FormInformazioni", &DialogWindow::BuildFormInformazioni},
    };
    for (const auto &[name, build] : kLayouts)
        if (name == dialog)
            return build;
    return nullptr;
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

void DialogWindow::FitToScreen(QSize wanted) {
    const QWidget *over = parentWidget() ? parentWidget() : this;
    // Room for the frame and the title bar that the window manager adds.
    if (const QScreen *screen = over->screen())
        wanted = wanted.boundedTo(screen->availableGeometry().size() - QSize(40, 80));
    resize(wanted);
}

// The gestures and keys: a list whose long cells wrap, scrolling when the screen is short.
void DialogWindow::BuildFormComandi() {
    auto *column = new QVBoxLayout(this);
    column->addWidget(Paragraph(Text("Nota")));
    auto *list = qobject_cast<QTreeWidget *>(List("ListaComandi", "Label1"));
    list->setMinimumSize(240, 120);
    list->setWordWrap(true);
    list->setUniformRowHeights(false);
    list->setItemDelegate(new WrappingCells(list));
    connect(list->header(), &QHeaderView::sectionResized, list, [list] { list->doItemsLayout(); });
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setAlternatingRowColors(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    column->addWidget(list, 1);
    QWidget *close = Button("Chiudi");
    column->addLayout(ClosingRow(close));
    close->setFocus();
    FitToScreen({780, 540});
    list->header()->resizeSection(0, width() * 2 / 5);
}

// The program, its build and the Qt under it, then the licences in a pane that scrolls.
void DialogWindow::BuildFormInformazioni() {
    auto *column = new QVBoxLayout(this);
    QLabel *name = Paragraph(Text("Programma"));
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.5);
    name->setFont(large);
    column->addWidget(name);
    for (const char *line : {"Descrizione", "Versione", "Compilazione", "VersioneQt"})
        column->addWidget(Paragraph(Text(line)));
    QLabel *title = Paragraph(Text("Label1"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    column->addSpacing(title->fontMetrics().height() / 2);
    column->addWidget(title);
    auto *pane = new QScrollArea(this);
    pane->setWidgetResizable(true);
    pane->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *licences = new QWidget(pane);
    auto *paragraphs = new QVBoxLayout(licences);
    for (const char *notice : {"LicenzaQt", "LicenzaFont", "LicenzaFdlibm", "LicenzaRuntime"})
        paragraphs->addWidget(Paragraph(Text(notice)));
    paragraphs->addStretch();
    pane->setWidget(licences);
    column->addWidget(pane, 1);
    column->addLayout(ClosingRow(Button("Chiudi")));
    FitToScreen({640, 480});
}

// One row per record over a model that asks only for the rows in sight: thousands open at
// once. A header click sorts; a check box ticked is a click on the row's check-box control.
void DialogWindow::BuildFormRevisione() {
    auto *column = new QVBoxLayout(this);
    DialogTable *table = dialog_.Table("Righe");
    table_ = new QTableView(this);
    if (table) {
        auto *model = new DialogTableModel(
            dialog_, *table,
            [this](const std::string &name, bool on) {
                if (Control *check = dialog_.Find(name); check && check->enabled) {
                    check->checked = on;
                    Raise(name, true);
                }
            },
            table_);
        table_->setModel(model);
    }
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    // Rows of one height need not be measured one by one.
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
    QHeaderView *header = table_->horizontalHeader();
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionsClickable(true);
    // The widths from the titles and the first rows, not from every one of thousands; a cell
    // wider than its column still shows whole in its tooltip.
    header->setResizeContentsPrecision(200);
    table_->setSortingEnabled(true);
    table_->resizeColumnsToContents();
    table_->setMinimumSize(480, 200);
    if (table_->selectionModel())
        connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                [this] { Raise("Righe"); });
    column->addWidget(Bind("Righe", table_));
    QHBoxLayout *buttons = ClosingRow(Button("Chiudi"));
    buttons->insertWidget(1, Button("EsportaCSV"));
    column->addLayout(buttons);
    // Wide enough for every column, as far as the screen allows.
    FitToScreen({header->length() + 2 * table_->frameWidth() +
                     table_->verticalScrollBar()->sizeHint().width() +
                     column->contentsMargins().left() + column->contentsMargins().right(),
                 460});
}

} // namespace vorna::qt
