// The script language as tables of verbs: each row names a verb, its arguments and what it
// does, and serves both the runner and the README.
//
// Sections: words and numbers of a line (SkipSpaces, IntegerOf, IndexOf); the window's verbs
// (Dump to Button: dump, answers, set, keys, the mouse, resize); the dialogs' verbs
// (DialogClick, DialogCheck, DialogOption); reading a line against the rules (SplitVerb,
// ParseArgs); the two verb tables (WindowVerbs, DialogVerbs); running a line and the README's
// tables.
#include "app/script_verbs.h"

#include "app/command_steps.h"
#include "app/commands.h"
#include "app/dump.h"
#include "app/program.h"
#include "app/review.h"
#include "app/why_not.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "projection/navigation.h"

#include <cmath>
#include <tuple>

namespace vorna {
namespace {

using Session = ScriptSession;

bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

std::string_view SkipSpaces(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && IsSpace(s[i]))
        ++i;
    return s.substr(i);
}

// A whole number that fits an int.
std::optional<double> IntegerOf(std::string_view word) {
    auto v = StrictNumber(word);
    if (!v || !(std::abs(*v) < 1e9) || std::floor(*v) != *v)
        return std::nullopt;
    return v;
}

bool Flag01(std::string_view word, bool &on) {
    if (word != "0" && word != "1")
        return false;
    on = word == "1";
    return true;
}

// "Name(i)" with i a whole number in [first, last]; nothing otherwise.
std::optional<int> IndexOf(std::string_view word, std::string_view name, int first, int last) {
    if (word.size() < name.size() + 3 || !word.starts_with(name) || word[name.size()] != '(' ||
        word.back() != ')')
        return std::nullopt;
    auto i = IntegerOf(word.substr(name.size() + 1, word.size() - name.size() - 2));
    if (!i || *i < first || *i > last)
        return std::nullopt;
    return static_cast<int>(*i);
}

// ---- the window

bool Dump(Session &s, const ScriptArgs &a) {
    const std::string &what = a.text[0];
    // Only whynot takes a second word: the node's name.
    if (what == "whynot") {
        if (!a.Has(1))
            return false;
        DumpWhyNot(s.p, a.text[1], s.out);
        return true;
    }
    if (a.Has(1))
        return false;
    if (what == "nearmisses")
        DumpNearMisses(s.p, s.out);
    else if (what == "review")
        DumpReview(s.p, s.out);
    else if (what == "nodecolours")
        DumpNodeColours(s.p, s.out);
    else if (what == "folders")
        DumpFolders(s.p, s.out);
    else if (what == "options")
        DumpOptions(s.p, s.out);
    else if (what == "model")
        DumpModel(s.p, s.out);
    else if (what == "controls")
        DumpControls(s.p, s.out);
    else if (what == "view")
        DumpView(s.p, s.out);
    else if (what == "connection")
        DumpConnection(s.p, s.out);
    else if (what == "buffers")
        DumpBuffers(s.p, s.out);
    else
        return false;
    return true;
}

bool Answer(ScriptUi &ui, const ScriptArgs &a) {
    if (a.text[0] != "OK" && a.text[0] != "Cancel")
        return false;
    ui.answers.push_back(a.text[0] == "OK" ? MsgAnswer::Ok : MsgAnswer::Cancel);
    return true;
}

bool Colour(ScriptUi &ui, const ScriptArgs &a) {
    if (a.text[0] == "cancel" && !a.Has(1)) {
        ui.colours.emplace_back(std::nullopt);
        return true;
    }
    int rgb[3];
    for (std::size_t k = 0; k < 3; ++k) {
        auto v = a.Has(k) ? IntegerOf(a.text[k]) : std::nullopt;
        if (!v || *v < 0 || *v > 255)
            return false;
        rgb[k] = static_cast<int>(*v);
    }
    ui.colours.emplace_back(PackRgb(rgb[0], rgb[1], rgb[2]));
    return true;
}

bool SaveFileChoice(Session &s, const ScriptArgs &a) {
    const std::string &rest = a.text[0];
    if (rest == "cancel") {
        s.ui.saveChoices.emplace_back(std::nullopt);
        return true;
    }
    // The path may hold blanks: the file type is the last word.
    const std::size_t cut = rest.find_last_of(" \t");
    if (cut == std::string::npos)
        return false;
    auto index = IntegerOf(std::string_view(rest).substr(cut + 1));
    std::string path(rest.substr(0, cut));
    while (!path.empty() && IsSpace(path.back()))
        path.pop_back();
    if (!index || (*index != 1 && *index != 2) || path.empty())
        return false;
    s.ui.saveChoices.emplace_back(SaveDialogResult{path, static_cast<int>(*index)});
    return true;
}

// Typing into a text box; a disabled one takes nothing, as on screen.
bool SetText(std::ostream &out, Control *c, const ScriptArgs &a) {
    if (!c)
        return false;
    if (!c->enabled)
        out << "ignored|set " << Cp1252ToUtf8(a.text[0]) << '\n';
    else
        c->text = a.Has(1) ? a.text[1] : "";
    return true;
}

bool Option(Session &s, const ScriptArgs &a) {
    auto &options = s.p.form.OpzMetodo;
    auto k = IndexOf(a.text[0], "OpzMetodo", 0, static_cast<int>(options.size()) - 1);
    if (!k)
        return false;
    for (std::size_t i = 0; i < options.size(); ++i)
        options[i].checked = i == static_cast<std::size_t>(*k);
    return true;
}

bool KeyVerb(Session &s, const ScriptArgs &a) {
    static const std::pair<const char *, Key> drawingKeys[] = {
        {"Left", Key::Left}, {"Right", Key::Right},   {"Up", Key::Up},
        {"Down", Key::Down}, {"PageUp", Key::PageUp}, {"PageDown", Key::PageDown},
        {"Home", Key::Home}};
    if (a.text[0] == "Enter") {
        Risposta_KeyDown(s.p, Key::Enter);
        return true;
    }
    if (a.text[0] == "Esc") {
        Interrompi_Click(s.p);
        return true;
    }
    for (const auto &[name, key] : drawingKeys)
        if (a.text[0] == name) {
            Disegno_KeyDown(s.p, key);
            return true;
        }
    return false;
}

bool Wheel(Session &s, const ScriptArgs &a) {
    const int shift = a.Has(3) ? a.Int(3) : 0;
    if (a.Has(1) != a.Has(2) || (a.Has(3) && !a.Has(2)) || shift < 0 || shift > 7)
        return false;
    MouseEvent wheel{.kind = MouseEvent::Kind::Wheel, .wheelSteps = a.Int(0)};
    if (a.Has(1)) {
        wheel.modifiers = Modifiers::FromCode(shift);
        wheel.x = a.number[1];
        wheel.y = a.number[2];
    }
    Disegno_Mouse(s.p, wheel);
    return true;
}

// The mouse on Disegno: buttons 1 left, 2 right, 4 middle (a mask while moving).
bool Mouse(Session &s, const ScriptArgs &a, MouseEvent::Kind kind) {
    const bool given = a.Has(2);
    const int button = given ? a.Int(2) : kLeftButton;
    const int shift = a.Has(3) ? a.Int(3) : 0;
    const bool single = button == kLeftButton || button == kRightButton || button == kMiddleButton;
    if ((kind == MouseEvent::Kind::Move ? button < 0 || button > 7 : !single) || shift < 0 ||
        shift > 7)
        return false;
    MouseEvent e{
        .kind = kind, .modifiers = Modifiers::FromCode(shift), .x = a.number[0], .y = a.number[1]};
    if (kind == MouseEvent::Kind::Move)
        e.held = given ? button : kNoButton;
    else
        e.button = static_cast<MouseButton>(button);
    const ScaleRect now = s.p.disegno.Scale();
    if (kind == MouseEvent::Kind::Press || kind == MouseEvent::Kind::DoubleClick) {
        s.pressScale = now;
        s.heldButtons |= button;
    } else if (s.heldButtons != 0 && now != s.pressScale) {
        // Delivered as the window delivers it, in the units of the picture now on screen (and
        // untouched when nothing redrew, where the round trip would not give them back exactly).
        std::tie(e.x, e.y) = InScaleOf(now, s.pressScale, e.x, e.y);
    }
    if (kind == MouseEvent::Kind::Release)
        s.heldButtons &= ~button;
    Disegno_Mouse(s.p, e);
    return true;
}

// A click is a press and a release; a double click, the click before it, then its own event
// and release.
bool Click(Session &s, const ScriptArgs &a, bool twice) {
    for (MouseEvent::Kind kind : {MouseEvent::Kind::Press, MouseEvent::Kind::Release})
        if (!Mouse(s, a, kind))
            return false;
    if (twice) {
        Mouse(s, a, MouseEvent::Kind::DoubleClick);
        Mouse(s, a, MouseEvent::Kind::Release);
    }
    return true;
}

bool ClickNode(Session &s, const ScriptArgs &a) {
    const Program &p = s.p;
    const StructureModel &m = p.model;
    for (int i = 0; i < m.nodeCount; ++i) {
        const Node &n = m.nodes[i];
        if (std::to_string(n.name) == a.text[0] && IsLive(n) && p.view.nodeShown[i]) {
            MouseEvent click{.button = kLeftButton,
                             .x = ProjectedXOf(p.view, n.pointIndex),
                             .y = ProjectedYOf(p.view, n.pointIndex)};
            for (MouseEvent::Kind kind : {MouseEvent::Kind::Press, MouseEvent::Kind::Release}) {
                click.kind = kind;
                Disegno_Mouse(s.p, click);
            }
            return true;
        }
    }
    return false;
}

// As when the user resizes the window: the new layout, then the picture drawn again on the
// surface at its new size.
bool Resize(Session &s, const ScriptArgs &a) {
    s.p.form.width = a.number[0];
    s.p.form.height = a.number[1];
    LayOutForm(s.p);
    s.host.Sync(s.p);
    RedrawView(s.p);
    return true;
}

// An icon-bar key first; the form's push buttons have other names.
bool Button(Session &s, const ScriptArgs &a) {
    const bool onBar = IsToolbarButton(a.text[0]);
    if (!onBar && !IsCommandButton(a.text[0]))
        return false;
    if (!(onBar ? RunToolbarButton(s.p, a.text[0]) : RunCommandButton(s.p, a.text[0])))
        s.out << "ignored|button " << Cp1252ToUtf8(a.text[0]) << '\n';
    return true;
}

// ---- an open dialog

bool DialogClick(DialogLine &d, std::string_view name, const char *verb) {
    Control *c = d.dialog.Find(name);
    if (!c)
        return false;
    if (!c->enabled) {
        d.session.out << "ignored|" << verb << Cp1252ToUtf8(name) << '\n';
        return true;
    }
    d.dialog.Click(name);
    return true;
}

bool DialogCheck(DialogLine &d, const ScriptArgs &a) {
    Control *c = d.dialog.Find(a.text[0]);
    bool on = false;
    if (!c || !Flag01(a.text[1], on))
        return false;
    if (!c->enabled) {
        d.session.out << "ignored|check " << Cp1252ToUtf8(a.text[0]) << '\n';
        return true;
    }
    if (c->checked != on) { // a click that changes the state, then the button's release
        c->checked = on;
        d.dialog.Click(a.text[0]);
        d.dialog.MouseUp(a.text[0]);
    }
    return true;
}

bool DialogOption(DialogLine &d, const ScriptArgs &a) {
    Control *c = d.dialog.Find(a.text[0]);
    if (!c)
        return false;
    if (!c->enabled) {
        d.session.out << "ignored|option " << Cp1252ToUtf8(a.text[0]) << '\n';
        return true;
    }
    c->checked = true;
    d.dialog.Click(a.text[0]);
    return true;
}

template <typename Target>
bool RunLine(const std::vector<Verb<Target>> &verbs, Target &target, std::string_view line) {
    auto [word, rest] = SplitVerb(line);
    for (const Verb<Target> &v : verbs) {
        if (word != v.name)
            continue;
        auto args = ParseArgs(rest, v.args);
        return args && v.run(target, *args);
    }
    return false;
}

template <typename Target>
void AppendTable(std::string &out, const std::vector<Verb<Target>> &verbs) {
    out += "| line | effect |\n|---|---|\n";
    for (const Verb<Target> &v : verbs)
        out += std::string("| ") + v.usage + " | " + v.effect + " |\n";
}

constexpr ArgRule kWord{ArgKind::Word};
constexpr ArgRule kNumber{ArgKind::Number};
constexpr ArgRule kOptionalInteger{ArgKind::Integer, true};
constexpr ArgRule kOptionalNumber{ArgKind::Number, true};
constexpr ArgRule kText{ArgKind::Text};
constexpr ArgRule kOptionalText{ArgKind::Text, true};

} // namespace

