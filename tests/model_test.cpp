// Tests of the structure file reader and the section and thickness catalogues.
#include "model/catalogues.h"
#include "model/load_structure.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

// A small structure: 3 points, 2 nodes, 1 bar, 1 triangular shell, then the skipped sections.
std::string SmallStructure(const std::string &nodeLines = "0 1 3\r\n12 0\r\n1\t3   1\r\n13 2\r\n",
                           const std::string &barGroup = "0,1,0,3") {
    return "Telaris RELEASE 4.0\r\n3\r\n0 0 0\r\n600.5 0 0\r\n0 0 350\r\n2\r\n" + nodeLines +
           "1\r\n" + barGroup +
           "\r\n7 4 1 2 0 0\r\n1\r\n0 1 2 -1\r\n0 9 1 0 4\r\n"
           "2\r\nskip a\r\nskip b\r\n0\r\n1\r\nskip c\r\n1\r\nrec 1\r\nrec 2\r\n";
}

TEST(LoadStructure, ReadsEveryTableAndTheSkippedSections) {
    StructureModel m;
    ASSERT_EQ(ParseStructure(SmallStructure(), m), LoadResult::Loaded);
    EXPECT_EQ(m.pointCount, 3);
    EXPECT_EQ(m.points[1].x, 600.5);
    EXPECT_EQ(m.points[2].z, 350);
    ASSERT_EQ(m.nodeCount, 2);
    EXPECT_EQ(m.nodes[1].pointIndex, 1); // "1<tab>3   1"
    EXPECT_EQ(m.nodes[1].pointType, 3);
    EXPECT_EQ(m.nodes[1].colour, 1);
    EXPECT_EQ(m.nodes[1].name, 13);
    EXPECT_EQ(m.nodes[1].constraintCard, 2);
    EXPECT_EQ(m.bars[0].colour, 3);
    EXPECT_EQ(m.bars[0].name, 7);
    EXPECT_EQ(m.bars[0].sectionCard, 4);
    EXPECT_EQ(m.bars[0].orientationCard, 2);
    EXPECT_EQ(m.shells[0].vertices[3], -1);
    EXPECT_EQ(m.shells[0].name, 9);
    EXPECT_EQ(m.shells[0].thicknessCard, 1);
    EXPECT_EQ(m.shells[0].colour, 4);

    StructureModel blanks;
    ASSERT_EQ(
        ParseStructure(SmallStructure("0 1 3\r\n12 0\r\n1 3 1\r\n13 2\r\n", "0 1\r\n0 3"), blanks),
        LoadResult::Loaded);
    EXPECT_EQ(blanks.bars[0].pointJ, 1); // a group may span lines
    EXPECT_EQ(blanks.bars[0].colour, 3);
    EXPECT_EQ(blanks.bars[0].name, 7);
}

TEST(LoadStructure, VersionAndNodeNumberChecksInterruptTheLoad) {
    StructureModel m;
    EXPECT_EQ(ParseStructure("4.0\r\n0\r\n", m), LoadResult::OldVersion);
    const auto old = LoadMessage(LoadResult::OldVersion);
    ASSERT_TRUE(old);
    EXPECT_EQ(old->title, "Attenzione");
    EXPECT_EQ(old->icon, MsgIcon::Critical);

    EXPECT_EQ(ParseStructure(SmallStructure("0 1 3\r\n32000 0\r\n1 3 1\r\n1 0\r\n"), m),
              LoadResult::Loaded);
    EXPECT_EQ(m.nodes[0].name, 32000);
    EXPECT_EQ(ParseStructure(SmallStructure("0 1 3\r\n32001 0\r\n1 3 1\r\n1 0\r\n"), m),
              LoadResult::NodeNameTooLarge);
    EXPECT_EQ(ParseStructure(SmallStructure("0 1 3\r\n1e12 0\r\n1 3 1\r\n1 0\r\n"), m),
              LoadResult::NodeNameTooLarge);
    const auto name = LoadMessage(LoadResult::NodeNameTooLarge);
    ASSERT_TRUE(name);
    EXPECT_EQ(name->text, "Nome nodo maggiore di 32000.");
    EXPECT_EQ(name->title, "ERRORE IN STRUTTUR.STR");
    EXPECT_FALSE(LoadMessage(LoadResult::NotRead) || LoadMessage(LoadResult::Loaded));
}

