// Drawing the full-capacity model on a 1600 x 1000 surface: the batched Qt canvas beside a
// canvas that makes one QPainter call per line and per circle, and with every label on.
#include "app/draw_input.h"
#include "heap_peak.h"
#include "large_model.h"
#include "model/load_structure.h"
#include "projection/navigation.h"
#include "projection/projection.h"
#include "projection/visibility.h"
#include "ui/qt/qt_canvas.h"
#include "view/render.h"
#include "view/stroke_font.h"

#include <QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

namespace {

using vorna::Rgb;
using vorna::ScaleRect;

const QSize kSurface(1600, 1000);

// The straightforward surface: every primitive its own painter call, the pen set per element.
class ElementCanvas : public vorna::Canvas {
public:
    ElementCanvas() : image_(kSurface, QImage::Format_RGB32) {}

    void Clear() override {
        End();
        image_.fill(Qt::black);
    }
    void SetLineWidth(int pixels) override { width_ = pixels; }
    void Line(double x1, double y1, double x2, double y2, const vorna::Pen &pen) override {
        ++primitives;
        Pen(pen.rgb).drawLine(QLineF(ToPixel(x1, y1), ToPixel(x2, y2)));
    }
    void Arc(double x, double y, double radius, const vorna::Pen &pen, double, double) override {
        ++primitives;
        Pen(pen.rgb);
        double r = std::abs(radius / scale_.width * kSurface.width());
        painter_.drawEllipse(ToPixel(x, y), r, r);
    }
    void FilledCircle(double x, double y, double radius, Rgb colour) override {
        Painter().setBrush(vorna::qt::ColourOf(colour));
        Arc(x, y, radius, vorna::Pen{colour}, 0, 0); // counted there
        painter_.setBrush(Qt::NoBrush);
    }
    void SetScale(const ScaleRect &scale) override { scale_ = scale; }
    ScaleRect Scale() const override { return scale_; }
    double WidthTwips() const override { return kSurface.width() * 15.0; }
    double HeightTwips() const override { return kSurface.height() * 15.0; }
    double TwipsPerPixelX() const override { return 15; }
    double TwipsPerPixelY() const override { return 15; }
    void Refresh() override { End(); }

    long primitives = 0; // lines and circles drawn so far
private:
    QPainter &Painter() {
        if (!painter_.isActive()) {
            painter_.begin(&image_);
            penColour_ = ~Rgb{0};
        }
        return painter_;
    }
    // A new pen only when colour or width change, as any careful caller would.
    QPainter &Pen(Rgb colour) {
        QPainter &p = Painter();
        if (colour != penColour_ || width_ != penWidth_) {
            p.setPen(QPen(vorna::qt::ColourOf(colour), width_));
            penColour_ = colour;
            penWidth_ = width_;
        }
        return p;
    }
    void End() {
        if (painter_.isActive())
            painter_.end();
    }
    QPointF ToPixel(double x, double y) const {
        return {(x - scale_.left) / scale_.width * kSurface.width(),
                (y - scale_.top) / scale_.height * kSurface.height()};
    }

    QImage image_;
    QPainter painter_;
    ScaleRect scale_;
    int width_ = 1;
    Rgb penColour_ = ~Rgb{0};
    int penWidth_ = 0;
};

// The large model projected at the start-up angles and fitted onto the surface.
struct FittedModel {
    std::unique_ptr<vorna::StructureModel> model = std::make_unique<vorna::StructureModel>();
    std::unique_ptr<vorna::ViewState> view = std::make_unique<vorna::ViewState>();
    vorna::ConnectionState connection;
    vorna::DisplayOptions display;
    vorna::InternalOptions internal;
    vorna::StrokeFont font;

    vorna::VisibilityFilter filter;
    bool ready = false;

