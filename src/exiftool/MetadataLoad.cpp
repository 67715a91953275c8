#include "exiftool/MetadataLoad.h"

#include <system_error>

namespace exiftool {

namespace fs = std::filesystem;

MetadataLoad::MetadataLoad(const app::AppContext& context, ToolRunner& runner, ReadCommands& commands,
                           tags::OutputParser& parser)
    : context_(context), runner_(runner), commands_(commands), parser_(parser) {}

int MetadataLoad::LoadMetadata(const fs::path& file, LoadTarget& target, LoadFeedback& feedback) {
    parser_.Begin();
    if (file.empty()) return 0;
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        // A pipe or a device could keep whoever opens it waiting for ever.
        feedback.ShowStatus(QStringLiteral("Ready"));
        return 0;
    }
    const fs::path output = context_.tempPath / "Metadata.txt";
    // What the last read left must never be taken for this file's tags when the tool fails to write.
    fs::remove(output, error);

    feedback.ShowReading(file);
    const bool wasRun = commands_.ReadForPanel(file, output, true) != 0;
    if (!wasRun || runner_.wasStopped()) {
        feedback.HideProgress();
        if (runner_.wasStopped()) feedback.ShowStatus(QStringLiteral("Ready"));
        return 0;
    }
    feedback.ShowSorting();
    const bool parsed = parser_.ParseExifToolOutput(
        output, [&](tags::MetadataRow&& row) { target.InsertMetadataRow(std::move(row)); });
    if (!parsed) {
        feedback.HideProgress();
        feedback.ShowError(QStringLiteral("An error occured!"));
        feedback.ShowStatus(QStringLiteral("Ready"));
        return 0;
    }
    feedback.ShowStatus(QStringLiteral("Ready"));
    parser_.ForEachShownCount(
        [&](std::uint32_t groupId, int count) { target.SetGroupCount(groupId, count); });
    feedback.HideProgress();
    feedback.FocusFileList();
    return 1;
}

}  // namespace exiftool
