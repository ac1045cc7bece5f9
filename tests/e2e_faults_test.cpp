// Faults on disk: a refused folder, a disk that fills during a write, a target that cannot be
// replaced, files that vanish or turn into folders after start-up. Each gives its message, and
// a file handed back to the suite is either as it was or replaced whole.
#include "app/program.h"
#include "app/script_runner.h"
#include "e2e_support.h"
#include "platform/plain_canvas.h"
#include "platform/write_faults.h"

#include <iostream>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace vorna {
namespace {

namespace fs = std::filesystem;

const std::string kCannotWrite =
    "message|Problema|16| Non è possibile scrivere il file di uscita \n";
const std::string kOptionsNotSaved =
    "message|INFORMAZIONE|48| Problemi nel salvataggio delle opzioni \n";
const std::string kOptionsSaved = "message|INFORMAZIONE|48| Opzioni salvate \n";

constexpr std::array<WriteStep, 3> kSteps = {WriteStep::Open, WriteStep::Write, WriteStep::Rename};

// The names in a folder, sorted: a temporary file left behind shows in them.
std::vector<std::string> FolderListing(const fs::path &folder) {
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Surfaces that draw nothing, and one change to the disk once start-up is over.
class ChangingHost : public ScriptHost {
public:
    explicit ChangingHost(std::function<void()> change) : change_(std::move(change)) {}
    Canvas &Disegno() override { return disegno_; }
    Canvas &Picture1() override { return picture1_; }
    void Sync(Program &p) override {
        disegno_.Resize(p.form.Disegno.width, p.form.Disegno.height);
        picture1_.Resize(p.form.Picture1.width, p.form.Picture1.height);
        if (p.structureLoaded && change_) {
            change_();
            change_ = nullptr;
        }
    }

private:
    PlainCanvas disegno_{10704, 8328};
    PlainCanvas picture1_{2100, 1500};
    std::function<void()> change_;
};

// The script run in this process on the suite; its printed lines (and its exit status).
std::string RunHere(const test::DemoSuite &suite, const std::string &script,
                    std::function<void()> afterStartUp = nullptr, int *status = nullptr) {
    suite.Write("faults.script", script);
    std::ostringstream out;
    ChangingHost host(std::move(afterStartUp));
    const int ended = RunScript(suite.root() / "faults.script",
                                "|diroot=" + suite.root().string() + "|", out, host);
    if (status != nullptr)
        *status = ended;
    return out.str();
}

// A hand-back and the files it writes, with the message a failed file gives.
struct HandBack {
    const char *script;
    const char *folder; // below the suite root
    std::vector<std::pair<std::string, std::string>> files;
};

const std::vector<HandBack> &HandBacks() {
    static const std::vector<HandBack> all = {
        {"NodoBase\nclicknode 18\nScriColl\n",
         "lavori/demo01",
         {{"Collegamenti.txt", kCannotWrite}, {"Dati_Coll_3D.txt", kCannotWrite}}},
        {"NodoBase\nclicknode 18\nSalva\n", "lavori/demo01", {{"VornaOut.txt", kCannotWrite}}},
        {"Rappresentazione\nbutton Salva\nbutton Chiudi\n",
         "custom",
         {{"VorNOpzi.txt", kOptionsNotSaved}}},
    };
    return all;
}

std::string OldText(const std::string &name) {
    return "an older " + name + " that must not lose a byte\r\n";
}

// Every step of every file of every hand-back fails once: the message is given, the status is 1
// and the file is as it was; the other files of the same hand-back are written whole.
TEST(DiskFaults, EachFailedHandBackFileGivesItsMessageAndKeepsItsBytes) {
    for (const HandBack &h : HandBacks()) {
        test::DemoSuite clean;
        RunHere(clean, h.script);
        for (const auto &[name, message] : h.files) {
            for (WriteStep step : kSteps) {
                SCOPED_TRACE(name + " step " + std::to_string(static_cast<int>(step)));
                test::DemoSuite suite;
                const fs::path folder = suite.root() / h.folder;
                for (const auto &file : h.files)
                    suite.Write((fs::path(h.folder) / file.first).string(), OldText(file.first));
                WriteFaults faults{[&](WriteStep s, const fs::path &target) {
                    return s == step && target.filename() == name;
                }};
                ScopedWriteFaults installed(faults);
                int status = -1;
                const std::string output = RunHere(suite, h.script, nullptr, &status);
                EXPECT_NE(output.find(message), std::string::npos) << output;
                if (message == kCannotWrite) {
                    EXPECT_EQ(status, 1);
                }
                for (const auto &[other, ignored] : h.files) {
                    const std::string bytes = test::ReadBytes(folder / other);
                    if (other == name)
                        EXPECT_EQ(bytes, OldText(other));
                    else
                        EXPECT_EQ(bytes, test::ReadBytes(clean.root() / h.folder / other));
                }
                EXPECT_EQ(FolderListing(folder), FolderListing(clean.root() / h.folder));
            }
        }
    }
}

// A drawing saved over an older one: the writers' own messages, and the old drawing kept.
TEST(DiskFaults, AFailedDrawingGivesItsMessageAndKeepsTheOldOne) {
    const std::array<std::pair<const char *, std::string>, 2> kinds = {
        {{"1", "message|ERRORE|0|Errore durante la scrittura sul file"},
         {"2", "message|ERRORE|16|ERRORE: non riesco ad aprire il file "}}};
    for (const auto &[index, message] : kinds)
        for (WriteStep step : kSteps) {
            test::DemoSuite suite;
            const fs::path drawing = suite.job() / "vista.dis";
            suite.Write("lavori/demo01/vista.dis", OldText("vista.dis"));
            WriteFaults faults{[&](WriteStep s, const fs::path &) { return s == step; }};
            ScopedWriteFaults installed(faults);
            const std::string output =
                RunHere(suite, "savefile " + drawing.string() + " " + index + "\nSalvaDisegno\n");
            EXPECT_NE(output.find(message + drawing.string() + "\n"), std::string::npos) << output;
            EXPECT_EQ(test::ReadBytes(drawing), OldText("vista.dis"));
        }
}

// A folder or file removed, or a file turned into a folder, once start-up is over. Where the
// hand-back fails, nothing is created beside the changed path, not even a temporary file.
TEST(DiskFaults, FoldersAndFilesThatChangeAfterStartUp) {
    struct Change {
        int handBack;
        const char *path; // below the suite root
        bool toFolder;    // else removed
        const std::string &message;
    };
    const Change changes[] = {
        {0, "lavori/demo01", false, kCannotWrite},
        {1, "lavori/demo01/VornaOut.txt", true, kCannotWrite},
        {2, "custom/VorNOpzi.txt", true, kOptionsNotSaved},
        {2, "custom", false, kOptionsNotSaved},
        {2, "custom/VorNOpzi.txt", false, kOptionsSaved}, // written anew
    };
    for (const Change &c : changes) {
        SCOPED_TRACE(c.path);
        test::DemoSuite suite;
        const fs::path path = suite.root() / c.path;
        std::vector<std::string> before;
        const std::string output = RunHere(suite, HandBacks()[c.handBack].script, [&] {
            fs::remove_all(path);
            if (c.toFolder)
                fs::create_directories(path / "kept");
            before = FolderListing(path.parent_path());
        });
        EXPECT_NE(output.find(c.message), std::string::npos) << output;
        if (&c.message == &kOptionsSaved)
            EXPECT_TRUE(fs::is_regular_file(path));
        else
            EXPECT_EQ(FolderListing(path.parent_path()), before);
        EXPECT_EQ(fs::is_directory(path / "kept"), c.toFolder);
    }
}

// Every input file turned into a folder, or into a pipe that nobody writes to, before start-up:
// each reader reports what a missing file gives, and the program still starts.
TEST(DiskFaults, InputFilesThatAreFoldersOrPipesReadAsMissing) {
    for (bool pipes : {false, true}) {
        test::DemoSuite suite;
        for (const char *name : {"lavori/demo01/STRUTTUR.STR", "lavori/demo01/sezioni_",
                                 "lavori/demo01/spessori", "lavori/demo01/VornaNIn.txt",
                                 "custom/VorNOpzi.txt", "custom/VorOpInt.txt", "progra/font.001"}) {
            const fs::path file = suite.root() / name;
            fs::remove(file);
            if (pipes)
                ASSERT_EQ(::mkfifo(file.c_str(), 0644), 0);
            else
                fs::create_directories(file);
        }
        const std::string output = RunHere(suite, "dump options\n");
        EXPECT_NE(output.find("message|Problema|16| Impossibile leggere il file "),
                  std::string::npos)
            << output;
        EXPECT_NE(output.find("\\font.001 inesistente!\n"), std::string::npos) << output;
        EXPECT_NE(output.find("message|Problema|16|Errore nella lettura della struttura\n"),
                  std::string::npos);
        EXPECT_NE(output.find("display 1=1\n"), std::string::npos); // the built-in defaults
    }
}

// A 2 GB structure file (sparse: no line end in it) whose first line has no "release" gets its
// one message at once, in little memory, whatever the size.
TEST(BoundedReading, AHugeStructureFileIsAnsweredAtOnce) {
    if (std::system("/usr/bin/time true 2>/dev/null") != 0)
        GTEST_SKIP() << "/usr/bin/time is missing (scripts/install-deps installs it)";
    test::DemoSuite suite;
    const fs::path structure = suite.job() / "STRUTTUR.STR";
    fs::remove(structure);
    ASSERT_EQ(std::system(("truncate -s 2G " + test::ShellQuoted(structure.string())).c_str()), 0);
    const fs::path measured = suite.root() / "measured.txt";
    const test::RunResult r = suite.RunWithPrefix(
        "dump model\n", suite.rootName(),
        "/usr/bin/time -o " + test::ShellQuoted(measured.string()) + " -f 'measured %e %M' ");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.output, "message|Attenzione|16|Versione 3.8 o precedente. Caricare e risalvare "
                        "la struttura in 'Telaris'\n");
    double seconds = 0, kilobytes = 0;
    // After the line that says the status was not 0.
    const std::string times = test::ReadBytes(measured);
    std::istringstream(times.substr(std::min(times.find("measured "), times.size()))).ignore(9) >>
        seconds >> kilobytes;
#if defined(__SANITIZE_ADDRESS__)
    // The sanitizers' shadow memory and checks; what the bound catches is the gigabytes.
    constexpr double kSlower = 4;
#else
    constexpr double kSlower = 1;
#endif
    EXPECT_GT(kilobytes, 0);
    EXPECT_LT(seconds, 3 * kSlower);
    EXPECT_LT(kilobytes, 200 * 1024 * kSlower);
    std::cout << "2 GB STRUTTUR.STR: " << seconds << " s, " << kilobytes / 1024 << " MB\n";
}

// The menu items and icon-bar keys, in the form's order.
std::vector<std::string> CommandNames() {
    // A table rather than a call a name: GCC 12 at -O3 sees a false overrun in that many
    // inlined emplace_back calls.
    static const char *const kNames[] = {
#define VORNA_MENU_ITEM(name, ...) #name,
#define VORNA_BUTTON(key, ...) "button " #key,
#include "app/form_vorna_controls.h"
    };
    return {std::begin(kNames), std::end(kNames)};
}

// A structure refused for a count beyond the tables, or for a node number, is an empty model to
// every command, script verb and mouse gesture that follows (the sanitizer build checks that
// none reads past a table).
TEST(DiskFaults, ARefusedStructureIsAnEmptyModelToEveryCommand) {
    const std::string kVerbs = "dump model\ndump view\ndump connection\ndump buffers\n"
                               "dump controls\nset Risposta 1-5\nkey Enter\ncheck analLun 0\n"
                               "option OpzMetodo(2)\ndown 1 1\nmove 5 5 1\nup 9 9\n"
                               "click 0 0\ndblclick 1 1 4\nclicknode 1\nlabel 1\nwheel 2\n"
                               "resize 9000 7000\nbutton TuttoX\ncolour 1 2 3\npickbox 3\n";
    const std::set<std::string> ending = {"Esci",
                                          "ScriColl",
                                          "Salva",
                                          "SalvaGeom",
                                          "SalvaSoll",
                                          "button Esci",
                                          "button ImportaTutto",
                                          "button ImportaGeom",
                                          "button ImportaSoll"};
    std::string walk = kVerbs, last;
    for (const std::string &name : CommandNames())
        if (ending.contains(name))
            last += name + "\n";
        else
            walk += name + "\nkey Esc\nmove 3 4\nclick 2 2\n" + kVerbs + "key Esc\n";
    for (const char *structure : {"release\r\n1\r\n0 0 0\r\n20002\r\n0 0 1\r\n1 0\r\n",
                                  "release\r\n1\r\n1 2 3\r\n32767\r\n",
                                  "release\r\n1\r\n1 2 3\r\n1\r\n0 1 2\r\n32001 0\r\n"}) {
        test::DemoSuite suite;
        suite.Write("lavori/demo01/STRUTTUR.STR", structure);
        const std::string output = RunHere(suite, walk + "dump model\n" + last);
        EXPECT_NE(output.find("|Errore nella lettura della struttura\n"), std::string::npos);
        EXPECT_NE(output.find("model points=0 nodes=0 bars=0 shells=0"), std::string::npos);
        EXPECT_EQ(output.find("\nnode "), std::string::npos) << structure;
    }
}

// The real thing: a job folder and a custom folder that the user may not write to. Root may
// write anywhere, so as root the program runs as an ordinary user who owns the suite.
class ReadOnlyFolders : public testing::Test {
protected:
    void SetUp() override {
        if (::geteuid() != 0)
            return;
        if (std::system("setpriv --version >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "running as root without setpriv: a read-only folder cannot be "
                            "tested here";
        asUser = "setpriv --reuid=65534 --regid=65534 --clear-groups -- ";
    }
    // Gives every file of the suite to the user who runs the program.
    void GiveToUser() const {
        if (asUser.empty())
            return;
        ASSERT_EQ(::chown(suite.root().c_str(), kNobody, kNobody), 0);
        for (const auto &entry : fs::recursive_directory_iterator(suite.root()))
            ASSERT_EQ(::lchown(entry.path().c_str(), kNobody, kNobody), 0);
    }
    void WriteOldFiles() const {
        for (const HandBack &h : HandBacks())
            for (const auto &file : h.files)
                suite.Write((fs::path(h.folder) / file.first).string(), OldText(file.first));
        GiveToUser();
    }
    static constexpr ::uid_t kNobody = 65534;
    test::DemoSuite suite;
    std::string asUser;
};

// A folder that takes no new file gets its files written in place; a file that may not be written
// is refused with the writer's message (status 1 for a hand-back) and keeps its bytes.
TEST_F(ReadOnlyFolders, ClosedFoldersAreWrittenInPlaceReadOnlyFilesRefused) {
    // What the same runs write where nothing is closed, from the same old files.
    test::DemoSuite clean;
    for (const HandBack &h : HandBacks()) {
        for (const auto &file : h.files)
            clean.Write((fs::path(h.folder) / file.first).string(), OldText(file.first));
        RunHere(clean, h.script);
    }
    WriteOldFiles();
    ASSERT_EQ(::chmod(suite.job().c_str(), 0555), 0);
    ASSERT_EQ(::chmod((suite.root() / "custom").c_str(), 0555), 0);
    for (const HandBack &h : HandBacks()) {
        const std::vector<std::string> before = FolderListing(suite.root() / h.folder);
        test::RunResult r = suite.RunWithPrefix(h.script, suite.rootName(), asUser);
        EXPECT_EQ(r.status, 0) << r.output;
        for (const auto &file : h.files)
            EXPECT_EQ(test::ReadBytes(suite.root() / h.folder / file.first),
                      test::ReadBytes(clean.root() / h.folder / file.first));
        EXPECT_EQ(FolderListing(suite.root() / h.folder), before);
    }
    ::chmod(suite.job().c_str(), 0755);
    ::chmod((suite.root() / "custom").c_str(), 0755);

    WriteOldFiles();
    for (const HandBack &h : HandBacks()) {
        for (const auto &file : h.files)
            ASSERT_EQ(::chmod((suite.root() / h.folder / file.first).c_str(), 0444), 0);
        test::RunResult r = suite.RunWithPrefix(h.script, suite.rootName(), asUser);
        EXPECT_NE(r.output.find(h.files[0].second), std::string::npos) << r.output;
        EXPECT_EQ(r.status, h.files[0].second == kCannotWrite ? 1 : 0);
        for (const auto &file : h.files)
            EXPECT_EQ(test::ReadBytes(suite.root() / h.folder / file.first), OldText(file.first));
    }
}

} // namespace
} // namespace vorna
