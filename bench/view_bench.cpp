// The redraw of a full-capacity model: projection, filter and fit, and the rendering traversal
// on a canvas that only counts (the floor under any real surface); and the whole "Salva disegno"
// of the same view, the export pass and the file.
#include "app/draw_input.h"
#include "export/dis_file.h"
#include "export/dxf_file.h"
#include "large_model.h"
#include "model/load_structure.h"
#include "projection/projection.h"
#include "projection/visibility.h"
#include "view/render.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

namespace {

using namespace vorna;

struct CountingCanvas : Canvas {
    long calls = 0;
    ScaleRect scale{0, 100, 100, -100};
    void Clear() override { ++calls; }
    void SetLineWidth(int) override { ++calls; }
    void Line(double, double, double, double, const Pen &) override { ++calls; }
    void Arc(double, double, double, const Pen &, double, double) override { ++calls; }
    void FilledCircle(double, double, double, Rgb) override { ++calls; }
    void SetScale(const ScaleRect &s) override { scale = s; }
    ScaleRect Scale() const override { return scale; }
    double WidthTwips() const override { return 15000; }
    double HeightTwips() const override { return 12000; }
    double TwipsPerPixelX() const override { return 15; }
    double TwipsPerPixelY() const override { return 15; }
    void Refresh() override {}
};

// The model loaded once, with every third node analogous and a base node with bars.
struct Loaded {
    std::unique_ptr<StructureModel> model = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    std::unique_ptr<ConnectionState> connection = std::make_unique<ConnectionState>();
    DisplayOptions display;
    InternalOptions internal;
    StrokeFont font;
    VisibilityFilter filter;
    bool ok = false;

    Loaded() {
        ok = LoadStructure(bench::LargeModelFolder().string(), *model) == LoadResult::Loaded;
        SetDefaultDisplayOptions(display);
        font.glyphPointCount.fill(-1);
        const ModelExtent e = ComputeModelExtent(*model);
        filter.x0 = e.min[0], filter.x1 = e.max[0];
        filter.y0 = e.min[1], filter.y1 = e.max[1];
        filter.z0 = e.min[2], filter.z1 = e.max[2];
        for (int i = 0; i < model->nodeCount; i += 3)
            connection->nodeListed[i] = 1;
        for (int i = 0; i < model->barCount; i += 5)
            connection->barUses[i] = 1;
        connection->baseNode = 0;
        connection->baseBarCount = 4;
        connection->baseBars = {0, 1, 2, 3};
    }
};

Loaded &Model() {
    static Loaded loaded;
    return loaded;
}

void BM_ProjectAndFit(benchmark::State &state) {
    Loaded &m = Model();
    if (!m.ok)
        state.SkipWithError("the large model did not load");
    CountingCanvas canvas;
    for (auto _ : state) {
        ProjectStructure(*m.model, *m.view, 30, 30, 0);
        SetViewScale(*m.model, ListedOf(*m.connection), m.filter, *m.view, canvas);
        benchmark::DoNotOptimize(m.view->projectedX.data());
    }
}
BENCHMARK(BM_ProjectAndFit)->Unit(benchmark::kMillisecond);

// The model projected and fitted on the canvas, as the input of a drawing.
DrawInput FittedInput(benchmark::State &state, CountingCanvas &canvas) {
    Loaded &m = Model();
    if (!m.ok)
        state.SkipWithError("the large model did not load");
    ProjectStructure(*m.model, *m.view, 30, 30, 0);
    SetViewScale(*m.model, ListedOf(*m.connection), m.filter, *m.view, canvas);
    return DrawInput{*m.model, *m.view, m.display, m.internal, HighlightsOf(*m.connection),
                     m.font,   true};
}

void BM_DrawStructure(benchmark::State &state) {
    CountingCanvas canvas;
    const DrawInput input = FittedInput(state, canvas);
    for (auto _ : state) {
        DrawStructure(input, canvas);
        benchmark::DoNotOptimize(canvas.calls);
    }
    state.counters["calls"] =
        static_cast<double>(canvas.calls) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_DrawStructure)->Unit(benchmark::kMillisecond);

// Argument 1: the .dis file (extents, clean-up, text, write); 2: the DXF file. The buffers fill
// up on this model: its 84,000 lines do not fit in them.
void BM_SalvaDisegno(benchmark::State &state) {
    CountingCanvas canvas;
    const DrawInput input = FittedInput(state, canvas);
    const bool dis = state.range(0) == 1;
    const std::string file =
        (std::filesystem::temp_directory_path() / (dis ? "vorna-bench.dis" : "vorna-bench.dxf"))
            .string();
    std::size_t lines = 0;
    for (auto _ : state) {
        DrawBuffers buffers;
        ExportDrawing(input, canvas, buffers);
        lines = buffers.lines.size();
        UserMessage shown = dis ? SaveDisDrawing(file, buffers, 0) : WriteDxf(file, buffers, false);
        benchmark::DoNotOptimize(shown);
    }
    state.counters["lines"] = static_cast<double>(lines);
}
BENCHMARK(BM_SalvaDisegno)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

} // namespace
