// End-to-end: the drawing export and the options file, written by whole runs on the demo job and
// compared byte for byte; suite roots as the suite names them on each system, and a start-up
// that cannot go on.
#include "e2e_support.h"

namespace vorna {
namespace {

// Node labels with their constraint cards, in a smaller text.
constexpr const char *kLabelOptions = "Rappresentazione\n"
                                      "check CheckTxtNodi 1\n"
                                      "check TxtNodi(1) 1\n"
                                      "set BaseTxt 0.35\n"
                                      "set AltezzaTxt 0.5\n";

TEST(EndToEndFiles, OptionsDialogWritesTheOptionsFile) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run(std::string(kLabelOptions) + "set Raggio 7.5\n"
                                                               "option EvColNonSel\n"
                                                               "colour 12 34 56\n"
                                                               "button Command2\n"
                                                               "button Salva\n"
                                                               "button Chiudi\n"
                                                               "Esci\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.output, "message|INFORMAZIONE|48| Opzioni salvate \n");
    EXPECT_EQ(test::ReadBytes(suite.root() / "custom" / "VorNOpzi.txt"),
              test::KeptBytes("e2e/labels-VorNOpzi.txt"));
}

TEST(EndToEndFiles, RotatedViewWithABaseNodeSavedAsDisAndDxf) {
    test::DemoSuite suite;
    const std::string dis = test::NameForProgram(suite.job() / "vista.dis");
    const std::string dxf = test::NameForProgram(suite.job() / "Vista.DXF");
    // A window whose drawing is whole pixels, where the window's surface and the plain one agree.
    test::RunResult r = suite.Run("resize 15006 10512\n" + std::string(kLabelOptions) +
                                  "button Chiudi\n"
                                  "set Angolo(0) 30\n"
                                  "set Angolo(1) 20\n"
                                  "set Angolo(2) -7.5\n"
                                  "Ridis\n"
                                  "NodoBase\n"
                                  "clicknode 18\n"
                                  "savefile " +
                                  dis + " 1\nSalvaDisegno\nsavefile " + dxf + " 2\nSalvaDisegno\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.output, "message|SALVA FILE DISEGNO|64|File " + dis +
                            " salvato.\nmessage|SALVA FILE DXF|64|File " + dxf + " salvato.\n");
    EXPECT_EQ(test::ReadBytes(suite.job() / "vista.dis"), test::KeptBytes("e2e/rotated-vista.dis"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "Vista.DXF"), test::KeptBytes("e2e/rotated-vista.dxf"));
}

// The suite's root in any letter case, with accents, and with either separator ("\" and "/";
// a drive letter on Windows).
TEST(EndToEndPaths, SuiteRootWithAccentsAndEitherSeparator) {
    test::DemoSuite suite("Universit\xC3\xA0");
    for (char separator : {'\\', '/'}) {
        std::string root = Cp1252ToUtf8(UpperCase(Utf8ToCp1252(suite.rootName())));
        for (char &c : root)
            c = c == '\\' || c == '/' ? separator : c;
        test::RunResult r = suite.Run("dump folders\ndump model\n", root);
        EXPECT_EQ(r.status, 0) << root;
        EXPECT_EQ(r.output.find("message|"), std::string::npos) << r.output;
        EXPECT_NE(r.output.find("rootFolder=" + Cp1252ToUtf8(LowerCase(Utf8ToCp1252(root))) + "\n"),
                  std::string::npos)
            << r.output.substr(0, 300);
        EXPECT_NE(r.output.find("jobName=demo01\n"), std::string::npos);
        EXPECT_NE(r.output.find("model points=50 nodes=50 bars=112 shells=14 thicknessCards=3\n"),
                  std::string::npos);
        EXPECT_NE(r.output.find("section 0 name=HEA200\n"), std::string::npos);
    }
}

TEST(EndToEndPaths, FatalStartUpEndsWithStatusOneAndMissingStructureDoesNot) {
    test::DemoSuite suite;
    suite.Write("impostazioni/lavoro", "demo\r\n");
    test::RunResult bad = suite.Run("dump folders\n");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.output, "message|ERRORE|48|Errore: file " + LowerCase(suite.rootName()) +
                              "\\impostazioni\\lavoro errato o mancante\n");

    test::DemoSuite other;
    std::filesystem::remove(other.job() / "STRUTTUR.STR");
    test::RunResult missing = other.Run("dump folders\n");
    EXPECT_EQ(missing.status, 0);
    EXPECT_NE(missing.output.find("message|Problema|16|Errore nella lettura della struttura\n"),
              std::string::npos);
    EXPECT_NE(missing.output.find("jobName=demo01"), std::string::npos);
}

// A root spelled with capitals beside a folder of the same letters in lower case: the one the
// suite named is read and written, though the program shows the name lower-cased.
TEST(EndToEndPaths, ACapitalisedRootIsTheFolderUsedBesideItsLowerCaseTwin) {
    test::DemoSuite suite("Suite");
    const std::filesystem::path twin = suite.root().parent_path() / "suite";
    std::filesystem::copy(suite.root(), twin, std::filesystem::copy_options::recursive);
    test::WriteBytes(twin / "impostazioni" / "dirlav",
                     Utf8ToCp1252(test::NameForProgram(twin / "lavori" / "")) + "\r\n");
    std::filesystem::remove(twin / "lavori" / "demo01" / "STRUTTUR.STR");
    test::RunResult r = suite.Run("dump model\nNodoBase\nclicknode 18\nScriColl\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.output.starts_with("model points=50 nodes=50 bars=112 shells=14")) << r.output;
    EXPECT_EQ(test::ReadBytes(suite.job() / "Dati_Coll_3D.txt"), "COLL18\r\n");
    EXPECT_FALSE(std::filesystem::exists(twin / "lavori" / "demo01" / "Dati_Coll_3D.txt"));
}

// Pictures need the window: the headless programs report the line as one they cannot do.
TEST(EndToEndPaths, ScreenshotOnlyWithTheWindow) {
    test::DemoSuite suite;
    const std::string shot = test::NameForProgram(suite.root() / "shot.png");
    test::RunResult r = suite.Run("screenshot " + shot + "\ndump folders\n");
    if (test::ProgramHasWindow()) {
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(test::ReadBytes(suite.root() / "shot.png").substr(1, 3), "PNG");
    } else {
        EXPECT_EQ(r.status, 2);
        EXPECT_TRUE(r.output.starts_with("error|screenshot " + shot + "\nrootFolder=")) << r.output;
        EXPECT_FALSE(std::filesystem::exists(suite.root() / "shot.png"));
    }
}

} // namespace
} // namespace vorna
