// "Perché no?": FormPercheNo as data, built from one node's explanation and the near misses,
// and the function that picks or names the node.
#include "app/why_not_dialog.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "app/dump.h"
#include "app/why_not.h"
#include "platform/number_text.h"

#include <cmath>

namespace vorna {
namespace {

constexpr const char *kMark = "\xBB "; // the failing cell

std::span<const ControlRow<FormPercheNo>> FormPercheNoRows() {
    using Form = FormPercheNo;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "app/why_not_controls.h"
    };
    return kRows;
}

int BarName(const StructureModel &m, int bar) {
    return bar >= 0 && bar < m.barCount ? m.bars[bar].name : 0;
}

std::string Pair(double a, double b) {
    return NumberText(a) + " / " + NumberText(b);
}

std::string PairInts(int a, int b) {
    return IntText(a) + " / " + IntText(b);
}

// The node's bar: the one paired, else the nearest in parentheses, else "-".
std::string CandidateCell(const StructureModel &m, const BarPairFigures &pair) {
    if (pair.candidateBar >= 0)
        return IntText(BarName(m, pair.candidateBar));
    if (pair.nearestBar >= 0)
        return "(" + IntText(BarName(m, pair.nearestBar)) + ")";
    return "-";
}

// Within tolerances the lengths' deviation follows them: " (1.2%)".
std::string LengthDeviationText(const AnalogyExplanation &e, const BarPairFigures &pair) {
    if (!e.tolerances || !pair.lengthDeviation)
        return "";
    return " (" + FixedText(*pair.lengthDeviation, 1) + "%)";
}

// One row per base bar: number, base bar, the node's bar, angle, lengths, sections (1-based
// cards), colours, line types; the cell of the failing criterion marked.
std::vector<std::string> ComparisonRows(const StructureModel &m, const AnalogyExplanation &e) {
    std::vector<std::string> rows;
    for (std::size_t k = 0; k < e.pairs.size(); ++k) {
        const BarPairFigures &p = e.pairs[k];
        const bool none = p.candidateBar < 0 && p.nearestBar < 0;
        std::string cells[8] = {IntText(static_cast<long long>(k) + 1),
                                IntText(BarName(m, p.baseBar)),
                                CandidateCell(m, p),
                                p.angle ? FixedText(*p.angle, 1) + "\xB0" : "-",
                                none ? NumberText(p.baseLength) + " / -"
                                     : Pair(p.baseLength, p.candidateLength) +
                                           LengthDeviationText(e, p),
                                none ? "-" : PairInts(p.baseSection + 1, p.candidateSection + 1),
                                none ? "-" : PairInts(p.baseColour, p.candidateColour),
                                none ? "-" : PairInts(p.baseLineType, p.candidateLineType)};
        if (static_cast<int>(k) == e.failingBar) {
            int column = -1;
            switch (e.reason) {
            case WhyNotReason::Direction:
            case WhyNotReason::NoRotation:
                column = 3;
                break;
            case WhyNotReason::Length:
                column = 4;
                break;
            case WhyNotReason::Section:
                column = 5;
                break;
            case WhyNotReason::Colour:
                column = 6;
                break;
            case WhyNotReason::LineType:
                column = 7;
                break;
            default:
                break;
            }
            if (column >= 0)
                cells[column] = kMark + cells[column];
        }
        std::string row = cells[0];
        for (int c = 1; c < 8; ++c)
            row += '\t' + cells[c];
        rows.push_back(row);
    }
    return rows;
}

std::string MethodDetailsText(const AnalogyExplanation &e) {
    if (e.hasRotation) {
        const Vec3 &a = e.rotationAxis;
        return std::string(e.analogous ? "Rotazione" : "Rotazione migliore") + " di " +
               FixedText(e.rotationAngle, 1) + "\xB0 attorno a (" + FixedText(a[0], 3) + ", " +
               FixedText(a[1], 3) + ", " + FixedText(a[2], 3) + "), scarto massimo " +
               FixedText(e.rotationResidual, 1) + "\xB0";
    }
    if (e.totalAngle)
        return "Somma degli angoli dell'abbinamento: " + FixedText(*e.totalAngle, 1) + "\xB0";
    return "";
}

// The rotation found, or the pairing's sum of angles; within tolerances, the tolerances first.
std::string DetailsText(const AnalogyExplanation &e) {
    if (e.tolerances) {
        std::string rest = MethodDetailsText(e);
        return "Tolleranze: angoli " + NumberText(e.tolerances->first) + "\xB0, lunghezze " +
               NumberText(e.tolerances->second) + "%" + (rest.empty() ? "" : ". " + rest);
    }
    return MethodDetailsText(e);
}

} // namespace

WhyNotDialog::WhyNotDialog(Program &program, int node, const AnalogyExplanation &e,
                           std::vector<NearMiss> misses)
    : p_(program), misses_(std::move(misses)) {
    StartControls(FormPercheNoRows(), form_);
    const StructureModel &m = p_.model;
    form_.Verdetto.caption = VerdictText(m.nodes[node].name, e);
    form_.Dettagli.caption = DetailsText(e);
    form_.Schede.items = {"Confronto", "Quasi analoghi"};
    form_.Schede.text = "1";
    form_.Confronto.items = ComparisonRows(m, e);
    for (std::size_t r = 0; r < misses_.size(); ++r) {
        const NearMiss &miss = misses_[r];
        form_.ListaQuasi.items.push_back(
            IntText(static_cast<long long>(r) + 1) + '\t' + IntText(m.nodes[miss.node].name) +
            '\t' + ReasonWord(miss.reason) + '\t' +
            (miss.failingBar >= 0 ? IntText(miss.failingBar + 1) : "-") + '\t' +
            FixedText(miss.score, 3));
    }
}

void WhyNotDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormPercheNoRows(), form_, fn);
}

void WhyNotDialog::Click(std::string_view control) {
    if (control == "Chiudi") {
        closed = true;
        return;
    }
    if (control != "ListaQuasi")
        return;
    const std::optional<double> row = StrictNumber(form_.ListaQuasi.text);
    if (row && *row >= 1 && *row <= static_cast<double>(misses_.size()) && std::floor(*row) == *row)
        CentreViewOnNode(p_, misses_[static_cast<std::size_t>(*row) - 1].node);
}

bool WhyNotDialog::Dump(std::string_view what, std::ostream &out) {
    if (what != "rows")
        return false;
    DumpListRows("Confronto", form_.Confronto, out);
    DumpListRows("ListaQuasi", form_.ListaQuasi, out);
    return true;
}

void PercheNo_Click(Program &p) {
    StartFunction(p, ActiveFunction::WhyNot);
    p.form.Domanda.caption = "Seleziona il nodo";
}

void ExplainNodeInDialog(Program &p, int name) {
    bool notLive = false;
    const int node = NodeForExplanation(p.model, p.view, name, notLive);
    if (node < 0)
        return;
    const AnalogyParameters params = AnalogyParametersOf(p);
    const AnalogyExplanation e = ExplainNodeAnalogy(p.model, p.view, p.connection, params, node);
    WhyNotDialog dialog(p, node, e, FindNearMisses(p.model, p.view, p.connection, params));
    p.ui.RunDialog(dialog);
}

} // namespace vorna
