// The script runner on the demo job, in-process: the language as the README documents it, and
// lines that must fail whole without changing anything.
#include "app/script_verbs.h"
#include "e2e_support.h"

#include <fstream>
#include <sstream>

namespace vorna {
namespace {

struct Outcome {
    int status;
    std::string out;
};

Outcome RunIn(const test::DemoSuite &suite, const std::string &script) {
    suite.Write("inline.script", script);
    std::ostringstream out;
    int status =
        RunScript(suite.root() / "inline.script", "|diroot=" + suite.root().string() + "|", out);
    return {status, out.str()};
}

bool Has(const std::string &out, const std::string &line) {
    return out.find(line + "\n") != std::string::npos;
}

TEST(ScriptLanguage, TheReadmeTablesAreTheVerbRows) {
    const std::string readme =
        test::ReadBytes(std::filesystem::path(VORNA_SOURCE_DIR) / "README.md");
    EXPECT_NE(readme.find(ScriptLanguageTables()), std::string::npos)
        << "README tables should read:\n"
        << ScriptLanguageTables();
}

TEST(ScriptLanguage, BlanksTabsAndTextBeyondAscii) {
    test::DemoSuite suite;
    const auto dis = suite.root() / "dir with é";
    std::filesystem::create_directories(dis);
    Outcome r =
        RunIn(suite, "\t\n \t # a comment after blanks\nNodoBase\nclicknode 18\nAggiungi\nNome\n"
                     "set\tRisposta città,  2\n"
                     "savefile " +
                         (dis / "vista è.dis").string() +
                         "\t1\nSalvaDisegno\n"
                         "dump controls\n");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_TRUE(Has(r.out, "Risposta.text=città,  2")) << r.out;
    EXPECT_TRUE(std::filesystem::exists(dis / "vista è.dis"));
}

TEST(ScriptLanguage, ALineThatDoesNotFitFailsWholeAndChangesNothing) {
    test::DemoSuite suite;
    Outcome r = RunIn(suite, "click a b\noption OpzMetodo(7)\noption OpzMetodo(x)\n"
                             "down 1 2 3\nlabel 31\nsavefile x.dis 9\ncolour 1 2 300\n"
                             "check analLun 2\nset NoSuchBox 1\nOttimizza extra\nresize 1e999 5\n"
                             "dump controls\n");
    EXPECT_EQ(r.status, 2);
    for (const char *line :
         {"click a b", "option OpzMetodo(7)", "option OpzMetodo(x)", "down 1 2 3", "label 31",
          "savefile x.dis 9", "colour 1 2 300", "check analLun 2", "set NoSuchBox 1",
          "Ottimizza extra", "resize 1e999 5"})
        EXPECT_TRUE(Has(r.out, std::string("error|") + line)) << line;
    EXPECT_TRUE(Has(r.out, "OpzMetodo(0).checked=1"));
    EXPECT_TRUE(Has(r.out, "analLun.checked=1"));
}

// The side bar's "Tutto" buttons refill their own interval from the model and no other.
TEST(ScriptLanguage, ASideBarButtonRefillsItsInterval) {
    test::DemoSuite suite;
    Outcome r = RunIn(suite, "dump controls\nset IntX(0) 7\nset IntX(1) 8\nset IntY(0) 9\n"
                             "button TuttoX\ndump controls\n");
    EXPECT_EQ(r.status, 0) << r.out;
    auto value = [&](const std::string &key, std::size_t from) {
        const std::size_t at = r.out.find("\n" + key + "=", from);
        return at == std::string::npos
                   ? std::string()
                   : r.out.substr(at + key.size() + 2,
                                  r.out.find('\n', at + 1) - at - key.size() - 2);
    };
    const std::size_t second = r.out.find("IntX(0).text=", r.out.find("IntX(0).text=") + 1);
    ASSERT_NE(second, std::string::npos) << r.out;
    EXPECT_EQ(value("IntX(0).text", second - 1), value("IntX(0).text", 0));
    EXPECT_EQ(value("IntX(1).text", second - 1), value("IntX(1).text", 0));
    EXPECT_EQ(value("IntY(0).text", second - 1), "9");
}

TEST(ScriptLanguage, AHandBackThatCannotBeWrittenEndsWithStatusOne) {
    test::DemoSuite suite;
    std::filesystem::create_directories(suite.job() / "VornaOut.txt"); // a folder in its place
    Outcome r = RunIn(suite, "NodoBase\nclicknode 18\nSalvaGeom\ndump folders\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(Has(r.out, "message|Problema|16| Non è possibile scrivere il file di uscita "));
    EXPECT_EQ(r.out.find("rootFolder="), std::string::npos); // the program had ended
}

TEST(ScriptLanguage, ADialogTakesTheLinesUntilItCloses) {
    test::DemoSuite suite;
    Outcome r = RunIn(suite, "Trappola\nOttimizza\nset TextTrappola 7.9\ndump controls\n"
                             "button Command1\nRappresentazione\nclick LabelCol(3)\n"
                             "check CheckTxtAste 1\nclick LabelCol(3)\nkey Esc\ndump controls\n");
    EXPECT_EQ(r.status, 2) << r.out;
    EXPECT_TRUE(Has(r.out, "error|Ottimizza")); // the main window waits for the dialog
    EXPECT_TRUE(Has(r.out, "TextTrappola.text=7.9"));
    EXPECT_TRUE(Has(r.out, "FormOptInt.caption=Opzioni"));
    EXPECT_TRUE(Has(r.out, "ignored|click LabelCol(3)")); // no labels asked for: disabled
    EXPECT_TRUE(Has(r.out, "Trappola.caption=Trappola (7)..."));
    EXPECT_EQ(r.out.find("error|click"), std::string::npos);
}

// The menu "?": its two dialogs open, show and close like the others. The gestures and keys
// are the README's table, row for row, with every key combination it names.
TEST(ScriptLanguage, TheHelpDialogsShowTheGesturesAndTheBuild) {
    test::DemoSuite suite;
    Outcome r = RunIn(suite, "Comandi\ndump rows\nbutton Chiudi\nInformazioni\ndump controls\n"
                             "key Esc\nOttimizza\ndump controls\n");
    EXPECT_EQ(r.status, 0) << r.out; // Ottimizza reached the window: both dialogs had closed
    EXPECT_TRUE(Has(r.out, "MenuAiuto.caption=?"));
    EXPECT_TRUE(Has(r.out, "Comandi.caption=Comandi di mouse e tastiera"));
    EXPECT_TRUE(Has(r.out, "Informazioni.caption=Informazioni su vorna"));
    EXPECT_TRUE(Has(r.out, "VersioneQt.caption=Senza Qt: vorna-batch non ha finestre"));
    EXPECT_EQ(r.out.find("Versione.caption=Versione \n"), std::string::npos) << "no version";
    EXPECT_EQ(r.out.find("Compilazione.caption=Compilato il \n"), std::string::npos);

    std::string rows;
    std::istringstream out(r.out);
    for (std::string line; std::getline(out, line);)
        if (line.starts_with("ListaComandi("))
            rows += line + "\n";
    const std::string readme =
        test::ReadBytes(std::filesystem::path(VORNA_SOURCE_DIR) / "README.md");
    std::istringstream table(readme.substr(readme.find("| gesture or key | what it does |")));
    std::string line;
    std::getline(table, line);
    std::getline(table, line); // the rule under the titles
    int count = 0;
    while (std::getline(table, line) && line.starts_with("  | ")) {
        ++count;
        const std::string keys = line.substr(0, line.find(" | ", 4));
        for (auto at = keys.find("Ctrl+"); at != std::string::npos; at = keys.find("Ctrl+", at + 1))
            EXPECT_NE(rows.find(keys.substr(at, 6)), std::string::npos) << keys;
    }
    EXPECT_NE(rows.find("ListaComandi(" + std::to_string(count) + ")="), std::string::npos);
    EXPECT_EQ(rows.find("ListaComandi(" + std::to_string(count + 1) + ")="), std::string::npos);
}

} // namespace
} // namespace vorna
