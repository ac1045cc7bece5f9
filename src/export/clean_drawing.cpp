// The extents of the drawing buffers and their clean-up before a .dis file is written.
#include "export/clean_drawing.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <tuple>

namespace vorna {
namespace {

// Twice the tolerance: two coordinates closer than it on an axis lie in the same or adjacent
// cells with a wide margin for the rounding of the division.
constexpr double kCellSize = 0.0002;

bool IsCoordinate(const DrawBuffers &b, std::int32_t i) {
    return i >= 0 && i < static_cast<std::int32_t>(b.coordX.size());
}

double Distance(const DrawBuffers &b, std::int32_t i, std::int32_t j) {
    const double dx = b.coordX[i] - b.coordX[j];
    const double dy = b.coordY[i] - b.coordY[j];
    return std::sqrt(dx * dx + dy * dy);
}

bool LiesOn(const DrawBuffers &b, std::int32_t p, const LineElement &line) {
    return Distance(b, p, line.start) + Distance(b, p, line.end) -
               Distance(b, line.start, line.end) <
           kTolerance;
}

bool HasCoordinates(const DrawBuffers &b, const LineElement &line) {
    return IsCoordinate(b, line.start) && IsCoordinate(b, line.end);
}

template <class T> void KeepMarked(std::vector<T> &items, const std::vector<char> &keep) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (keep[i])
            items[kept++] = std::move(items[i]);
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(kept), items.end());
}

// Only styled lines can go, and the export pass stores none: just those are compared with the
// others. A line removed earlier no longer holds later ones.
void RemoveCoveredLines(DrawBuffers &b) {
    const std::size_t n = b.lines.size();
    std::vector<char> keep(n, 1);
    bool removed = false;
    for (std::size_t i = 0; i < n; ++i) {
        const LineElement &line = b.lines[i];
        if (line.colour <= 0 || line.type < 1 || !HasCoordinates(b, line))
            continue;
        for (std::size_t k = 0; k < n && keep[i]; ++k) {
            const LineElement &other = b.lines[k];
            if (k != i && keep[k] && HasCoordinates(b, other) && LiesOn(b, line.start, other) &&
                LiesOn(b, line.end, other))
                keep[i] = 0;
        }
        removed = removed || !keep[i];
    }
    if (removed)
        KeepMarked(b.lines, keep);
}

// Sorted by their fields, a later copy of an arc follows the earlier one it repeats (the sort is
// stable), so each run of equal records keeps its first.
void RemoveRepeatedArcs(DrawBuffers &b) {
    auto fields = [&b](std::size_t i) {
        const ArcElement &a = b.arcs[i];
        return std::tuple(a.centre, a.start, a.centre2, a.end, a.kind, a.colour);
    };
    std::vector<std::size_t> order(b.arcs.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&fields](std::size_t i, std::size_t j) { return fields(i) < fields(j); });
    std::vector<char> keep(b.arcs.size(), 1);
    for (std::size_t k = 1; k < order.size(); ++k)
        if (fields(order[k]) == fields(order[k - 1]))
            keep[order[k]] = 0;
    KeepMarked(b.arcs, keep);
}

// Cell of a coordinate along one axis. Beyond 2^62 cells (about 9e14 units) neighbouring
// doubles are already farther apart than the tolerance, so there the value's own bits name
// its cell; a cell shared by chance only costs a comparison.
std::uint64_t CellOf(double v) {
    const double q = std::floor(v / kCellSize);
    if (std::abs(q) < 0x1p62)
        return static_cast<std::uint64_t>(static_cast<std::int64_t>(q));
    return std::bit_cast<std::uint64_t>(v);
}

struct Cell {
    std::uint64_t x = 0;
    std::uint64_t y = 0;
    bool operator==(const Cell &) const = default;
};

// Open addressing over the cells, twice as many slots as coordinates so it never fills: a slot
// holds a cell and its newest kept coordinate (-1: free), chained through next to the older
// ones. No allocation per cell.
struct CellSlot {
    Cell cell;
    std::int32_t newest = -1;
};

struct CoordinateGrid {
    std::vector<CellSlot> slots;
    std::vector<std::int32_t> next;
};

CoordinateGrid MakeGrid(std::size_t coordinates) {
    CoordinateGrid grid;
    grid.slots.resize(std::bit_ceil(2 * coordinates + 2));
    grid.next.reserve(coordinates);
    return grid;
}

