// A dialog's long table (DialogTable) as a Qt model: the view asks only for the rows it shows,
// a click on a header sorts through the table, and a check box clicked goes to the dialog as
// a click on the row's check-box control.
#pragma once

#include "platform/dialog.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

namespace vorna::qt {

class DialogTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    // check(name, on): the user ticked or unticked the row's check box of that name, which
    // the dialog's Find knows.
    DialogTableModel(Dialog &dialog, DialogTable &table,
                     std::function<void(const std::string &, bool)> check, QObject *parent);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

    // The table's row shown at a place of the view, and the place of a table row (-1: none).
    int TableRow(int shownRow) const;
    int ShownRow(int tableRow) const;
    // The dialog changed rows: every cell shown again.
    void Refresh();

private:
    void TakeOrder();
    const Control *CheckBox(int tableRow) const;

    Dialog &dialog_;
    DialogTable &table_;
    std::function<void(const std::string &, bool)> check_;
    QStringList titles_;
    std::vector<int> shownRow_; // by table row
};

} // namespace vorna::qt
