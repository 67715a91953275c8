// Measures reading all properties of many photos against one run of ExifTool over the same files.

#include "browser/PropertyText.h"

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kPhotos = 1000;
constexpr double kGoal = 8;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::vector<fs::path> copies(const fs::path& folder) {
    std::vector<fs::path> originals;
    for (const auto& entry : fs::directory_iterator(fs::path(TAGWRIGHT_SOURCE_DIR) / "data" / "samples"))
        if (entry.path().extension() == ".jpg") originals.push_back(entry.path());
    std::vector<fs::path> files;
    for (std::size_t i = 0; i < kPhotos && !originals.empty(); ++i) {
        files.push_back(folder / (std::to_string(i) + ".jpg"));
        fs::copy_file(originals[i % originals.size()], files.back());
    }
    return files;
}

}  // namespace

int main() {
    const QTemporaryDir folder;
    const std::vector<fs::path> files = copies(folder.path().toStdString());
    if (files.empty()) return 1;
    const std::string command = "exiftool -fast2 '" + folder.path().toStdString() + "' >" +
                                QProcess::nullDevice().toStdString() + " 2>&1";

    auto start = Clock::now();
    std::size_t values = 0;
    for (const fs::path& file : files) {
        properties::PropertyStore store(file);
        for (const tags::PropertyRecord& row : tags::propertyRows())
            if (!properties::isAbsent(store.get(static_cast<properties::PropertyId>(row.propertyId))))
                ++values;
    }
    const double own = secondsSince(start);

    start = Clock::now();
    for (const fs::path& file : files)
        static_cast<void>(browser::GetPropertyText(file, *tags::findPropertyColumn(207)));
    const double one = secondsSince(start);

    start = Clock::now();
    const int status = std::system(command.c_str());
    const double tool = secondsSince(start);
    if (status != 0) return 1;
    std::printf(
        "All properties of %zu photos: %.0f files/s, %zu values; ExifTool -fast2 %.0f files/s; ratio %.1f "
        "(at least %.0f)\nOne cell of each: %.3f ms\n",
        files.size(), static_cast<double>(files.size()) / own, values,
        static_cast<double>(files.size()) / tool, tool / own, kGoal,
        one * 1000 / static_cast<double>(files.size()));
    return tool / own >= kGoal ? 0 : 1;
}
