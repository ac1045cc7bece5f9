// The display options dialog FormOpt and the pick-box dialog FormOptInt as data, with the rules
// of their controls.
#include "options/form_opt.h"

#include "model/messages.h"
#include "platform/number_text.h"

#include <cmath>

namespace vorna {
namespace {

constexpr Rgb kUnchosenFrame = PackRgb(255, 0, 0); // red
constexpr Rgb kChosenFrame = PackRgb(0, 255, 255); // cyan

std::span<const ControlRow<FormOpt>> FormOptRows() {
    using Form = FormOpt;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#define VORNA_ARRAY VORNA_ARRAY_ROW
#define VORNA_ELEMENT VORNA_ELEMENT_ROW
#include "options/form_opt_controls.h"
    };
    return kRows;
}

std::span<const ControlRow<FormOptInt>> FormOptIntRows() {
    using Form = FormOptInt;
    static constexpr ControlRow<Form> kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#include "options/form_opt_int_controls.h"
    };
    return kRows;
}

Rgb SwatchColour(double colour) {
    return static_cast<Rgb>(std::clamp(RoundHalfEven(colour), 0.0, 16777215.0));
}

// A width shown as the option, or as its fallback when the option is 0 or less.
std::string WidthText(const DisplayOptions &options, int number, const char *fallback) {
    return options(number) <= 0 ? fallback : options.values[number].Text();
}

double Value(const Control &box) {
    return LeadingNumber(box.text);
}

void Set(DisplayOptions &options, int number, double value) {
    options.values[number] = OptionValue::Of(value);
}

} // namespace

FormOpt LoadFormOpt(const DisplayOptions &o) {
    FormOpt f;
    StartControls(FormOptRows(), f);
    f.CheckSpGus.checked = o(opt::kHideThinShells) == 1;
    f.SpMinGus.text = o.values[opt::kMinShellThickness].Text();
    f.SpNonSel.text = WidthText(o, opt::kWidthNormal, "1");
    f.SpSel.text = WidthText(o, opt::kWidthSelected, "4");
    f.EvColSel.checked = o(opt::kColourAnalogous) == 1;
    f.EvColNonSel.checked = !f.EvColSel.checked;
    f.Raggio.text = o.values[opt::kNodeRadius].Text();
    f.CheckTxtNodi.checked = o(opt::kNodeLabels) == 1;
    f.CheckTxtAste.checked = o(opt::kBarLabels) == 1;
    f.BaseTxt.text = o.values[opt::kTextWidth].Text();
    f.AltezzaTxt.text = o.values[opt::kTextHeight].Text();
    f.DistTxt.text = o.values[opt::kTextDistance].Text();
    for (int i = 1; i <= kTextSwatches; ++i)
        f.LabelCol[i].backColour = ColourOfCode(i);
    for (std::size_t k = 0; k < f.TxtNodi.size(); ++k)
        f.TxtNodi[k].checked = o(opt::kNodeLabelName + static_cast<int>(k)) == 1;
    for (std::size_t k = 0; k < f.TxtAste.size(); ++k)
        f.TxtAste[k].checked = o(opt::kBarLabelName + static_cast<int>(k)) == 1;
    f.ColoreNodoBase.backColour = SwatchColour(o(opt::kBaseNodeColour));
    f.ColoreAsteBase.backColour = SwatchColour(o(opt::kBaseBarColour));
    f.ColoreAsteConfl.backColour = SwatchColour(o(opt::kAnalogousBarColour));
    f.ColoreSel.backColour = SwatchColour(o(opt::kHighlightColour));
    const double swatch = RoundHalfEven(o(opt::kTextColour));
    EvidColAtt(f, std::isfinite(swatch) ? static_cast<int>(std::clamp(swatch, -1e6, 1e6)) : 0);
    ControllaNumerazioneAtt(f);
    return f;
}

void EvidColAtt(FormOpt &f, int index) {
    if (index == 0)
        return;
    for (int i = 1; i <= kTextSwatches; ++i)
        f.LabelBordCol[i].backColour = i == index ? kChosenFrame : kUnchosenFrame;
    f.chosenSwatch = index;
}

void ControllaNumerazioneAtt(FormOpt &f) {
    for (Control &c : f.TxtNodi)
        c.enabled = f.CheckTxtNodi.checked;
    for (Control &c : f.TxtAste)
        c.enabled = f.CheckTxtAste.checked;
    const bool text = f.CheckTxtNodi.checked || f.CheckTxtAste.checked;
    for (Control *c :
         {&f.DistTxt, &f.AltezzaTxt, &f.BaseTxt, &f.Label4, &f.Label7, &f.Label6, &f.Label8})
        c->enabled = text;
    for (int i = 1; i <= kTextSwatches; ++i)
        f.LabelCol[i].enabled = f.LabelBordCol[i].enabled = text;
}

void CheckSpGus_Click(FormOpt &f) {
    f.SpMinGus.enabled = f.Label1.enabled = f.CheckSpGus.checked;
}

