// A dialog's long table as a Qt model, sorted and ticked through the dialog.
#include "ui/qt/dialog_table_model.h"

#include <QColor>
#include <QPalette>

namespace vorna::qt {

DialogTableModel::DialogTableModel(Dialog &dialog, DialogTable &table,
                                   std::function<void(const std::string &, bool)> check,
                                   QObject *parent)
    : QAbstractTableModel(parent), dialog_(dialog), table_(table), check_(std::move(check)) {
    for (const std::string &title : table_.Titles())
        titles_ << QString::fromStdString(title);
    TakeOrder();
}

int DialogTableModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : table_.Rows();
}

int DialogTableModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(titles_.size());
}

int DialogTableModel::TableRow(int shownRow) const {
    const std::vector<int> &order = table_.Order();
    return shownRow >= 0 && shownRow < static_cast<int>(order.size()) ? order[shownRow] : -1;
}

int DialogTableModel::ShownRow(int tableRow) const {
    return tableRow >= 0 && tableRow < static_cast<int>(shownRow_.size()) ? shownRow_[tableRow]
                                                                          : -1;
}

const Control *DialogTableModel::CheckBox(int tableRow) const {
    const std::string name = table_.CheckName(tableRow);
    return name.empty() ? nullptr : dialog_.Find(name);
}

QVariant DialogTableModel::data(const QModelIndex &index, int role) const {
    const int row = TableRow(index.row());
    if (row < 0)
        return {};
    const Control *check = index.column() == 0 ? CheckBox(row) : nullptr;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return QString::fromStdString(table_.Cell(row, index.column()));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            Qt::AlignVCenter | (table_.Figures(index.column()) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::CheckStateRole:
        if (check)
            return check->checked ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ForegroundRole: {
        // An unticked row is shown as a disabled one: it is no longer in force.
        const Control *box = CheckBox(row);
        if (box && !box->checked)
            return QPalette().color(QPalette::Disabled, QPalette::Text);
        return {};
    }
    default:
        return {};
    }
}

QVariant DialogTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
        section < titles_.size())
        return titles_[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

// A check box that cannot be changed (the base node's) is shown disabled.
Qt::ItemFlags DialogTableModel::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.column() != 0)
        return flags;
    if (const Control *check = CheckBox(TableRow(index.row()))) {
        if (check->enabled)
            flags |= Qt::ItemIsUserCheckable;
        else
            flags &= ~Qt::ItemIsEnabled;
    }
    return flags;
}

bool DialogTableModel::setData(const QModelIndex &index, const QVariant &value, int role) {
    const int row = TableRow(index.row());
    if (role != Qt::CheckStateRole || index.column() != 0 || row < 0 || !check_)
        return false;
    check_(table_.CheckName(row), value.toInt() == Qt::Checked);
    return true;
}

void DialogTableModel::sort(int column, Qt::SortOrder order) {
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<int> tableRows;
    for (const QModelIndex &index : before)
        tableRows.push_back(TableRow(index.row()));
    table_.SortBy(column, order == Qt::DescendingOrder);
    TakeOrder();
    QModelIndexList after;
    for (std::size_t i = 0; i < tableRows.size(); ++i)
        after << index(ShownRow(tableRows[i]), before[static_cast<int>(i)].column());
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void DialogTableModel::Refresh() {
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void DialogTableModel::TakeOrder() {
    const std::vector<int> &order = table_.Order();
    shownRow_.assign(order.size(), -1);
    for (std::size_t i = 0; i < order.size(); ++i)
        if (order[i] >= 0 && order[i] < static_cast<int>(shownRow_.size()))
            shownRow_[order[i]] = static_cast<int>(i);
}

} // namespace vorna::qt
