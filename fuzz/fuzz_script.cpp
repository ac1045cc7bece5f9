// Fuzz target: the script runner on the demo job, with scripts made of the language's own verbs,
// menu items, buttons and controls, their arguments at and past their limits, and random bytes.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/script_runner.h"
#include "app/script_verbs.h"
#include "demo_building.h"
#include "options/form_opt.h"
#include "platform/silent_ui.h"
#include "platform/write_faults.h"
#include "stroke_font_builder.h"
#include "suite_files.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using vorna::ArgKind;
using vorna::ArgRule;

// The demo suite, written once per process into a fresh folder and removed at the end.
struct Suite {
    fs::path root;
    std::string commandLine;
    Suite() {
        // A lower-case name, as the program spells the root: a name it has to look up case by
        // case would cost every run a scan of the temporary folder.
        root = fs::temp_directory_path() / ("vorna-fuzz-script-" + std::to_string(::getpid()));
        std::error_code ignored;
        fs::remove_all(root, ignored);
        if (!vorna::tools::WriteSuite(root, vorna::tools::DemoBuilding(), std::nullopt).empty())
            std::abort();
        // Without the Hershey fonts the program starts without labels: still worth fuzzing.
        (void)vorna::tools::WriteStrokeFont(root / "progra" / "font.001");
        commandLine = "|diroot=" + root.string() + "|";
    }
    // "VornaNIn.txt" with the connection type code that decides how base bars are typed; the
    // file is written again only when the code changes.
    void UseConnectionType(int code) {
        if (code == connectionType)
            return;
        const std::string text = "Giunto di prova\r\n" + std::to_string(code) +
                                 "\r\n3\r\nCO  Colonna\r\nTR  Trave\r\nDI  Diagonale\r\n";
        const fs::path file =
            root / "lavori" / std::string(vorna::tools::kJobName) / "VornaNIn.txt";
        if (!vorna::tools::WriteBytes(file, text).empty())
            std::abort();
        connectionType = code;
    }
    int connectionType = 0; // the demo's own file until the first input
    ~Suite() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
    Suite(const Suite &) = delete;
    Suite &operator=(const Suite &) = delete;
};

// The names the language knows: menu items, icon-bar keys, the window's and the dialogs'
// controls, and the words some verbs take.
struct Words {
    std::vector<std::string> menuItems, buttonKeys, controls, dialogControls;
    std::vector<std::string> words = {
        "folders", "options", "model", "controls",     "view",   "connection", "buffers",
        "OK",      "Cancel",  "Enter", "Esc",          "cancel", "0",          "1",
        "18",      "30",      "-1",    "OpzMetodo(2)", "32001"};
    Words() {
        for (const vorna::FormRow &row : vorna::FormVornaRows()) {
            if (row.kind == vorna::RowKind::MenuItem)
                menuItems.emplace_back(row.name);
            else if (row.kind == vorna::RowKind::Button)
                buttonKeys.emplace_back(row.name);
        }
        vorna::FormVorna form = vorna::InitialForm();
        vorna::ForEachControl(
            form, [&](std::string_view n, vorna::Control &) { controls.emplace_back(n); });
        vorna::DisplayOptions display;
        vorna::InternalOptions internal;
        vorna::SilentUi ui;
        vorna::FormOptDialog opt(display, "", ui);
        vorna::FormOptIntDialog optInt(internal, ui);
        for (vorna::Dialog *d : std::array<vorna::Dialog *, 2>{&opt, &optInt})
            d->ForEachControl(
                [&](std::string_view n, vorna::Control &) { dialogControls.emplace_back(n); });
    }
};

// The fuzzer's bytes read as a sequence of choices; zeros once they run out.
struct Choices {
    const std::uint8_t *data;
    std::size_t size;
    std::size_t pos = 0;
    bool Done() const { return pos >= size; }
    unsigned Byte() { return pos < size ? data[pos++] : 0; }
    unsigned TwoBytes() {
        const unsigned high = Byte();
        return high << 8 | Byte();
    }
    std::size_t Pick(std::size_t n) { return n == 0 ? 0 : TwoBytes() % n; }
    template <typename T> const T &Of(const std::vector<T> &v) { return v[Pick(v.size())]; }
    // Up to max raw bytes, ending before a line end.
    std::string Raw(std::size_t max) {
        std::string out;
        while (out.size() < max && !Done()) {
            const char c = static_cast<char>(Byte());
            if (c == '\n')
                break;
            out += c;
        }
        return out;
    }
};

const std::vector<std::string> kNumbers = {
    "0",    "1",     "-1",     "0.5",    "100",    "600",        "-250.5", "1800", "1e9",
    "-1e9", "1e300", "-1e300", "1e-300", "3.5e38", "2147483648", "1e18",   "-0",   "5000"};
const std::vector<std::string> kIntegers = {
    "0",  "1",  "2",     "3",     "4",         "5",          "7",     "8",     "30",
    "31", "-1", "32767", "32768", "999999999", "-999999999", "65535", "-32769"};
const std::vector<std::string> kTexts = {
    "1,2,5-8",  "30",  "45",  "-45",       "1-65535", "0",   "1e308",  "1-32000",
    "18,19,31", "3-1", ",,,", "1,4-7,,9-", "90",      "360", "-1e308", "nan"};

