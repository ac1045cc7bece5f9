// Tests of the drawing export: the printed numbers, the clean-up against its plain quadratic
// reference, and the .dis and DXF files byte for byte.
#include "clean_drawing_reference.h"
#include "export/clean_drawing.h"
#include "export/dis_file.h"
#include "export/dxf_file.h"
#include "model/tokens.h"
#include "platform/number_text.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>
#include <sstream>

namespace vorna {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Buffers built by hand: Point returns the index the elements refer to.
struct Drawing {
    DrawBuffers b;
    std::int32_t Point(double x, double y) {
        b.coordX.push_back(x);
        b.coordY.push_back(y);
        return static_cast<std::int32_t>(b.coordX.size()) - 1;
    }
    void Line(std::int32_t start, std::int32_t end, std::int16_t colour, std::int16_t type = 0) {
        b.lines.push_back({start, end, type, colour});
    }
    void Arc(std::int32_t centre, std::int32_t start, std::int32_t end, std::int16_t colour,
             std::int16_t kind = 0) {
        b.arcs.push_back({centre, start, centre, end, kind, colour});
    }
    void Text(std::int32_t point, std::int16_t width, std::int16_t height, std::int16_t angle,
              std::int16_t colour, std::string text) {
        b.texts.push_back({point, width, height, angle, colour, std::move(text)});
    }
};

// Every field, coordinates by their bits so that NaN and -0 compare too.
std::string Dump(const DrawBuffers &b) {
    std::ostringstream s;
    for (std::size_t i = 0; i < b.coordX.size(); ++i)
        s << std::bit_cast<std::uint64_t>(b.coordX[i]) << ','
          << std::bit_cast<std::uint64_t>(b.coordY[i]) << ' ';
    s << "\nlines ";
    for (const LineElement &l : b.lines)
        s << l.start << ',' << l.end << ',' << l.type << ',' << l.colour << ' ';
    s << "\narcs ";
    for (const ArcElement &a : b.arcs)
        s << a.centre << ',' << a.start << ',' << a.centre2 << ',' << a.end << ',' << a.kind << ','
          << a.colour << ' ';
    s << "\ntexts ";
    for (const TextElement &t : b.texts)
        s << t.point << ',' << t.width << ',' << t.height << ',' << t.angle << ',' << t.colour
          << ',' << t.text << ' ';
    return s.str();
}

TEST(PrintedNumber, ShortestDigitsSignBlankAndExponent) {
    std::string all;
    for (double v : {0.0, -0.0, 0.5, -0.25, 0.1 + 0.2, 1e16, 1.5e-5, -2.5e20, 1e15,
                     999999999999999.0, 0.0001, -9.999e-5, 5e-324, kNaN, -kInf})
        all += PrintedNumber(v) + "|";
    EXPECT_EQ(all, " 0| 0| .5|-.25| .30000000000000004| 1E+16| 1.5E-05|-2.5E+20| 1E+15|"
                   " 999999999999999| .0001|-9.999E-05| 5E-324| 0| 0|");
}

// Points on a coarse lattice (exact duplicates, collinear lines) moved by offsets around the
// tolerance, chains of near points, a few huge and non-finite values; arcs drawn from a small
// pool so that copies occur; texts with and without size; now and then a reference outside.
DrawBuffers RandomDrawing(std::mt19937 &rng) {
    auto pick = [&rng](int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); };
    const double offsets[] = {0, 0, 0, 0.00006, 0.0001, 0.0000999, 0.0001001, -0.00005, 0.00012};
    const double unusual[] = {kNaN, kInf, -kInf, 1e300, -1e300, 1e15, 9.2e14, 0.3};
    Drawing d;
    const int n = 1 + pick(100);
    for (int i = 0; i < n; ++i) {
        double x = pick(6) * 0.5 + offsets[pick(9)];
        double y = pick(4) * 0.5 + offsets[pick(9)];
        if (pick(30) == 0)
            x = unusual[pick(8)];
        if (i > 0 && pick(5) == 0)
            x = d.b.coordX.back() + 0.00006, y = d.b.coordY.back();
        d.Point(x, y);
    }
    auto ref = [&]() -> std::int32_t {
        const int r = pick(40);
        return r == 0 ? -1 : r == 1 ? n + pick(3) : pick(n);
    };
    for (int i = pick(80); i > 0; --i)
        d.Line(ref(), ref(), static_cast<std::int16_t>(pick(4) - 1),
               static_cast<std::int16_t>(pick(3)));
    std::vector<ArcElement> pool;
    pool.reserve(6);
    for (int i = 0; i < 6; ++i)
        pool.push_back({ref(), ref(), ref(), ref(), static_cast<std::int16_t>(pick(2)),
                        static_cast<std::int16_t>(pick(3))});
    for (int i = pick(30); i > 0; --i)
        d.b.arcs.push_back(pool[pick(6)]);
    const std::int16_t sizes[] = {0, 5, 25, -3};
    for (int i = pick(20); i > 0; --i)
        d.Text(ref(), sizes[pick(4)], sizes[pick(4)], 0, 1, "t" + std::to_string(i));
    return d.b;
}

