// Commands of the File menu that hand the connection back to the suite and end the program, and
// the start-up step that reads what the suite passed in.
#include "app/commands.h"

#include "connection/bar_types.h"
#include "exchange/connection_file.h"
#include "exchange/connection_input.h"
#include "exchange/result_file.h"

namespace vorna {
namespace {

void ShowCannotWrite(Program &p) {
    p.ui.MessageBox(p.messages[7], "Problema", MsgIcon::Critical, MsgButtons::Ok);
}

// The import commands: the bars of each type, then "VornaOut.txt"; the program ends even when
// the file could not be written.
void ExportResult(Program &p, ImportMode mode) {
    RefreshListText(p);
    const TypeBarTexts texts =
        BuildTypeBarLists(p.model, p.connection, AnalogyParametersOf(p.form).method);
    if (WriteResultFile(p.folders.jobFolder, p.model, p.connection, p.input, texts, mode) !=
        WriteResult::Written)
        ShowCannotWrite(p);
    EndProgram(p, 0);
}

} // namespace

void LoadConnectionInput(Program &p) {
    switch (ReadConnectionInput(p.folders.jobFolder, p.input, p.ui, p.messages)) {
    case InputResult::Missing:
        p.form.StringaSel.caption = "";
        break;
    case InputResult::TooManyTypes:
        EndProgram(p, 1);
        break;
    case InputResult::Read:
        break;
    }
}

void ScriColl_Click(Program &p) {
    ClassifyAnalogousBars(p.model, p.connection, AnalogyParametersOf(p.form).method);
    if (WriteConnectionFile(p.folders.jobFolder, p.model, p.connection, p.input) !=
        WriteResult::Written)
        ShowCannotWrite(p);
    // No message for this one: the suite can do without it.
    WriteConnectionNameFile(p.folders.jobFolder, p.model, p.connection);
    EndProgram(p, 0);
}

void Salva_Click(Program &p) {
    ExportResult(p, ImportMode::All);
}
void SalvaGeom_Click(Program &p) {
    ExportResult(p, ImportMode::Geometry);
}
void SalvaSoll_Click(Program &p) {
    ExportResult(p, ImportMode::Forces);
}

} // namespace vorna
