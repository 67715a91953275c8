#include "SampleFiles.h"

#include "app/StartUp.h"
#include "exiftool/ReadCommands.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <stdexcept>

namespace bench {

namespace fs = std::filesystem;

namespace {

fs::path givenFolder;

void countLines(SampleFiles::Sample& sample) {
    std::ifstream stream(sample.output, std::ios::binary);
    std::string line;
    while (std::getline(stream, line)) {
        ++sample.lines;
        sample.bytes += line.size() + 1;
    }
}

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

}  // namespace

fs::path sampleFolder(const fs::path& given) {
    if (!given.empty()) return given;
    if (const char* named = std::getenv("TAGWRIGHT_SAMPLES")) return named;
    return fs::path(TAGWRIGHT_BIN_DIR) / "samples";
}

void showAllFamilies(app::Settings& settings) {
    auto& show = settings.metadataList;
    show.showExif = show.showComposite = show.showGps = show.showIptc = true;
    show.showIcc = show.showMakerNotes = show.showXmp = show.showUnknown = true;
}

SampleFiles::SampleFiles(const fs::path& folder) {
    context_.tempPath = folder_.path().toStdString();
    context_.installPath = context_.tempPath;
    app::resolveTools(context_);
    showAllFamilies(context_.settings);
    if (context_.exifToolPath.empty()) throw std::runtime_error("ExifTool was not found");
    exiftool::ToolRunner runner(context_);
    exiftool::ReadFeedback feedback;
    exiftool::ReadCommands commands(context_, runner, feedback);
    for (const fs::path& file : filesIn(folder)) {
        Sample sample{fs::canonical(file), context_.tempPath / (std::to_string(samples_.size()) + ".txt")};
        if (commands.ReadForPanel(sample.file, sample.output, false) == 0)
            throw std::runtime_error(file.string() + " cannot be read");
        countLines(sample);
        samples_.push_back(std::move(sample));
    }
    if (samples_.empty()) throw std::runtime_error(folder.string() + " has no files");
    std::ranges::sort(samples_, {}, &Sample::lines);
}

std::size_t SampleFiles::lines() const {
    return std::accumulate(samples_.begin(), samples_.end(), std::size_t{0},
                           [](std::size_t sum, const Sample& sample) { return sum + sample.lines; });
}

const SampleFiles& samples() {
    static const SampleFiles files(sampleFolder(givenFolder));
    return files;
}

void setSampleFolder(const fs::path& folder) {
    givenFolder = folder;
}

}  // namespace bench
