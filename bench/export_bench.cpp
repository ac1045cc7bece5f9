// The drawing export on full buffers: the clean-up (and its plain quadratic reference on
// growing sizes, to show how each grows), and the .dis and DXF files written to disk.
#include "clean_drawing_reference.h"
#include "export/clean_drawing.h"
#include "export/dis_file.h"
#include "export/dxf_file.h"
#include "platform/text_file.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>

namespace {

using namespace vorna;

// Buffers as an export of a frame leaves them: per grid node its point, the same point stored
// again a little off when a later element met it (it merges), the start of its circle and its
// label's point. Four bars per node end on the neighbours' second copies; one circle in five is
// drawn twice; one label in twelve has no height.
DrawBuffers FrameBuffers(int coordinates) {
    DrawBuffers b;
    const int nodes = coordinates / 4;
    const int columns = static_cast<int>(std::sqrt(nodes * 1.5));
    for (int k = 0; k < nodes; ++k) {
        const int row = k / columns, column = k % columns;
        const double x = column * 0.75 + row * 0.125;
        const double y = row * 0.5;
        for (auto [dx, dy] : {std::pair{0.0, 0.0}, {0.00003, -0.00002}, {0.1, 0.0}, {0.05, 0.05}}) {
            b.coordX.push_back(x + dx);
            b.coordY.push_back(y + dy);
        }
    }
    auto point = [nodes](int node, int copy) { return 4 * (node % nodes) + copy; };
    for (int k = 0; static_cast<int>(b.lines.size()) < coordinates; ++k) {
        const auto colour = static_cast<std::int16_t>(1 + k % 9);
        for (int neighbour : {k + 1, k + columns - 1, k + columns, k + columns + 1})
            b.lines.push_back({point(k, k % 2), point(neighbour, 1), 0, colour});
    }
    b.lines.resize(coordinates);
    const int circles = coordinates * 3 / 10;
    for (int k = 0; k < circles; ++k) {
        const int node = k % 5 == 4 ? k - 3 : k;
        const auto centre = point(node, 0), start = point(node, 2);
        b.arcs.push_back({centre, start, centre, start, 0, static_cast<std::int16_t>(1 + k % 3)});
    }
    for (int k = 0; k < circles; ++k)
        b.texts.push_back({point(k, 3), 25, static_cast<std::int16_t>(k % 12 == 0 ? 0 : 50), 0, 1,
                           "N" + std::to_string(k + 1)});
    return b;
}

const DrawBuffers &FullBuffers() {
    static const DrawBuffers full = FrameBuffers(kCoordCapacity);
    return full;
}

void BM_CleanDrawing(benchmark::State &state) {
    const DrawBuffers source = FrameBuffers(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        DrawBuffers b = source;
        state.ResumeTiming();
        CleanDrawing(b);
        benchmark::DoNotOptimize(b.coordX.data());
    }
    state.counters["coordinates"] = static_cast<double>(source.coordX.size());
}
// The sizes both clean-ups run at, so that their growth can be compared.
void GrowingSizes(benchmark::internal::Benchmark *b) {
    for (int coordinates : {1000, 2000, 4000, 8000, 16000})
        b->Arg(coordinates);
}
BENCHMARK(BM_CleanDrawing)->Apply(GrowingSizes)->Arg(kCoordCapacity)->Unit(benchmark::kMillisecond);

void BM_CleanDrawingLiteral(benchmark::State &state) {
    const DrawBuffers source = FrameBuffers(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        DrawBuffers b = source;
        state.ResumeTiming();
        reference::CleanDrawing(b);
        benchmark::DoNotOptimize(b.coordX.data());
    }
}
BENCHMARK(BM_CleanDrawingLiteral)->Apply(GrowingSizes)->Unit(benchmark::kMillisecond);
// Once at full capacity: the figure the whole save is compared with.
BENCHMARK(BM_CleanDrawingLiteral)
    ->Arg(kCoordCapacity)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

const std::filesystem::path &BenchFile() {
    static const std::filesystem::path file =
        std::filesystem::temp_directory_path() / "vorna-export-bench.out";
    return file;
}

void BM_WriteDisFile(benchmark::State &state) {
    DrawBuffers b = FullBuffers();
    const DrawingExtent extent = DrawingExtents(b);
    CleanDrawing(b); // the .dis file is written from cleaned buffers
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = DisFileText(b, extent, 0);
        if (!WriteFileAtomic(BenchFile(), text))
            state.SkipWithError("cannot write the temporary file");
        bytes = text.size();
    }
    std::filesystem::remove(BenchFile());
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_WriteDisFile)->Unit(benchmark::kMillisecond);

void BM_WriteDxfFile(benchmark::State &state) {
    const DrawBuffers &b = FullBuffers();
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::string text = DxfFileText(b, false);
        if (!WriteFileAtomic(BenchFile(), text))
            state.SkipWithError("cannot write the temporary file");
        bytes = text.size();
    }
    std::filesystem::remove(BenchFile());
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_WriteDxfFile)->Unit(benchmark::kMillisecond);

} // namespace
