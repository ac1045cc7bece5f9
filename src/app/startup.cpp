// The start-up sequence that runs once when the main window loads.
#include "app/startup.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "model/catalogues.h"
#include "model/load_structure.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace vorna {

namespace {

// A catalogue that cannot be read is reported and start-up goes on; too many cards end it.
bool Report(Program &p, const CatalogueResult &result) {
    if (!result.message.empty())
        ShowMessage(p, {result.message, "Problema", MsgIcon::Critical});
    if (result.endProgram)
        EndProgram(p, 1);
    return !result.endProgram;
}

} // namespace

void RunStartUp(Program &p, std::string_view commandLine) {
    p.connection = ConnectionState{};
    UpdateBaseNodeCommands(p);
    Interrompi_Click(p);
    p.form.btnInterrompi.enabled = false;
    p.form.Shape.visible = false;
    LayOutForm(p);
    p.form.RimNodoBase.enabled = false;
    p.navigation.offsets = {};

    auto folders = SetUpFolders(commandLine, p.ui);
    if (!folders) {
        EndProgram(p, 1);
        return;
    }
    p.folders = *folders;
    ReadDisplayOptions(p.folders.customPath, p.displayOptions);
    ReadInternalOptions(p.folders.customPath, p.internalOptions);
    // The caption shows the size in force, so it follows the options file.
    p.form.Trappola.caption =
        "Trappola (" + NumberText(p.internalOptions(opt::kPickBoxSize)) + ")...";
    LoadConnectionInput(p);
    if (p.exitRequested)
        return;
    LoadTolerances(p);
    p.form.caption = Trim(p.input.connectionDescription) + " - " + p.folders.jobFolder;
    LoadFont(p);

    if (!Report(p, ReadThicknessCards(p.folders.jobFolder, p.model, p.folders.jobPath)) ||
        !Report(p, ReadSectionCards(p.folders.jobFolder, p.model, p.folders.jobPath)))
        return;

    const LoadResult loaded = LoadStructure(p.folders.jobPath, p.model);
    if (auto message = LoadMessage(loaded))
        ShowMessage(p, *message);
    if (loaded == LoadResult::OldVersion) {
        EndProgram(p, 1);
        return;
    }
    if (loaded != LoadResult::Loaded) {
        p.ui.MessageBox("Errore nella lettura della struttura", "Problema", MsgIcon::Critical,
                        MsgButtons::Ok);
        return;
    }
    p.structureLoaded = true;
    BuildFirstView(p);
}

} // namespace vorna
