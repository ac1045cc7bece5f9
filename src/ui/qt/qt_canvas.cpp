// A drawing surface painted with QPainter into a cached image, batched by runs.
#include "ui/qt/qt_canvas.h"

#include <QWidget>

#include <cmath>

namespace vorna::qt {

namespace {

// Larger circles are drawn directly: a stamp would cost more than it saves.
constexpr double kLargestStamp = 64;

std::uint64_t StampKey(const PaintRun &run) {
    auto radius16 = static_cast<std::uint64_t>(std::lround(run.radius * 16));
    return static_cast<std::uint64_t>(run.colour) | static_cast<std::uint64_t>(run.width) << 24 |
           radius16 << 33 | (run.kind == PaintRun::Kind::Discs ? 1ull << 63 : 0);
}

QPen PenOf(const PaintRun &run) {
    QPen pen(ColourOf(run.colour), run.width);
    pen.setCapStyle(run.width > 1 ? Qt::RoundCap : Qt::SquareCap);
    pen.setJoinStyle(Qt::RoundJoin);
    return pen;
}

// A one-pixel line straight into the image (Bresenham): for the thousands of thin bars and shell
// edges of a large model this is several times faster than the painter's general stroker.
void ThinLine(QRgb *bits, qsizetype stride, int width, int height, const QLineF &line, QRgb rgb) {
    int x = static_cast<int>(std::lround(line.x1())), y = static_cast<int>(std::lround(line.y1()));
    int x2 = static_cast<int>(std::lround(line.x2())),
        y2 = static_cast<int>(std::lround(line.y2()));
    // Always from the same end, so that a bar drawn over a shell edge covers it pixel for pixel.
    if (x > x2 || (x == x2 && y > y2)) {
        std::swap(x, x2);
        std::swap(y, y2);
    }
    const int dx = std::abs(x2 - x), sx = x < x2 ? 1 : -1;
    const int dy = -std::abs(y2 - y), sy = y < y2 ? 1 : -1;
    int err = dx + dy;
    for (;;) {
        // Clipping leaves a few pixels of margin; those are not in the image.
        if (static_cast<unsigned>(x) < static_cast<unsigned>(width) &&
            static_cast<unsigned>(y) < static_cast<unsigned>(height))
            bits[y * stride + x] = rgb;
        if (x == x2 && y == y2)
            return;
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y += sy;
        }
    }
}

// Half the side of a stamp: the circle, half its line width and a pixel of smoothing.
int StampHalf(const PaintRun &run) {
    return static_cast<int>(std::ceil(run.radius + run.width / 2.0 + 1));
}

} // namespace

QColor ColourOf(Rgb colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

QtCanvas::QtCanvas(QSize pixels, QColor background, QWidget *target)
    : RunCanvas(pixels), image_(pixels.expandedTo({1, 1}), QImage::Format_RGB32),
      background_(background), target_(target) {
    image_.fill(background_);
}

QPainter &QtCanvas::Painter() {
    if (!painter_.isActive())
        painter_.begin(&image_);
    return painter_;
}

void QtCanvas::Finish() {
    if (painter_.isActive())
        painter_.end();
}

const QImage &QtCanvas::Image() {
    Flush();
    Finish();
    changed_ = false;
    return image_;
}

void QtCanvas::Resize(QSize pixels) {
    if (pixels == PixelSize())
        return;
    Flush();
    Finish();
    QImage resized(pixels.expandedTo({1, 1}), QImage::Format_RGB32);
    resized.fill(background_);
    QPainter(&resized).drawImage(0, 0, image_);
    image_ = std::move(resized);
    SetPixelSize(pixels);
}

void QtCanvas::Erase() {
    Finish();
    changed_ = true;
    image_.fill(background_);
}

void QtCanvas::Show() {
    Finish();
    if (target_)
        target_->update();
}

const QImage &QtCanvas::Stamp(const PaintRun &run) {
    if (stamps_.size() > 256)
        stamps_.clear();
    auto [it, added] = stamps_.try_emplace(StampKey(run));
    if (added) {
        const int half = StampHalf(run);
        QImage stamp(2 * half + 1, 2 * half + 1, QImage::Format_ARGB32_Premultiplied);
        stamp.fill(Qt::transparent);
        QPainter p(&stamp);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(PenOf(run));
        if (run.kind == PaintRun::Kind::Discs)
            p.setBrush(ColourOf(run.colour));
        // Centred on the middle of the middle pixel, where an aliased line end lands.
        p.drawEllipse(QPointF(half + 0.5, half + 0.5), run.radius, run.radius);
        it->second = std::move(stamp);
    }
    return it->second;
}

void QtCanvas::PaintThinLines(const PaintRun &run) {
    Finish();
    const QRgb rgb = ColourOf(run.colour).rgb();
    auto *bits = reinterpret_cast<QRgb *>(image_.bits());
    const qsizetype stride = image_.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    for (const QLineF &line : run.lines)
        ThinLine(bits, stride, image_.width(), image_.height(), line, rgb);
}

void QtCanvas::Paint(const PaintRun &run) {
    changed_ = true;
    if (run.kind == PaintRun::Kind::Lines && run.width == 1) {
        PaintThinLines(run);
        return;
    }
    QPainter &p = Painter();
    switch (run.kind) {
    case PaintRun::Kind::Lines:
        p.setPen(PenOf(run));
        p.drawLines(run.lines.data(), static_cast<int>(run.lines.size()));
        break;
    case PaintRun::Kind::Circles:
    case PaintRun::Kind::Discs:
        if (run.radius <= kLargestStamp) {
            const QImage &stamp = Stamp(run);
            const int half = StampHalf(run);
            for (const QPointF &c : run.centres)
                p.drawImage(QPoint(static_cast<int>(std::lround(c.x())) - half,
                                   static_cast<int>(std::lround(c.y())) - half),
                            stamp);
        } else {
            p.setPen(PenOf(run));
            p.setBrush(run.kind == PaintRun::Kind::Discs ? QBrush(ColourOf(run.colour)) : QBrush());
            for (const QPointF &c : run.centres)
                p.drawEllipse(c, run.radius, run.radius);
            p.setBrush(QBrush());
        }
        break;
    case PaintRun::Kind::Arcs:
        p.setPen(PenOf(run));
        for (const PixelArc &a : run.arcs)
            p.drawArc(QRectF(a.centre.x() - a.radius, a.centre.y() - a.radius, 2 * a.radius,
                             2 * a.radius),
                      a.start16, a.span16);
        break;
    case PaintRun::Kind::None:
        break;
    }
}

} // namespace vorna::qt
