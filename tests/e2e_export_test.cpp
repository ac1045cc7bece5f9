// End-to-end: the view saved as .dis and DXF, and the display options saved from their dialog,
// compared byte for byte with the files kept beside the tests.
#include "e2e_support.h"

namespace vorna {
namespace {

// A window size whose drawing is whole pixels, so that every program draws the same view.
constexpr const char *kSize = "resize 15006 10512\n";

// The file written against the one kept beside the tests; a difference is shown by its first
// line, not as the whole file.
void ExpectFile(const std::filesystem::path &written, const std::string &expected) {
    const std::string a = test::ReadBytes(written), b = test::KeptBytes("e2e/" + expected);
    if (a == b)
        return;
    std::size_t at = 0;
    while (at < a.size() && at < b.size() && a[at] == b[at])
        ++at;
    const std::size_t line = a.rfind('\n', at) == std::string::npos ? 0 : a.rfind('\n', at) + 1;
    ADD_FAILURE() << written << " differs from " << expected << " at byte " << at << ": \""
                  << a.substr(line, 60) << "\" instead of \"" << b.substr(line, 60) << "\"";
}

// Script lines that save the current view in both formats into the job folder.
std::string SaveBoth(const test::DemoSuite &suite, const std::string &stem) {
    const std::string base = test::NameForProgram(suite.job() / stem);
    return "savefile " + base + ".dis 1\nSalvaDisegno\nsavefile " + base + ".dxf 2\nSalvaDisegno\n";
}

TEST(EndToEndExport, TheDemoViewAsDisAndDxf) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run(kSize + SaveBoth(suite, "view") + SaveBoth(suite, "again") +
                                  "savefile cancel\nSalvaDisegno\n");
    EXPECT_EQ(r.status, 0);
    const std::string shown = "message|SALVA FILE DISEGNO|64|File " +
                              test::NameForProgram(suite.job() / "view.dis") + " salvato.\n";
    EXPECT_NE(r.output.find(shown), std::string::npos) << r.output;
    ExpectFile(suite.job() / "view.dis", "view.dis");
    ExpectFile(suite.job() / "view.dxf", "view.dxf");
    // Each save starts from empty buffers.
    ExpectFile(suite.job() / "again.dis", "view.dis");
    ExpectFile(suite.job() / "again.dxf", "view.dxf");
}

TEST(EndToEndExport, HighlightsDoNotReachTheDrawing) {
    test::DemoSuite suite;
    test::RunResult r =
        suite.Run(kSize + std::string("NodoBase\nclicknode 18\nAggiungi\nTuttiCol\n") +
                  SaveBoth(suite, "joint"));
    EXPECT_EQ(r.status, 0);
    ExpectFile(suite.job() / "joint.dis", "view.dis");
    ExpectFile(suite.job() / "joint.dxf", "view.dxf");
}

// The joint types coloured in the view stay on the screen: the drawing keeps every element's
// colour code. The colours stay in force after "Tipi di nodo" closes, until unchecked.
TEST(EndToEndExport, JointTypeColoursStayOnTheScreen) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run(kSize + std::string("TipiNodo\ncheck ColoraTipi 1\nkey Esc\n") +
                                  SaveBoth(suite, "types") +
                                  "dump nodecolours\nTipiNodo\ndump controls\n"
                                  "check ColoraTipi 0\nkey Esc\ndump nodecolours\n");
    EXPECT_EQ(r.status, 0) << r.output;
    ExpectFile(suite.job() / "types.dis", "view.dis");
    ExpectFile(suite.job() / "types.dxf", "view.dxf");
    const std::string &out = r.output;
    // Node 18 heads the second type (brown), node 13 the third (olive); 1 belongs to none of
    // the first twelve and keeps its circle's colour.
    const std::size_t coloured = out.find("nodecolour node=18 rgb=170,110,40\n");
    EXPECT_NE(coloured, std::string::npos) << out;
    EXPECT_NE(out.find("nodecolour node=13 rgb=128,128,0\n"), std::string::npos);
    EXPECT_NE(out.find("nodecolour node=1 rgb=255,255,0\n"), std::string::npos);
    EXPECT_NE(out.find("ColoraTipi.checked=1\n"), std::string::npos);
    EXPECT_NE(out.find("nodecolour node=18 rgb=255,0,0\n", coloured), std::string::npos);
}

TEST(EndToEndExport, LabelsSetAndSavedInTheOptionsDialog) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run(std::string(kSize) +
                                  "Rappresentazione\ncheck CheckTxtNodi 1\ncheck CheckTxtAste 1\n"
                                  "check TxtAste(1) 0\nset BaseTxt 8\nset AltezzaTxt 12\n"
                                  "click LabelCol(5)\nset SpSel 3\noption EvColNonSel\n"
                                  "button Salva\nbutton Chiudi\nRidis\n" +
                                  SaveBoth(suite, "labels"));
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.output.find("message|INFORMAZIONE|48| Opzioni salvate \n"), std::string::npos)
        << r.output;
    ExpectFile(suite.root() / "custom" / "VorNOpzi.txt", "VorNOpzi.txt");
    ExpectFile(suite.job() / "labels.dis", "labels.dis");
    ExpectFile(suite.job() / "labels.dxf", "labels.dxf");

    // The next start reads the same 30 values back.
    test::RunResult again = suite.Run("dump options\n");
    EXPECT_NE(again.output.find("display 13=5\ndisplay 14=5\ndisplay 15=1\ndisplay 16=1\n"
                                "display 17=1\ndisplay 18=0\n"),
              std::string::npos)
        << again.output;
}

TEST(EndToEndExport, AFullCapacityModelFillsTheBuffersWarnsOnceAndIsWritten) {
    test::DemoSuite suite;
    std::string command =
        std::string(VORNA_LARGE_TOOL) + " " + suite.job().string() + " >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    test::RunResult r = suite.Run(SaveBoth(suite, "full"));
    EXPECT_EQ(r.status, 0);
    auto count = [&](const std::string &text) {
        std::size_t n = 0;
        for (std::size_t at = r.output.find(text); at != std::string::npos;
             at = r.output.find(text, at + 1))
            ++n;
        return n;
    };
    // Once for each of the two saves.
    EXPECT_EQ(count("message|Problema|48| Numero eccessivo di coordinate \n"), 2u) << r.output;
    EXPECT_EQ(count(" salvato.\n"), 2u);
    EXPECT_GT(std::filesystem::file_size(suite.job() / "full.dxf"), 1000000u);
}

} // namespace
} // namespace vorna