TEST(CleanDrawing, EqualsTheLiteralProcedureOnRandomBuffers) {
    std::mt19937 rng(20240611);
    for (int round = 0; round < 500; ++round) {
        DrawBuffers fast = RandomDrawing(rng);
        DrawBuffers literal = fast;
        CleanDrawing(fast);
        reference::CleanDrawing(literal);
        ASSERT_EQ(Dump(fast), Dump(literal)) << "round " << round;
    }
}

TEST(DisFile, ExampleEmptyAndCleanedByteForByte) {
    test::TempDir dir;
    Drawing example;
    const auto start = example.Point(0, 0), end = example.Point(10, 5);
    example.Line(start, end, 3);
    SaveDisDrawing((dir.path() / "example.dis").string(), example.b, 0);
    EXPECT_EQ(test::ReadBytes(dir.path() / "example.dis"), test::KeptBytes("export/example.dis"));

    const DrawBuffers empty;
    EXPECT_EQ(DisFileText(empty, DrawingExtents(empty), 4), test::KeptBytes("export/empty.dis"));

    // Near coordinates merge (a chain keeps its far end), the copy of an arc and the text of
    // height 0 go, extents are taken before the clean-up.
    Drawing d;
    const auto origin = d.Point(0, 0);
    d.Point(10, 5);
    const auto nearOrigin = d.Point(0.00005, -0.00003), label = d.Point(-2.5, 0.75);
    const auto nearCorner = d.Point(10.00006, 5), chainEnd = d.Point(10.00012, 5);
    d.Line(nearOrigin, label, 3);
    d.Line(origin, nearCorner, 5);
    d.Text(label, 25, 50, 90, 1, "N12");
    d.Text(chainEnd, 10, 0, 0, 1, "gone");
    d.Arc(label, chainEnd, chainEnd, 1);
    d.Arc(label, chainEnd, chainEnd, 1);
    d.Arc(label, chainEnd, chainEnd, 2);
    SaveDisDrawing((dir.path() / "cleaned.dis").string(), d.b, 0);
    EXPECT_EQ(test::ReadBytes(dir.path() / "cleaned.dis"), test::KeptBytes("export/cleaned.dis"));
}

TEST(DxfFile, LinesTextsArcsAndEmptyByteForByte) {
    test::TempDir dir;
    Drawing lines;
    const auto o = lines.Point(0, 0), p = lines.Point(10, 5), q = lines.Point(-2.5, 0.75);
    lines.Line(o, p, 1);    // no colour group: 16 lines
    lines.Line(p, q, 3);    // DXF colour 1
    lines.Line(q, o, 0, 2); // black is 18; a dashed line type
    WriteDxf((dir.path() / "lines.dxf").string(), lines.b, false);
    EXPECT_EQ(test::ReadBytes(dir.path() / "lines.dxf"), test::KeptBytes("export/lines.dxf"));
    // Monochrome: every colour group says 7, and colour code 1 still writes none.
    std::string mono = test::KeptBytes("export/lines.dxf");
    ReplaceAll(mono, " 62\r\n 1\r\n", " 62\r\n 7\r\n", false);
    ReplaceAll(mono, " 62\r\n 18\r\n", " 62\r\n 7\r\n", false);
    EXPECT_EQ(DxfFileText(lines.b, true), mono);

    Drawing d;
    const auto c = d.Point(1, 1), q1 = d.Point(2, 2), q2 = d.Point(0, 2), q3 = d.Point(0, 0);
    const auto q4 = d.Point(2, 0), up = d.Point(1, 3), down = d.Point(1, -1);
    d.Text(c, 25, 50, 90, 1, "]20");
    d.Text(q1, 7, 20, -45, 3, "A]B]");
    d.Text(q2, 10, 0, 0, 1, "no height");
    d.Arc(c, q1, q2, 2);
    d.Arc(c, q3, q4, 1, 1);
    d.Arc(c, q1, q1, 4);
    d.Arc(c, c, c, 4); // radius 0: left out
    d.Arc(c, up, down, 5);
    EXPECT_EQ(DxfFileText(d.b, false), test::KeptBytes("export/texts_arcs.dxf"));
    EXPECT_EQ(DxfFileText(DrawBuffers{}, false), test::KeptBytes("export/empty.dxf"));
}

} // namespace
} // namespace vorna
