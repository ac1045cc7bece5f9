// A table of a dialog saved as a CSV file where the user chooses, as "Esporta CSV..." does.
#include "app/command_steps.h"

#include "exchange/csv.h"

namespace vorna {

void ExportCsv(Program &p, const std::function<std::string()> &text) {
    SaveDialogRequest request;
    request.initialFolder = p.folders.jobFolder;
    request.filter = "File CSV (*.csv)|*.csv";
    request.title = "FILE CSV DA GENERARE";
    const std::optional<SaveDialogResult> file = p.ui.SaveFile(request);
    if (!file || file->fileName.empty())
        return;
    // A name typed without an extension gets the type's, as a save dialog adds it.
    std::string name = file->fileName;
    const std::size_t base = name.find_last_of("\\/"), dot = name.rfind('.');
    if (dot == std::string::npos || (base != std::string::npos && dot < base))
        name += ".csv";
    ShowMessage(p, WriteCsv(name, text()));
}

} // namespace vorna
