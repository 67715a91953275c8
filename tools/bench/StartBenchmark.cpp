// From the start of a process to its painted window.

#include "PlainProcess.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

void startOf(benchmark::State& state, const std::string& program) {
    for (auto _ : state) {
        try {
            const bench::Measurements measured = bench::runMeasuringProgram(program, {});
            state.SetIterationTime(measured.at("painted") - measured.at("spawned"));
        } catch (const std::exception& failure) {
            state.SkipWithError(failure.what());
            return;
        }
    }
}

void startEmptyWindow(benchmark::State& state) {
    startOf(state, "tagwright-bench-empty-window");
}

BENCHMARK(startEmptyWindow)->Name("Start/EmptyWindow")->UseManualTime()->Iterations(1);

}  // namespace
