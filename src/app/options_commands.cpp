// The commands of the two options dialogs: the display options and the pick-box size.
#include "app/command_steps.h"
#include "app/commands.h"

#include "options/form_opt.h"
#include "platform/number_text.h"

namespace vorna {

void Trappola_Click(Program &p) {
    FormOptIntDialog dialog(p.internalOptions, p.ui);
    p.ui.RunDialog(dialog);
    if (dialog.taken)
        p.form.Trappola.caption =
            "Trappola (" + NumberText(p.internalOptions(opt::kPickBoxSize)) + ")...";
}

// The new options apply from the next drawing of the view.
void Rappresentazione_Click(Program &p) {
    FormOptDialog dialog(p.displayOptions, p.folders.customPath, p.ui);
    p.ui.RunDialog(dialog);
}

} // namespace vorna