std::pair<std::string_view, std::string_view> SplitVerb(std::string_view line) {
    line = SkipSpaces(line);
    std::size_t end = 0;
    while (end < line.size() && !IsSpace(line[end]))
        ++end;
    return {line.substr(0, end), line.substr(end)};
}

std::optional<ScriptArgs> ParseArgs(std::string_view rest, std::span<const ArgRule> rules) {
    ScriptArgs args;
    for (const ArgRule &rule : rules) {
        rest = SkipSpaces(rest);
        if (rule.kind == ArgKind::Text) {
            std::string_view text = rest;
            while (!text.empty() && IsSpace(text.back()))
                text.remove_suffix(1);
            if (text.empty() && !rule.optional)
                return std::nullopt;
            if (!text.empty()) {
                args.text.emplace_back(text);
                args.number.push_back(0);
            }
            return args;
        }
        auto [word, after] = SplitVerb(rest);
        if (word.empty()) {
            if (rule.optional)
                break;
            return std::nullopt;
        }
        double value = 0;
        if (rule.kind != ArgKind::Word) {
            auto v = rule.kind == ArgKind::Integer ? IntegerOf(word) : StrictNumber(word);
            if (!v || !std::isfinite(*v))
                return std::nullopt;
            value = *v;
        }
        args.text.emplace_back(word);
        args.number.push_back(value);
        rest = after;
    }
    if (!SkipSpaces(rest).empty())
        return std::nullopt;
    return args;
}

