// The headless front end: runs start-up and then a script of user actions, one per line,
// printing every message box as one line.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"

#include <deque>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>

namespace vorna {

struct Program;

// Prints each message box as "message|TITLE|ICON|TEXT" and answers from a queue (OK when empty).
class ScriptUi : public Ui {
public:
    explicit ScriptUi(std::ostream &out) : out_(out) {}
    MsgAnswer MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                         MsgButtons buttons) override;
    std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &request) override;
    std::optional<std::uint32_t> ChooseColour(std::uint32_t initial) override;
    std::optional<std::string> AskPickBoxSize(const std::string &current) override;
    void SetBusy(bool) override {}
    void RequestExit(int) override {}

    std::deque<MsgAnswer> answers;
    std::deque<std::optional<SaveDialogResult>> saveChoices;
    std::deque<std::string> pickBoxAnswers; // texts typed in the pick-box dialog

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
};

// Returns the process exit status: the program's own when a command or start-up ended it,
// 2 when the script could not be read or held a line that failed, 0 otherwise.
int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out,
              ScriptHost &host);
// The same with surfaces that draw nothing.
int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out);

} // namespace vorna
