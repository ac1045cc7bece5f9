// A drawing surface painted into a cached image: lines are rasterised straight into the
// image's pixels with smoothed edges, circles are stamped from coverage masks made once per pen
// and radius, glyphs from the masks of the shapes held.
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

// The image's pixels, written directly: for the tens of thousands of bars, shell edges and node
// circles of a large model this is several times faster than the painter's general stroker.
struct Pixels {
    QRgb *bits;
    qsizetype stride;
    int width;
    int height;
    QRgb background;
    static Pixels Of(QImage &image, QColor background) {
        return {reinterpret_cast<QRgb *>(image.bits()),
                image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)), image.width(),
                image.height(), background.rgb()};
    }
    // The pen's colour over the pixel, as much as it covers it (out of 256).
    void Blend(int x, int y, QRgb rgb, int cover) const {
        // Clipping leaves a few pixels of margin; those are not in the image.
        if (static_cast<unsigned>(x) >= static_cast<unsigned>(width) ||
            static_cast<unsigned>(y) >= static_cast<unsigned>(height))
            return;
        // Three levels: a pixel under a quarter covered is left, one over three quarters taken,
        // the rest half the pen on the background. A large model's redraw blends millions of
        // pixels, and this keeps half of them to a plain write at a cost the eye does not see in
        // thin lines. A half pixel over something drawn already takes the pen whole, as before
        // smoothing: mixed with an earlier line beneath, a line drawn over it would look dashed.
        if (cover < 64)
            return;
        QRgb &d = bits[y * stride + x];
        const QRgb half =
            0xFF000000u | (((rgb >> 1) & 0x7F7F7Fu) + ((background >> 1) & 0x7F7F7Fu));
        d = cover >= 192 || d != background ? rgb : half;
    }
};

// A line of the pen's width, its edges blended into what lies beneath.
void WideLine(const Pixels &px, const QLineF &line, int width, QRgb rgb) {
    // Captured by value: a pixel store could otherwise alias the image's sizes and force them to
    // be read again at every pixel.
    SmoothLine(line.x1(), line.y1(), line.x2(), line.y2(), width,
               [px, rgb](int x, int y, int cover) { px.Blend(x, y, rgb, cover); });
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
    if (!painter_.isActive()) {
        painter_.begin(&image_);
        painter_.setRenderHint(QPainter::Antialiasing);
        // Runs are in device pixels already.
        painter_.scale(1 / image_.devicePixelRatio(), 1 / image_.devicePixelRatio());
    }
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

void QtCanvas::Resize(QSize pixels, double ratio) {
    if (pixels == PixelSize() && ratio == DeviceRatio())
        return;
    Flush();
    Finish();
    SetPixelSize(pixels, ratio);
    QImage resized(DeviceSize().expandedTo({1, 1}), QImage::Format_RGB32);
    resized.setDevicePixelRatio(DeviceRatio());
    resized.fill(background_);
    QPainter(&resized).drawImage(0, 0, image_);
    image_ = std::move(resized);
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

const std::vector<CoveredPixel> &QtCanvas::Stamp(const PaintRun &run) {
    if (stamps_.size() > 256)
        stamps_.clear();
    auto [it, added] = stamps_.try_emplace(StampKey(run));
    if (added) {
        // How much of each pixel the pen's ring (or the disc) covers, taking the pixel as a
        // unit step across the ring at its distance from the centre.
        const int half = StampHalf(run);
        const double inner = run.kind == PaintRun::Kind::Discs ? -1 : run.radius - run.width / 2.0;
        const double outer = run.radius + run.width / 2.0;
        for (int y = -half; y <= half; ++y)
            for (int x = -half; x <= half; ++x) {
                const double d = std::hypot(x, y);
                const double covered = std::min(outer, d + 0.5) - std::max(inner, d - 0.5);
                if (const int cover = static_cast<int>(covered * 256 + 0.5); cover > 16)
                    it->second.push_back({QPoint(x, y), std::min(cover, 256)});
            }
    }
    return it->second;
}

void QtCanvas::PaintLines(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_, background_);
    for (const QLineF &line : run.lines)
        WideLine(px, line, std::max(1, run.width), rgb);
}

void QtCanvas::PaintStamps(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_, background_);
    const std::vector<CoveredPixel> &mask = Stamp(run);
    for (const QPointF &c : run.centres) {
        const int cx = static_cast<int>(std::lround(c.x())),
                  cy = static_cast<int>(std::lround(c.y()));
        for (const CoveredPixel &d : mask)
            px.Blend(cx + d.at.x(), cy + d.at.y(), rgb, d.cover);
    }
}

void QtCanvas::PaintShapes(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_, background_);
    for (const PixelStamp &s : run.stamps)
        for (const CoveredPixel &d : ShapePixels(s.shape))
            px.Blend(s.at.x() + d.at.x(), s.at.y() + d.at.y(), rgb, d.cover);
}

void QtCanvas::Paint(const PaintRun &run) {
    changed_ = true;
    if (run.kind == PaintRun::Kind::Stamps) {
        Finish();
        PaintShapes(run);
        return;
    }
    const bool stamped =
        (run.kind == PaintRun::Kind::Circles || run.kind == PaintRun::Kind::Discs) &&
        run.radius <= kLargestStamp;
    if (run.kind == PaintRun::Kind::Lines || stamped) {
        Finish(); // the pixels are written directly, not through the painter
        if (stamped)
            PaintStamps(run);
        else
            PaintLines(run);
        return;
    }
    QPainter &p = Painter();
    switch (run.kind) {
    case PaintRun::Kind::Circles:
    case PaintRun::Kind::Discs:
        p.setPen(PenOf(run));
        p.setBrush(run.kind == PaintRun::Kind::Discs ? QBrush(ColourOf(run.colour)) : QBrush());
        for (const QPointF &c : run.centres)
            p.drawEllipse(c, run.radius, run.radius);
        p.setBrush(QBrush());
        break;
    case PaintRun::Kind::Arcs:
        p.setPen(PenOf(run));
        for (const PixelArc &a : run.arcs)
            p.drawArc(QRectF(a.centre.x() - a.radius, a.centre.y() - a.radius, 2 * a.radius,
                             2 * a.radius),
                      a.start16, a.span16);
        break;
    case PaintRun::Kind::Lines:
    case PaintRun::Kind::Stamps:
    case PaintRun::Kind::None:
        break;
    }
}

} // namespace vorna::qt
