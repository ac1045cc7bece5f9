// A drawing surface painted into a cached image: lines are rasterised straight into the
// image's pixels with smoothed edges, circles are stamped from coverage masks made once per pen
// and radius, glyphs from the masks of the shapes held.
#pragma once

#include "ui/qt/run_canvas.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <unordered_map>
#include <vector>

class QWidget;

namespace vorna::qt {

QColor ColourOf(Rgb colour);

class QtCanvas : public RunCanvas {
public:
    // target, when given, is updated on every Refresh.
    QtCanvas(QSize pixels, QColor background, QWidget *target = nullptr);

    // The picture as drawn so far (pending runs painted first).
    const QImage &Image();
    // Something was drawn that the screen does not show yet.
    bool NeedsShowing() const { return changed_ || Pending(); }
    // Keeps the picture where it is; new area is background. The image has the ratio's device
    // pixels.
    void Resize(QSize pixels, double ratio = 1);

protected:
    void Paint(const PaintRun &run) override;
    void Erase() override;
    void Show() override;

private:
    QPainter &Painter();
    void Finish();
    const std::vector<CoveredPixel> &Stamp(const PaintRun &run);
    void PaintLines(const PaintRun &run);
    void PaintStamps(const PaintRun &run);
    void PaintShapes(const PaintRun &run);

    QImage image_;
    QColor background_;
    QWidget *target_;
    QPainter painter_;
    bool changed_ = false;
    // The pixels of a circle of each pen and radius, as offsets from its centre pixel.
    std::unordered_map<std::uint64_t, std::vector<CoveredPixel>> stamps_;
};

} // namespace vorna::qt