// Short runs of lines that reach the deeper states: a base node, a search, a selection by window,
// name or constraint card, navigation, labels on, a drawing saved.
const std::vector<std::string> kScenes = {
    "NodoBase\nclicknode 18",
    "NodoBase\nclicknode 13",
    "Aggiungi\nTuttiCol",
    "Aggiungi\nFinestra\ndown -5000 -5000\nup 5000 5000",
    "AsteNodoBase\nFinestra\ndown -100 -100\nup 100 100",
    "Rimuovi\nNome\nset Risposta 30\nkey Enter",
    "Aggiungi\nSchVincolo\nset Risposta 1\nkey Enter",
    "Aggiungi\nTipoPt1",
    "AsteNodoBase\nclicknode 17",
    "EvidTipo\nclicknode 19",
    "ZoomIn\nclick -500 -500\nclick 500 500",
    "Sposta\nclick 0 0\nclick 300 100",
    "down 0 0 4\nmove 300 300 4\nup 300 300 4",
    "dblclick 0 0 4",
    "savefile drawing.dis 1\nSalvaDisegno",
    "savefile drawing.dxf 2\nSalvaDisegno",
    "Rappresentazione\ncheck CheckTxtNodi 1\ncheck CheckTxtAste 1\nbutton Chiudi\nRidis",
    "pickbox 0\nTrappola",
    "label 1\nlabel 2\nlabel 3",
    "RimTutto\nanswer Cancel\nRimNodoBase",
};

std::string Argument(Choices &in, const Words &w, const ArgRule &rule) {
    switch (in.Byte() % 8) {
    case 0: // random bytes in place of the argument
        return in.Raw(12);
    case 1: // a number made of the input's own bits
        return std::to_string(static_cast<std::int16_t>(in.TwoBytes()));
    default:
        break;
    }
    switch (rule.kind) {
    case ArgKind::Word:
        return in.Byte() % 2 ? in.Of(w.words)
                             : in.Of(in.Byte() % 2 ? w.controls : w.dialogControls);
    case ArgKind::Number:
        return in.Of(kNumbers);
    case ArgKind::Integer:
        return in.Of(kIntegers);
    case ArgKind::Text:
        break;
    }
    return in.Of(kTexts);
}

template <typename Target>
std::string VerbLine(Choices &in, const Words &w, const std::vector<vorna::Verb<Target>> &verbs) {
    const vorna::Verb<Target> &v = verbs[in.Pick(verbs.size())];
    std::string line = v.name;
    // "set" and "check" name a control first; the rest is as the row says.
    for (std::size_t k = 0; k < v.args.size(); ++k) {
        if (v.args[k].optional && in.Byte() % 3 == 0)
            break;
        line += ' ';
        const std::string_view name = v.name;
        line += k == 0 && (name == "set" || name == "check")
                    ? in.Of(in.Byte() % 2 ? w.controls : w.dialogControls)
                    : Argument(in, w, v.args[k]);
    }
    return line;
}

std::string Script(Choices &in, const Words &w) {
    std::string script;
    for (int lines = 0; lines < 64 && !in.Done(); ++lines) {
        switch (in.Byte() % 11) {
        case 0:
        case 1:
            script += in.Of(w.menuItems);
            break;
        case 2:
            script += "button " + in.Of(w.buttonKeys);
            break;
        case 3:
            script += "clicknode " + std::to_string(in.Byte() % 56);
            break;
        case 4:
        case 5:
            script += VerbLine(in, w, vorna::WindowVerbs());
            break;
        case 6:
        case 7:
            script += VerbLine(in, w, vorna::DialogVerbs());
            break;
        case 8: // a real verb with random bytes after it
            script += vorna::WindowVerbs()[in.Pick(vorna::WindowVerbs().size())].name;
            script += ' ' + in.Raw(24);
            break;
        case 9:
            script += in.Of(kScenes);
            break;
        default:
            script += in.Raw(48);
            break;
        }
        script += in.Byte() % 16 == 0 ? "\r\n" : "\n";
    }
    return script;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static Suite suite;
    static const Words words;
    Choices in{data, size};
    // The first byte: where a write fails, the connection type, and whether the rest is a script
    // as it stands (so that real scripts can seed the corpus) or choices of the grammar above.
    const unsigned first = in.Byte();
    const unsigned step = first % 3;
    suite.UseConnectionType(1 + static_cast<int>((first >> 2) % 18));
    // Nothing is ever written: the suite stays as it was for the next input, and a path in a
    // script cannot reach the disk. Inside the suite a write fails at the step chosen.
    vorna::WriteFaults faults{[&](vorna::WriteStep s, const fs::path &target) {
        const bool inSuite =
            target.lexically_normal().string().starts_with(suite.root.string() + "/");
        return !inSuite || static_cast<unsigned>(s) >= step;
    }};
    vorna::ScopedWriteFaults installed(faults);
    const std::string script = first >= 0x80
                                   ? std::string(reinterpret_cast<const char *>(data) + 1, size - 1)
                                   : Script(in, words);
    const fs::path file = suite.root / "fuzz.script";
    if (!vorna::tools::WriteBytes(file, script).empty())
        std::abort();
    std::ostringstream out;
    const int status = vorna::RunScript(file, suite.commandLine, out);
    if (status < 0 || status > 2)
        std::abort();
    return 0;
}
