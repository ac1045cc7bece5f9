// A drawing surface painted with QPainter into a cached image: runs of lines go out in one
// drawLines call, circles as pre-rendered stamps.
#pragma once

#include "ui/qt/run_canvas.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <unordered_map>

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
    // Keeps the picture where it is; new area is background.
    void Resize(QSize pixels);

protected:
    void Paint(const PaintRun &run) override;
    void Erase() override;
    void Show() override;

private:
    QPainter &Painter();
    void Finish();
    const QImage &Stamp(const PaintRun &run);
    void PaintThinLines(const PaintRun &run);

    QImage image_;
    QColor background_;
    QWidget *target_;
    QPainter painter_;
    bool changed_ = false;
    std::unordered_map<std::uint64_t, QImage> stamps_;
};

} // namespace vorna::qt
