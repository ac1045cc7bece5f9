// The headless front end: runs start-up and then a script of user actions, one per line,
// printing every message box as one line.
#include "app/script_runner.h"

#include "app/dispatch.h"
#include "app/program.h"
#include "app/script_verbs.h"
#include "app/startup.h"
#include "platform/plain_canvas.h"
#include "platform/text.h"

#include <memory>

namespace vorna {

MsgAnswer ScriptUi::MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                               MsgButtons buttons) {
    out_ << "message|" << Cp1252ToUtf8(title) << '|' << static_cast<int>(icon) << '|'
         << Cp1252ToUtf8(text) << '\n';
    if (buttons == MsgButtons::Ok || answers.empty())
        return MsgAnswer::Ok;
    MsgAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

namespace {

template <typename T> std::optional<T> Next(std::deque<std::optional<T>> &queue) {
    if (queue.empty())
        return std::nullopt;
    auto choice = std::move(queue.front());
    queue.pop_front();
    return choice;
}

} // namespace

void ScriptUi::PopUpMenu(std::string_view menu) {
    out_ << "popup|" << Cp1252ToUtf8(menu) << '\n';
}

std::optional<SaveDialogResult> ScriptUi::SaveFile(const SaveDialogRequest &) {
    return Next(saveChoices);
}

std::optional<std::uint32_t> ScriptUi::ChooseColour(std::uint32_t) {
    return Next(colours);
}

void ScriptUi::RunDialog(Dialog &dialog) {
    if (!pickBoxTexts.empty() && dialog.AnswerWith(pickBoxTexts.front())) {
        pickBoxTexts.pop_front();
        return;
    }
    std::string line;
    while (!dialog.closed) {
        // A script that ends with the dialog open leaves it as Esc would.
        if (session == nullptr || !session->NextLine(line)) {
            dialog.Escape();
            return;
        }
        if (!RunDialogLine(*session, dialog, line))
            session->Fail(line);
    }
}

bool ScriptSession::NextLine(std::string &line) {
    std::string_view raw;
    while (ReadLine(lines, raw)) {
        // Blanks and tabs around a line mean nothing; the line is Windows-1252 from here on.
        const auto first = raw.find_first_not_of(" \t");
        if (first == std::string_view::npos || raw[first] == '#')
            continue;
        line = Utf8ToCp1252(raw.substr(first, raw.find_last_not_of(" \t") - first + 1));
        return true;
    }
    return false;
}

void ScriptSession::Fail(std::string_view line) {
    out << "error|" << Cp1252ToUtf8(line) << '\n';
    status = 2;
}

namespace {

class PlainHost : public ScriptHost {
public:
    Canvas &Disegno() override { return disegno_; }
    Canvas &Picture1() override { return picture1_; }
    void Sync(Program &p) override {
        disegno_.Resize(p.form.Disegno.width, p.form.Disegno.height);
        picture1_.Resize(p.form.Picture1.width, p.form.Picture1.height);
    }

private:
    PlainCanvas disegno_{10704, 8328};
    PlainCanvas picture1_{2100, 1500};
};

} // namespace

int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out,
              ScriptHost &host) {
    auto lines = TextCursor::Open(script);
    if (!lines) {
        out << "error|cannot read script " << script.string() << '\n';
        return 2;
    }
    ScriptUi ui(out);
    auto program = std::make_unique<Program>(ui, host.Disegno(), host.Picture1());
    ScriptSession session{*program, ui, host, out, std::move(*lines)};
    ui.session = &session;
    host.Attach(*program);
    host.Sync(*program);
    Dispatch(*program, [&](Program &p) { RunStartUp(p, commandLine); });
    host.Sync(*program);
    std::string line;
    while (!program->exitRequested && session.NextLine(line)) {
        Dispatch(*program, [&](Program &) {
            if (!RunWindowLine(session, line))
                session.Fail(line);
        });
        host.Sync(*program);
    }
    return program->exitRequested ? program->exitStatus : session.status;
}

int RunScript(const std::filesystem::path &script, std::string_view commandLine,
              std::ostream &out) {
    PlainHost host;
    return RunScript(script, commandLine, out, host);
}

} // namespace vorna
