// Loading the full-capacity structure file, beside merely reading its lines into memory.
#include "heap_peak.h"
#include "large_model.h"
#include "model/load_structure.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

// The baseline: the file's lines into memory with std::getline, no parsing at all, allocating as
// a program of its own would (not through the heap count of the other benchmarks).
void BM_PlainGetline(benchmark::State &state) {
    auto path = vorna::bench::LargeModelFolder() / "STRUTTUR.STR";
    for (auto _ : state) {
        const vorna::bench::UncountedHeap plain;
        std::ifstream in(path, std::ios::binary);
        std::vector<std::string> lines;
        std::string line;
        while (std::getline(in, line))
            lines.push_back(line);
        benchmark::DoNotOptimize(lines.data());
    }
}
BENCHMARK(BM_PlainGetline)->Unit(benchmark::kMillisecond);

void BM_LoadStructure(benchmark::State &state) {
    std::string folder = vorna::bench::LargeModelFolder().string();
    auto model = std::make_unique<vorna::StructureModel>();
    for (auto _ : state) {
        auto result = vorna::LoadStructure(folder, *model);
        if (result != vorna::LoadResult::Loaded || model->nodeCount != 20001)
            state.SkipWithError("the large model did not load");
        benchmark::DoNotOptimize(model->points.data());
    }
}
BENCHMARK(BM_LoadStructure)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
