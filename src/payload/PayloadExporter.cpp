#include "payload/PayloadExporter.h"

#include "exiftool/ReportFile.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"

#include <system_error>
#include <utility>

namespace payload {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFetched = "Payload.bin";

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

fs::path freeTarget(const fs::path& wanted) {
    for (int number = 2;; ++number) {
        fs::path name = wanted.stem();
        name += " (" + std::to_string(number) + ")";
        name += wanted.extension();
        fs::path target = wanted.parent_path() / name;
        if (!isThere(target)) return target;
    }
}

}  // namespace

PayloadExporter::PayloadExporter(const app::AppContext& context, exiftool::ToolRunner& runner,
                                 fs::path folder, std::vector<fs::path> selection)
    : context_(context), runner_(runner), folder_(std::move(folder)), selection_(std::move(selection)) {
    for (const fs::path& file : selection_) {
        std::error_code error;
        const fs::path whole = fs::canonical(file, error);
        if (!error) selectedFiles_.insert(whole);
    }
}

fs::path PayloadExporter::firstExisting(std::span<const PayloadExport> payloads) const {
    for (const PayloadExport& payload : payloads) {
        for (const fs::path& file : selection_) {
            fs::path target = targetOf(payload, file);
            if (isThere(target) && isReplaceable(target)) return target;
        }
    }
    return {};
}

fs::path PayloadExporter::targetOf(const PayloadExport& payload, const fs::path& file) const {
    fs::path name = file.stem();
    name += payload.suffix;
    return folder_ / name;
}

PayloadExporter::Outcome PayloadExporter::Export(const PayloadExport& payload, const fs::path& file) {
    return context_.settings.exifTool.correctedCommands ? exportCorrected(payload, file)
                                                        : exportAsDesigned(payload, file);
}

PayloadExporter::Outcome PayloadExporter::exportAsDesigned(const PayloadExport& payload,
                                                           const fs::path& file) {
    const fs::path target = targetOf(payload, file);
    if (isOfSelection(target))
        return fail("A selected file stands where its data were to be written", target);
    const int ran = runner_.RunToolLine(exportPayloadCommand(context_, payload, file, target));
    if (runner_.wasStopped()) return Outcome::Stopped;
    return ran != 0 ? Outcome::Written : fail("Cannot be written", target);
}

PayloadExporter::Outcome PayloadExporter::exportCorrected(const PayloadExport& payload,
                                                          const fs::path& file) {
    const fs::path fetched = context_.tempPath / kFetched;
    std::error_code error;
    fs::remove(fetched, error);
    const std::uintmax_t reported = exiftool::reportSize(context_);
    const int ran = runner_.RunToolLine(exportPayloadCommand(context_, payload, file, fetched));
    if (runner_.wasStopped()) return Outcome::Stopped;
    if (ran == 0) return fail("ExifTool was not run", file);
    const std::uintmax_t size = fs::file_size(fetched, error);
    if (error || size == 0)
        return exiftool::reportSize(context_) > reported ? Outcome::Failed : Outcome::NoData;

    fs::path target = targetOf(payload, file);
    if (isThere(target) && !(replaceExisting_ && isReplaceable(target))) target = freeTarget(target);
    if (const int failure = platform::copyFile(fetched, target); failure != 0)
        return fail(std::system_category().message(failure), target);
    written_.insert(target);
    fs::remove(fetched, error);
    return Outcome::Written;
}

bool PayloadExporter::isReplaceable(const fs::path& target) const {
    return !written_.contains(target) && !isOfSelection(target);
}

bool PayloadExporter::isOfSelection(const fs::path& target) const {
    std::error_code error;
    const fs::path whole = fs::canonical(target, error);
    return !error && selectedFiles_.contains(whole);
}

PayloadExporter::Outcome PayloadExporter::fail(const std::string& reason, const fs::path& file) const {
    exiftool::appendToReport(context_, "Error: " + reason + " - " + platform::narrow(file));
    return Outcome::Failed;
}

}  // namespace payload
