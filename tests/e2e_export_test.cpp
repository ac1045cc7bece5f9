// End-to-end: the view saved as .dis and DXF, and the display options saved from their dialog,
// compared byte for byte with the files kept beside the tests.
#include "e2e_support.h"

namespace vorna {
namespace {

std::string Expected(const std::string &name) {
    return test::ReadBytes(std::filesystem::path(VORNA_TEST_DATA) / "e2e" / name);
}

// Script lines that save the current view in both formats into the job folder.
std::string SaveBoth(const test::DemoSuite &suite, const std::string &stem) {
    const std::string base = (suite.job() / stem).string();
    return "savefile " + base + ".dis 1\nSalvaDisegno\nsavefile " + base + ".dxf 2\nSalvaDisegno\n";
}

TEST(EndToEndExport, TheDemoViewAsDisAndDxf) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run(SaveBoth(suite, "view") + SaveBoth(suite, "again") +
                                  "savefile cancel\nSalvaDisegno\n");
    EXPECT_EQ(r.status, 0);
    const std::string shown =
        "message|SALVA FILE DISEGNO|64|File " + (suite.job() / "view.dis").string() + " salvato.\n";
    EXPECT_NE(r.output.find(shown), std::string::npos) << r.output;
    EXPECT_EQ(test::ReadBytes(suite.job() / "view.dis"), Expected("view.dis"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "view.dxf"), Expected("view.dxf"));
    // Each save starts from empty buffers.
    EXPECT_EQ(test::ReadBytes(suite.job() / "again.dis"), Expected("view.dis"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "again.dxf"), Expected("view.dxf"));
}

TEST(EndToEndExport, HighlightsDoNotReachTheDrawing) {
    test::DemoSuite suite;
    test::RunResult r =
        suite.Run("NodoBase\nclicknode 18\nAggiungi\nTuttiCol\n" + SaveBoth(suite, "joint"));
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(test::ReadBytes(suite.job() / "joint.dis"), Expected("view.dis"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "joint.dxf"), Expected("view.dxf"));
}

TEST(EndToEndExport, LabelsSetAndSavedInTheOptionsDialog) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("Rappresentazione\ncheck CheckTxtNodi 1\ncheck CheckTxtAste 1\n"
                                  "check TxtAste(1) 0\nset BaseTxt 8\nset AltezzaTxt 12\n"
                                  "click LabelCol(5)\nset SpSel 3\noption EvColNonSel\n"
                                  "button Salva\nbutton Chiudi\nRidis\n" +
                                  SaveBoth(suite, "labels"));
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.output.find("message|INFORMAZIONE|48| Opzioni salvate \n"), std::string::npos)
        << r.output;
    EXPECT_EQ(test::ReadBytes(suite.root() / "custom" / "VorNOpzi.txt"), Expected("VorNOpzi.txt"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "labels.dis"), Expected("labels.dis"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "labels.dxf"), Expected("labels.dxf"));

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
