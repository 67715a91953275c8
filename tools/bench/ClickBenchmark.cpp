// What the window adds to ExifTool's own run, from the click to the painted rows.

#include "PlainProcess.h"
#include "SampleFiles.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr std::size_t kFileCount = 8;

/// From the file with the fewest tags to the one with the most.
std::vector<std::string> spreadOfFiles() {
    std::vector<std::filesystem::path> all;
    for (const auto& sample : bench::samples().samples())
        if (sample.lines > 0) all.push_back(sample.file);
    const std::size_t count = std::min(kFileCount, all.size());
    std::vector<std::string> files;
    for (std::size_t i = 0; i < count; ++i)
        files.push_back(all[count == 1 ? 0 : i * (all.size() - 1) / (count - 1)].string());
    return files;
}

void clickFiles(benchmark::State& state) {
    try {
        std::vector<std::string> arguments = spreadOfFiles();
        arguments.insert(arguments.begin(), TAGWRIGHT_BENCH_INSTALL);
        for (auto _ : state) {
            const bench::Measurements measured =
                bench::runMeasuringProgram("tagwright-bench-click", arguments);
            state.SetIterationTime(measured.at("seconds"));
            for (const char* name : {"tool", "added", "addedToLargest", "addedAtFirst"})
                state.counters[name] = measured.at(name);
        }
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

BENCHMARK(clickFiles)->Name("Click/Window")->UseManualTime()->Iterations(1);

}  // namespace
