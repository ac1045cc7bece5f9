// The two things every part of the app does with the program as a whole: tell the user, and end.
#include "app/program.h"

namespace vorna {

void EndProgram(Program &program, int status) {
    program.exitRequested = true;
    program.exitStatus = status;
    program.ui.RequestExit(status);
}

void ShowMessage(Program &program, const UserMessage &message) {
    program.ui.MessageBox(message.text, message.title, message.icon, MsgButtons::Ok);
}

} // namespace vorna
