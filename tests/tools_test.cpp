// Tests of the generators in tools/: their files must load with the program's own readers.
#include "model/catalogues.h"
#include "model/load_structure.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vorna {
namespace {

namespace fs = std::filesystem;

std::string Quoted(const fs::path &p) {
    return std::string("\"").append(p.string()).append("\"");
}

int RunTool(const fs::path &tool, const std::string &arguments) {
    const std::string command = Quoted(tool).append(" ").append(arguments).append(" >/dev/null");
    return test::RunCommand(command);
}

// Every line ends in CR LF: no lone CR or LF anywhere, and a line end at the end.
bool CrlfOnly(const std::string &bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n'))
            return false;
        if (bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r'))
            return false;
    }
    return bytes.size() >= 2 && bytes.ends_with("\r\n");
}

// Bars and shells must end on points that carry a node, or the analogy search finds nothing.
void ExpectEveryEndHasANode(const StructureModel &m) {
    std::vector<bool> hasNode(m.pointCount, false);
    for (int n = 0; n < m.nodeCount; ++n)
        hasNode.at(m.nodes[n].pointIndex) = true;
    for (int b = 0; b < m.barCount; ++b)
        ASSERT_TRUE(hasNode.at(m.bars[b].pointI) && hasNode.at(m.bars[b].pointJ)) << "bar " << b;
    for (int s = 0; s < m.shellCount; ++s)
        for (int c = 0; c < (m.shells[s].vertices[3] < 0 ? 3 : 4); ++c)
            ASSERT_TRUE(hasNode.at(m.shells[s].vertices[c])) << "shell " << s;
}

TEST(MakeDemoSuite, WritesASuiteTheReadersAccept) {
    test::TempDir dir;
    const fs::path root = dir.path() / "Suite";
    ASSERT_EQ(test::MakeDemoSuite(root), 0);
    const fs::path job = root / "lavori" / "demo01";

    for (const fs::path &file :
         {root / "impostazioni" / "dirlav", root / "impostazioni" / "lavoro",
          root / "custom" / "VorNOpzi.txt", root / "custom" / "VorOpInt.txt", job / "STRUTTUR.STR",
          job / "sezioni_", job / "spessori", job / "VornaNIn.txt"})
        EXPECT_TRUE(CrlfOnly(test::ReadBytes(file))) << file;
    EXPECT_TRUE(fs::is_directory(root / "progra"));
    EXPECT_EQ(test::ReadBytes(root / "impostazioni" / "dirlav"),
              fs::absolute(root).generic_string() + "/lavori/\r\n");
    EXPECT_EQ(test::ReadBytes(root / "impostazioni" / "lavoro"), "demo01\r\n");
    const std::string options = test::ReadBytes(root / "custom" / "VorNOpzi.txt");
    EXPECT_EQ(std::count(options.begin(), options.end(), '\n'), 30);

    StructureModel m;
    ASSERT_EQ(ParseStructure(test::ReadBytes(job / "STRUTTUR.STR"), m), LoadResult::Loaded);
    EXPECT_EQ(ParseSectionCards(test::ReadBytes(job / "sezioni_"), m).message, "");
    EXPECT_EQ(ParseThicknessCards(test::ReadBytes(job / "spessori"), m).message, "");

    // Its content (counts, thin shells, triangles, dead elements) is the end-to-end tests' demo
    // job, drawn and written byte for byte against the files kept beside the tests.
    ExpectEveryEndHasANode(m);
}

TEST(MakeLargeModel, FillsEveryTableAndRepeatsItself) {
    const fs::path tool = VORNA_LARGE_TOOL;
    test::TempDir dir;
    ASSERT_EQ(RunTool(tool, Quoted(dir.path())), 0);
    ASSERT_EQ(RunTool(tool, Quoted(dir.path()) + " again.str"), 0);
    const std::string bytes = test::ReadBytes(dir.path() / "STRUTTUR.STR");
    EXPECT_EQ(bytes, test::ReadBytes(dir.path() / "again.str"));
    EXPECT_TRUE(CrlfOnly(bytes));

    StructureModel m;
    ASSERT_EQ(ParseStructure(bytes, m), LoadResult::Loaded);
    EXPECT_EQ(m.pointCount, kPointCapacity);
    EXPECT_EQ(m.nodeCount, kNodeCapacity);
    EXPECT_EQ(m.barCount, kBarCapacity);
    EXPECT_EQ(m.shellCount, kShellCapacity);
    ExpectEveryEndHasANode(m);
    EXPECT_NE(RunTool(tool, "2>/dev/null"), 0); // no folder: usage
}

} // namespace
} // namespace vorna