    explicit FittedModel(vorna::Canvas &surface) {
        if (vorna::LoadStructure(vorna::bench::LargeModelFolder().string(), *model) !=
            vorna::LoadResult::Loaded)
            return;
        vorna::SetDefaultDisplayOptions(display);
        // Every shell drawn: the heaviest picture the model gives.
        display.values[vorna::opt::kHideThinShells] = vorna::OptionValue::Of(0);
        vorna::ProjectStructure(*model, *view, 30, 30, 0);
        const vorna::ModelExtent e = vorna::ComputeModelExtent(*model);
        filter.x0 = e.min[0], filter.x1 = e.max[0];
        filter.y0 = e.min[1], filter.y1 = e.max[1];
        filter.z0 = e.min[2], filter.z1 = e.max[2];
        ready = vorna::SetViewScale(*model, vorna::ListedOf(connection), filter, *view, surface);
    }
    // Wheel steps towards the centre, one at a time as the mouse gives them.
    bool Zoom(int steps, vorna::Canvas &surface) {
        for (int k = 0; k < steps; ++k)
            if (!vorna::WheelZoomWindow(*view, 1))
                return false;
        return vorna::SetViewScale(*model, vorna::ListedOf(connection), filter, *view, surface);
    }
    vorna::DrawInput Input() const {
        return {*model, *view, display, internal, vorna::HighlightsOf(connection), font, true};
    }
};

void BM_DrawStructureBatched(benchmark::State &state) {
    vorna::qt::QtCanvas canvas(kSurface, Qt::black);
    FittedModel fitted(canvas);
    if (!fitted.ready) {
        state.SkipWithError("the large model did not load");
        return;
    }
    for (auto _ : state) {
        vorna::DrawStructure(fitted.Input(), canvas);
        benchmark::DoNotOptimize(canvas.Image().constBits());
    }
}
BENCHMARK(BM_DrawStructureBatched)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// The same with every node analogous and every bar belonging to an analogous node, so every
// element takes its highlight colour and the wide pen.
void BM_DrawStructureAllAnalogous(benchmark::State &state) {
    vorna::qt::QtCanvas canvas(kSurface, Qt::black);
    FittedModel fitted(canvas);
    if (!fitted.ready) {
        state.SkipWithError("the large model did not load");
        return;
    }
    for (int i = 0; i < fitted.model->nodeCount; ++i) {
        vorna::AnalogousNode record;
        record.node = static_cast<std::int16_t>(i);
        vorna::AppendAnalogous(fitted.connection, record);
    }
    for (int b = 0; b < fitted.model->barCount; ++b)
        fitted.connection.barUses[b] = 1;
    for (auto _ : state) {
        vorna::DrawStructure(fitted.Input(), canvas);
        benchmark::DoNotOptimize(canvas.Image().constBits());
    }
    state.counters["analogous"] = static_cast<double>(fitted.connection.analogousNodes.size());
}
BENCHMARK(BM_DrawStructureAllAnalogous)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

// Every node and bar label on, each with all its parts, beside the same redraw with labels off
// (first argument 1 or 0), at fit and zoomed in by wheel steps (second argument). heapMB is the
// most the allocator held during a redraw, redrawHeapMB what the redraw itself added.
void BM_DrawStructureLabels(benchmark::State &state) {
    vorna::qt::QtCanvas canvas(kSurface, Qt::black);
    FittedModel fitted(canvas);
    const std::string fontFolder = vorna::bench::StrokeFontFolder().string();
    if (!fitted.ready || vorna::LoadStrokeFont(fontFolder, fitted.font) ||
        !fitted.Zoom(static_cast<int>(state.range(1)), canvas)) {
        state.SkipWithError("the large model or the font did not load");
        return;
    }
    const auto labels = vorna::OptionValue::Of(state.range(0) != 0 ? 1 : 0);
    fitted.display.values[vorna::opt::kNodeLabels] = labels;
    fitted.display.values[vorna::opt::kBarLabels] = labels;
    std::size_t most = 0, added = 0;
    for (auto _ : state) {
        const std::size_t before = vorna::bench::MallocInUse();
        const std::size_t live = vorna::bench::HeapLive();
        vorna::bench::ResetHeapPeak();
        vorna::DrawStructure(fitted.Input(), canvas);
        benchmark::DoNotOptimize(canvas.Image().constBits());
        const std::size_t growth = vorna::bench::HeapPeak() - live;
        added = std::max(added, growth);
        most = std::max(most, before + growth);
    }
    state.counters["heapMB"] = static_cast<double>(most) / 1e6;
    state.counters["redrawHeapMB"] = static_cast<double>(added) / 1e6;
}
BENCHMARK(BM_DrawStructureLabels)
    ->ArgNames({"labels", "steps"})
    ->ArgsProduct({{0, 1}, {0, 10}})
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

void BM_DrawStructureElementByElement(benchmark::State &state) {
    ElementCanvas canvas;
    FittedModel fitted(canvas);
    if (!fitted.ready) {
        state.SkipWithError("the large model did not load");
        return;
    }
    for (auto _ : state) {
        canvas.primitives = 0;
        vorna::DrawStructure(fitted.Input(), canvas);
        canvas.Refresh();
    }
    state.counters["primitives"] = static_cast<double>(canvas.primitives);
}
BENCHMARK(BM_DrawStructureElementByElement)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);

} // namespace
