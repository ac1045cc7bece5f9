// "Revisione nodi analoghi": FormRevisione as data over the records of the list, and the command
// that opens it.
#include "app/review_dialog.h"

#include "app/command_steps.h"
#include "app/why_not.h"
#include "platform/number_text.h"
#include "platform/text.h"

#include <cmath>

namespace vorna {
namespace {

std::span<const ControlRow<FormRevisione>> FormRevisioneRows() {
    using Form = FormRevisione;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "app/review_controls.h"
    };
    return kRows;
}

constexpr std::string_view kCheck = "Tenuto";

} // namespace

ReviewDialog::ReviewDialog(Program &program) : p_(program) {
    StartControls(FormRevisioneRows(), form_);
    rows_.reserve(p_.connection.analogousNodes.size());
    for (const AnalogousNode &r : p_.connection.analogousNodes)
        rows_.push_back({r, true});
    SortBy(-1, false);
    form_.EsportaCSV.enabled = !rows_.empty();
    const int furthest = FurthestRow(rows_);
    if (furthest >= 0) {
        form_.Righe.text = IntText(furthest + 1);
        LookAt(furthest);
    }
}

void ReviewDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormRevisioneRows(), form_, fn);
}

DialogTable *ReviewDialog::Table(std::string_view control) {
    return control == "Righe" ? this : nullptr;
}

std::string ReviewDialog::Cell(int row, int column) const {
    return row >= 0 && row < Rows() ? ReviewCell(p_.model, p_.connection, rows_[row], column) : "";
}

std::string ReviewDialog::CheckName(int row) const {
    return std::string(kCheck) + "(" + IntText(row + 1) + ")";
}

void ReviewDialog::SortBy(int column, bool descending) {
    order_ = ReviewOrder(p_.model, rows_, column, descending);
}

int ReviewDialog::RowOfCheck(std::string_view name) const {
    if (name.size() < kCheck.size() + 3 || !name.starts_with(kCheck) ||
        name[kCheck.size()] != '(' || name.back() != ')')
        return -1;
    const std::optional<double> k =
        StrictNumber(name.substr(kCheck.size() + 1, name.size() - kCheck.size() - 2));
    return k && *k >= 1 && *k <= Rows() && std::floor(*k) == *k ? static_cast<int>(*k) - 1 : -1;
}

// Made up afresh at every request, so that it always tells the row's state now; the base
// node's stays ticked.
Control *ReviewDialog::RowControl(std::string_view name) {
    const int row = RowOfCheck(name);
    if (row < 0)
        return nullptr;
    check_ = Control{};
    check_.checked = rows_[row].kept;
    check_.enabled = rows_[row].record.node != p_.connection.baseNode;
    checkRow_ = row;
    return &check_;
}

void ReviewDialog::Click(std::string_view control) {
    if (control == "Chiudi") {
        closed = true;
    } else if (control == "EsportaCSV") {
        ExportCsv(p_, [&] { return ReviewCsvText(p_.model, p_.connection, rows_, order_); });
    } else if (control == "Righe") {
        const std::optional<double> row = StrictNumber(form_.Righe.text);
        if (row && *row >= 1 && *row <= Rows() && std::floor(*row) == *row)
            LookAt(static_cast<int>(*row) - 1);
    } else if (const int row = RowOfCheck(control); row >= 0) {
        Keep(row, row == checkRow_ ? check_.checked : !rows_[row].kept);
    }
}

void ReviewDialog::Keep(int row, bool kept) {
    ReviewRow &r = rows_[row];
    const int node = r.record.node;
    if (kept == r.kept || node == p_.connection.baseNode)
        return;
    if (!kept) {
        RemoveAnalogousNodesIf(p_.connection, [node](int n) { return n == node; });
        r.kept = false;
    } else {
        const AnalogyParameters params = AnalogyParametersOf(p_);
        if (TestAnalogy(p_.model, p_.view, p_.connection, params, node) ==
            AnalogyOutcome::TooManyBars)
            WarnTooManyBars(p_);
        if (const int position = FindInAnalogous(p_.connection, node); position > 0) {
            r.record = p_.connection.analogousNodes[position - 1];
            r.kept = true;
        } else {
            // Turned away by the parameters in force now, which are not those it was found by.
            const AnalogyExplanation e =
                ExplainNodeAnalogy(p_.model, p_.view, p_.connection, params, node);
            p_.ui.MessageBox(VerdictText(p_.model.nodes[node].name, e), "ATTENZIONE",
                             MsgIcon::Exclamation, MsgButtons::Ok);
        }
    }
    if (checkRow_ == row)
        check_.checked = r.kept;
    ShowListChange(p_);
}

void ReviewDialog::LookAt(int row) {
    const AnalogousNode &r = rows_[row].record;
    const ConnectionState &s = p_.connection;
    LookedAtJoint &joint = p_.lookedAt;
    joint.node = r.node;
    joint.bars.clear();
    for (int k = 0; k < std::min<int>(r.barCount, BaseBarsInTable(s)); ++k)
        joint.bars.push_back({r.bars[k], BarTypeColour(std::max<int>(s.baseBarTypes[k], 1))});
    if (r.node >= 0 && r.node < p_.model.nodeCount)
        CentreViewOnNode(p_, r.node);
}

bool ReviewDialog::Dump(std::string_view what, std::ostream &out) {
    if (what != "review")
        return false;
    DumpReviewRows(p_.model, p_.connection, rows_, out);
    return true;
}

void Revisione_Click(Program &p) {
    {
        ReviewDialog dialog(p);
        p.ui.RunDialog(dialog);
    }
    p.lookedAt = {};
    if (p.structureLoaded)
        DrawStructureNow(p);
}

} // namespace vorna
