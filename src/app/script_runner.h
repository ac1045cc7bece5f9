// The headless front end: runs start-up and then a script of user actions, one per line,
// printing every message box as one line.
#pragma once

#include "platform/canvas.h"
#include "platform/dialog.h"
#include "platform/text_file.h"
#include "platform/ui.h"

#include <deque>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

namespace vorna {

struct Program;
class ScriptHost;
struct ScriptSession;

// Prints each message box as "message|TITLE|ICON|TEXT" and answers from queues; a modal dialog
// takes the script's next lines until it closes.
class ScriptUi : public Ui {
public:
    explicit ScriptUi(std::ostream &out) : out_(out) {}
    MsgAnswer MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                         MsgButtons buttons) override;
    std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &request) override;
    std::optional<std::uint32_t> ChooseColour(std::uint32_t initial) override;
    void RunDialog(Dialog &dialog) override;
    void SetBusy(bool) override {}
    void RequestExit(int) override {}
    // Printed as `popup|NAME` where the window would open the menu.
    void PopUpMenu(std::string_view menu) override;

    std::deque<MsgAnswer> answers;                           // OK when none is queued
    std::deque<std::optional<SaveDialogResult>> saveChoices; // cancel when none is queued
    std::deque<std::optional<Rgb>> colours;                  // cancel when none is queued
    std::deque<std::string> pickBoxTexts; // typed in the next FormOptInt, then "Chiudi"
    ScriptSession *session = nullptr;     // where a dialog reads its lines from

private:
    std::ostream &out_;
};

// What only a front end can do for the runner: the drawing surfaces, showing the state, and
// pictures of the window. The plain host draws nothing and takes no screenshots.
class ScriptHost {
public:
    virtual ~ScriptHost() = default;
    virtual Canvas &Disegno() = 0;
    virtual Canvas &Picture1() = 0;
    // The program exists and start-up is about to run.
    virtual void Attach(Program &) {}
    // A command has run: show the new state (and the new window size after "resize").
    virtual void Sync(Program &) {}
    virtual bool Screenshot(Program &, const std::filesystem::path &) { return false; }
    virtual bool Screenshot(Dialog &, const std::filesystem::path &) { return false; }
};

// One run of a script: the program, its front end and the lines still to come.
struct ScriptSession {
    Program &p;
    ScriptUi &ui;
    ScriptHost &host;
    std::ostream &out;
    TextCursor lines;
    int status = 0; // 2 once a line failed
    // A gesture is read as a mouse makes it: from a press until its release, a line's X and Y
    // are the spot of the surface that had those units at the press, however often the moves
    // between have redrawn the view.
    int heldButtons = 0;
    ScaleRect pressScale = {};

    // The next line that is not blank or a comment, trimmed and in Windows-1252. False at the
    // end of the script.
    bool NextLine(std::string &line);
    // Reports a line that is not part of the language (or that could not be done).
    void Fail(std::string_view line);
};

// Returns the process exit status: the program's own when a command or start-up ended it,
// 2 when the script could not be read or held a line that failed, 0 otherwise.
int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out,
              ScriptHost &host);
// The same with surfaces that draw nothing.
int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out);

} // namespace vorna
