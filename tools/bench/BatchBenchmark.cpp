// How fast an operation over many files is, safety copies included, against one ExifTool that is given all of
// them on its command line and copies nothing; and what two such ExifTools at once, each with half of the
// files, make of the machine. Photos without tags of their own, and photos described as the program's samples
// are: EXIF, GPS, IPTC, XMP, a colour profile and a thumbnail.

#include "NoisePhoto.h"
#include "PlainProcess.h"
#include "exiftool/SafetyCopy.h"
#include "exiftool/WriteSessions.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <chrono>
#include <fstream>
#include <future>
#include <iterator>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

constexpr int kFiles = 500;
constexpr int kFilesOfWindow = 1000;
constexpr int kFileBytes = 200'000;
constexpr const char* kTool = "/usr/bin/exiftool";
constexpr const char* kSample = TAGWRIGHT_SOURCE_DIR "/data/samples/Harbour at dawn.jpg";

std::vector<std::string> arguments() {
    return {"-overwrite_original", "-Title=A title", "-Keywords=one", "-Keywords=two"};
}

enum class Tags { None, AsInSamples };

/// The same files anew for each run, away from all others.
class Photos {
 public:
    explicit Photos(Tags tags) {
        const fs::path master = folder() / "master.jpg";
        bench::writeNoisePhoto(master, kFileBytes);
        if (tags == Tags::AsInSamples)
            bench::runPlainly({kTool, "-overwrite_original", "-tagsFromFile", kSample, "-all:all",
                               "-icc_profile", "-thumbnailImage", master.string()},
                              folder() / "output");
        fs::create_directory(folder() / "photos");
        for (int i = 0; i < kFiles; ++i) {
            files.push_back(folder() / "photos" / (std::to_string(i) + ".jpg"));
            fs::copy_file(master, files.back());
        }
    }

    fs::path folder() const { return folder_.path().toStdString(); }
    std::vector<fs::path> files;

 private:
    QTemporaryDir folder_;
};

/// The run's time and pace.
template <typename Work>
void measure(benchmark::State& state, Tags tags, Work work) {
    for (auto _ : state) {
        const Photos photos(tags);
        const auto begin = steady_clock::now();
        const bool succeeded = work(photos);
        const std::chrono::duration<double> seconds = steady_clock::now() - begin;
        if (!succeeded) throw std::runtime_error("not every photo was written");
        state.SetIterationTime(seconds.count());
        state.counters["pace"] = kFiles / seconds.count();
    }
}

/// True when ExifTool says that it has written all of these files.
bool writePlainly(const std::vector<fs::path>& files, const fs::path& output) {
    std::vector<std::string> words = arguments();
    words.insert(words.begin(), kTool);
    for (const fs::path& file : files) words.push_back(file.string());
    bench::runPlainly(words, output);
    std::ifstream stream(output);
    const std::string said{std::istreambuf_iterator<char>(stream), {}};
    return said.find(std::to_string(files.size()) + " image files updated") != std::string::npos;
}

void writeWithOne(benchmark::State& state, Tags tags) {
    measure(state, tags,
            [](const Photos& photos) { return writePlainly(photos.files, photos.folder() / "output"); });
}

void writeWithTwo(benchmark::State& state, Tags tags) {
    measure(state, tags, [](const Photos& photos) {
        const auto middle = photos.files.begin() + kFiles / 2;
        auto other = std::async(std::launch::async, [&] {
            return writePlainly({photos.files.begin(), middle}, photos.folder() / "first");
        });
        const bool isWritten = writePlainly({middle, photos.files.end()}, photos.folder() / "second");
        return other.get() && isWritten;
    });
}

void writeWithSessions(benchmark::State& state, Tags tags) {
    measure(state, tags, [](const Photos& photos) {
        const fs::path cache = photos.folder() / "cache";
        exiftool::WriteRequest request;
        request.exifTool = kTool;
        request.arguments = arguments();
        request.files = photos.files;
        request.beforeFile = [&](const fs::path& file) {
            const QString fault = exiftool::MakeSafetyCopy(file, cache, exiftool::SafetyCopies());
            return exiftool::Prepared{.words = fault.toStdString()};
        };
        const exiftool::Outcomes outcomes = exiftool::writeFiles(request, {}, {});
        // A copy that failed would be a warning.
        return exiftool::isEveryFileDone(outcomes) && outcomes.size() == kFiles;
    });
}

/// Photos with a date, that the window's operation can set the date of the files by.
void writeInTheWindow(benchmark::State& state) {
    const QTemporaryDir place;
    const fs::path folder = place.path().toStdString();
    const fs::path master = folder / "master.jpg";
    bench::writeNoisePhoto(master, kFileBytes / 10);
    bench::runPlainly(
        {kTool, "-overwrite_original", "-DateTimeOriginal=2001:02:03 04:05:06", master.string()},
        folder / "output");
    for (const char* name : {"photos", "other"}) fs::create_directory(folder / name);
    for (int i = 0; i < kFilesOfWindow; ++i)
        fs::copy_file(master, folder / "photos" / (std::to_string(i) + ".jpg"));
    try {
        for (auto _ : state) {
            const bench::Measurements measured = bench::runMeasuringProgram(
                "tagwright-bench-writing",
                {TAGWRIGHT_BENCH_INSTALL, (folder / "photos").string(), (folder / "other").string()});
            state.SetIterationTime(measured.at("seconds"));
            state.counters["block"] = measured.at("block");
        }
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
}

BENCHMARK(writeInTheWindow)->Name("Writing/Window")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(writeWithOne, , Tags::None)->Name("Batch/Plain")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(writeWithSessions, , Tags::None)->Name("Batch/Sessions")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(writeWithTwo, , Tags::None)->Name("Batch/TwoPlain")->UseManualTime()->Iterations(1);
BENCHMARK_CAPTURE(writeWithOne, , Tags::AsInSamples)
    ->Name("Batch/DescribedPlain")
    ->UseManualTime()
    ->Iterations(1);
BENCHMARK_CAPTURE(writeWithSessions, , Tags::AsInSamples)
    ->Name("Batch/DescribedSessions")
    ->UseManualTime()
    ->Iterations(1);
BENCHMARK_CAPTURE(writeWithTwo, , Tags::AsInSamples)
    ->Name("Batch/DescribedTwoPlain")
    ->UseManualTime()
    ->Iterations(1);

}  // namespace