// The slot of a cell: its own, or the free one where it goes.
std::size_t SlotOf(const CoordinateGrid &grid, const Cell &c) {
    std::uint64_t h = (c.x * 0x9E3779B97F4A7C15ULL) ^ c.y;
    h ^= h >> 33;
    h *= 0xFF51AFD7ED558CCDULL;
    h ^= h >> 33;
    const std::size_t mask = grid.slots.size() - 1;
    for (std::size_t i = static_cast<std::size_t>(h) & mask;; i = (i + 1) & mask)
        if (grid.slots[i].newest < 0 || grid.slots[i].cell == c)
            return i;
}

// The earliest kept coordinate within the tolerance of (x, y) on both axes, or -1.
std::int32_t EarliestNear(const DrawBuffers &b, const CoordinateGrid &grid, const Cell &centre,
                          double x, double y) {
    std::int32_t found = -1;
    for (std::uint64_t dx : {~std::uint64_t{0}, std::uint64_t{0}, std::uint64_t{1}})
        for (std::uint64_t dy : {~std::uint64_t{0}, std::uint64_t{0}, std::uint64_t{1}}) {
            const CellSlot &slot = grid.slots[SlotOf(grid, {centre.x + dx, centre.y + dy})];
            for (std::int32_t k = slot.newest; k >= 0; k = grid.next[k])
                if ((found < 0 || k < found) && std::abs(b.coordX[k] - x) < kTolerance &&
                    std::abs(b.coordY[k] - y) < kTolerance)
                    found = k;
        }
    return found;
}

void RemapReference(std::int32_t &ref, const std::vector<std::int32_t> &newIndex,
                    std::int32_t removed) {
    if (ref < 0)
        return;
    // A reference beyond the buffer moves down with every coordinate deleted below it.
    ref = ref < static_cast<std::int32_t>(newIndex.size()) ? newIndex[ref] : ref - removed;
}

// Coordinates are compacted in place: a kept one moves to its new index, which is never above
// its old one, and the grid holds new indices.
void MergeCoordinates(DrawBuffers &b) {
    const std::size_t n = b.coordX.size();
    std::vector<std::int32_t> newIndex(n);
    CoordinateGrid grid = MakeGrid(n);
    std::int32_t kept = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = b.coordX[i];
        const double y = b.coordY[i];
        // A non-finite coordinate is never within the tolerance of anything.
        const bool finite = std::isfinite(x) && std::isfinite(y);
        const Cell cell = finite ? Cell{CellOf(x), CellOf(y)} : Cell{};
        const std::int32_t near = finite ? EarliestNear(b, grid, cell, x, y) : -1;
        if (near >= 0) {
            newIndex[i] = near;
            continue;
        }
        b.coordX[kept] = x;
        b.coordY[kept] = y;
        newIndex[i] = kept;
        if (finite) {
            CellSlot &slot = grid.slots[SlotOf(grid, cell)];
            slot.cell = cell;
            grid.next.push_back(slot.newest);
            slot.newest = kept;
        } else {
            grid.next.push_back(-1);
        }
        ++kept;
    }
    if (static_cast<std::size_t>(kept) == n)
        return;
    b.coordX.resize(kept);
    b.coordY.resize(kept);
    const std::int32_t removed = static_cast<std::int32_t>(n) - kept;
    for (LineElement &l : b.lines)
        for (std::int32_t *ref : {&l.start, &l.end})
            RemapReference(*ref, newIndex, removed);
    for (ArcElement &a : b.arcs)
        for (std::int32_t *ref : {&a.centre, &a.start, &a.centre2, &a.end})
            RemapReference(*ref, newIndex, removed);
    for (TextElement &t : b.texts)
        RemapReference(t.point, newIndex, removed);
}

} // namespace

DrawingExtent DrawingExtents(const DrawBuffers &b) {
    DrawingExtent e;
    if (b.coordX.empty())
        return e;
    e.minX = e.maxX = b.coordX[0];
    e.minY = e.maxY = b.coordY[0];
    for (std::size_t i = 1; i < b.coordX.size(); ++i) {
        e.minX = std::min(e.minX, b.coordX[i]);
        e.maxX = std::max(e.maxX, b.coordX[i]);
        e.minY = std::min(e.minY, b.coordY[i]);
        e.maxY = std::max(e.maxY, b.coordY[i]);
    }
    return e;
}

void CleanDrawing(DrawBuffers &b) {
    RemoveCoveredLines(b);
    RemoveRepeatedArcs(b);
    std::erase_if(b.texts, [](const TextElement &t) {
        return t.width < kTolerance || t.height < kTolerance;
    });
    MergeCoordinates(b);
}

} // namespace vorna
