// Every reader under mutation: the demo job's input files cut, flipped, with lines doubled or
// dropped, huge numbers, NUL bytes and bare CRs, each run through the whole program headless.
// Every run must end soon with status 0, 1 or 2 and print only messages the program can give.
#include "app/script_runner.h"
#include "e2e_support.h"

#include <chrono>
#include <malloc.h>
#include <random>
#include <sstream>

namespace vorna {
namespace {

namespace fs = std::filesystem;

// The files the program reads at start-up, below the suite root.
const std::array<const char *, 7> kInputs = {"lavori/demo01/STRUTTUR.STR",
                                             "lavori/demo01/sezioni_",
                                             "lavori/demo01/spessori",
                                             "lavori/demo01/VornaNIn.txt",
                                             "custom/VorNOpzi.txt",
                                             "custom/VorOpInt.txt",
                                             "progra/font.001"};

// A message the program can give: its title, icon and text, or the text's start and end around
// the file name it carries.
struct KnownMessage {
    std::string title;
    int icon;
    std::string start;
    std::string end;
};

const std::vector<KnownMessage> &KnownMessages() {
    static const std::vector<KnownMessage> known = {
        // Start-up, options, structure file, catalogues, stroke font, connection input.
        {"ERRORE", 16, "Avvio del programma: argomento non presente", ""},
        {"ERRORE", 48, "Errore: file ", "\\impostazioni\\dirlav errato o mancante"},
        {"ERRORE", 48, "Errore: file ", "\\impostazioni\\lavoro errato o mancante"},
        {"ERRORE", 48, "Errore: il direttorio dei lavori deve terminare con < \\lavori >", ""},
        {"Problema", 16, " Impossibile leggere il file ", "\\spessori"},
        {"Problema", 16, " Impossibile leggere il file ", "\\sezioni_"},
        {"Problema", 16, " Troppe schede di spessore ", ""},
        {"Problema", 16, " Troppe schede di sezione ", ""},
        {"Problema", 16, "Errore nella lettura della struttura", ""},
        {"Attenzione", 16,
         "Versione 3.8 o precedente. Caricare e risalvare la struttura in 'Telaris'", ""},
        {"ERRORE IN STRUTTUR.STR", 48, "Nome nodo maggiore di 32000.", ""},
        {"ERRORE", 16, "File ", "\\font.001 inesistente!"},
        {"ERRORE", 16, "Errore in lettura del file ", "\\font.001 !"},
        {"Problema", 16, " Numero eccessivo di tipi asta ", ""},
        // The commands of the script below: base node, search, selection, hand-back.
        {"INFORMAZIONE", 48, " Numero eccessivo di potenziali aste base ", ""},
        {"Problema", 48, " Numero eccessivo di potenziali aste base ", ""},
        {"INFORMAZIONE", 0, " Questa operazione cancellerà tutti i nodi analoghi selezionati ", ""},
        {"ERRORE", 48, " La stringa di selezione comprende troppi elementi ", ""},
        {"Problema", 16, " Non è possibile scrivere il file di uscita ", ""},
        {"INFORMAZIONE", 48, " Opzioni salvate ", ""},
        {"INFORMAZIONE", 48, " Problemi nel salvataggio delle opzioni ", ""},
    };
    return known;
}

bool IsKnownMessage(std::string_view line) {
    for (const KnownMessage &m : KnownMessages()) {
        const std::string head = "message|" + m.title + '|' + std::to_string(m.icon) + '|';
        if (m.end.empty() ? line == head + m.start
                          : line.size() >= head.size() + m.start.size() + m.end.size() &&
                                line.starts_with(head + m.start) && line.ends_with(m.end))
            return true;
    }
    return false;
}

// What the dumps print, and what the runner says of a disabled command or a node that the
// mutated structure no longer holds.
bool IsDumpOrRunnerLine(std::string_view line) {
    for (std::string_view start :
         {"rootFolder=",   "jobsFolder=",   "jobName=",     "jobFolder=",         "programsFolder=",
          "customFolder=", "display ",      "internal ",    "model points=",      "point ",
          "node ",         "bar ",          "shell ",       "section ",           "thickness ",
          "angles=",       "zoomWindow=",   "shownWindow=", "viewScale=",         "baseNode=",
          "baseBars=",     "baseBarTypes=", "record ",      "analogousListText=", "ignored|"})
        if (line.starts_with(start))
            return true;
    return line == "error|clicknode 18" || line == "error|label 1";
}

// One of the ways the demo job's files get damaged, applied at a random place.
void Mutate(std::string &bytes, std::mt19937 &rng) {
    const auto at = [&](std::size_t size) { return size == 0 ? 0 : rng() % (size + 1); };
    // The line around a random place: [start, end), its line end included.
    const auto line = [&](std::size_t &start, std::size_t &end) {
        const std::size_t place = at(bytes.size());
        const std::size_t before = place == 0 ? std::string::npos : bytes.rfind('\n', place - 1);
        start = before == std::string::npos ? 0 : before + 1;
        end = bytes.find('\n', start);
        end = end == std::string::npos ? bytes.size() : end + 1;
    };
    std::size_t start = 0, end = 0;
    switch (rng() % 7) {
    case 0: // cut short
        bytes.resize(at(bytes.size()));
        break;
    case 1: // bytes changed
        for (int k = 0, n = 1 + static_cast<int>(rng() % 8); k < n && !bytes.empty(); ++k)
            bytes[rng() % bytes.size()] = static_cast<char>(rng());
        break;
    case 2: // a line doubled
        line(start, end);
        bytes.insert(start, bytes.substr(start, end - start));
        break;
    case 3: // a line dropped
        line(start, end);
        bytes.erase(start, end - start);
        break;
    case 4: { // a number made huge, tiny or out of range
        static const std::array<const char *, 10> kHuge = {
            "99999999999999999999", "1e308",  "-1e308", "32768", "-32769",
            "2147483648",           "1e-320", "65536",  "1e999", "-0.000000000000000000001"};
        const std::size_t digit = bytes.find_first_of("0123456789", at(bytes.size()));
        if (digit == std::string::npos)
            break;
        const std::size_t after = bytes.find_first_not_of("0123456789.", digit);
        bytes.replace(digit, (after == std::string::npos ? bytes.size() : after) - digit,
                      kHuge[rng() % kHuge.size()]);
        break;
    }
    case 5: // NUL bytes
        for (int k = 0, n = 1 + static_cast<int>(rng() % 4); k < n; ++k)
            bytes.insert(at(bytes.size()), 1, '\0');
        break;
    default: // line ends that are a CR alone
        for (std::size_t p = bytes.find("\r\n"); p != std::string::npos;
             p = bytes.find("\r\n", p + 1))
            if (rng() % 3 == 0)
                bytes.erase(p + 1, 1);
        break;
    }
}

// A short session over everything the readers filled: the model and view, a base node, the
// analogy search with the bar types, and a hand-back of the result.
std::string Script(std::mt19937 &rng) {
    static const std::array<const char *, 4> kEnds = {
        "ScriColl\n", "Salva\n", "Rappresentazione\nbutton Salva\nbutton Chiudi\nEsci\n", "Esci\n"};
    return std::string("dump options\ndump model\ndump view\nOttimizza\nwheel 2\nRidis\n"
                       "NodoBase\nclicknode 18\nlabel 1\nAggiungi\nTuttiCol\nTutto\n"
                       "Rimuovi\nNome\nset Risposta 1-40000\nkey Enter\ndump connection\n") +
           kEnds[rng() % kEnds.size()];
}

TEST(ReadersUnderMutation, TheWholeProgramEndsWithAKnownStatusAndKnownMessages) {
    // Each run allocates the program's tables at full capacity (some 3 MB) and frees them at its
    // end; kept by the allocator rather than given back, they cost the next run no page faults.
    mallopt(M_MMAP_THRESHOLD, 16 << 20);
    mallopt(M_TRIM_THRESHOLD, 64 << 20);
    test::DemoSuite suite;
    std::array<std::string, kInputs.size()> pristine;
    for (std::size_t f = 0; f < kInputs.size(); ++f)
        pristine[f] = test::ReadBytes(suite.root() / kInputs[f]);
    const std::string commandLine = "|diroot=" + suite.root().string() + "|";
    const fs::path script = suite.root() / "mutation.script";

    std::mt19937 rng(20240611);
    constexpr int kCases = 250;
    std::array<int, 3> statuses{};
    std::array<std::string, kInputs.size()> onDisk = pristine;
    for (int c = 0; c < kCases; ++c) {
        std::array<std::string, kInputs.size()> bytes = pristine;
        for (int n = 1 + static_cast<int>(rng() % 3); n > 0; --n) {
            std::string &file = bytes[rng() % bytes.size()];
            for (int m = 1 + static_cast<int>(rng() % 3); m > 0; --m)
                Mutate(file, rng);
        }
        // Only the files that differ from the last case are written, as new files: rewriting a
        // file in place makes the file system flush it at once.
        for (std::size_t f = 0; f < kInputs.size(); ++f) {
            if (bytes[f] == onDisk[f])
                continue;
            fs::remove(suite.root() / kInputs[f]);
            suite.Write(kInputs[f], bytes[f]);
            onDisk[f] = bytes[f];
        }
        fs::remove(script);
        suite.Write("mutation.script", Script(rng));
        for (const char *handedBack : {"Collegamenti.txt", "Dati_Coll_3D.txt", "VornaOut.txt"})
            fs::remove(suite.job() / handedBack);

        std::ostringstream out;
        const auto started = std::chrono::steady_clock::now();
        const int status = RunScript(script, commandLine, out);
        const auto took = std::chrono::steady_clock::now() - started;

        SCOPED_TRACE("case " + std::to_string(c));
        ASSERT_LT(took, std::chrono::seconds(5));
        ASSERT_TRUE(status >= 0 && status <= 2) << status;
        ++statuses[status];
        std::istringstream lines(out.str());
        for (std::string line; std::getline(lines, line);)
            ASSERT_TRUE(IsKnownMessage(line) || IsDumpOrRunnerLine(line)) << line;
    }
    // The mutations reach both the runs that end at start-up and the ones that go through.
    EXPECT_GT(statuses[0], kCases / 4);
    EXPECT_GT(statuses[1], 0);
}

} // namespace
} // namespace vorna
