// End-to-end: vorna started on the demo job the way the suite starts it, driven by scripts.
#include "e2e_support.h"
#include "platform/text.h"

namespace vorna {
namespace {

TEST(EndToEnd, DemoJobLoadsWithoutMessages) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("dump folders\ndump model\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.output.find("message|"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("jobName=demo01\n"), std::string::npos);
    EXPECT_NE(r.output.find("model points=50 nodes=50 bars=112 shells=14 thicknessCards=3\n"),
              std::string::npos)
        << r.output.substr(0, 400);
    EXPECT_NE(r.output.find("section 0 name=HEA200\n"), std::string::npos);
}

TEST(EndToEnd, FatalStartUpEndsWithStatusOneAndMissingStructureDoesNot) {
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

} // namespace
} // namespace vorna
