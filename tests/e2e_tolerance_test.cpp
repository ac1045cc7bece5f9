// End-to-end: the analogy within tolerances on the demo job with every coordinate rounded by up
// to half a millimetre, and the tolerances as the boxes and the job's file keep them.
#include "e2e_support.h"

namespace vorna {
namespace {

constexpr const char *kMirroredJoints = "option OpzMetodo(1)\nNodoBase\nclicknode 13\nAggiungi\n"
                                        "TuttiCol\ndump connection\nSalvaGeom\n";

TEST(EndToEndTolerances, RoundedJointsAreFoundWithinTolerancesAndTypedAsTheCleanOnes) {
    test::DemoSuite clean, exact("suite", "--rounding 0.5"), within("suite", "--rounding 0.5");
    const test::RunResult c = clean.Run(kMirroredJoints);
    const test::RunResult e = exact.Run(kMirroredJoints);
    const test::RunResult w =
        within.Run(std::string("set TolAngoli 1\nset TolLunghezze 1\n") + kMirroredJoints);
    EXPECT_NE(c.output.find("analogousListText=13,24-25,36\n"), std::string::npos) << c.output;
    EXPECT_NE(e.output.find("analogousListText=13\n"), std::string::npos) << e.output;
    EXPECT_NE(w.output.find("analogousListText=13,24-25,36\n"), std::string::npos) << w.output;
    EXPECT_EQ(test::ReadBytes(within.job() / "VornaOut.txt"),
              test::ReadBytes(clean.job() / "VornaOut.txt"));
    EXPECT_EQ(test::ReadBytes(within.job() / "VornaTolleranze.txt"),
              "TolAngoli=1\r\nTolLunghezze=1\r\n");
}

TEST(EndToEndTolerances, BadValuesAreToldAndTheLastValidOneStays) {
    test::DemoSuite suite("suite", "--rounding 0.5");
    const test::RunResult r =
        suite.Run("set TolAngoli 2\nset TolAngoli 50\nset TolAngoli 50\nset TolLunghezze 1,5\n"
                  "dump whynot 24\nNodoBase\nclicknode 13\ndump whynot 24\n");
    EXPECT_NE(r.output.find("message|ATTENZIONE|48|Toll. angoli (\xC2\xB0): \"50\" non \xC3\xA8 "
                            "un numero da 0 a 45. Resta il valore 2.\n"
                            "message|ATTENZIONE|48|Toll. lunghezze (%): \"1,5\" non \xC3\xA8 un "
                            "numero da 0 a 50 (il separatore decimale \xC3\xA8 il punto). Resta il "
                            "valore 0.\n"),
              std::string::npos)
        << r.output;
    // The base node's pairs against node 24's, within 2 degrees and lengths within 0.0001.
    EXPECT_NE(r.output.find("whynot node=24 verdict=rejected reason=length bar=1 tolerances=2/0\n"),
              std::string::npos)
        << r.output;
    EXPECT_NE(r.output.find(" dev=0.0"), std::string::npos);
    EXPECT_EQ(test::ReadBytes(suite.job() / "VornaTolleranze.txt"),
              "TolAngoli=2\r\nTolLunghezze=\r\n");

    // The next start takes them from the file; a file with a bad value is told and ignored.
    const test::RunResult again = suite.Run("dump controls\n");
    EXPECT_NE(again.output.find("TolAngoli.text=2\n"), std::string::npos) << again.output;
    suite.Write("lavori/demo01/VornaTolleranze.txt", "TolAngoli=2\r\nTolLunghezze=x\r\n");
    const test::RunResult bad = suite.Run("dump controls\n");
    EXPECT_NE(bad.output.find("message|ATTENZIONE|48|Il file "), std::string::npos) << bad.output;
    EXPECT_NE(bad.output.find("VornaTolleranze.txt non \xC3\xA8 valido"), std::string::npos);
    EXPECT_NE(bad.output.find("TolAngoli.text=\n"), std::string::npos);
}

} // namespace
} // namespace vorna
