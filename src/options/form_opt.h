// The display options dialog FormOpt ("Opzioni di rappresentazione") and the pick-box dialog
// FormOptInt ("Opzioni") as data, with the rules of their controls. The front ends show them
// through the Dialog interface and forward the user's actions.
#pragma once

#include "options/options.h"
#include "platform/dialog.h"
#include "platform/ui.h"

#include <array>
#include <string>
#include <string_view>

namespace vorna {

constexpr int kTextSwatches = 9;

struct FormOpt {
    Control CheckSpGus, Label1, SpMinGus, Label3, SpNonSel, Label2, SpSel;
    Control EvColSel, EvColNonSel, Label5, Raggio;
    // Numbering: which labels, their size, distance and colour.
    Control Frame3, CheckTxtNodi, CheckTxtAste, Label6, BaseTxt, Label7, AltezzaTxt, Label4,
        DistTxt, Label8;
    std::array<Control, kTextSwatches + 1> LabelCol, LabelBordCol; // 1..9
    std::array<Control, 2> TxtNodi;
    std::array<Control, 5> TxtAste;
    // The four highlight colours, each with its "Modifica" button Command1..Command4.
    Control Label10, ColoreNodoBase, Command1, Label11, ColoreAsteBase, Command2, Label12,
        ColoreAsteConfl, Command3, Label9, ColoreSel, Command4;
    Control Salva, Chiudi;
    int chosenSwatch = 0; // the text colour swatch, remembered while the dialog is open
};

// The dialog as it opens on the display options: controls filled, the text colour swatch of
// option 13 marked, the numbering controls enabled by their check boxes.
FormOpt LoadFormOpt(const DisplayOptions &options);
// Marks swatch index (1..9) as the chosen text colour; 0 changes nothing.
void EvidColAtt(FormOpt &form, int index);
// Enables the node and bar label parts by their check boxes, and the text size, distance and
// colour controls unless neither kind of label is asked for.
void ControllaNumerazioneAtt(FormOpt &form);
void CheckSpGus_Click(FormOpt &form);
// The dialog's controls into the display options.
void AggiornaOpzioni(const FormOpt &form, DisplayOptions &options);

// FormOpt open: Salva writes "VorNOpzi.txt" and says how it went; Chiudi takes the values over
// and closes; the Modifica buttons ask the colour chooser; Esc closes without a change.
class FormOptDialog : public Dialog {
public:
    FormOptDialog(DisplayOptions &options, std::string customFolder, Ui &ui)
        : form(LoadFormOpt(options)), options_(options), customFolder_(std::move(customFolder)),
          ui_(ui) {}

    std::string_view Name() const override { return "FormOpt"; }
    std::string_view Caption() const override { return "Opzioni di rappresentazione"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    void Click(std::string_view control) override;
    void MouseUp(std::string_view control) override;

    FormOpt form;

private:
    DisplayOptions &options_;
    std::string customFolder_;
    Ui &ui_;
};

// The pick-box size typed in TextTrappola: rounded down, then made positive; 0 when empty or
// unreadable.
double AggiornaOpzioniInterne_(std::string_view textTrappola);

// FormOptInt open on the current pick-box size: "Chiudi" (Command1) sets the size, warning when
// it is 0; Esc closes without a change.
class FormOptIntDialog : public Dialog {
public:
    FormOptIntDialog(InternalOptions &options, Ui &ui);

    std::string_view Name() const override { return "FormOptInt"; }
    std::string_view Caption() const override { return "Opzioni"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    void Click(std::string_view control) override;

    Control Frame1, Label1, TextTrappola, Command1;
    bool taken = false; // closed with "Chiudi"

private:
    InternalOptions &options_;
    Ui &ui_;
};

} // namespace vorna
