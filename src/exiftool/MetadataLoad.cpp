#include "exiftool/MetadataLoad.h"

#include "app/SpokenText.h"
#include "app/TextNumbers.h"
#include "platform/Text.h"

#include <system_error>

namespace exiftool {

namespace fs = std::filesystem;

MetadataLoad::MetadataLoad(const app::AppContext& context, ToolRunner& runner, ReadCommands& commands,
                           tags::OutputParser& parser)
    : context_(context), runner_(runner), commands_(commands), parser_(parser) {}

int MetadataLoad::LoadMetadata(const fs::path& file, LoadTarget& target, LoadFeedback& feedback) {
    if (file.empty()) return 0;
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        // A pipe or a device could keep whoever opens it waiting for ever.
        feedback.showStatus(platform::wide(app::spokenText(app::text::kReady)));
        return 0;
    }
    const fs::path output = context_.tempPath / "Metadata.txt";
    // What the last read left must never be taken for this file's tags when the tool fails to write.
    fs::remove(output, error);

    feedback.showReading(file);
    MetadataRead read{
        file, output, commands_.ReadForPanel(file, output, true) != 0, runner_.wasStopped(), {}};
    return showRead(read, target, feedback);
}

int MetadataLoad::showRead(const MetadataRead& read, LoadTarget& target, LoadFeedback& feedback) {
    parser_.begin();
    if (!read.wasRun || read.wasStopped) {
        feedback.hideProgress();
        feedback.showStatus(platform::wide(app::spokenText(app::text::kReady)));
        return 0;
    }
    feedback.showSorting();
    const bool parsed = parser_.ParseExifToolOutput(
        read.output, [&](tags::MetadataRow&& row) { target.InsertMetadataRow(std::move(row)); });
    if (!parsed) {
        feedback.hideProgress();
        feedback.showError(QStringLiteral("An error occured!"));
        feedback.showStatus(platform::wide(app::spokenText(app::text::kReady)));
        return 0;
    }
    feedback.showStatus(platform::wide(app::spokenText(app::text::kReady)));
    parser_.forEachShownCount(
        [&](std::uint32_t groupId, int count) { target.SetGroupCount(groupId, count); });
    feedback.hideProgress();
    return 1;
}

}  // namespace exiftool