TEST(LoadStructure, BadValuesKeepTheirFieldAndCountsBeyondCapacityAreRefused) {
    StructureModel m;
    // Out-of-range and non-numeric group fields keep the previous value; a missing token is 0.
    ASSERT_EQ(ParseStructure("release\r\n2\r\n1 2 3\r\nx 1e999 4\r\n1\r\n70000 1\r\n", m),
              LoadResult::Loaded);
    EXPECT_EQ(m.points[1].x, 0);
    EXPECT_EQ(m.points[1].y, 0);
    EXPECT_EQ(m.points[1].z, 4);
    EXPECT_EQ(m.nodes[0].pointIndex, 0); // 70000 does not fit 16 bits
    EXPECT_EQ(m.nodes[0].pointType, 1);
    EXPECT_EQ(m.nodes[0].colour, 0);
    EXPECT_EQ(m.barCount, 0); // the file ends: everything after keeps its value

    StructureModel big;
    EXPECT_EQ(ParseStructure("release\r\n20002\r\n", big), LoadResult::NotRead);
    EXPECT_EQ(ParseStructure("release\r\n0\r\n0\r\n0\r\n16002\r\n", big), LoadResult::NotRead);
    EXPECT_EQ(ParseStructure("release\r\n-5\r\n", big), LoadResult::Loaded);
    EXPECT_EQ(big.pointCount, 0);
}

TEST(LoadStructure, MissingFileIsNotRead) {
    StructureModel m;
    test::TempDir dir;
    EXPECT_EQ(LoadStructure(dir.path().string(), m), LoadResult::NotRead);
}

TEST(Catalogues, SectionNamesLoseTheirPPrefixAndCountsAreLimited) {
    StructureModel m;
    std::string numbers = ",0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    auto card = [&](const std::string &name) { return "1,\"" + name + "\"" + numbers; };
    EXPECT_TRUE(ParseSectionCards("2\r\n" + card("P_HEA200") + card("p_x"), m).message.empty());
    EXPECT_EQ(m.sectionNames[0], "HEA200");
    EXPECT_EQ(m.sectionNames[1], "p_x");

    std::string cards99 = "99\r\n";
    for (int i = 0; i < 99; ++i)
        cards99 += card("S" + std::to_string(i));
    EXPECT_FALSE(ParseSectionCards(cards99, m).endProgram);
    EXPECT_EQ(m.sectionNames[98], "S98");
    const CatalogueResult sections = ParseSectionCards("100\r\n", m);
    EXPECT_TRUE(sections.endProgram);
    EXPECT_EQ(sections.message, " Troppe schede di sezione ");

    EXPECT_FALSE(ParseThicknessCards("100\r\n1,2,3,20,5\r\n2 1 0 0.5 0\r\n", m).endProgram);
    EXPECT_EQ(m.thicknessCardCount, 2); // a truncated file: the rest counts as absent
    EXPECT_EQ(m.thicknessValues[0], 20);
    EXPECT_EQ(m.thicknessValues[1], 0.5); // blanks end numbers as commas do
    const CatalogueResult thicknesses = ParseThicknessCards("101\r\n", m);
    EXPECT_TRUE(thicknesses.endProgram);
    EXPECT_EQ(thicknesses.message, " Troppe schede di spessore ");
    EXPECT_TRUE(ParseThicknessCards("0\r\n", m).message.empty());
    EXPECT_TRUE(ParseSectionCards("", m).message.empty());

    test::TempDir dir;
    EXPECT_EQ(ReadSectionCards(dir.path().string(), m).message,
              " Impossibile leggere il file " + dir.path().string() + "\\sezioni_");
}

} // namespace
} // namespace vorna
