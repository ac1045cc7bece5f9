// The analogy's tolerances: the boxes TolAngoli and TolLunghezze, taken as they are read (a text
// that is no tolerance is told once, and the last valid value stays), and the job's file
// "VornaTolleranze.txt" that keeps them for the next start.
#include "app/command_steps.h"
#include "app/commands.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text_file.h"

namespace vorna {
namespace {

std::string FileName(const Program &p) {
    return p.folders.jobFolder + "\\" + kToleranceFileName;
}

std::filesystem::path FilePath(const Program &p) {
    return NativePath(p.folders.jobPath + "\\" + kToleranceFileName);
}

// Takes a box's text when it changed; false when nothing new was taken.
bool TakeBox(Program &p, const Control &box, ToleranceBox &tolerance, double most) {
    const std::string &text = box.text;
    if (text == tolerance.taken || text == tolerance.refused)
        return false;
    if (const std::optional<double> value = ToleranceValue(text, most)) {
        tolerance.value = *value;
        tolerance.taken = text;
        tolerance.refused.reset();
        return true;
    }
    tolerance.refused = text;
    std::string message =
        box.caption + ": \"" + text + "\" non \xE8 un numero da 0 a " + NumberText(most);
    if (text.find(',') != std::string::npos)
        message += " (il separatore decimale \xE8 il punto)";
    message += ". Resta il valore " + NumberText(tolerance.value) + ".";
    p.ui.MessageBox(message, "ATTENZIONE", MsgIcon::Exclamation, MsgButtons::Ok);
    return false;
}

} // namespace

void LoadTolerances(Program &p) {
    std::string angle, length;
    switch (ReadToleranceFile(FilePath(p), angle, length)) {
    case ToleranceFileRead::Missing:
        return;
    case ToleranceFileRead::Bad:
        p.ui.MessageBox("Il file " + FileName(p) +
                            " non \xE8 valido: le tolleranze restano vuote (confronto esatto).",
                        "ATTENZIONE", MsgIcon::Exclamation, MsgButtons::Ok);
        return;
    case ToleranceFileRead::Read:
        break;
    }
    p.form.TolAngoli.text = p.tolerances.angle.taken = angle;
    p.form.TolLunghezze.text = p.tolerances.length.taken = length;
    p.tolerances.angle.value = ToleranceValue(angle, kMostAngleTolerance).value_or(0);
    p.tolerances.length.value = ToleranceValue(length, kMostLengthTolerance).value_or(0);
}

void ReadToleranceBoxes(Program &p) {
    const bool angle = TakeBox(p, p.form.TolAngoli, p.tolerances.angle, kMostAngleTolerance);
    const bool length = TakeBox(p, p.form.TolLunghezze, p.tolerances.length, kMostLengthTolerance);
    if (!angle && !length)
        return;
    const std::string text = ToleranceFileText(p.tolerances.angle.taken, p.tolerances.length.taken);
    if (!WriteFileAtomic(FilePath(p), text))
        p.ui.MessageBox("Impossibile scrivere il file " + FileName(p) +
                            ": le tolleranze valgono solo fino alla chiusura del programma.",
                        "ATTENZIONE", MsgIcon::Exclamation, MsgButtons::Ok);
}

void Tolleranza_Change(Program &p) {
    ReadToleranceBoxes(p);
}

AnalogyParameters AnalogyParametersOf(Program &p) {
    ReadToleranceBoxes(p);
    const FormVorna &f = p.form;
    AnalogyParameters params;
    // No option selected reads as a method that accepts only the base node itself.
    params.method = AnalogyMethod::Any;
    for (int i = 0; i < 4; ++i)
        if (f.OpzMetodo[i].checked) {
            params.method = static_cast<AnalogyMethod>(i);
            break;
        }
    params.compareLengths = f.analLun.checked;
    params.compareColours = f.AnalColAste.checked;
    params.compareLineTypes = f.analLinAste.checked;
    params.compareSections = f.AnalSezAste.checked;
    params.angleTolerance = p.tolerances.angle.value;
    params.lengthTolerance = p.tolerances.length.value;
    return params;
}

} // namespace vorna
