// A drawing surface painted into a cached image: lines are rasterised straight into the
// image's pixels, circles are stamped from pixel masks made once per pen and radius, glyphs from
// the masks of the shapes held.
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
    static Pixels Of(QImage &image) {
        return {reinterpret_cast<QRgb *>(image.bits()),
                image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)), image.width(),
                image.height()};
    }
    void Set(int x, int y, QRgb rgb) const {
        // Clipping leaves a few pixels of margin; those are not in the image.
        if (static_cast<unsigned>(x) < static_cast<unsigned>(width) &&
            static_cast<unsigned>(y) < static_cast<unsigned>(height))
            bits[y * stride + x] = rgb;
    }
};

// A line of the pen's width, its ends rounded to pixel centres.
void WideLine(const Pixels &px, const QLineF &line, int width, QRgb rgb) {
    RasterLine(static_cast<int>(std::lround(line.x1())), static_cast<int>(std::lround(line.y1())),
               static_cast<int>(std::lround(line.x2())), static_cast<int>(std::lround(line.y2())),
               width, [&](int x, int y) { px.Set(x, y, rgb); });
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

const std::vector<QPoint> &QtCanvas::Stamp(const PaintRun &run) {
    if (stamps_.size() > 256)
        stamps_.clear();
    auto [it, added] = stamps_.try_emplace(StampKey(run));
    if (added) {
        // The pixels whose centres lie on the pen's ring (or inside, for a disc).
        const int half = StampHalf(run);
        const double inner = run.kind == PaintRun::Kind::Discs ? 0 : run.radius - run.width / 2.0;
        const double outer = run.radius + run.width / 2.0;
        for (int y = -half; y <= half; ++y)
            for (int x = -half; x <= half; ++x)
                if (const double d = std::hypot(x, y); d >= inner && d <= outer)
                    it->second.emplace_back(x, y);
    }
    return it->second;
}

void QtCanvas::PaintLines(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_);
    for (const QLineF &line : run.lines)
        WideLine(px, line, std::max(1, run.width), rgb);
}

void QtCanvas::PaintStamps(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_);
    const std::vector<QPoint> &mask = Stamp(run);
    for (const QPointF &c : run.centres) {
        const int cx = static_cast<int>(std::lround(c.x())),
                  cy = static_cast<int>(std::lround(c.y()));
        for (const QPoint &d : mask)
            px.Set(cx + d.x(), cy + d.y(), rgb);
    }
}

void QtCanvas::PaintShapes(const PaintRun &run) {
    const QRgb rgb = ColourOf(run.colour).rgb();
    const Pixels px = Pixels::Of(image_);
    for (const PixelStamp &s : run.stamps)
        for (const QPoint &d : ShapePixels(s.shape))
            px.Set(s.at.x() + d.x(), s.at.y() + d.y(), rgb);
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
