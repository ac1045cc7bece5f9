// The headless front end: runs start-up and then a script of user actions, one per line,
// printing every message box as one line.
#include "app/script_runner.h"

#include "app/commands.h"
#include "app/dump.h"
#include "app/program.h"
#include "app/startup.h"
#include "platform/number_text.h"
#include "platform/plain_canvas.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <memory>
#include <sstream>
#include <vector>

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

std::optional<SaveDialogResult> ScriptUi::SaveFile(const SaveDialogRequest &) {
    if (saveChoices.empty())
        return std::nullopt;
    auto choice = saveChoices.front();
    saveChoices.pop_front();
    return choice;
}

std::optional<std::uint32_t> ScriptUi::ChooseColour(std::uint32_t) {
    return std::nullopt;
}

// With no text queued the dialog is left with Esc.
std::optional<std::string> ScriptUi::AskPickBoxSize(const std::string &) {
    if (pickBoxAnswers.empty())
        return std::nullopt;
    std::string text = std::move(pickBoxAnswers.front());
    pickBoxAnswers.pop_front();
    return text;
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

struct Runner {
    Program &p;
    ScriptUi &ui;
    ScriptHost &host;
    std::ostream &out;

    // The words of a line; the last word of "set" keeps its blanks.
    static std::vector<std::string> Words(const std::string &line, std::size_t most) {
        std::vector<std::string> words;
        std::istringstream in(line);
        std::string w;
        while (words.size() + 1 < most && in >> w)
            words.push_back(w);
        std::string rest;
        std::getline(in, rest);
        if (!TrimLeft(rest).empty())
            words.push_back(TrimLeft(rest));
        return words;
    }

    static double Num(const std::string &s) { return StrictNumber(s).value_or(0); }
    static int Int(const std::string &s) { return static_cast<int>(Num(s)); }

    void Mouse(const std::string &verb, const std::vector<std::string> &w) {
        double x = Num(w[1]), y = Num(w[2]);
        int button = w.size() > 3 ? Int(w[3]) : kLeftButton;
        int shift = w.size() > 4 ? Int(w[4]) : 0;
        if (verb == "down") {
            Disegno_MouseDown(p, button, shift, x, y);
        } else if (verb == "up") {
            Disegno_MouseUp(p, button, shift, x, y);
        } else if (verb == "move") {
            Disegno_MouseMove(p, w.size() > 3 ? button : 0, shift, x, y);
        } else if (verb == "click") {
            Disegno_MouseDown(p, button, shift, x, y);
            Disegno_MouseUp(p, button, shift, x, y);
        } else { // dblclick: the press and release that come before the double click
            Disegno_MouseDown(p, button, shift, x, y);
            Disegno_MouseUp(p, button, shift, x, y);
            Disegno_DblClick(p, button);
            Disegno_MouseUp(p, button, shift, x, y);
        }
    }

    bool ClickNode(const std::string &name) {
        const StructureModel &m = p.model;
        for (int i = 0; i < m.nodeCount; ++i) {
            const Node &n = m.nodes[i];
            if (std::to_string(n.name) == name && IsLive(n) && p.view.nodeShown[i]) {
                double x = ProjectedXOf(p.view, n.pointIndex),
                       y = ProjectedYOf(p.view, n.pointIndex);
                Disegno_MouseDown(p, kLeftButton, 0, x, y);
                Disegno_MouseUp(p, kLeftButton, 0, x, y);
                return true;
            }
        }
        return false;
    }

    // Runs one line; false when it is not part of the language or could not be done.
    bool Line(const std::string &line) {
        std::vector<std::string> w = Words(line, line.rfind("set ", 0) == 0 ? 3 : 8);
        const std::string &verb = w[0];
        if (verb == "dump" && w.size() == 2) {
            if (w[1] == "folders")
                DumpFolders(p, out);
            else if (w[1] == "options")
                DumpOptions(p, out);
            else if (w[1] == "model")
                DumpModel(p, out);
            else if (w[1] == "controls")
                DumpControls(p, out);
            else if (w[1] == "view")
                DumpView(p, out);
            else if (w[1] == "connection")
                DumpConnection(p, out);
            else
                return false;
            return true;
        }
        if (verb == "answer" && w.size() == 2 && (w[1] == "OK" || w[1] == "Cancel")) {
            ui.answers.push_back(w[1] == "OK" ? MsgAnswer::Ok : MsgAnswer::Cancel);
            return true;
        }
        if (verb == "savefile" && w.size() >= 2) {
            if (w[1] == "cancel")
                ui.saveChoices.push_back(std::nullopt);
            else
                ui.saveChoices.push_back(
                    SaveDialogResult{Utf8ToCp1252(w[1]), w.size() > 2 ? Int(w[2]) : 1});
            return true;
        }
        // "pickbox TEXT": the text typed in the next pick-box dialog ("Trappola"), blanks kept;
        // "pickbox" alone leaves the box empty. Without one the dialog is left with Esc.
        if (verb == "pickbox") {
            ui.pickBoxAnswers.push_back(TrimLeft(std::string_view(line).substr(verb.size())));
            return true;
        }
        if (verb == "set" && w.size() >= 2) {
            Control *c = FindControl(p.form, w[1]);
            if (c)
                c->text = w.size() > 2 ? Utf8ToCp1252(w[2]) : "";
            return c != nullptr;
        }
        if (verb == "check" && w.size() == 3) {
            Control *c = FindControl(p.form, w[1]);
            if (c)
                c->checked = w[2] == "1";
            return c != nullptr;
        }
        if (verb == "option" && w.size() == 2 && w[1].rfind("OpzMetodo(", 0) == 0) {
            int k = Int(w[1].substr(10, 1));
            for (int i = 0; i < 4; ++i)
                p.form.OpzMetodo[i].checked = i == k;
            return k >= 0 && k < 4;
        }
        if (verb == "key" && w.size() == 2) {
            if (w[1] == "Enter")
                Risposta_KeyDown(p, 13);
            else if (w[1] == "Esc")
                Interrompi_Click(p);
            else
                return false;
            return true;
        }
        if ((verb == "down" || verb == "up" || verb == "move" || verb == "click" ||
             verb == "dblclick") &&
            w.size() >= 3) {
            Mouse(verb, w);
            return true;
        }
        if (verb == "clicknode" && w.size() == 2)
            return ClickNode(w[1]);
        if (verb == "label" && w.size() == 2) {
            LabelTipo_Click(p, Int(w[1]));
            return true;
        }
        if (verb == "wheel" && w.size() == 2) {
            WheelZoom(p, Int(w[1]));
            return true;
        }
        if (verb == "resize" && w.size() == 3) {
            p.form.width = Num(w[1]);
            p.form.height = Num(w[2]);
            LayOutForm(p);
            return true;
        }
        if (verb == "screenshot" && w.size() == 2) {
            host.Sync(p);
            return host.Screenshot(p, w[1]);
        }
        if (verb == "button" && w.size() == 2) {
            if (!RunToolbarButton(p, w[1]))
                out << "ignored|button " << w[1] << '\n';
            return true;
        }
        if (w.size() == 1 && FindCommand(verb)) {
            if (!RunMenuItem(p, verb))
                out << "ignored|" << verb << '\n';
            return true;
        }
        return false;
    }

    static bool FindCommand(const std::string &name) {
        for (const Command &c : CommandTable())
            if (name == c.menuItem)
                return true;
        return false;
    }
};

} // namespace

int RunScript(const std::filesystem::path &script, std::string_view commandLine, std::ostream &out,
              ScriptHost &host) {
    auto text = ReadWholeFile(script);
    if (!text) {
        out << "error|cannot read script " << script.string() << '\n';
        return 2;
    }
    ScriptUi ui(out);
    auto program = std::make_unique<Program>(ui, host.Disegno(), host.Picture1());
    host.Attach(*program);
    host.Sync(*program);
    RunStartUp(*program, commandLine);
    host.Sync(*program);
    Runner runner{*program, ui, host, out};
    int status = 0;
    TextCursor cursor{std::move(*text), 0};
    std::string_view raw;
    while (!program->exitRequested && ReadLine(cursor, raw)) {
        std::string line = Utf8ToCp1252(Trim(raw));
        if (line.empty() || line[0] == '#')
            continue;
        if (!runner.Line(line)) {
            out << "error|" << Cp1252ToUtf8(line) << '\n';
            status = 2;
        }
        host.Sync(*program);
    }
    return program->exitRequested ? program->exitStatus : status;
}

int RunScript(const std::filesystem::path &script, std::string_view commandLine,
              std::ostream &out) {
    PlainHost host;
    return RunScript(script, commandLine, out, host);
}

} // namespace vorna