const std::vector<Verb<Session>> &WindowVerbs() {
    static const std::vector<Verb<Session>> verbs = {
        {"dump",
         "`dump WHAT`",
         "`folders`, `options`, `model`, `controls`, `view`, `connection`, `buffers`, "
         "`whynot NAME`, `nearmisses`, `review` or `nodecolours`: the state as text (formats "
         "below)",
         {kWord, ArgRule{ArgKind::Word, true}},
         Dump},
        {"set",
         "`set CONTROL TEXT`",
         "the text of a text box: `set Angolo(1) 45`, `set IntX(0) 3`, `set Risposta 1,2,5-8`; "
         "a tolerance box takes its value at once, as leaving it does: `set TolAngoli 2`",
         {kWord, kOptionalText},
         [](Session &s, const ScriptArgs &a) {
             Control *box = FindControl(s.p.form, a.text[0]);
             if (!SetText(s.out, box, a))
                 return false;
             // The window takes a tolerance when its box is left, a script when it is set.
             if (box->enabled && (box == &s.p.form.TolAngoli || box == &s.p.form.TolLunghezze))
                 Tolleranza_Change(s.p);
             return true;
         }},
        {"check",
         "`check CONTROL 0\\|1`",
         "a check box: `check analLun 0`",
         {kWord, kWord},
         [](Session &s, const ScriptArgs &a) {
             Control *c = FindControl(s.p.form, a.text[0]);
             bool on = false;
             if (!c || !Flag01(a.text[1], on))
                 return false;
             c->checked = on;
             return true;
         }},
        {"option",
         "`option OpzMetodo(I)`",
         "selects one of the four analogy methods, I = 0..3",
         {kWord},
         Option},
        {"key",
         "`key Enter` / `key Esc` / `key Left`",
         "Enter in the answer line `Risposta`; Esc on the window; `Left`, `Right`, `Up`, `Down`, "
         "`PageUp`, `PageDown`, `Home` on the drawing",
         {kWord},
         KeyVerb},
        {"down",
         "`down X Y [BUTTON [SHIFT]]`",
         "mouse press on the drawing `Disegno`, X and Y in drawing units; BUTTON 1 left "
         "(default), 2 right, 4 middle; SHIFT 1 shift, 2 ctrl, 4 alt",
         {kNumber, kNumber, kOptionalInteger, kOptionalInteger},
         [](Session &s, const ScriptArgs &a) { return Mouse(s, a, MouseEvent::Kind::Press); }},
        {"up",
         "`up X Y [BUTTON [SHIFT]]`",
         "mouse release on the drawing",
         {kNumber, kNumber, kOptionalInteger, kOptionalInteger},
         [](Session &s, const ScriptArgs &a) { return Mouse(s, a, MouseEvent::Kind::Release); }},
        {"move",
         "`move X Y [BUTTONS [SHIFT]]`",
         "mouse move on the drawing, BUTTONS the buttons held (a sum of 1, 2, 4; none by "
         "default)",
         {kNumber, kNumber, kOptionalInteger, kOptionalInteger},
         [](Session &s, const ScriptArgs &a) { return Mouse(s, a, MouseEvent::Kind::Move); }},
        {"click",
         "`click X Y [BUTTON [SHIFT]]`",
         "press and release on the drawing",
         {kNumber, kNumber, kOptionalInteger, kOptionalInteger},
         [](Session &s, const ScriptArgs &a) { return Click(s, a, false); }},
        {"dblclick",
         "`dblclick X Y [BUTTON [SHIFT]]`",
         "double click on the drawing",
         {kNumber, kNumber, kOptionalInteger, kOptionalInteger},
         [](Session &s, const ScriptArgs &a) { return Click(s, a, true); }},
        {"clicknode",
         "`clicknode NAME`",
         "a left click at the projected position of the first live, shown node with that name",
         {kWord},
         ClickNode},
        {"label",
         "`label K`",
         "a click on the bar-type label `LabelTipo(K)` of the base-node schema, K = 1..30",
         {ArgRule{ArgKind::Integer}},
         [](Session &s, const ScriptArgs &a) {
             if (a.Int(0) < 1 || a.Int(0) >= static_cast<int>(s.p.form.LabelTipo.size()))
                 return false;
             LabelTipo_Click(s.p, a.Int(0));
             return true;
         }},
        {"wheel",
         "`wheel N [X Y [SHIFT]]`",
         "N wheel steps on the drawing (positive zooms in) about its centre; with Ctrl (SHIFT 2) "
         "about the point X Y",
         {ArgRule{ArgKind::Integer}, kOptionalNumber, kOptionalNumber, kOptionalInteger},
         Wheel},
        {"resize",
         "`resize W H`",
         "the window's outer size in twips (15 twips per pixel at 96 dpi); the picture is drawn "
         "again at the new size",
         {kNumber, kNumber},
         Resize},
        {"button",
         "`button KEY`",
         "an icon-bar button by its key, e.g. `button Zoom`, or a side-bar button: `TuttoX`, "
         "`TuttoY`, `TuttoZ`",
         {kWord},
         Button},
        {"answer",
         "`answer OK` / `answer Cancel`",
         "queues the answer of the next question",
         {kWord},
         [](Session &s, const ScriptArgs &a) { return Answer(s.ui, a); }},
        {"savefile",
         "`savefile PATH INDEX` / `savefile cancel`",
         "queues the choice of the next save dialog: the file (blanks allowed) and its type, 1 "
         "drawing (.dis), 2 DXF; nothing queued counts as cancel",
         {kText},
         SaveFileChoice},
        {"colour",
         "`colour R G B` / `colour cancel`",
         "queues the answer of the next colour chooser (R, G, B = 0..255); nothing queued counts "
         "as cancel",
         {kWord, ArgRule{ArgKind::Word, true}, ArgRule{ArgKind::Word, true}},
         [](Session &s, const ScriptArgs &a) { return Colour(s.ui, a); }},
        {"pickbox",
         "`pickbox TEXT`",
         "queues the text typed in the next pick-box dialog (`Trappola`), which then closes with "
         "\"Chiudi\"; without one the dialog takes the next lines",
         {kOptionalText},
         [](Session &s, const ScriptArgs &a) {
             s.ui.pickBoxTexts.push_back(a.Has(0) ? a.text[0] : "");
             return true;
         }},
        {"screenshot",
         "`screenshot FILE.png`",
         "saves a picture of the window as drawn",
         {kText},
         [](Session &s, const ScriptArgs &a) {
             s.host.Sync(s.p);
             return s.host.Screenshot(s.p, Cp1252ToUtf8(a.text[0]));
         }},
    };
    return verbs;
}

