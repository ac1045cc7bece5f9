// Commands of the File menu that hand the connection back to the suite and end the program, and
// the start-up step that reads what the suite passed in.
#include "app/command_steps.h"
#include "app/commands.h"

#include "connection/bar_types.h"
#include "exchange/connection_file.h"
#include "exchange/connection_input.h"
#include "exchange/result_file.h"
#include "model/messages.h"

namespace vorna {
namespace {

void ShowCannotWrite(Program &p) {
    p.ui.MessageBox(MessageText(Msg::CannotWriteOutput), "Problema", MsgIcon::Critical,
                    MsgButtons::Ok);
}

// The program ends after a hand-back either way; its status tells the suite whether the file
// reached it.
void EndAfterHandBack(Program &p, WriteResult result) {
    if (result != WriteResult::Written)
        ShowCannotWrite(p);
    EndProgram(p, result == WriteResult::Written ? 0 : 1);
}

// The import commands: the bars of each type, then "VornaOut.txt".
void ExportResult(Program &p, ImportMode mode) {
    RefreshListText(p);
    const TypeBarTexts texts =
        BuildTypeBarLists(p.model, p.connection, AnalogyParametersOf(p).method);
    EndAfterHandBack(
        p, WriteResultFile(p.folders.jobPath, p.model, p.connection, p.input, texts, mode));
}

} // namespace

void LoadConnectionInput(Program &p) {
    switch (ReadConnectionInput(p.folders.jobPath, p.input)) {
    case InputResult::Missing:
        p.form.StringaSel.caption = "";
        break;
    case InputResult::TooManyTypes:
        p.ui.MessageBox(MessageText(Msg::TooManyBarTypes), "Problema", MsgIcon::Critical,
                        MsgButtons::Ok);
        EndProgram(p, 1);
        break;
    case InputResult::Read:
        break;
    }
}

void ScriColl_Click(Program &p) {
    ClassifyAnalogousBars(p.model, p.connection, AnalogyParametersOf(p).method);
    const WriteResult connection =
        WriteConnectionFile(p.folders.jobPath, p.model, p.connection, p.input);
    const WriteResult name = WriteConnectionNameFile(p.folders.jobPath, p.model, p.connection);
    // The suite reads both files as one connection: either failing fails the hand-back.
    EndAfterHandBack(p, connection == WriteResult::Written ? name : connection);
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
