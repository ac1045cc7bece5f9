// The schema of the base node and a node's typed bars, drawn from plain values.
#include "view/schema.h"

namespace vorna {
namespace {

// Both axes at the same scale, the node in the middle, room around the bars for the labels.
void SetSchemaScale(Canvas &picture, double length) {
    const double width = picture.WidthTwips() > 0 ? picture.WidthTwips() : 1;
    const double height = picture.HeightTwips() > 0 ? picture.HeightTwips() : 1;
    const double half = 1.4 * length;
    const double halfX = width >= height ? half * width / height : half;
    const double halfY = width >= height ? half : half * height / width;
    picture.SetScale({-halfX, halfY, 2 * halfX, -2 * halfY});
}

} // namespace

void DrawBaseNodeSchema(Canvas &canvas, bool planar, double length,
                        std::span<const ColouredLine> bars) {
    canvas.Clear();
    if (planar) {
        SetSchemaScale(canvas, length);
        canvas.SetLineWidth(3);
        for (const ColouredLine &bar : bars)
            canvas.Line(bar.x1, bar.y1, bar.x2, bar.y2, Pen{bar.colour});
        canvas.SetLineWidth(1);
        canvas.FilledCircle(0, 0, 0.08 * length, 0);
    }
    canvas.Refresh();
}

void DrawTypedBars(Canvas &canvas, std::span<const ColouredLine> bars, int selectedWidth,
                   int normalWidth) {
    canvas.SetLineWidth(selectedWidth);
    for (const ColouredLine &bar : bars)
        canvas.Line(bar.x1, bar.y1, bar.x2, bar.y2, Pen{bar.colour});
    canvas.SetLineWidth(normalWidth);
    canvas.Refresh();
}

} // namespace vorna
