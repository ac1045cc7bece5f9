// Commands of the connection: base node, base bars and bar types, with what they show in
// FormVorna (the schema's labels, the list text, the enabling of the base-node commands).
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/draw_input.h"

#include "connection/bar_types.h"
#include "connection/base_node.h"
#include "model/messages.h"
#include "platform/number_text.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {
namespace {

// Size of a type label, twips: room for a two-letter code.
constexpr double kLabelWidth = 375, kLabelHeight = 255;

LabelCaptions LabelCaptionsOf(const FormVorna &f) {
    LabelCaptions captions;
    for (int k = 1; k <= kTypeLabels; ++k)
        captions[k] = f.LabelTipo[k].caption;
    return captions;
}

void HideTypeLabels(FormVorna &f) {
    for (int k = 1; k <= kTypeLabels; ++k)
        f.LabelTipo[k].visible = false;
}

// The schema's labels go where their bars end: Picture1's drawing units to form twips.
void ShowSchemaLabels(Program &p, const BaseNodeSchema &schema) {
    FormVorna &f = p.form;
    f.Label7.enabled = schema.showsBaseNode;
    const ScaleRect scale = p.picture1.Scale();
    const Control &picture = f.Picture1;
    for (int k = 1; k <= kTypeLabels; ++k) {
        const TypeLabel &from = schema.labels[k];
        Control &label = f.LabelTipo[k];
        label.visible = from.visible;
        label.caption = from.caption;
        label.tooltip = from.tooltip;
        label.width = kLabelWidth;
        label.height = kLabelHeight;
        if (!from.visible || scale.width == 0 || scale.height == 0)
            continue;
        label.left =
            picture.left + (from.x - scale.left) / scale.width * picture.width - kLabelWidth / 2;
        label.top =
            picture.top + (from.y - scale.top) / scale.height * picture.height - kLabelHeight / 2;
    }
}

void DrawSchema(Program &p, bool automaticTyping) {
    const BaseNodeSchema schema = BaseNodeSchemaOf(p.model, p.connection, p.input, automaticTyping);
    PaintBaseNodeSchema(p.picture1, schema);
    ShowSchemaLabels(p, schema);
}

void ReadTypesFromLabels(Program &p) {
    ReadTypesFromLabels(LabelCaptionsOf(p.form), p.connection, p.input);
}

// The question before the analogous nodes are dropped; true when the user goes on.
bool ConfirmDroppingAnalogous(Program &p) {
    if (p.connection.analogousNodes.empty())
        return true;
    if (p.ui.MessageBox(MessageText(Msg::DropsAnalogousNodes), "INFORMAZIONE", MsgIcon::None,
                        MsgButtons::OkCancel) != MsgAnswer::Ok)
        return false;
    ClearAnalogous(p.connection);
    return true;
}

// Starts a function that picks single nodes: only the menu item Interrompi is offered, the
// icon-bar button stays as it was.
void StartPickFunction(Program &p, ActiveFunction function) {
    const bool button = p.form.btnInterrompi.enabled;
    StartFunction(p, function);
    p.form.btnInterrompi.enabled = button;
}

void DropBaseNodeIfNoBars(Program &p) {
    if (p.connection.baseBarCount < 1)
        RimNodoBase_Click(p);
}

} // namespace

void RefreshListText(Program &p) {
    BuildAnalogousListText(p.model, p.connection);
    p.form.StringaSel.caption = Trim(p.connection.analogousListText);
}

void NodoBase_Click(Program &p) {
    StartPickFunction(p, ActiveFunction::ChooseBaseNode);
}

void ChooseBaseNodeByPick(Program &p, int name) {
    SetBaseNodeByName(p.model, p.view, p.connection, name);
    if (p.connection.baseNode < 0)
        return;
    if (GatherBaseBars(p.model, p.view, p.connection) == BaseBarsResult::TooMany)
        p.ui.MessageBox(MessageText(Msg::TooManyBaseBars), "INFORMAZIONE", MsgIcon::Exclamation,
                        MsgButtons::Ok);
    RefreshListText(p);
    p.form.NodoBase.enabled = false;
    p.form.RimNodoBase.enabled = true;
    Ridis_Click(p);
    Interrompi_Click(p);
    DrawSchema(p, true);
    ReadTypesFromLabels(p);
    UpdateBaseNodeCommands(p);
}

void RimNodoBase_Click(Program &p) {
    if (!ConfirmDroppingAnalogous(p))
        return;
    p.connection.baseNode = -1;
    p.connection.baseBarCount = 0;
    DisableSelectionMenus(p);
    UpdateBaseNodeCommands(p);
    p.command.activeFunction = ActiveFunction::None;
    p.form.Interrompi.enabled = false;
    p.form.btnInterrompi.enabled = false;
    p.form.FunAttiva.caption = "";
    p.form.SottoFunAttiva.caption = "";
    Ridis_Click(p);
    PaintBaseNodeSchema(p.picture1, BaseNodeSchema{});
    p.form.Label7.enabled = false;
    HideTypeLabels(p.form);
}

void AsteNodoBase_Click(Program &p) {
    if (!p.connection.analogousNodes.empty()) {
        if (!ConfirmDroppingAnalogous(p))
            return;
        Ridis_Click(p);
        RefreshListText(p);
    }
    StartFunction(p, ActiveFunction::RemoveBaseBars);
}

void AfterBaseBarsRemoved(Program &p) {
    DropBaseNodeIfNoBars(p);
    DrawSchema(p, true);
    ReadTypesFromLabels(p);
}

void EvidTipo_Click(Program &p) {
    StartPickFunction(p, ActiveFunction::ShowBarTypes);
    p.form.Domanda.caption = "Seleziona il nodo";
}

void HighlightNodeBarTypes(Program &p, int name) {
    auto width = [&](int option) {
        return static_cast<int>(std::clamp(RoundHalfEven(p.displayOptions(option)), 1.0, 1000.0));
    };
    if (auto typed = NodeBarTypes(p.model, p.connection, AnalogyParametersOf(p).method, name))
        DrawTypedBars(p.disegno, ProjectedLines(p, *typed), width(opt::kWidthSelected),
                      width(opt::kWidthNormal));
}

void LabelTipo_Click(Program &p, int index) {
    if (index < 1 || index > kTypeLabels || !p.form.LabelTipo[index].visible ||
        p.input.barTypeCount < 1)
        return;
    Control &label = p.form.LabelTipo[index];
    label.caption = NextTypeCaption(label.caption, p.input);
    ReadTypesFromLabels(p);
    DrawSchema(p, false);
}

} // namespace vorna