void AggiornaOpzioni(const FormOpt &f, DisplayOptions &o) {
    Set(o, opt::kHideThinShells, f.CheckSpGus.checked ? 1 : 0);
    Set(o, opt::kMinShellThickness, Value(f.SpMinGus));
    Set(o, opt::kNodeRadius, Value(f.Raggio));
    Set(o, opt::kWidthSelected, Value(f.SpSel));
    Set(o, opt::kWidthNormal, Value(f.SpNonSel));
    Set(o, opt::kColourAnalogous, f.EvColSel.checked ? 1 : 0);
    Set(o, opt::kNodeLabels, f.CheckTxtNodi.checked ? 1 : 0);
    Set(o, opt::kBarLabels, f.CheckTxtAste.checked ? 1 : 0);
    // No labels without a text size.
    for (auto [box, number] :
         {std::pair{&f.BaseTxt, opt::kTextWidth}, std::pair{&f.AltezzaTxt, opt::kTextHeight}}) {
        Set(o, number, Value(*box));
        if (box->text.empty()) {
            Set(o, opt::kNodeLabels, 0);
            Set(o, opt::kBarLabels, 0);
            Set(o, number, 0);
        }
    }
    Set(o, opt::kTextDistance, Value(f.DistTxt));
    Set(o, opt::kTextColour, f.chosenSwatch);
    for (std::size_t k = 0; k < f.TxtNodi.size(); ++k)
        Set(o, opt::kNodeLabelName + static_cast<int>(k), f.TxtNodi[k].checked ? 1 : 0);
    for (std::size_t k = 0; k < f.TxtAste.size(); ++k)
        Set(o, opt::kBarLabelName + static_cast<int>(k), f.TxtAste[k].checked ? 1 : 0);
    Set(o, opt::kBaseNodeColour, f.ColoreNodoBase.backColour);
    Set(o, opt::kBaseBarColour, f.ColoreAsteBase.backColour);
    Set(o, opt::kAnalogousBarColour, f.ColoreAsteConfl.backColour);
    Set(o, opt::kHighlightColour, f.ColoreSel.backColour);
}

void FormOptDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormOptRows(), form, fn);
}

void FormOptDialog::Click(std::string_view control) {
    if (control == "Salva") {
        AggiornaOpzioni(form, options_);
        ui_.MessageBox(WriteDisplayOptions(customFolder_, options_), "INFORMAZIONE",
                       MsgIcon::Exclamation, MsgButtons::Ok);
    } else if (control == "Chiudi") {
        AggiornaOpzioni(form, options_);
        closed = true;
    } else if (control == "EvColSel" || control == "EvColNonSel") { // one of the two
        form.EvColSel.checked = control == "EvColSel";
        form.EvColNonSel.checked = !form.EvColSel.checked;
    } else if (control == "CheckSpGus") {
        CheckSpGus_Click(form);
    } else if (control.starts_with("LabelCol(")) {
        for (int i = 1; i <= kTextSwatches; ++i)
            if (control == "LabelCol(" + std::to_string(i) + ")")
                EvidColAtt(form, i);
    } else {
        // Each "Modifica" button beside its colour.
        const std::array<std::pair<const char *, Control *>, 4> swatches = {
            std::pair{"Command1", &form.ColoreNodoBase},
            {"Command2", &form.ColoreAsteBase},
            {"Command3", &form.ColoreAsteConfl},
            {"Command4", &form.ColoreSel}};
        for (auto [button, swatch] : swatches)
            if (control == button)
                if (auto colour = ui_.ChooseColour(swatch->backColour))
                    swatch->backColour = *colour;
    }
}

void FormOptDialog::MouseUp(std::string_view control) {
    if (control == "CheckTxtNodi" || control == "CheckTxtAste")
        ControllaNumerazioneAtt(form);
}

double PickBoxSizeOf(std::string_view typed) {
    // Rounded down, then made positive: -12.7 gives 13, 12.7 gives 12. An empty or unreadable
    // text gives 0, which switches direct selection off.
    const double size = std::fabs(std::floor(LeadingNumber(typed)));
    return std::isfinite(size) ? size : 0;
}

FormOptIntDialog::FormOptIntDialog(InternalOptions &options, Ui &ui) : options_(options), ui_(ui) {
    StartControls(FormOptIntRows(), form);
    form.TextTrappola.text = NumberText(options(opt::kPickBoxSize));
}

void FormOptIntDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormOptIntRows(), form, fn);
}

bool FormOptIntDialog::AnswerWith(std::string_view text) {
    form.TextTrappola.text = text;
    Click("Command1");
    return true;
}

void FormOptIntDialog::Click(std::string_view control) {
    if (control != "Command1")
        return;
    double &size = options_.values[opt::kPickBoxSize];
    size = PickBoxSizeOf(form.TextTrappola.text);
    if (size == 0) // kept all the same: direct selection then picks nothing
        ui_.MessageBox(MessageText(Msg::NoDirectPickWithoutBox), "ATTENZIONE", MsgIcon::Exclamation,
                       MsgButtons::Ok);
    taken = true;
    closed = true;
}

} // namespace vorna
