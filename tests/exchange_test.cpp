// Tests of the files exchanged with the suite: "VornaNIn.txt" read, "Collegamenti.txt",
// "Dati_Coll_3D.txt" and "VornaOut.txt" written byte for byte, and the File commands.
#include "app/command_steps.h"
#include "app/commands.h"
#include "connection/bar_types.h"
#include "connection/base_node.h"
#include "exchange/connection_file.h"
#include "exchange/connection_input.h"
#include "exchange/csv.h"
#include "exchange/joint_types_csv.h"
#include "exchange/result_file.h"
#include "projection/projection.h"
#include "recording_canvas.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <memory>

namespace vorna {
namespace {

std::string KeyLine(std::string_view value, std::string_view key, std::string_view comment = "") {
    std::string out;
    WriteKeyLine(out, value, key, comment);
    return out;
}

TEST(KeyLine, ValueFieldBracketAndTrim) {
    EXPECT_EQ(KeyLine(NumberField(-12), "NODO_BASE 1").find('['), 40u); // as a text value
    EXPECT_EQ(KeyLine(NumberField(12), "NODO_BASE 1").find('['), 39u);
    const std::string longValue(45, 'x');
    EXPECT_EQ(KeyLine(longValue, " K "), longValue + " [K]\r\n");
    EXPECT_EQ(KeyLine("  A B ", "K"), "A B " + std::string(34, ' ') + "[K]\r\n");
    EXPECT_EQ(KeyLine("1", "K", "note "), "1" + std::string(39, ' ') + "[K] note\r\n");
}

// Base node 12 with bars 7 and 9 (types TR and PI), one more analogous node 40 with bars 51
// and 53 in the same directions, connection type 2, the bars classified.
struct Connection {
    std::unique_ptr<StructureModel> m = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ConnectionState s;
    ConnectionInput input;

