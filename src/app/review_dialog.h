// "Revisione nodi analoghi": the dialog FormRevisione that shows every record of the list with
// how its node matched the base joint, lets the engineer untick nodes (and tick them again)
// before anything is handed back, and saves the table as CSV; and the command that opens it.
#pragma once

#include "app/program.h"
#include "app/review.h"
#include "platform/dialog.h"

namespace vorna {

struct FormRevisione {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "app/review_controls.h"
};

class ReviewDialog : public Dialog, public DialogTable {
public:
    // The rows are the records of the list as they are now; the one furthest from the base
    // joint is selected and looked at.
    explicit ReviewDialog(Program &program);

    std::string_view Name() const override { return "FormRevisione"; }
    std::string_view Caption() const override { return "Revisione dei nodi analoghi"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    // Righe: the row selected is looked at; Tenuto(K): row K's node leaves the list or comes
    // back; EsportaCSV; Chiudi.
    void Click(std::string_view control) override;
    // "review": a `dump review` line per row, with its tick.
    bool Dump(std::string_view what, std::ostream &out) override;
    DialogTable *Table(std::string_view control) override;

    int Rows() const override { return static_cast<int>(rows_.size()); }
    std::vector<std::string> Titles() const override { return ReviewTitles(); }
    std::string Cell(int row, int column) const override;
    bool Figures(int column) const override {
        return column == kNodeColumn || column == kAngleColumn || column == kLengthColumn;
    }
    std::string CheckName(int row) const override;
    void SortBy(int column, bool descending) override;
    const std::vector<int> &Order() const override { return order_; }

protected:
    Control *RowControl(std::string_view name) override;

private:
    // The 0-based row of "Tenuto(K)", or -1.
    int RowOfCheck(std::string_view name) const;
    // Unticked, the node leaves the list as "Rimuovi nodi" takes it out; ticked, it is offered
    // to the analogy test as "Aggiungi nodi" does, and comes back at the end of the list when
    // the test takes it.
    void Keep(int row, bool kept);
    // The view centred on the row's node, its bars drawn in their base bars' types' colours.
    void LookAt(int row);

    Program &p_;
    std::vector<ReviewRow> rows_;
    std::vector<int> order_;
    FormRevisione form_;
    Control check_; // the check box of row checkRow_, as Find last made it up
    int checkRow_ = -1;
};

// The command "Revisione nodi analoghi...". Enabled while the list holds a node other than the
// base node (UpdateListCommands).
void Revisione_Click(Program &program);

} // namespace vorna
