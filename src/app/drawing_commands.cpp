// The command that saves the current view as a drawing: the save dialog, the export pass into
// the drawing buffers, and the .dis or DXF writer.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/draw_input.h"

#include "export/dis_file.h"
#include "export/dxf_file.h"
#include "view/render.h"

namespace vorna {
namespace {

// The save dialog's outcome: the name chosen (or the initial one), whether the dialog completed
// and the file type chosen (1-based).
struct SaveChoice {
    std::string fileName;
    bool completed = true;
    int filterIndex = 1;
};

// The dialog opens in the job folder; each save starts from empty buffers unless asked to keep
// them.
SaveChoice ShowSaveDialog(Program &p, std::string_view filter, std::string initialName,
                          bool keepBuffers) {
    SaveDialogRequest request;
    request.initialFolder = p.folders.jobFolder;
    request.filter = filter.empty() ? "DISEGNO  (*.DIS)|*.DIS" : std::string(filter);
    request.title = "FILE DISEGNO DA GENERARE";
    request.fileName = initialName;
    SaveChoice choice{std::move(initialName)};
    if (auto chosen = p.ui.SaveFile(request)) {
        choice.fileName = chosen->fileName;
        choice.filterIndex = chosen->filterIndex;
    } else {
        choice.completed = false;
    }
    if (!keepBuffers)
        p.buffers = DrawBuffers{};
    return choice;
}

// A name typed without an extension gets the chosen type's, as a save dialog adds it; a name
// with one keeps it, and the type still decides the format.
std::string WithTypeExtension(std::string name, int filterIndex) {
    const std::size_t base = name.find_last_of("\\/");
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || (base != std::string::npos && dot < base))
        name += filterIndex == 1 ? ".dis" : ".dxf";
    return name;
}

} // namespace

void SalvaDisegno_Click(Program &p) {
    const SaveChoice choice =
        ShowSaveDialog(p, "File Disegno (*.dis)| *.dis|AutoCAD (*.dxf)| *.dxf", "", false);
    if (!choice.fileName.empty() && !choice.completed) {
        p.ui.MessageBox("Impossibile salvare il file", "MESSAGGIO", MsgIcon::Critical,
                        MsgButtons::Ok);
        return;
    }
    if (choice.fileName.empty())
        return;
    const std::string fileName = WithTypeExtension(choice.fileName, choice.filterIndex);
    // As on screen, nothing is drawn from a structure that failed to load.
    if (p.structureLoaded) {
        ExportDrawing(DrawInputOf(p), p.disegno, p.buffers);
        for (const std::string &warning : p.buffers.warnings)
            p.ui.MessageBox(warning, "Problema", MsgIcon::Exclamation, MsgButtons::Ok);
    }
    if (choice.filterIndex == 1)
        ShowMessage(p, SaveDisDrawing(fileName, p.buffers, 0));
    else
        ShowMessage(p, WriteDxf(fileName, p.buffers, false));
}

} // namespace vorna
