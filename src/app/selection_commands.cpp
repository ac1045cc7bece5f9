// Commands of the selection: functions, ways of selecting, the answer line and the pick.
#include "app/command_steps.h"
#include "app/commands.h"

#include "app/why_not.h"
#include "app/why_not_dialog.h"
#include "model/messages.h"
#include "platform/number_text.h"
#include "projection/visibility.h"
#include "selection/designate.h"
#include "selection/pick.h"
#include "selection/selection_modes.h"
#include "selection/selection_string.h"

namespace vorna {
namespace {

// The analogy parameters are read when the command runs, as the side bar holds them then.
SelectionContext ContextOf(Program &p) {
    AnalogyParameters params = AnalogyParametersOf(p);
    return {p.model, p.view, p.connection, p.command.activeFunction, [&p, params](int node) {
                if (TestAnalogy(p.model, p.view, p.connection, params, node) ==
                    AnalogyOutcome::TooManyBars)
                    WarnTooManyBars(p);
            }};
}

void SetInterrompiEnabled(FormVorna &f, bool enabled) {
    f.Interrompi.enabled = enabled;
    f.btnInterrompi.enabled = enabled;
}

// No function runs and nothing can be selected.
void EndFunction(Program &p) {
    p.command.activeFunction = ActiveFunction::None;
    DisableSelectionMenus(p);
    p.form.Disegno.pointer = Pointer::Default;
    SetInterrompiEnabled(p.form, false);
    p.form.FunAttiva.caption = "";
    p.form.SottoFunAttiva.caption = "";
}

void ShowDirectSelection(Program &p) {
    p.command.selectionMode = SelectionMode::Direct;
    p.form.SottoFunAttiva.caption = ModeCaption(SelectionMode::Direct);
    p.form.Disegno.pointer = ModePointer(SelectionMode::Direct);
}

// A selection ends the same way whatever designated the elements: the base node's schema when
// base bars were looked at, then the drawing and the list text, and for most the side panel.
void ShowSelection(Program &p, bool baseBarsExamined, bool sidePanel) {
    if (baseBarsExamined)
        AfterBaseBarsRemoved(p);
    if (sidePanel) {
        ShowListChange(p);
        return;
    }
    DrawStructureNow(p);
    RefreshListText(p);
}

// The values of a selection string, or nothing after telling the user it holds too many.
std::optional<std::vector<int>> ParseOrWarn(Program &p, std::string_view text, int capacity) {
    auto values = ParseSelectionString(text, capacity);
    if (!values)
        p.ui.MessageBox(MessageText(Msg::SelectionTooLong), "ERRORE", MsgIcon::Exclamation,
                        MsgButtons::Ok);
    return values;
}

// Also what a pick in adding, removing or removing base bars runs, with the picked name.
void SelectByNameString(Program &p, std::string_view text) {
    if (auto names = ParseOrWarn(p, text, kNameSelectionCapacity)) {
        // "Perché no?" explains the first node named.
        if (p.command.activeFunction == ActiveFunction::WhyNot) {
            if (!names->empty())
                ExplainNodeInDialog(p, names->front());
            return;
        }
        // One node offered alone: Esito tells its verdict and why.
        if (p.command.activeFunction == ActiveFunction::AddNodes && names->size() == 1)
            ShowVerdictOfName(p, names->front());
        SelectionContext c = ContextOf(p);
        ShowSelection(p, SelectByNames(c, *names), true);
    }
}

void SelectByConstraintString(Program &p, std::string_view text) {
    if (auto cards = ParseOrWarn(p, text, kCardSelectionCapacity)) {
        SelectionContext c = ContextOf(p);
        SelectByConstraintCards(c, *cards);
        ShowSelection(p, false, false);
    }
}

void WindowCommand(Program &p, double left, double top, double width, double height) {
    SelectionContext c = ContextOf(p);
    ShowSelection(p, SelectByWindow(c, left, top, width, height), true);
}

// Opens the answer line for names or constraint cards; it stays open until another command.
void OpenAnswerLine(Program &p, SelectionMode mode, const char *question) {
    ResetSelectionInput(p);
    p.form.Domanda.caption = question;
    p.form.SottoFunAttiva.caption = ModeCaption(mode);
    p.form.Risposta.enabled = true;
    p.form.Risposta.backColour = kWindowColour;
    p.form.focusRequest = "Risposta";
    p.command.selectionMode = mode;
}

} // namespace

void ShowListChange(Program &p) {
    DrawStructureNow(p);
    RefreshListText(p);
    UpdateBaseNodeCommands(p);
}

void WarnTooManyBars(Program &p) {
    p.ui.MessageBox(MessageText(Msg::TooManyBaseBars), "Problema", MsgIcon::Exclamation,
                    MsgButtons::Ok);
}

void OfferNodesByName(Program &p, const std::vector<int> &names) {
    SelectionContext c = ContextOf(p);
    ShowSelection(p, SelectByNames(c, names), true);
}

void ResetSelectionInput(Program &p) {
    FormVorna &f = p.form;
    p.command.selectionMode = SelectionMode::None;
    f.SottoFunAttiva.caption = "";
    f.Domanda.caption = "";
    f.Risposta.text = "";
    f.Risposta.backColour = kButtonFaceColour;
    f.Risposta.enabled = false;
    f.Disegno.pointer = Pointer::Default;
}

void EnableSelectionMenus(Program &p) {
    auto menus = SelectionMenusFor(p.command.activeFunction);
    if (!menus)
        return;
    FormVorna &f = p.form;
    f.Finestra.enabled = menus->finestra;
    f.Colore.enabled = menus->colore;
    f.TipoPunto.enabled = menus->tipoPunto;
    f.Nome.enabled = menus->nome;
    f.Tutto.enabled = menus->tutto;
    f.SchVincolo.enabled = menus->schVincolo;
}

void DisableSelectionMenus(Program &p) {
    FormVorna &f = p.form;
    for (Control *c : {&f.Finestra, &f.Colore, &f.TipoPunto, &f.Nome, &f.Tutto, &f.SchVincolo})
        c->enabled = false;
}

void StartFunction(Program &p, ActiveFunction function) {
    ResetSelectionInput(p);
    p.command.activeFunction = function;
    if (SelectionMenusFor(function))
        EnableSelectionMenus(p);
    else
        DisableSelectionMenus(p);
    ShowDirectSelection(p);
    p.form.FunAttiva.caption = FunctionCaption(function);
    SetInterrompiEnabled(p.form, true);
}

void Aggiungi_Click(Program &p) {
    StartFunction(p, ActiveFunction::AddNodes);
}

void Rimuovi_Click(Program &p) {
    StartFunction(p, ActiveFunction::RemoveNodes);
}

void Interrompi_Click(Program &p) {
    ResetSelectionInput(p);
    EndFunction(p);
    p.form.Esito.caption = p.form.Esito.tooltip = "";
}

void RimTutto_Click(Program &p) {
    p.command.activeFunction = ActiveFunction::RemoveNodes;
    ColourCommand(p, kAllCodes);
    EndFunction(p);
}

void Inverti_Click(Program &p) {
    SelectionContext c = ContextOf(p);
    InvertSelection(c);
    DrawStructureNow(p);
    RefreshListText(p);
    EndFunction(p);
}

void Finestra_Click(Program &p) {
    ResetSelectionInput(p);
    p.command.selectionMode = SelectionMode::Window;
    p.form.SottoFunAttiva.caption = ModeCaption(SelectionMode::Window);
    p.form.Disegno.pointer = ModePointer(SelectionMode::Window);
}

void Nome_Click(Program &p) {
    OpenAnswerLine(p, SelectionMode::Name, "Inserire i nomi degli elementi e premere INVIO");
}

void SchVincolo_Click(Program &p) {
    OpenAnswerLine(p, SelectionMode::ConstraintCard,
                   "Inserire i numeri delle schede di vincolo e premere INVIO");
}

void TrovaNodo_Click(Program &p) {
    OpenAnswerLine(p, SelectionMode::FindNode, "Inserire il nome del nodo e premere INVIO");
}

void Tutto_Click(Program &p) {
    ColourCommand(p, kAllCodes);
}

// Colour and point type act once and go back to direct selection without ending the function.
void ColourCommand(Program &p, int code) {
    ResetSelectionInput(p);
    SelectionContext c = ContextOf(p);
    ShowSelection(p, SelectByColour(c, code), true);
    p.command.selectionMode = SelectionMode::Direct;
}

void PointTypeCommand(Program &p, int code) {
    ResetSelectionInput(p);
    SelectionContext c = ContextOf(p);
    SelectByPointType(c, code);
    ShowSelection(p, false, false);
    p.command.selectionMode = SelectionMode::Direct;
}

void FinishWindowSelection(Program &p) {
    Control &shape = p.form.Shape;
    shape.visible = false;
    if (shape.width * shape.height > 0) {
        WindowCommand(p, shape.left, shape.top, shape.width, shape.height);
        // A window started by a click on empty space is used once.
        if (p.command.autoWindow) {
            p.command.autoWindow = false;
            ShowDirectSelection(p);
            EnableSelectionMenus(p);
        }
    }
    shape.width = 0;
    shape.height = 0;
    p.navigation.windowCornerSet = false;
}

void PickAt(Program &p, double x, double y) {
    if (p.command.selectionMode != SelectionMode::Direct || p.navigation.zoomWindowPending)
        return;
    const ActiveFunction function = p.command.activeFunction;
    p.navigation.pickRadius = PixelsToUnits(p.disegno, p.internalOptions(opt::kPickBoxSize));
    int name = PickElement(p.model, p.view, p.connection, function, x, y, p.navigation.pickRadius);
    if (name <= 0) {
        // Empty space starts a window there, except where a single node is wanted.
        if (function != ActiveFunction::ChooseBaseNode &&
            function != ActiveFunction::ShowBarTypes && function != ActiveFunction::WhyNot) {
            p.command.autoWindow = true;
            Finestra_Click(p);
            Disegno_Mouse(p,
                          {.kind = MouseEvent::Kind::Press, .button = kLeftButton, .x = x, .y = y});
        }
    } else if (function == ActiveFunction::ChooseBaseNode) {
        ChooseBaseNodeByPick(p, name);
    } else if (function == ActiveFunction::ShowBarTypes) {
        HighlightNodeBarTypes(p, name);
    } else if (function == ActiveFunction::WhyNot) {
        ExplainNodeInDialog(p, name);
    } else {
        SelectByNameString(p, IntText(name));
    }
}

void Risposta_KeyDown(Program &p, Key key) {
    const std::string text = p.form.Risposta.text;
    if (key != Key::Enter || text.empty())
        return;
    if (p.command.selectionMode == SelectionMode::Name)
        SelectByNameString(p, text);
    else if (p.command.selectionMode == SelectionMode::ConstraintCard)
        SelectByConstraintString(p, text);
    else if (p.command.selectionMode == SelectionMode::FindNode)
        ZoomToNode(p, text);
}

} // namespace vorna
