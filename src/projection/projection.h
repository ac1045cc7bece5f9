// The parallel projection: the rotation from the three view angles, the projected position of
// every point, and the model extent that refills the coordinate intervals.
#pragma once

#include "model/structure_model.h"
#include "projection/view_state.h"

#include <array>

namespace vorna {

// Angles in degrees: a tilts about the model X axis, b turns about the vertical Z axis, c turns
// in the picture plane.
void BuildViewMatrix(ViewState &view, double a, double b, double c);
double ProjectX(const ViewState &view, double x, double y, double z);
double ProjectY(const ViewState &view, double x, double y, double z);

// The angles as the side bar holds them: the second is the turn about Z with its sign reversed.
// Fills projectedX/projectedY of every point and the images of the three model axes.
void ProjectStructure(const StructureModel &model, ViewState &view, double angle0, double angle1,
                      double angle2);

// Minimum and maximum of x, y, z (index 0, 1, 2) over every node, bar end and shell vertex,
// live or not, starting from the point of node 0.
struct ModelExtent {
    std::array<double, 3> min{};
    std::array<double, 3> max{};
};
ModelExtent ComputeModelExtent(const StructureModel &model);

} // namespace vorna
