// make-large-model: writes a regular building that fills every structure table to its capacity.
#include "suite_files.h"

#include <iostream>
#include <string>

namespace vorna::tools {
namespace {

// 40 x 50 columns on a 600 x 500 cm grid, ground and nine floors: 20000 points, and one more at
// the top of a roof mast makes 20001.
constexpr int kNx = 40, kNy = 50, kLevels = 10, kPerLevel = kNx * kNy;
constexpr double kDx = 600, kDy = 500, kDz = 350, kMastHeight = 800;
constexpr int kMastX = kNx / 2, kMastY = kNy / 2;
// Floor slabs leave an atrium of 10 x 14 bays open in the middle.
constexpr int kAtriumX0 = 15, kAtriumX1 = 25, kAtriumY0 = 18, kAtriumY1 = 32;
// Facade bays braced with one diagonal: every third one.
constexpr int kBraceEvery = 3;

int PointAt(int level, int iy, int ix) {
    return level * kPerLevel + iy * kNx + ix;
}

bool InAtrium(int ix, int iy) {
    return ix >= kAtriumX0 && ix < kAtriumX1 && iy >= kAtriumY0 && iy < kAtriumY1;
}

bool BesideAtrium(int ix, int iy) {
    return !InAtrium(ix, iy) && ix >= kAtriumX0 - 1 && ix <= kAtriumX1 && iy >= kAtriumY0 - 1 &&
           iy <= kAtriumY1;
}

// The facade bays of one level, in order: y = 0, y = max, x = 0, x = max; each as its two
// ends at that level.
std::vector<std::array<int, 2>> FacadeBays(int level) {
    std::vector<std::array<int, 2>> bays;
    for (int iy : {0, kNy - 1})
        for (int ix = 0; ix + 1 < kNx; ++ix)
            bays.push_back({PointAt(level, iy, ix), PointAt(level, iy, ix + 1)});
    for (int ix : {0, kNx - 1})
        for (int iy = 0; iy + 1 < kNy; ++iy)
            bays.push_back({PointAt(level, iy, ix), PointAt(level, iy + 1, ix)});
    return bays;
}

Structure LargeBuilding() {
    Structure s;
    for (int l = 0; l < kLevels; ++l)
        for (int iy = 0; iy < kNy; ++iy)
            for (int ix = 0; ix < kNx; ++ix)
                s.points.push_back({ix * kDx, iy * kDy, l * kDz});
    const int mastFoot = PointAt(kLevels - 1, kMastY, kMastX);
    const int mastTop = static_cast<int>(s.points.size());
    s.points.push_back({kMastX * kDx, kMastY * kDy, (kLevels - 1) * kDz + kMastHeight});

    for (int p = 0; p < mastTop; ++p) {
        const int level = p / kPerLevel;
        const bool base = level == 0, roof = level == kLevels - 1;
        s.nodes.push_back({p, base ? 1 : roof ? 2 : 0, 1 + level % 9, p + 1, base ? 1 : 0});
    }
    s.nodes.push_back({mastTop, 3, kMagenta, mastTop + 1, 0});

    auto addBar = [&s](int i, int j, int lineType, int colour, int section, int release) {
        const int name = static_cast<int>(s.bars.size()) + 1;
        s.bars.push_back({i, j, lineType, colour, name, section, release, 0});
    };
    // A flat-slab building: columns everywhere, beams only along the facades.
    for (int st = 0; st + 1 < kLevels; ++st) {
        for (int p = 0; p < kPerLevel; ++p)
            addBar(st * kPerLevel + p, (st + 1) * kPerLevel + p, 0, kRed, kHEB240, 0);
        for (const auto &bay : FacadeBays(st + 1))
            addBar(bay[0], bay[1], 0, kBlue, kIPE300, 1);
    }
    addBar(mastFoot, mastTop, 0, kOrange, kHEA200, 0);
    // Bracing from the ground up, where the storey shear is largest, until the bar table is full.
    for (int st = 0; st + 1 < kLevels; ++st) {
        const auto below = FacadeBays(st), above = FacadeBays(st + 1);
        for (std::size_t b = 0; b < below.size(); b += kBraceEvery)
            if (s.bars.size() < kBarCapacity)
                addBar(below[b][0], above[b][1], 1, kGreen, kL80x8, 2);
    }

    // Slab quads on every floor but the atrium; around the atrium the mesh turns to triangles,
    // from the lowest floor up, until the shell table is full.
    int quads = 0;
    for (int l = 1; l < kLevels; ++l)
        for (int iy = 0; iy + 1 < kNy; ++iy)
            for (int ix = 0; ix + 1 < kNx; ++ix)
                quads += InAtrium(ix, iy) ? 0 : 1;
    int splits = kShellCapacity - quads;
    auto addShell = [&s](std::array<int, 4> v, int thickness, int colour) {
        s.shells.push_back({v, static_cast<int>(s.shells.size()) + 1, thickness, colour});
    };
    for (int l = 1; l < kLevels; ++l)
        for (int iy = 0; iy + 1 < kNy; ++iy)
            for (int ix = 0; ix + 1 < kNx; ++ix) {
                if (InAtrium(ix, iy))
                    continue;
                const int a = PointAt(l, iy, ix), b = PointAt(l, iy, ix + 1),
                          c = PointAt(l, iy + 1, ix + 1), d = PointAt(l, iy + 1, ix);
                if (splits > 0 && BesideAtrium(ix, iy)) {
                    addShell({a, b, c, -1}, kSlab12, kMagenta);
                    addShell({a, c, d, -1}, kSlab12, kMagenta);
                    --splits;
                } else {
                    addShell({a, b, c, d}, kSlab20, kDarkGreen);
                }
            }
    AddTrailingSections(s);
    return s;
}

int Main(int argc, char **argv) {
    std::optional<std::filesystem::path> suite, folder, font;
    std::string name = "STRUTTUR.STR";
    double rounding = 0;
    bool usable = true, named = false;
    for (int i = 1; i < argc && usable; ++i) {
        const std::string arg = argv[i];
        if (arg == "--suite" && i + 1 < argc && !suite)
            suite = argv[++i];
        else if (arg == "--font" && i + 1 < argc)
            font = argv[++i];
        else if (arg == "--rounding" && i + 1 < argc)
            usable = ReadRounding(argv[++i], rounding);
        else if (arg.empty() || arg[0] == '-')
            usable = false;
        else if (!folder)
            folder = arg;
        else if (!named)
            name = arg, named = true;
        else
            usable = false;
    }
    if (!usable || suite.has_value() == folder.has_value() || (font && !suite)) {
        std::cerr << "usage: make-large-model [--rounding MM] DIR [NAME]\n"
                     "       make-large-model --suite DIR [--font FILE] [--rounding MM]\n"
                     "writes a structure at the tables' full capacity to DIR/NAME (STRUTTUR.STR\n"
                     "by default), or a whole suite root with that structure as its job;\n"
                     "--rounding moves every coordinate by up to MM millimetres\n";
        return 2;
    }
    Structure s = LargeBuilding();
    MoveCoordinates(s, rounding / 10); // the building is drawn in centimetres
    const bool full = s.points.size() == kPointCapacity && s.nodes.size() == kNodeCapacity &&
                      s.bars.size() == kBarCapacity && s.shells.size() == kShellCapacity;
    if (!full) {
        std::cerr << "make-large-model: the building does not fill the tables\n";
        return 1;
    }
    std::string problem;
    if (suite) {
        problem = WriteSuite(*suite, s, font);
        if (problem.empty())
            std::cout << "suite written to " << AbsoluteFolder(*suite).string() << " (job "
                      << kJobName << ")\n";
    } else {
        const std::filesystem::path file = *folder / name;
        problem = WriteStructureFile(file, s);
        if (problem.empty())
            std::cout << "structure written to " << file.string() << "\n";
    }
    if (!problem.empty()) {
        std::cerr << "make-large-model: " << problem << "\n";
        return 1;
    }
    PrintSummary(std::cout, s, false);
    return 0;
}

} // namespace
} // namespace vorna::tools

int main(int argc, char **argv) {
    return vorna::tools::Main(argc, argv);
}