    void Joint(double x, int name, int beam, int column) {
        const auto p = m->pointCount;
        m->points[p] = {x, 0, 0};
        m->points[p + 1] = {x + 1, 0, 0};
        m->points[p + 2] = {x, 0, -1};
        m->pointCount = static_cast<std::int16_t>(p + 3);
        m->nodes[m->nodeCount] = {p, 0, 1, static_cast<std::int16_t>(name), 0};
        view->nodeShown[m->nodeCount++] = 1;
        for (int k : {1, 2})
            m->bars[m->barCount++] = {p, static_cast<std::int16_t>(p + k), 0, 1,
                                      static_cast<std::int16_t>(k == 1 ? beam : column)};
    }
    Connection() {
        Joint(0, 12, 7, 9);
        Joint(10, 40, 51, 53);
        ProjectStructure(*m, *view, 30, 30, 0);
        SetBaseNodeByName(*m, *view, s, 12);
        GatherBaseBars(*m, *view, s);
        TestAnalogy(*m, *view, s, {}, 1);
        BuildAnalogousListText(*m, s);
        s.baseBarTypes = {1, 2};
        ClassifyAnalogousBars(*m, s, AnalogyMethod::Identical);
        input.connectionTypeCode = "2";
        input.barTypeCount = 3;
        input.barTypeCodes = {"", "TR", "PI", "XX"};
    }
};

TEST(ConnectionFile, ExampleByteForByteAndRefusals) {
    Connection c;
    test::TempDir dir;
    const std::string folder = dir.path().string();
    EXPECT_EQ(WriteConnectionFile(folder, *c.m, c.s, c.input), WriteResult::Written);
    EXPECT_EQ(test::ReadBytes(dir.path() / "Collegamenti.txt"),
              test::KeptBytes("collegamenti_example.txt"));
    EXPECT_EQ(WriteConnectionNameFile(folder, *c.m, c.s), WriteResult::Written);
    EXPECT_EQ(test::ReadBytes(dir.path() / "Dati_Coll_3D.txt"), "COLL12\r\n");
    EXPECT_EQ(WriteConnectionFile(folder + "/missing", *c.m, c.s, c.input),
              WriteResult::CannotWrite);

    test::TempDir empty;
    for (int count : {kTooManyBaseBars, 0}) {
        c.s.baseBarCount = static_cast<std::int16_t>(count);
        c.s.baseNode = static_cast<std::int16_t>(count == 0 ? -1 : 0);
        EXPECT_EQ(WriteConnectionFile(empty.path().string(), *c.m, c.s, c.input),
                  WriteResult::NoBaseNode);
        EXPECT_EQ(WriteConnectionNameFile(empty.path().string(), *c.m, c.s),
                  WriteResult::NoBaseNode);
        EXPECT_FALSE(ResultFileText(*c.m, c.s, c.input, {}, ImportMode::All));
    }
    EXPECT_TRUE(std::filesystem::is_empty(empty.path()));
}

TEST(ResultFile, TypeListsAndWholeFile) {
    Connection c;
    const TypeBarTexts texts = BuildTypeBarLists(*c.m, c.s, AnalogyMethod::Identical);
    EXPECT_EQ(texts[1], "7,51");
    EXPECT_EQ(texts[3], "");
    test::TempDir dir;
    EXPECT_EQ(WriteResultFile(dir.path().string(), *c.m, c.s, c.input, texts, ImportMode::Forces),
              WriteResult::Written);
    EXPECT_EQ(test::ReadBytes(dir.path() / "VornaOut.txt"),
              test::KeptBytes("vornaout_example.txt"));
    EXPECT_EQ(RangeText({3, 4, 5, 9, 12, 13}), "3-5,9,12-13");
    EXPECT_EQ(RangeText({-4, 0, 2, 2, 3}), "2,2-3");
}

// The catalogue as a spreadsheet: byte-order mark, decimal comma, CR LF, nodes by name within
// their type, only named bars.
TEST(JointTypesCsv, RowsByTypeThenName) {
    auto m = std::make_unique<StructureModel>();
    m->points[0] = {1.5, -0.25, 3};
    m->points[1] = {2, 0, 1e-5};
    m->points[2] = {0, 0, 0};
    m->pointCount = 3;
    for (int n = 0; n < 3; ++n)
        m->nodes[n] = {static_cast<std::int16_t>(n), 0, 1, static_cast<std::int16_t>(30 - 10 * n),
                       0};
    m->bars[0] = {0, 1, 0, 1, 7};
    m->bars[1] = {0, 2, 0, 1, 0}; // unnamed: not listed
    m->bars[2] = {1, 2, 0, 1, 12};
    m->barCount = 3;
    JointTypeCatalogue catalogue;
    catalogue.types = {{2, {0, 1}}, {1, {2}}}; // the head (30) listed before 20
    const std::string text =
        JointTypesCsvText(*m, catalogue, [&](int node, std::vector<std::int16_t> &bars) {
            for (std::int16_t b = 0; b < m->barCount; ++b)
                if (m->bars[b].pointI == node || m->bars[b].pointJ == node)
                    bars.push_back(b);
        });
    EXPECT_EQ(text, "\xEF\xBB\xBFTipo;Nodi del tipo;Capo;Nodo;X;Y;Z;Aste\r\n"
                    "1;2;30;20;2;0;1e-05;7 12\r\n"
                    "1;2;30;30;1,5;-0,25;3;7\r\n"
                    "2;1;10;10;0;0;0;12\r\n");
    // Its safe write, message and refusal: EndToEndWhyNot.TheCatalogueAsCsvFromItsDialog.
}

TEST(ConnectionInput, FieldsCodesAndDescriptions) {
    ConnectionInput in;
    ASSERT_EQ(ParseConnectionInput("Giunto, flangiato\r\n 12 \r\n3\r\nTR  Trave principale\r\n"
                                   "\"PI\tPilastro, d'angolo\"\r\nDI\r\n",
                                   in),
              InputResult::Read);
    EXPECT_EQ(in.connectionDescription, "Giunto, flangiato");
    EXPECT_EQ(in.connectionTypeCode, "12");
    EXPECT_EQ(in.barTypeCount, 3);
    EXPECT_EQ(in.barTypeCodes[1] + "|" + in.barTypeDescriptions[1], "TR|Trave principale");
    EXPECT_EQ(in.barTypeCodes[2] + "|" + in.barTypeDescriptions[2], "PI|Pilastro, d'angolo");
    EXPECT_EQ(in.barTypeCodes[3] + "|" + in.barTypeDescriptions[3], "DI|");

    ConnectionInput shortFile;
    EXPECT_EQ(ParseConnectionInput("D\r\n2\r\ntre\r\nTR x\r\n", shortFile), InputResult::Read);
    EXPECT_EQ(shortFile.barTypeCount, 0);
    EXPECT_EQ(ParseConnectionInput("D\r\n2\r\n2\r\nTR x\r\n", shortFile), InputResult::Read);
    EXPECT_EQ(shortFile.barTypeCodes[2], ""); // the missing line leaves it

    std::string ten = "D\r\n1\r\n10\r\n";
    for (int t = 1; t <= 10; ++t)
        ten += "T" + std::to_string(t) + " tipo\r\n";
    EXPECT_EQ(ParseConnectionInput(ten, in), InputResult::Read);
    EXPECT_EQ(in.barTypeCodes[10], "T10");
    EXPECT_EQ(ParseConnectionInput("D\r\n1\r\n10.6\r\n", in), InputResult::TooManyTypes);
}

// The File commands on a program whose job folder is a temporary folder.
struct Job {
    test::TempDir dir;
    test::RecordingUi ui;
    test::RecordingCanvas disegno, picture1;
    std::unique_ptr<Program> p = std::make_unique<Program>(ui, disegno, picture1);
    Job() { p->folders.jobFolder = p->folders.jobPath = dir.path().string(); }
};

TEST(FileCommands, InputAtStartUpAndTheWaysOut) {
    {
        Job job;
        job.p->form.StringaSel.caption = "x";
        LoadConnectionInput(*job.p);
        EXPECT_EQ(job.p->form.StringaSel.caption, "");
        EXPECT_FALSE(job.p->exitRequested);
        job.dir.Write("VornaNIn.txt", "D\r\n2\r\n11\r\n");
        LoadConnectionInput(*job.p);
        EXPECT_EQ(job.p->input.barTypeCount, 0);
        EXPECT_EQ(job.ui.exitStatus, 1);
        ASSERT_EQ(job.ui.messages.size(), 1u);
        EXPECT_EQ(job.ui.messages[0].text, " Numero eccessivo di tipi asta ");
        EXPECT_EQ(job.ui.messages[0].title, "Problema");
        EXPECT_EQ(job.ui.messages[0].icon, MsgIcon::Critical);
    }
    {
        Job job; // no base node: nothing written, the message, the end with status 1
        ScriColl_Click(*job.p);
        ASSERT_EQ(job.ui.messages.size(), 1u);
        EXPECT_EQ(job.ui.messages[0].text, " Non \xE8 possibile scrivere il file di uscita ");
        EXPECT_EQ(job.ui.exitStatus, 1);
        EXPECT_TRUE(std::filesystem::is_empty(job.dir.path()));
    }
}

} // namespace
} // namespace vorna
