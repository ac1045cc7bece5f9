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
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#define VORNA_ARRAY VORNA_ARRAY_FIELD
#include "options/form_opt_controls.h"
    int chosenSwatch = 0; // the text colour swatch, remembered while the dialog is open
};

struct FormOptInt {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "options/form_opt_int_controls.h"
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

// The pick-box size from the text typed for it: rounded down, then made positive; 0 when empty or
// unreadable.
double PickBoxSizeOf(std::string_view typed);

// FormOptInt open on the current pick-box size: "Chiudi" (Command1) sets the size, warning when
// it is 0; Esc closes without a change.
class FormOptIntDialog : public Dialog {
public:
    FormOptIntDialog(InternalOptions &options, Ui &ui);

    std::string_view Name() const override { return "FormOptInt"; }
    std::string_view Caption() const override { return "Opzioni"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    void Click(std::string_view control) override;
    // The size typed in the box, then "Chiudi".
    bool AnswerWith(std::string_view text) override;

    FormOptInt form;
    bool taken = false; // closed with "Chiudi"

private:
    InternalOptions &options_;
    Ui &ui_;
};

} // namespace vorna
