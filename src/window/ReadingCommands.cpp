#include "window/ReadingCommands.h"

#include "dialogs/ProgressDialog.h"
#include "panel/MetadataPanel.h"
#include "tags/RowAppearance.h"
#include "window/StatusBar.h"

namespace window {

std::span<const CommandRow<ReadingCommands>> ReadingCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<ReadingCommands> kRows[] = {
        {kClearMetadata, kClearMetadata, &ReadingCommands::clearMetadata, &ReadingCommands::ifShown},
        {kRefreshPanel, kRefreshPanel, &ReadingCommands::refreshPanel, &ReadingCommands::ifShown},
        {kOpenUrl, kOpenUrl, &ReadingCommands::openAddress, &ReadingCommands::ifAddress},
        {kReadFileAgain, kReadFileAgain, &ReadingCommands::readFileAgain, &ReadingCommands::ifShown},
        {kReadSelection, kReadSelection, &ReadingCommands::readSelection},
    };
    return kRows;
}

CommandState ReadingCommands::ifShown(app::CommandId) const {
    return {.enabled = !parts_.panel.file().empty()};
}

CommandState ReadingCommands::ifAddress(app::CommandId) const {
    const QModelIndex row = parts_.panel.list().currentIndex();
    return {.enabled = row.isValid() && tags::looksLikeAddress(parts_.panel.model().row(row.row()).value)};
}

void ReadingCommands::clearMetadata(app::CommandId) {
    parts_.context.currentFile.clear();
    parts_.panel.clear();
}

void ReadingCommands::readSelection(app::CommandId) {
    if (!parts_.context.settings.lists.showMetadataWindow) return;
    std::error_code error;
    const std::filesystem::path selected = parts_.selectedFile();
    if (std::filesystem::is_regular_file(selected, error)) parts_.context.currentFile = selected;
    parts_.panel.newSelection(parts_.context.currentFile);
}

void ReadingCommands::refreshPanel(app::CommandId) {
    parts_.panel.Refresh();
}

void ReadingCommands::readFileAgain(app::CommandId) {
    parts_.panel.readAgainQuietly();
}

void ReadingCommands::openAddress(app::CommandId) {
    parts_.panel.openAddress();
}

void ReadingCommands::fileClicked(const std::filesystem::path& file) {
    if (!parts_.context.settings.lists.showMetadataWindow) return;
    parts_.context.currentFile = file;
    parts_.panel.newSelection(file);
}

}  // namespace window
