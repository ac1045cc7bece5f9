// End-to-end: a connection defined on the demo job from the first click to the files the suite
// reads, compared byte for byte with the files kept beside the tests.
#include "e2e_support.h"

namespace vorna {
namespace {

TEST(EndToEndConnection, PickTypeAddRemoveAndExportTheConnection) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("NodoBase\n"
                                  "clicknode 18\n"
                                  "label 1\n" // the column below becomes a "TR"
                                  "Aggiungi\n"
                                  "TuttiCol\n"
                                  "Rimuovi\n"
                                  "Nome\n"
                                  "set Risposta 30\n"
                                  "key Enter\n"
                                  "dump connection\n"
                                  "ScriColl\n"
                                  "dump connection\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.output.find("baseBarTypes=2,1,2,1,1,1\n"), std::string::npos) << r.output;
    EXPECT_NE(r.output.find("analogousListText=18-19,31\n"), std::string::npos);
    // ScriColl ends the program: the second dump never runs.
    EXPECT_EQ(r.output.find("analogousListText"), r.output.rfind("analogousListText"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "Collegamenti.txt"),
              test::KeptBytes("e2e/identical-Collegamenti.txt"));
    EXPECT_EQ(test::ReadBytes(suite.job() / "Dati_Coll_3D.txt"),
              test::KeptBytes("e2e/identical-Dati_Coll_3D.txt"));
    EXPECT_FALSE(std::filesystem::exists(suite.job() / "VornaOut.txt"));
}

TEST(EndToEndConnection, MirroredJointsAndTheGeometryImport) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("option OpzMetodo(1)\n"
                                  "NodoBase\n"
                                  "clicknode 13\n"
                                  "Aggiungi\n"
                                  "TuttiCol\n"
                                  "SalvaGeom\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.output.find("message|"), std::string::npos) << r.output;
    EXPECT_EQ(test::ReadBytes(suite.job() / "VornaOut.txt"),
              test::KeptBytes("e2e/mirrored-VornaOut.txt"));
    EXPECT_FALSE(std::filesystem::exists(suite.job() / "Collegamenti.txt"));
}

TEST(EndToEndConnection, ExportsAreOfferedOnlyWithABaseNode) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("ScriColl\nbutton ImportaTutto\nNodoBase\nclicknode 18\n"
                                  "RimNodoBase\nScriColl\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.output.find("ignored|ScriColl\nignored|button ImportaTutto\n"), std::string::npos)
        << r.output;
    EXPECT_NE(r.output.find("message|INFORMAZIONE|"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(suite.job() / "Collegamenti.txt"));
}

TEST(EndToEndConnection, AnEmptyNameListLeavesTheBaseBarsAndTheirTypes) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("NodoBase\nclicknode 18\nlabel 2\nAsteNodoBase\nNome\n"
                                  "set Risposta 8-5\nkey Enter\ndump connection\n");
    EXPECT_NE(r.output.find("baseBars=6,18,40,41,48,49\nbaseBarTypes=1,2,2,1,1,1\n"),
              std::string::npos)
        << r.output;
}

TEST(EndToEndConnection, TurnedJointsAreFoundAndTypedByTheirPairing) {
    test::DemoSuite suite;
    test::RunResult r = suite.Run("option OpzMetodo(2)\nNodoBase\nclicknode 13\nlabel 2\n"
                                  "Aggiungi\nTuttiCol\ndump connection\nSalvaGeom\n");
    EXPECT_EQ(r.status, 0) << r.output;
    // The corner joints of the floor, each turned in plan from node 13's.
    EXPECT_NE(r.output.find("analogousListText=13,24-25,36\n"), std::string::npos) << r.output;
    EXPECT_EQ(test::ReadBytes(suite.job() / "VornaOut.txt"),
              test::KeptBytes("e2e/rotated-VornaOut.txt"));
}

TEST(EndToEndConnection, UsingAJointTypeIsDefiningItByHand) {
    const std::string files[] = {"Collegamenti.txt", "Dati_Coll_3D.txt"};
    test::DemoSuite byHand, fromList;
    test::RunResult hand = byHand.Run("NodoBase\nclicknode 18\nAggiungi\nNome\n"
                                      "set Risposta 19,30,31\nkey Enter\ndump connection\n"
                                      "ScriColl\n");
    test::RunResult used = fromList.Run("TipiNodo\nset ListaTipi 2\nbutton Usa\n"
                                        "dump connection\nScriColl\n");
    EXPECT_EQ(used.status, 0);
    EXPECT_EQ(used.output, hand.output);
    for (const std::string &name : files)
        EXPECT_EQ(test::ReadBytes(fromList.job() / name), test::ReadBytes(byHand.job() / name))
            << name;
}

} // namespace
} // namespace vorna
