// From the start of a process to its painted window.

#include "PlainProcess.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

void startOf(benchmark::State& state, const std::string& program, const std::vector<std::string>& arguments) {
    for (auto _ : state) {
        try {
            const bench::Measurements measured = bench::runMeasuringProgram(program, arguments);
            state.SetIterationTime(measured.at("painted") - measured.at("spawned"));
        } catch (const std::exception& failure) {
            state.SkipWithError(failure.what());
            return;
        }
    }
}

void startEmptyWindow(benchmark::State& state) {
    startOf(state, "tagwright-bench-empty-window", {});
}

void startProgram(benchmark::State& state) {
    startOf(state, "tagwright-bench-program", {TAGWRIGHT_BENCH_INSTALL});
}

BENCHMARK(startEmptyWindow)->Name("Start/EmptyWindow")->UseManualTime()->Iterations(1);
BENCHMARK(startProgram)->Name("Start/Program")->UseManualTime()->Iterations(1);

}  // namespace
