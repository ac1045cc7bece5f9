// The parallel projection: the rotation from the three view angles, the projected position of
// every point, and the model extent that refills the coordinate intervals.
#include "projection/projection.h"

#include "platform/portable_math.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

void Widen(ModelExtent &e, const Point &p) {
    const std::array<double, 3> v{p.x, p.y, p.z};
    for (int k = 0; k < 3; ++k) {
        e.min[k] = std::min(e.min[k], v[k]);
        e.max[k] = std::max(e.max[k], v[k]);
    }
}

} // namespace

void BuildViewMatrix(ViewState &view, double a, double b, double c) {
    a = a * kPi / 180;
    b = b * kPi / 180;
    c = c * kPi / 180;
    auto &m = view.viewMatrix;
    m[0] = {Cos(b) * Cos(c), -Sin(b), Cos(b) * Sin(c)};
    m[2] = {Sin(a) * Sin(b) * Cos(c) - Cos(a) * Sin(c), Sin(a) * Cos(b),
            Sin(a) * Sin(b) * Sin(c) + Cos(a) * Cos(c)};
}

double ProjectX(const ViewState &view, double x, double y, double z) {
    const auto &r = view.viewMatrix[0];
    return x * r[0] + y * r[1] + z * r[2];
}

double ProjectY(const ViewState &view, double x, double y, double z) {
    const auto &r = view.viewMatrix[2];
    return x * r[0] + y * r[1] + z * r[2];
}

void ProjectStructure(const StructureModel &model, ViewState &view, double angle0, double angle1,
                      double angle2) {
    BuildViewMatrix(view, angle0, -angle1, angle2);
    ++view.projectionGeneration;
    const int count = std::clamp<int>(model.pointCount, 0, kPointCapacity);
    for (int i = 0; i < count; ++i) {
        const Point &p = model.points[i];
        view.projectedX[i] = ProjectX(view, p.x, p.y, p.z);
        view.projectedY[i] = ProjectY(view, p.x, p.y, p.z);
    }
    for (std::size_t k = 0; k < 3; ++k) {
        std::array<double, 3> unit{};
        unit[k] = 1;
        view.axisImage[2 * k] = ProjectX(view, unit[0], unit[1], unit[2]);
        view.axisImage[2 * k + 1] = ProjectY(view, unit[0], unit[1], unit[2]);
    }
}

ModelExtent ComputeModelExtent(const StructureModel &model) {
    const Point &seed = PointAt(model, model.nodes[0].pointIndex);
    ModelExtent e{{seed.x, seed.y, seed.z}, {seed.x, seed.y, seed.z}};
    for (int i = 0; i < model.nodeCount; ++i)
        Widen(e, PointAt(model, model.nodes[i].pointIndex));
    for (int i = 0; i < model.barCount; ++i) {
        Widen(e, PointAt(model, model.bars[i].pointI));
        Widen(e, PointAt(model, model.bars[i].pointJ));
    }
    for (int i = 0; i < model.shellCount; ++i) {
        const auto &v = model.shells[i].vertices;
        for (int k = 0; k < 4; ++k)
            if (k < 3 || v[3] >= 0)
                Widen(e, PointAt(model, v[k]));
    }
    return e;
}

} // namespace vorna
