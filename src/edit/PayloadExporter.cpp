#include "edit/PayloadExporter.h"

#include "edit/ReportTail.h"
#include "platform/FileCopy.h"
#include "platform/Text.h"

#include <system_error>
#include <utility>

namespace edit {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFetched = "Payload.bin";

}  // namespace

PayloadExporter::PayloadExporter(const app::AppContext& context, exiftool::ToolRunner& runner,
                                 fs::path folder, const std::vector<fs::path>& selection, Ask ask)
    : context_(context), runner_(runner), folder_(std::move(folder)), ask_(std::move(ask)) {
    for (const fs::path& file : selection) {
        std::error_code error;
        const fs::path whole = fs::canonical(file, error);
        if (!error) selection_.insert(whole);
    }
}

fs::path PayloadExporter::TargetOf(const PayloadExport& payload, const fs::path& file) const {
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
    const fs::path target = TargetOf(payload, file);
    if (isOfSelection(target))
        return fail("A selected file stands where its data were to be written", target);
    const int ran = runner_.RunToolLine(ExportPayloadCommand(context_, payload, file, target));
    if (runner_.wasStopped()) return Outcome::Stopped;
    return ran != 0 ? Outcome::Written : fail("Cannot be written", target);
}

PayloadExporter::Outcome PayloadExporter::exportCorrected(const PayloadExport& payload,
                                                          const fs::path& file) {
    const fs::path fetched = context_.tempPath / kFetched;
    std::error_code error;
    fs::remove(fetched, error);
    const ReportTail report(context_.reportFile);
    const int ran = runner_.RunToolLine(ExportPayloadCommand(context_, payload, file, fetched));
    if (runner_.wasStopped()) return Outcome::Stopped;
    if (ran == 0) return fail("ExifTool was not run", file);
    const std::uintmax_t size = fs::file_size(fetched, error);
    if (error || size == 0) return report.hasGrown() ? Outcome::Failed : Outcome::NoData;

    fs::path target = TargetOf(payload, file);
    if (fs::exists(fs::symlink_status(target, error))) {
        const bool isForeign = !written_.contains(target) && !isOfSelection(target);
        if (isForeign && !hasAnswer_) {
            answer_ = ask_(target);
            hasAnswer_ = true;
        }
        if (isForeign && answer_ == ExistingTarget::Stop) return Outcome::Stopped;
        if (!isForeign || answer_ == ExistingTarget::KeepBoth) target = freeTarget(target);
    }
    if (const int failure = platform::copyFile(fetched, target); failure != 0)
        return fail(std::system_category().message(failure), target);
    written_.insert(target);
    fs::remove(fetched, error);
    return Outcome::Written;
}

bool PayloadExporter::isOfSelection(const fs::path& target) const {
    std::error_code error;
    const fs::path whole = fs::canonical(target, error);
    return !error && selection_.contains(whole);
}

fs::path PayloadExporter::freeTarget(const fs::path& wanted) const {
    std::error_code error;
    for (int number = 2;; ++number) {
        fs::path name = wanted.stem();
        name += " (" + std::to_string(number) + ")";
        name += wanted.extension();
        const fs::path target = wanted.parent_path() / name;
        if (!fs::exists(fs::symlink_status(target, error))) return target;
    }
}

PayloadExporter::Outcome PayloadExporter::fail(const std::string& reason, const fs::path& file) const {
    AppendToReport(context_.reportFile, "Error: " + reason + " - " + platform::narrow(file));
    return Outcome::Failed;
}

}  // namespace edit
