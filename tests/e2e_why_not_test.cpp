// End-to-end: "Perché no?" on the demo job, through the script's dumps and the status label, and
// the catalogue of joint types saved as a spreadsheet.
#include "e2e_support.h"

namespace vorna {
namespace {

bool Has(const std::string &out, const std::string &lines) {
    return out.find(lines) != std::string::npos;
}

TEST(EndToEndWhyNot, VerdictsNearMissesAndTheStatusLabel) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("dump whynot 18\n"
                                  "NodoBase\nclicknode 18\n"
                                  "dump whynot 19\ndump whynot 17\ndump whynot 1\n"
                                  "dump whynot 99999\ndump nearmisses\n"
                                  "option OpzMetodo(3)\ndump whynot 17\noption OpzMetodo(0)\n"
                                  "Aggiungi\nclicknode 17\ndump controls\n"
                                  "Interrompi\ndump controls\n"
                                  "dump whynot\n");
    EXPECT_EQ(r.status, 2) << r.output; // the last line lacks its name
    const std::string &out = r.output;
    EXPECT_TRUE(Has(out, "whynot node=18 verdict=rejected reason=not-live\nwhynot node=19")) << out;
    EXPECT_TRUE(Has(out, "whynot node=19 verdict=analogous\n"
                         "pair k=1 base=6 candidate=7 angle=0.000 lengths=350/350\n"));
    // An edge joint: its third bar is not where the base's beam is.
    EXPECT_TRUE(Has(out, "whynot node=17 verdict=rejected reason=direction bar=3 angle=90.000\n"
                         "pair k=1 base=6 candidate=5 angle=0.000 lengths=350/350\n"
                         "pair k=2 base=18 candidate=17 angle=0.000 lengths=350/350\n"
                         "pair k=3 base=40 candidate=0 angle=90.000 lengths=600/350\n"));
    // Under "Nodi qualsiasi" the two base beams of 600 find only one of that length there.
    EXPECT_TRUE(Has(out, "whynot node=17 verdict=rejected reason=length bar=4\n")) << out;
    EXPECT_TRUE(Has(out, "whynot node=1 verdict=rejected reason=bar-count\npair k=1 base=6 "
                         "candidate=0 angle=- lengths=350/0\n"));
    EXPECT_TRUE(Has(out, "whynot node=99999 verdict=rejected reason=not-found\nnearmiss rank=1 "
                         "node=17 reason=direction bar=3 score=91.692\n"));
    // Never an analogous node, at most 20 of them.
    std::size_t misses = 0;
    for (std::size_t at = out.find("nearmiss "); at != std::string::npos;
         at = out.find("nearmiss ", at + 1), ++misses) {
        const std::string line = out.substr(at, out.find('\n', at) - at);
        for (const char *listed : {" node=18 ", " node=19 ", " node=30 ", " node=31 "})
            EXPECT_EQ(line.find(listed), std::string::npos) << line;
    }
    EXPECT_GT(misses, 0u);
    EXPECT_LE(misses, 20u);
    EXPECT_TRUE(Has(out, "Esito.caption=Nodo 17 non analogo: asta base 3, direzione diversa di "
                         "90.0\xC2\xB0\n"));
    EXPECT_TRUE(Has(out, "Esito.caption=\n"));
    EXPECT_TRUE(Has(out, "error|dump whynot\n"));
}

// The save dialog's answer decides: a file (the extension added), nothing on cancel, a message
// and no file where it cannot be written.
TEST(EndToEndWhyNot, TheCatalogueAsCsvFromItsDialog) {
    test::DemoSuite suite;
    const std::string csv = test::NameForProgram(suite.job() / "tipi");
    const std::string nowhere = test::NameForProgram(suite.job() / "no" / "tipi.csv");
    test::RunResult r = suite.Run("TipiNodo\nsavefile " + csv + " 1\nbutton EsportaCSV\n" +
                                  "savefile cancel\nbutton EsportaCSV\nsavefile " + nowhere +
                                  " 1\nbutton EsportaCSV\nkey Esc\n");
    EXPECT_EQ(r.status, 0) << r.output;
    EXPECT_TRUE(Has(r.output, "message|SALVA FILE CSV|64|File " + csv + ".csv salvato.\n" +
                                  "message|ERRORE|16|Errore durante la scrittura sul file" +
                                  nowhere + "\n"))
        << r.output;
    const std::string text = test::ReadBytes(suite.job() / "tipi.csv");
    EXPECT_EQ(text.substr(0, 44), "\xEF\xBB\xBFTipo;Nodi del tipo;Capo;Nodo;X;Y;Z;Aste\r\n");
    // Type 2 of the demo: the interior joints headed by 18, its bars by name.
    EXPECT_TRUE(Has(text, "\r\n2;4;18;18;600;500;350;6 18 40 41 48 49\r\n")) << text;
    EXPECT_FALSE(std::filesystem::exists(suite.job() / "no"));
}

} // namespace
} // namespace vorna
