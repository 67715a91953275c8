// A folder of very many files: what the window takes beyond reading and sorting the names.

#include "FolderFloor.h"
#include "PlainProcess.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include <stdexcept>

namespace {

constexpr int kMany = 100000;
constexpr int kSome = 10000;

/// A folder of that many files, made once and gone at the end.
const std::string& folderOf(int count) {
    struct Folder {
        explicit Folder(int files) : path(directory.path().toStdString()) {
            bench::makeManyFiles(path, files);
        }
        QTemporaryDir directory;
        std::string path;
    };
    static std::map<int, Folder> folders;
    return folders.try_emplace(count, count).first->second.path;
}

bench::Measurements measure(const std::string& program, const std::vector<std::string>& arguments,
                            int expectedItems) {
    bench::Measurements measured = bench::runMeasuringProgram(program, arguments);
    if (measured.at("items") != expectedItems) throw std::runtime_error("the folder was not shown whole");
    return measured;
}

void plainly(benchmark::State& state, int count) {
    try {
        for (auto _ : state)
            state.SetIterationTime(measure("tagwright-bench-floor", {folderOf(count)}, count).at("seconds"));
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

void inTheWindow(benchmark::State& state, int count) {
    const std::string install = TAGWRIGHT_BENCH_INSTALL;
    try {
        for (auto _ : state) {
            const auto measured = measure("tagwright-bench-program", {install, folderOf(count)}, count);
            state.SetIterationTime(measured.at("seconds"));
            state.counters["block"] = measured.at("block");
            state.counters["scroll"] = measured.at("scroll");
            state.counters["memory"] = measured.at("memory");
            state.counters["sort"] = measured.at("sort");
            state.counters["sortBlock"] = measured.at("sortBlock");
        }
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

BENCHMARK_CAPTURE(plainly, many, kMany)->Name("Folder/Plain100000")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(inTheWindow, many, kMany)->Name("Folder/Window100000")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(plainly, some, kSome)->Name("Folder/Plain10000")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(inTheWindow, some, kSome)->Name("Folder/Window10000")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(inTheWindow, none, 0)->Name("Folder/WindowEmpty")->UseManualTime()->Iterations(1);

}  // namespace
