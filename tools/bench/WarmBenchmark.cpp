// What the warm starter saves: reads and writes through the tool runner with it and without it, one after the
// other file by file, and what it takes of memory.

#include "Figures.h"
#include "NoisePhoto.h"
#include "ProcessMemory.h"
#include "SampleFiles.h"

#include "app/AppContext.h"
#include "exiftool/ReadCommands.h"
#include "exiftool/ToolRunner.h"
#include "exiftool/WarmStarter.h"
#include "platform/ProcessId.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;
using std::chrono::steady_clock;

constexpr double kMebibyte = 1024 * 1024;
constexpr int kReadRounds = 5;
constexpr int kPhotoRounds = 25;
constexpr int kWrittenPhotos = 40;
constexpr std::chrono::seconds kReadyLimit{60};

double secondsOf(const std::function<void()>& work) {
    const auto begin = steady_clock::now();
    work();
    return std::chrono::duration<double>(steady_clock::now() - begin).count();
}

/// The same runs with and without the starter.
class Competitors {
 public:
    Competitors() {
        context_.exifToolPath = "/usr/bin/exiftool";
        context_.tempPath = folder_.path().toStdString();
        context_.cachePath = context_.tempPath / "cache";
        context_.reportFile = context_.tempPath / "report.txt";
        context_.settings.exifTool.correctedCommands = true;
        starter_.Start(context_.exifToolPath, fs::path(TAGWRIGHT_BIN_DIR) / "warm", "en");
        secondsToLoad_ = secondsOf([&] {
            if (!starter_.isReadyWithin(kReadyLimit))
                throw std::runtime_error("the warm starter does not load");
        });
        warm_.setWarmStarter(&starter_);
    }

    fs::path file(const std::string& name) const { return context_.tempPath / name; }
    double secondsToLoad() const { return secondsToLoad_; }
    platform::ProcessId starter() const { return starter_.processId(); }

    double read(bool isWarm, const fs::path& file) {
        const platform::CommandText line = exiftool::panelReadCommand(
            context_, app::commandFormOf(context_), file, context_.tempPath / "Metadata.txt");
        return secondsOf([&] { check(runner(isWarm).runBatchFile(context_.tempPath / "read.bat", line)); });
    }

    double write(bool isWarm, const fs::path& file) {
        const platform::CommandText arguments(
            "-overwrite_original -Title=\"A title\" -Keywords=\"one\" -Keywords=\"two\"");
        return secondsOf(
            [&] { check(exiftool::isWritten(runner(isWarm).RunOnFile(file, arguments).kind) ? 1 : 0); });
    }

 private:
    exiftool::ToolRunner& runner(bool isWarm) { return isWarm ? warm_ : direct_; }
    static void check(int result) {
        if (result != 1) throw std::runtime_error("a command was not run");
    }

    QTemporaryDir folder_;
    app::AppContext context_;
    exiftool::WarmStarter starter_;
    exiftool::ToolRunner direct_{context_};
    exiftool::ToolRunner warm_{context_};
    double secondsToLoad_ = 0;
};

struct Times {
    double direct;
    double warm;
};

Times medianReads(Competitors& competitors, const fs::path& file, int rounds) {
    std::vector<double> direct;
    std::vector<double> warm;
    for (int i = 0; i < rounds; ++i) {
        direct.push_back(competitors.read(false, file));
        warm.push_back(competitors.read(true, file));
    }
    return {bench::median(direct), bench::median(warm)};
}

bool allReached = true;

void print(const char* title, double value, const char* unit, bool isReached, const char* goal) {
    std::printf("%-58s %8.3f %-6s %s %s\n", title, value, unit, isReached ? "reached" : "MISSED ", goal);
    allReached = allReached && isReached;
}

void measureReads(Competitors& competitors) {
    std::vector<double> ratios;
    std::vector<double> direct;
    std::vector<double> warm;
    for (const auto& entry : fs::directory_iterator(bench::sampleFolder({}))) {
        if (!entry.is_regular_file()) continue;
        const Times times = medianReads(competitors, entry.path(), kReadRounds);
        ratios.push_back(times.warm / times.direct);
        direct.push_back(times.direct);
        warm.push_back(times.warm);
    }
    std::printf("%zu samples: direct %.1f ms, warm %.1f ms (medians)\n", ratios.size(),
                bench::median(direct) * 1000, bench::median(warm) * 1000);
    const double ratio = bench::median(ratios);
    print("Read of the panel, warm : direct", ratio, "", ratio <= 0.20, "at most 0.20");
    const fs::path photo = competitors.file("5 MB.jpg");
    bench::writeNoisePhoto(photo, 5'000'000);
    const Times times = medianReads(competitors, photo, kPhotoRounds);
    const double photoRatio = times.warm / times.direct;
    print("  the same for a photo of 5 MB", photoRatio, "", photoRatio <= 0.40, "at most 0.40");
}

void measureWrites(Competitors& competitors) {
    const fs::path master = competitors.file("200 KB.jpg");
    bench::writeNoisePhoto(master, 200'000);
    double direct = 0;
    double warm = 0;
    for (int i = 0; i < kWrittenPhotos; ++i) {
        for (const bool isWarm : {false, true}) {
            const fs::path copy = competitors.file(std::to_string(i) + (isWarm ? " warm.jpg" : ".jpg"));
            fs::copy_file(master, copy);
            (isWarm ? warm : direct) += competitors.write(isWarm, copy);
        }
    }
    std::printf("%d photos: direct %.1f files/s, warm %.1f files/s\n", kWrittenPhotos,
                kWrittenPhotos / direct, kWrittenPhotos / warm);
    print("Batch of writes with safety copies, warm : direct", direct / warm, "times", direct / warm >= 7,
          "at least 7");
}

void measureMemory(const Competitors& competitors) {
    const double resident = bench::residentMemory(competitors.starter()) / kMebibyte;
    print("Resident memory of the starter", resident, "MiB", resident <= 100, "at most 100");
    // Those that have just run are gone before long.
    std::vector<std::int64_t> children;
    for (const auto end = steady_clock::now() + std::chrono::seconds(5); children.size() != 1;) {
        children = bench::childrenOf(competitors.starter());
        if (steady_clock::now() > end) throw std::runtime_error("not one child waits");
    }
    const double own = bench::privateMemory(children.front()) / kMebibyte;
    print("Private memory of an idle child", own, "MiB", own <= 1, "at most 1");
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    try {
        Competitors competitors;
        std::printf("Loaded in %.2f s\n", competitors.secondsToLoad());
        measureReads(competitors);
        measureWrites(competitors);
        measureMemory(competitors);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 2;
    }
    return allReached ? 0 : 1;
}
