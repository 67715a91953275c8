// What the window adds to ExifTool's own run when one tag is edited, and how long the longest list of tags
// takes to open.

#include "BlockSharing.h"
#include "PlainProcess.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLarge = 50'000'000;
constexpr const char* kRounds = "7";

const fs::path& install() {
    static const fs::path folder = TAGWRIGHT_BENCH_INSTALL;
    return folder;
}

/// On the file system of the safety copies, as a user's photos and copies often are.
fs::path workFolder() {
    const fs::path folder = install() / "edited";
    fs::create_directories(folder);
    return folder;
}

/// A sample photo, with so many bytes behind its picture that the whole has that size; ExifTool keeps them.
fs::path photoOf(std::size_t size) {
    const fs::path file = workFolder() / ("photo" + std::to_string(size) + ".jpg");
    fs::copy_file(install() / "samples" / "Balloons.jpg", file, fs::copy_options::overwrite_existing);
    std::ofstream stream(file, std::ios::binary | std::ios::app);
    std::string noise(4096, '\0');
    std::uint32_t state = 1;
    for (std::size_t written = fs::file_size(file); written < size; written += noise.size()) {
        for (char& byte : noise) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
        stream.write(noise.data(), static_cast<std::streamsize>(noise.size()));
    }
    return file;
}

bool canClone() {
    const fs::path target = workFolder() / "clone";
    const bool cloned = bench::canShareBlocks(photoOf(0), target);
    fs::remove(target);
    return cloned;
}

/// The helper of the warm starter, which the other benchmarks do without.
class WarmHelper {
 public:
    explicit WarmHelper(bool wanted) {
        if (wanted)
            fs::copy(fs::path(TAGWRIGHT_BIN_DIR) / "warm", folder_,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }
    ~WarmHelper() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    WarmHelper(const WarmHelper&) = delete;
    WarmHelper& operator=(const WarmHelper&) = delete;

 private:
    const fs::path folder_ = install() / "warm";
};

void editTag(benchmark::State& state, std::size_t size, bool warm) {
    try {
        const WarmHelper helper(warm);
        for (auto _ : state) {
            const bench::Measurements measured = bench::runMeasuringProgram(
                "tagwright-bench-edit",
                {install().string(), photoOf(size).string(), kRounds, warm ? "1" : "0"});
            state.SetIterationTime(measured.at("seconds"));
            for (const char* name : {"tool", "opening", "copy", "added"})
                state.counters[name] = measured.at(name);
            state.counters["addedBesideCopy"] = measured.at("added") - measured.at("copy");
        }
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

void openPicker(benchmark::State& state) {
    try {
        for (auto _ : state) {
            const bench::Measurements measured = bench::runMeasuringProgram(
                "tagwright-bench-picker", {install().string(), (install() / "samples").string()});
            state.SetIterationTime(measured.at("seconds"));
            for (const char* name : {"first", "rows", "longest", "longestRows"})
                state.counters[name] = measured.at(name);
        }
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

BENCHMARK_CAPTURE(editTag, warm, 0, true)->Name("Edit/Warm")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(editTag, cold, 0, false)->Name("Edit/Cold")->UseManualTime()->Iterations(1);
// Two names, as only one of them can keep the promise.
const auto* const kLargePhoto =
    benchmark::RegisterBenchmark(canClone() ? "Edit/LargeCloned" : "Edit/LargeCopied", editTag, kLarge, false)
        -> UseManualTime() -> Iterations(1);
BENCHMARK(openPicker)->Name("Picker/Xmp")->UseManualTime()->Iterations(1);

}  // namespace
