// "Tipi di nodo": the catalogue of the joint types of the model shown in a modal dialog, and the
// choice of one as the connection.
#include "app/joint_types_dialog.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "app/draw_input.h"
#include "connection/base_node.h"
#include "exchange/joint_types_csv.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "selection/designate.h"

#include <algorithm>

namespace vorna {
namespace {

int NameOf(const StructureModel &m, int node) {
    return m.nodes[node].name;
}

// The names of the type's nodes, ascending, as runs ("12-19,31").
std::string MembersText(const StructureModel &m, const JointType &type) {
    std::vector<int> names;
    for (int node : type.nodes)
        names.push_back(NameOf(m, node));
    std::sort(names.begin(), names.end());
    return RangeText(names);
}

std::span<const ControlRow<FormTipiNodo>> FormTipiNodoRows() {
    using Form = FormTipiNodo;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "app/joint_types_controls.h"
    };
    return kRows;
}

} // namespace

JointTypesDialog::JointTypesDialog(Program &program, JointTypeCatalogue catalogue)
    : p_(program), catalogue_(std::move(catalogue)) {
    StartControls(FormTipiNodoRows(), form_);
    for (const JointType &t : catalogue_.types)
        form_.ListaTipi.items.push_back(
            IntText(static_cast<long long>(t.nodes.size())) + '\t' + IntText(t.barCount) + '\t' +
            IntText(NameOf(p_.model, t.nodes.front())) + '\t' + MembersText(p_.model, t));
    form_.ListaTipi.text = catalogue_.types.empty() ? "" : "1";
    form_.Usa.enabled = !catalogue_.types.empty();
    form_.EsportaCSV.enabled = !catalogue_.types.empty();
    // Still checked from an earlier opening: the colours follow the types listed now.
    form_.ColoraTipi.checked = !p_.jointTypeFills.empty();
    if (form_.ColoraTipi.checked)
        ColourTypes();
}

void JointTypesDialog::ColourTypes() {
    const bool on = form_.ColoraTipi.checked;
    p_.jointTypeFills =
        on ? JointTypeFills(catalogue_, p_.model.nodeCount) : std::vector<std::uint32_t>{};
    form_.ColoriTipi.items.clear();
    for (std::size_t k = 0; k < catalogue_.types.size(); ++k) {
        const std::uint32_t rgb = on ? JointTypeColour(static_cast<int>(k) + 1) : 0;
        form_.ColoriTipi.items.push_back(rgb == 0
                                             ? ""
                                             : IntText(rgb & 255) + ',' + IntText(rgb >> 8 & 255) +
                                                   ',' + IntText(rgb >> 16 & 255));
    }
    if (p_.structureLoaded)
        DrawStructureNow(p_);
}

void JointTypesDialog::ExportCsv() {
    vorna::ExportCsv(p_, [&] {
        ProjectedBarIndex &index = p_.connection.barIndex;
        KeepBarIndexCurrent(index, p_.model, p_.view);
        return JointTypesCsvText(p_.model, catalogue_,
                                 [&](int node, std::vector<std::int16_t> &bars) {
                                     BarsAtProjectedPoint(index, p_.model, p_.view,
                                                          p_.model.nodes[node].pointIndex, bars);
                                 });
    });
}

void JointTypesDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormTipiNodoRows(), form_, fn);
}

int JointTypesDialog::Selected() const {
    auto row = StrictNumber(form_.ListaTipi.text);
    const auto rows = static_cast<double>(catalogue_.types.size());
    return row && *row >= 1 && *row <= rows && std::floor(*row) == *row ? static_cast<int>(*row) - 1
                                                                        : -1;
}

void JointTypesDialog::Click(std::string_view control) {
    if (control == "ColoraTipi")
        ColourTypes();
    if (control == "EsportaCSV" && !catalogue_.types.empty())
        ExportCsv();
    if (control == "Usa" && Selected() >= 0) {
        chosen = Selected();
        closed = true;
    }
}

// The head's bars as the base-node schema draws them, all in the colour of the first type.
void JointTypesDialog::Paint(std::string_view picture, Canvas &canvas) {
    const int row = Selected();
    if (picture != "Schema" || row < 0) {
        PaintBaseNodeSchema(canvas, BaseNodeSchema{});
        return;
    }
    ConnectionState head;
    head.baseNode = static_cast<std::int16_t>(catalogue_.types[row].nodes.front());
    // A node with too many bars heads no type, so nothing here needs telling.
    GatherBaseBars(p_.model, p_.view, head);
    std::fill(head.baseBarTypes.begin(), head.baseBarTypes.end(), std::int16_t{1});
    PaintBaseNodeSchema(canvas, BaseNodeSchemaOf(p_.model, head, p_.input, false));
}

bool JointTypesDialog::Dump(std::string_view what, std::ostream &out) {
    if (what != "nodetypes")
        return false;
    for (std::size_t k = 0; k < catalogue_.types.size(); ++k) {
        const JointType &t = catalogue_.types[k];
        out << "type " << k + 1 << " nodes=" << t.nodes.size() << " bars=" << t.barCount
            << " head=" << NameOf(p_.model, t.nodes.front())
            << " members=" << MembersText(p_.model, t);
        if (catalogue_.withinTolerances)
            out << " dev=" << FixedText(t.largestAngle, 3) << '/' << FixedText(t.largestLength, 3);
        out << '\n';
    }
    return true;
}

void TipiNodo_Click(Program &p) {
    JointTypeCatalogue catalogue;
    if (p.structureLoaded)
        catalogue =
            CatalogueJointTypes(p.model, p.view, p.connection.barIndex, AnalogyParametersOf(p));
    // Nodes with more bars than a connection can have belong to no type: said once.
    if (!catalogue.overcrowded.empty())
        WarnTooManyBars(p);
    JointTypesDialog dialog(p, std::move(catalogue));
    p.ui.RunDialog(dialog);
    if (dialog.chosen < 0)
        return;
    // As by hand: the base node chosen (dropping the one there is, when the user agrees), then
    // every node of the type offered with "Aggiungi nodi".
    const JointType &type = dialog.Catalogue().types[dialog.chosen];
    if (p.connection.baseNode >= 0) {
        RimNodoBase_Click(p);
        if (p.connection.baseNode >= 0)
            return;
    }
    NodoBase_Click(p);
    ChooseBaseNodeByPick(p, NameOf(p.model, type.nodes.front()));
    if (!HasUsableBaseNode(p.connection))
        return;
    Aggiungi_Click(p);
    std::vector<int> names;
    for (std::size_t k = 1; k < type.nodes.size(); ++k)
        names.push_back(NameOf(p.model, type.nodes[k]));
    OfferNodesByName(p, names);
}

} // namespace vorna
