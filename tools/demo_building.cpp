// The demo job's structure: a braced three-storey steel building on a 3 x 2 bay grid.
#include "demo_building.h"

#include <array>

namespace vorna::tools {
namespace {

// Plan grid 3 x 2 bays (600 x 500 cm), ground and three floors (350 cm storeys).
constexpr std::array<double, 4> kX = {0, 600, 1200, 1800};
constexpr std::array<double, 3> kY = {0, 500, 1000};
constexpr std::array<double, 4> kZ = {0, 350, 700, 1050};
constexpr int kNx = 4, kNy = 3, kLevels = 4, kPerLevel = kNx * kNy;

int PointAt(int level, int iy, int ix) {
    return level * kPerLevel + iy * kNx + ix;
}

// Floors in different colours, so that a colour selects a floor.
constexpr std::array<int, kLevels> kNodeColours = {kYellow, kRed, kOrange, kLightBlue};

} // namespace

Structure DemoBuilding() {
    Structure s;
    for (int l = 0; l < kLevels; ++l)
        for (int iy = 0; iy < kNy; ++iy)
            for (int ix = 0; ix < kNx; ++ix)
                s.points.push_back({kX[ix], kY[iy], kZ[l]});
    for (int p = 0; p < kLevels * kPerLevel; ++p) {
        const int level = p / kPerLevel;
        const bool base = level == 0, roof = level == kLevels - 1;
        s.nodes.push_back({p, base ? 1 : roof ? 2 : 0, kNodeColours[level], p + 1, base ? 1 : 0});
    }

    auto addBar = [&s](int i, int j, int lineType, int colour, int section, int release,
                       int orientation) {
        const int name = static_cast<int>(s.bars.size()) + 1;
        s.bars.push_back({i, j, lineType, colour, name, section, release, orientation});
    };
    for (int st = 0; st + 1 < kLevels; ++st)
        for (int iy = 0; iy < kNy; ++iy)
            for (int ix = 0; ix < kNx; ++ix)
                addBar(PointAt(st, iy, ix), PointAt(st + 1, iy, ix), 0, kRed, kHEB240, 0, 0);
    for (int l = 1; l < kLevels; ++l) {
        const bool roof = l == kLevels - 1;
        for (int iy = 0; iy < kNy; ++iy)
            for (int ix = 0; ix + 1 < kNx; ++ix)
                addBar(PointAt(l, iy, ix), PointAt(l, iy, ix + 1), 0, kBlue,
                       roof ? kIPE240 : kIPE300, 1, 0);
        for (int ix = 0; ix < kNx; ++ix)
            for (int iy = 0; iy + 1 < kNy; ++iy) {
                const bool edge = ix == 0 || ix == kNx - 1;
                addBar(PointAt(l, iy, ix), PointAt(l, iy + 1, ix), 0, kBlue,
                       edge ? kUPN160 : kHEA200, 1, 1);
            }
    }
    // X bracing in four end bays, placed so that half a turn about the plan's centre maps the
    // bracing onto itself: joints then come in mirrored pairs.
    struct Bay {
        int ix0, iy0, ix1, iy1;
    };
    constexpr std::array<Bay, 4> kBracedBays = {{
        {0, 0, 1, 0}, // facade y = 0, first bay
        {2, 2, 3, 2}, // facade y = 1000, last bay
        {0, 0, 0, 1}, // facade x = 0, first bay
        {3, 1, 3, 2}, // facade x = 1800, last bay
    }};
    for (int st = 0; st + 1 < kLevels; ++st)
        for (const Bay &b : kBracedBays) {
            addBar(PointAt(st, b.iy0, b.ix0), PointAt(st + 1, b.iy1, b.ix1), 1, kGreen, kL80x8, 2,
                   2);
            addBar(PointAt(st, b.iy1, b.ix1), PointAt(st + 1, b.iy0, b.ix0), 1, kGreen, kL80x8, 2,
                   2);
        }

    // First floor: a concrete slab on the whole plan. Roof: slab on two bays, light sheeting
    // (triangles, partly thinner than the display minimum) on the third.
    auto addShell = [&s](std::array<int, 4> v, int thickness, int colour) {
        s.shells.push_back({v, static_cast<int>(s.shells.size()) + 1, thickness, colour});
    };
    for (int iy = 0; iy + 1 < kNy; ++iy)
        for (int ix = 0; ix + 1 < kNx; ++ix)
            addShell({PointAt(1, iy, ix), PointAt(1, iy, ix + 1), PointAt(1, iy + 1, ix + 1),
                      PointAt(1, iy + 1, ix)},
                     kSlab20, kDarkGreen);
    const int roof = kLevels - 1;
    for (int iy = 0; iy + 1 < kNy; ++iy)
        for (int ix = 0; ix + 1 < kNx; ++ix) {
            const int a = PointAt(roof, iy, ix), b = PointAt(roof, iy, ix + 1),
                      c = PointAt(roof, iy + 1, ix + 1), d = PointAt(roof, iy + 1, ix);
            if (ix + 2 < kNx) {
                addShell({a, b, c, d}, kSlab12, kYellow);
            } else {
                addShell({a, b, c, -1}, iy == 0 ? kSheet05 : kSlab12, kMagenta);
                addShell({a, c, d, -1}, iy == 0 ? kSheet05 : kSlab12, kMagenta);
            }
        }

    // Off the building, elements that are not live: a node coloured 12, a node and a bar named 0.
    const int aux = static_cast<int>(s.points.size());
    s.points.push_back({-250.5, -300.25, 0});
    s.points.push_back({-250.5, -300.25, 350});
    s.nodes.push_back({aux, 3, 12, kLevels * kPerLevel + 1, 0});
    s.nodes.push_back({aux + 1, 3, kWhite, 0, 0});
    s.bars.push_back({aux, aux + 1, 0, kMagenta, 0, kHEA200, 0, 0});

    AddTrailingSections(s);
    return s;
}

} // namespace vorna::tools
