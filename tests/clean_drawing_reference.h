// The clean-up of the drawing buffers done the plain quadratic way, record by record, shifting
// and decrementing as it goes: the reference the fast CleanDrawing is checked against.
#pragma once

#include "view/draw_buffers.h"

#include <cmath>
#include <cstdint>

namespace vorna::reference {

constexpr double kTolerance = 0.0001;

inline bool IsCoordinate(const DrawBuffers &b, std::int32_t i) {
    return i >= 0 && i < static_cast<std::int32_t>(b.coordX.size());
}

inline double Distance(const DrawBuffers &b, std::int32_t i, std::int32_t j) {
    const double dx = b.coordX[i] - b.coordX[j];
    const double dy = b.coordY[i] - b.coordY[j];
    return std::sqrt(dx * dx + dy * dy);
}

inline bool LiesOn(const DrawBuffers &b, std::int32_t p, const LineElement &l) {
    return Distance(b, p, l.start) + Distance(b, p, l.end) - Distance(b, l.start, l.end) <
           kTolerance;
}

inline void CleanDrawing(DrawBuffers &b) {
    auto hasCoordinates = [&b](const LineElement &l) {
        return IsCoordinate(b, l.start) && IsCoordinate(b, l.end);
    };
    for (std::size_t i = 0; i < b.lines.size();) {
        const LineElement l = b.lines[i];
        bool covered = false;
        if (l.colour > 0 && l.type >= 1 && hasCoordinates(l))
            for (std::size_t k = 0; k < b.lines.size(); ++k)
                if (k != i && hasCoordinates(b.lines[k]) && LiesOn(b, l.start, b.lines[k]) &&
                    LiesOn(b, l.end, b.lines[k]))
                    covered = true;
        if (covered)
            b.lines.erase(b.lines.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }

    for (std::size_t i = 0; i < b.arcs.size(); ++i)
        for (std::size_t j = i + 1; j < b.arcs.size();) {
            const ArcElement &p = b.arcs[i], &q = b.arcs[j];
            if (p.centre == q.centre && p.start == q.start && p.centre2 == q.centre2 &&
                p.end == q.end && p.colour == q.colour && p.kind == q.kind)
                b.arcs.erase(b.arcs.begin() + static_cast<std::ptrdiff_t>(j));
            else
                ++j;
        }

    for (std::size_t i = 0; i < b.texts.size();) {
        if (b.texts[i].width < kTolerance || b.texts[i].height < kTolerance)
            b.texts.erase(b.texts.begin() + static_cast<std::ptrdiff_t>(i));
        else
            ++i;
    }

    for (std::int32_t i = 0; i < static_cast<std::int32_t>(b.coordX.size()); ++i)
        for (std::int32_t j = i + 1; j < static_cast<std::int32_t>(b.coordX.size());) {
            if (!(std::abs(b.coordX[j] - b.coordX[i]) < kTolerance &&
                  std::abs(b.coordY[j] - b.coordY[i]) < kTolerance)) {
                ++j;
                continue;
            }
            auto redirect = [i, j](std::int32_t &ref) {
                if (ref == j)
                    ref = i;
                else if (ref > j)
                    --ref;
            };
            for (LineElement &l : b.lines) {
                redirect(l.start);
                redirect(l.end);
            }
            for (ArcElement &a : b.arcs) {
                redirect(a.centre);
                redirect(a.start);
                redirect(a.centre2);
                redirect(a.end);
            }
            for (TextElement &t : b.texts)
                redirect(t.point);
            b.coordX.erase(b.coordX.begin() + j);
            b.coordY.erase(b.coordY.begin() + j);
        }
}

} // namespace vorna::reference
