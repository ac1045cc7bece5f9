// Text dumps of the program's state for the script runner: one line per value, fixed order.
#pragma once

#include "app/program.h"
#include "platform/dialog.h"

#include <ostream>

namespace vorna {

void DumpFolders(const Program &program, std::ostream &out);
void DumpOptions(const Program &program, std::ostream &out);
void DumpModel(const Program &program, std::ostream &out);
void DumpControls(Program &program, std::ostream &out);
void DumpView(const Program &program, std::ostream &out);
void DumpConnection(const Program &program, std::ostream &out);
// The counts of the drawing buffers after the last export: coordinates, lines, arcs, texts.
void DumpBuffers(const Program &program, std::ostream &out);
// Every live, shown node with the colour it is drawn in now: "nodecolour node=NAME rgb=R,G,B".
void DumpNodeColours(const Program &program, std::ostream &out);
// An open dialog's controls in the format of the window's, then its caption.
void DumpDialogControls(Dialog &dialog, std::ostream &out);
// The rows of a list, one line each: "NAME(R)=CELLS", the cells separated by "|".
void DumpListRows(std::string_view name, const Control &list, std::ostream &out);

} // namespace vorna
