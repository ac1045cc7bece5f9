// One control of FormVorna bound to its widget, in both directions.
#include "ui/qt/control_binding.h"

#include "ui/qt/dialog_table_model.h"
#include "ui/qt/qt_canvas.h"
#include "ui/qt/qt_ui.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTableView>
#include <QTreeWidget>

#include <algorithm>
#include <cmath>

namespace vorna::qt {

namespace {

bool SameLook(const Control &a, const Control &b) {
    return a.caption == b.caption && a.text == b.text && a.tooltip == b.tooltip &&
           a.checked == b.checked && a.enabled == b.enabled && a.visible == b.visible &&
           a.backColour == b.backColour && a.pointer == b.pointer && a.left == b.left &&
           a.top == b.top && a.width == b.width && a.height == b.height && a.items == b.items;
}

void ApplyPointer(QWidget *w, Pointer pointer) {
    if (pointer == Pointer::Cross)
        w->setCursor(Qt::CrossCursor);
    else if (pointer == Pointer::Busy)
        w->setCursor(Qt::WaitCursor);
    else
        w->unsetCursor();
}

// A list's rows (columns split at tabs) and its selected row (text, 1-based).
void ApplyRows(QTreeWidget *list, const Control &c) {
    const QSignalBlocker quiet(list);
    if (list->topLevelItemCount() != static_cast<int>(c.items.size())) {
        list->clear();
        for (const std::string &row : c.items) {
            auto *item = new QTreeWidgetItem(ToQString(row).split('\t'));
            // A cell that starts with "\xBB" is the one a verdict points at.
            for (int k = 0; k < item->columnCount(); ++k)
                if (item->text(k).startsWith(QChar(0xBB))) {
                    QFont bold = item->font(k);
                    bold.setBold(true);
                    item->setFont(k, bold);
                    item->setForeground(k, QColor(200, 0, 0));
                }
            list->addTopLevelItem(item);
        }
        // A list whose cells wrap keeps the widths its dialog gave its columns.
        for (int k = 0; k < list->columnCount() && !list->wordWrap(); ++k)
            list->resizeColumnToContents(k);
    }
    const int row = ToQString(c.text).toInt() - 1;
    if (QTreeWidgetItem *item = list->topLevelItem(row))
        list->setCurrentItem(item);
}

// A long table's selected row (text, 1-based, of the table's own order), wherever the sorting
// shows it.
void ApplyTableRow(QTableView *view, const Control &c) {
    auto *model = qobject_cast<DialogTableModel *>(view->model());
    if (!model)
        return;
    const int shown = model->ShownRow(ToQString(c.text).toInt() - 1);
    if (shown < 0 || view->currentIndex().row() == shown)
        return;
    const QSignalBlocker quiet(view->selectionModel());
    const QModelIndex at = model->index(shown, std::max(0, view->currentIndex().column()));
    view->selectionModel()->setCurrentIndex(at, QItemSelectionModel::ClearAndSelect |
                                                    QItemSelectionModel::Rows);
    view->scrollTo(at);
    view->viewport()->update();
}

void ApplyText(QWidget *w, const Control &c, BindingStyle style) {
    if (auto *edit = qobject_cast<QLineEdit *>(w)) {
        if (FromQString(edit->text()) != c.text)
            edit->setText(ToQString(c.text));
        // Zero is the design's own colour; the answer line switches between two others.
        if (c.backColour != 0) {
            QPalette palette = edit->palette();
            palette.setColor(QPalette::Base, ColourOf(c.backColour));
            edit->setPalette(palette);
        }
    } else if (auto *button = qobject_cast<QAbstractButton *>(w)) {
        button->setText(ToQString(c.caption));
        if (button->isCheckable())
            button->setChecked(c.checked);
    } else if (auto *list = qobject_cast<QTreeWidget *>(w)) {
        ApplyRows(list, c);
    } else if (auto *table = qobject_cast<QTableView *>(w)) {
        ApplyTableRow(table, c);
    } else if (auto *group = qobject_cast<QGroupBox *>(w)) {
        group->setTitle(ToQString(c.caption));
    } else if (auto *swatch = qobject_cast<QLabel *>(w); swatch && style == BindingStyle::Swatch) {
        QPalette palette = swatch->palette();
        palette.setColor(QPalette::Window, ColourOf(c.backColour));
        swatch->setPalette(palette);
    } else if (auto *label = qobject_cast<QLabel *>(w)) {
        label->setText(style == BindingStyle::SymbolPlaced ? SymbolFontText(c.caption)
                                                           : ToQString(c.caption));
    }
}

} // namespace

QString SymbolFontText(const std::string &caption) {
    // a..z in the symbol font's order.
    static const char16_t greek[] = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";
    QString text;
    for (char ch : caption) {
        if (ch >= 'a' && ch <= 'z')
            text += QChar(greek[ch - 'a']);
        else if (ch >= 'A' && ch <= 'Z')
            text += QChar(greek[ch - 'A']).toUpper();
        else
            text += ToQString(std::string(1, ch));
    }
    return text;
}

int Pixels(double twips, double twipsPerPixel) {
    double px = std::round(twips / twipsPerPixel);
    return std::isfinite(px) ? static_cast<int>(std::clamp(px, -30000.0, 30000.0)) : 0;
}

QRect TwipsToPixels(const Control &c, double twipsPerPixel) {
    return QRect(Pixels(c.left, twipsPerPixel), Pixels(c.top, twipsPerPixel),
                 std::max(0, Pixels(c.width, twipsPerPixel)),
                 std::max(0, Pixels(c.height, twipsPerPixel)));
}

QWidget *AddBinding(std::vector<Binding> &bindings, const std::string &name, QWidget *widget,
                    BindingStyle style) {
    Binding binding;
    binding.name = name;
    binding.widget = widget;
    binding.style = style;
    bindings.push_back(std::move(binding));
    return widget;
}

void ApplyBinding(Binding &b, double twipsPerPixel) {
    if (b.control == nullptr || (b.shown && SameLook(*b.shown, *b.control)))
        return;
    const Control &c = *b.control;
    QWidget *w = b.widget;
    ApplyText(w, c, b.style);
    w->setEnabled(c.enabled);
    w->setToolTip(ToQString(c.tooltip));
    ApplyPointer(w, c.pointer);
    if (b.style == BindingStyle::Placed || b.style == BindingStyle::SymbolPlaced)
        w->setGeometry(TwipsToPixels(c, twipsPerPixel).translated(-b.origin));
    w->setVisible(c.visible);
    b.shown = c;
}

void ReadBinding(Binding &b) {
    if (b.control == nullptr)
        return;
    if (auto *edit = qobject_cast<QLineEdit *>(b.widget))
        b.control->text = FromQString(edit->text());
    else if (auto *list = qobject_cast<QTreeWidget *>(b.widget))
        b.control->text = list->currentItem()
                              ? std::to_string(list->indexOfTopLevelItem(list->currentItem()) + 1)
                              : "";
    else if (auto *table = qobject_cast<QTableView *>(b.widget)) {
        auto *model = qobject_cast<DialogTableModel *>(table->model());
        const int row = model ? model->TableRow(table->currentIndex().row()) : -1;
        b.control->text = row >= 0 ? std::to_string(row + 1) : "";
    } else if (auto *button = qobject_cast<QAbstractButton *>(b.widget);
               button && button->isCheckable())
        b.control->checked = button->isChecked();
}

} // namespace vorna::qt
