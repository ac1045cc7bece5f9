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

Control Labelled(std::string caption) {
    Control c;
    c.caption = std::move(caption);
    return c;
}

Control Box(const OptionValue &value) {
    Control c;
    c.text = value.Text();
    return c;
}

Control Swatch(double colour) {
    Control c;
    c.backColour = static_cast<Rgb>(std::clamp(RoundHalfEven(colour), 0.0, 16777215.0));
    return c;
}

Control Check(std::string caption, bool checked) {
    Control c = Labelled(std::move(caption));
    c.checked = checked;
    return c;
}

// A width shown as the option, or as its fallback when the option is 0 or less.
Control WidthBox(const DisplayOptions &options, int number, const char *fallback) {
    Control c = Box(options.values[number]);
    if (options(number) <= 0)
        c.text = fallback;
    return c;
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
    f.CheckSpGus = Check("Non visualizzare i gusci con \"spessore di piastra\" sottile",
                         o(opt::kHideThinShells) == 1);
    f.Label1 = Labelled("Spessore minimo [cm]:");
    f.SpMinGus = Box(o.values[opt::kMinShellThickness]);
    f.Label3 = Labelled("Spessore degli elementi non selezionati [pixel]:");
    f.SpNonSel = WidthBox(o, opt::kWidthNormal, "1");
    f.Label2 = Labelled("Spessore degli elementi selezionati [pixel]:");
    f.SpSel = WidthBox(o, opt::kWidthSelected, "4");
    const bool analogous = o(opt::kColourAnalogous) == 1;
    f.EvColSel = Check("Cambia colore ai nodi analoghi", analogous);
    f.EvColNonSel = Check("Cambia colore ai nodi non analoghi", !analogous);
    f.Label5 = Labelled("Raggio di rappresentazione del nodo [pixel]:");
    f.Raggio = Box(o.values[opt::kNodeRadius]);
    f.Frame3 = Labelled("Numerazione");
    f.CheckTxtNodi = Check("Nodi", o(opt::kNodeLabels) == 1);
    f.CheckTxtAste = Check("Aste", o(opt::kBarLabels) == 1);
    f.Label6 = Labelled("Base testo [unit\xE0 disegno]:");
    f.BaseTxt = Box(o.values[opt::kTextWidth]);
    f.Label7 = Labelled("Altezza testo [unit\xE0 disegno]:");
    f.AltezzaTxt = Box(o.values[opt::kTextHeight]);
    f.Label4 = Labelled("Distanza tra testo ed elemento [unit\xE0 disegno]:");
    f.DistTxt = Box(o.values[opt::kTextDistance]);
    f.Label8 = Labelled("Colore testo:");
    for (int i = 1; i <= kTextSwatches; ++i)
        f.LabelCol[i].backColour = ColourOfCode(i);
    f.TxtNodi = {Check("Nome (N)", o(opt::kNodeLabelName) == 1),
                 Check("Vincolo (V)", o(opt::kNodeLabelConstraint) == 1)};
    f.TxtAste = {Check("Nome (A)", o(opt::kBarLabelName) == 1),
                 Check("Tipo di profilato", o(opt::kBarLabelSection) == 1),
                 Check("Sezione (S)", o(opt::kBarLabelSectionCard) == 1),
                 Check("Orientamento (O)", o(opt::kBarLabelOrientation) == 1),
                 Check("Svincolo (C)", o(opt::kBarLabelRelease) == 1)};
    f.Label10 = Labelled("Colore del nodo base");
    f.ColoreNodoBase = Swatch(o(opt::kBaseNodeColour));
    f.Label11 = Labelled("Colore delle aste del nodo base");
    f.ColoreAsteBase = Swatch(o(opt::kBaseBarColour));
    f.Label12 = Labelled("Colore delle aste del nodo analogo");
    f.ColoreAsteConfl = Swatch(o(opt::kAnalogousBarColour));
    f.Label9 = Labelled("Colore dei nodi analoghi /  non analoghi");
    f.ColoreSel = Swatch(o(opt::kHighlightColour));
    for (Control *modifica : {&f.Command1, &f.Command2, &f.Command3, &f.Command4})
        modifica->caption = "Modifica";
    f.Salva = Labelled("Salva");
    f.Chiudi = Labelled("Chiudi");
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
#define VORNA_ONE(name) fn(#name, form.name)
    VORNA_ONE(CheckSpGus);
    VORNA_ONE(Label1);
    VORNA_ONE(SpMinGus);
    VORNA_ONE(Label3);
    VORNA_ONE(SpNonSel);
    VORNA_ONE(Label2);
    VORNA_ONE(SpSel);
    VORNA_ONE(EvColSel);
    VORNA_ONE(EvColNonSel);
    VORNA_ONE(Label5);
    VORNA_ONE(Raggio);
    VORNA_ONE(Frame3);
    VORNA_ONE(CheckTxtNodi);
    VORNA_ONE(CheckTxtAste);
    ForEachOfArray("TxtNodi", form.TxtNodi, 0, fn);
    ForEachOfArray("TxtAste", form.TxtAste, 0, fn);
    VORNA_ONE(Label6);
    VORNA_ONE(BaseTxt);
    VORNA_ONE(Label7);
    VORNA_ONE(AltezzaTxt);
    VORNA_ONE(Label4);
    VORNA_ONE(DistTxt);
    VORNA_ONE(Label8);
    ForEachOfArray("LabelCol", form.LabelCol, 1, fn);
    ForEachOfArray("LabelBordCol", form.LabelBordCol, 1, fn);
    VORNA_ONE(Label10);
    VORNA_ONE(ColoreNodoBase);
    VORNA_ONE(Command1);
    VORNA_ONE(Label11);
    VORNA_ONE(ColoreAsteBase);
    VORNA_ONE(Command2);
    VORNA_ONE(Label12);
    VORNA_ONE(ColoreAsteConfl);
    VORNA_ONE(Command3);
    VORNA_ONE(Label9);
    VORNA_ONE(ColoreSel);
    VORNA_ONE(Command4);
    VORNA_ONE(Salva);
    VORNA_ONE(Chiudi);
#undef VORNA_ONE
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

double AggiornaOpzioniInterne_(std::string_view textTrappola) {
    // Rounded down, then made positive: -12.7 gives 13, 12.7 gives 12. An empty or unreadable
    // text gives 0, which switches direct selection off.
    const double size = std::fabs(std::floor(LeadingNumber(textTrappola)));
    return std::isfinite(size) ? size : 0;
}

FormOptIntDialog::FormOptIntDialog(InternalOptions &options, Ui &ui) : options_(options), ui_(ui) {
    Label1.caption = "Dimensione della trappola:";
    TextTrappola.text = NumberText(options(opt::kPickBoxSize));
    Command1.caption = "Chiudi";
}

void FormOptIntDialog::ForEachControl(const std::function<void(std::string_view, Control &)> &fn) {
    fn("Frame1", Frame1);
    fn("Label1", Label1);
    fn("TextTrappola", TextTrappola);
    fn("Command1", Command1);
}

void FormOptIntDialog::Click(std::string_view control) {
    if (control != "Command1")
        return;
    double &size = options_.values[opt::kPickBoxSize];
    size = AggiornaOpzioniInterne_(TextTrappola.text);
    if (size == 0) // kept all the same: direct selection then picks nothing
        ui_.MessageBox(MessageText(Msg::NoDirectPickWithoutBox), "ATTENZIONE", MsgIcon::Exclamation,
                       MsgButtons::Ok);
    taken = true;
    closed = true;
}

} // namespace vorna