const std::vector<Verb<DialogLine>> &DialogVerbs() {
    static const std::vector<Verb<DialogLine>> verbs = {
        {"set",
         "`set CONTROL TEXT`",
         "the text of one of the dialog's text boxes; `set ListaTipi K` selects row K of the "
         "types, `set ListaQuasi K` near miss K (the view is centred on it), `set Schede K` tab "
         "K, `set Righe K` row K of the review (the view is centred on its node)",
         {kWord, kOptionalText},
         [](DialogLine &d, const ScriptArgs &a) {
             Control *c = d.dialog.Find(a.text[0]);
             if (!SetText(d.session.out, c, a))
                 return false;
             // Choosing a row of a list is a click on it, as in the window.
             if (c->enabled && (!c->items.empty() || d.dialog.Table(a.text[0])))
                 d.dialog.Click(a.text[0]);
             return true;
         }},
        {"check",
         "`check CONTROL 0\\|1`",
         "a check box: a user's click (with its release) when the state differs, nothing "
         "otherwise; `check Tenuto(K) 0` takes the node of the review's row K out of the list, "
         "`1` offers it again",
         {kWord, kWord},
         DialogCheck},
        {"option",
         "`option NAME`",
         "selects an option button: `option EvColNonSel`",
         {kWord},
         DialogOption},
        {"button",
         "`button NAME`",
         "presses a button: `Salva`, `Chiudi`, `Command1`..`Command4` (FormOpt), `Command1` "
         "(FormOptInt), `Usa`, `EsportaCSV` (FormTipiNodo), `Chiudi` (FormPercheNo, "
         "FormComandi, FormInformazioni), `EsportaCSV`, `Chiudi` (FormRevisione)",
         {kWord},
         [](DialogLine &d, const ScriptArgs &a) { return DialogClick(d, a.text[0], "button "); }},
        {"click",
         "`click LabelCol(I)`",
         "a click on text colour swatch I = 1..9",
         {kWord},
         [](DialogLine &d, const ScriptArgs &a) {
             return IndexOf(a.text[0], "LabelCol", 1, 9) && DialogClick(d, a.text[0], "click ");
         }},
        {"key",
         "`key Esc`",
         "closes the dialog without taking anything over",
         {kWord},
         [](DialogLine &d, const ScriptArgs &a) {
             if (a.text[0] != "Esc")
                 return false;
             d.dialog.Escape();
             return true;
         }},
        {"dump",
         "`dump controls` / `dump nodetypes` / `dump rows` / `dump review`",
         "the dialog's controls in the format of the window's, then `FormOpt.caption=` (or "
         "`FormOptInt.caption=`, `FormTipiNodo.caption=`, `FormPercheNo.caption=`, "
         "`FormComandi.caption=`, `FormInformazioni.caption=`, `FormRevisione.caption=`); in "
         "\"Tipi di nodo\", one line per type: `type K nodes=C bars=B head=NAME "
         "members=RANGE`, and within tolerances ` dev=DEG/PCT`, the largest deviation of a "
         "member from the head; in `FormPercheNo`, the rows of its two lists: "
         "`Confronto(K)=CELLS`, `ListaQuasi(R)=CELLS`, and in `FormComandi` the gestures and "
         "keys: `ListaComandi(R)=GESTURE\\|EFFECT`, the cells separated by `\\|`; in "
         "`FormRevisione`, one `review` line per row, `kept=0` for a row unticked",
         {kWord},
         [](DialogLine &d, const ScriptArgs &a) {
             if (a.text[0] != "controls")
                 return d.dialog.Dump(a.text[0], d.session.out);
             DumpDialogControls(d.dialog, d.session.out);
             return true;
         }},
        {"savefile",
         "`savefile PATH INDEX` / `savefile cancel`",
         "as in the window: for `EsportaCSV` (FormTipiNodo, FormRevisione), INDEX 1",
         {kText},
         [](DialogLine &d, const ScriptArgs &a) { return SaveFileChoice(d.session, a); }},
        {"answer",
         "`answer OK` / `answer Cancel`",
         "as in the window",
         {kWord},
         [](DialogLine &d, const ScriptArgs &a) { return Answer(d.session.ui, a); }},
        {"colour",
         "`colour R G B` / `colour cancel`",
         "as in the window: for the `Modifica` buttons",
         {kWord, ArgRule{ArgKind::Word, true}, ArgRule{ArgKind::Word, true}},
         [](DialogLine &d, const ScriptArgs &a) { return Colour(d.session.ui, a); }},
        {"screenshot",
         "`screenshot FILE.png`",
         "saves a picture of the dialog",
         {kText},
         [](DialogLine &d, const ScriptArgs &a) {
             return d.session.host.Screenshot(d.dialog, Cp1252ToUtf8(a.text[0]));
         }},
    };
    return verbs;
}

bool RunWindowLine(ScriptSession &s, std::string_view line) {
    auto [word, rest] = SplitVerb(line);
    // A menu item by its name, alone on its line.
    if (SkipSpaces(rest).empty() && IsMenuItem(word)) {
        if (!RunMenuItem(s.p, word))
            s.out << "ignored|" << Cp1252ToUtf8(word) << '\n';
        return true;
    }
    return RunLine(WindowVerbs(), s, line);
}

bool RunDialogLine(ScriptSession &s, Dialog &dialog, std::string_view line) {
    DialogLine target{s, dialog};
    return RunLine(DialogVerbs(), target, line);
}

std::string ScriptLanguageTables() {
    std::string out;
    AppendTable(out, WindowVerbs());
    out +=
        "| `NAME` | a menu item by its name, e.g. `Ottimizza`, `NodoBase`, `Rosso`, `ScriColl` |\n";
    out += "\nWhile a dialog (`FormOpt`, `FormOptInt`, `FormTipiNodo`, `FormPercheNo`, "
           "`FormComandi`, `FormInformazioni`, `FormRevisione`) is open, the lines act on it "
           "until it closes:\n\n";
    AppendTable(out, DialogVerbs());
    return out;
}

} // namespace vorna
