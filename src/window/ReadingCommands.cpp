#include "window/ReadingCommands.h"

#include "dialogs/ProgressDialog.h"
#include "panel/MetadataPanel.h"
#include "window/StatusBar.h"

namespace window {

std::span<const CommandRow<ReadingCommands>> ReadingCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<ReadingCommands> kRows[] = {
        {kClearMetadata, kClearMetadata, &ReadingCommands::clearMetadata},
        {kRefreshPanel, kRefreshPanel, &ReadingCommands::refreshPanel},
        {kOpenUrl, kOpenUrl, &ReadingCommands::openAddress},
        {kReadFileAgain, kReadFileAgain, &ReadingCommands::readFileAgain},
        {kReadSelection, kReadSelection, &ReadingCommands::readSelection},
    };
    return kRows;
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
    const QString status = parts_.statusBar.statusText();
    parts_.panel.Refresh();
    parts_.showStatus(status);
}

void ReadingCommands::openAddress(app::CommandId) {
    parts_.panel.openAddress();
}

void ReadingCommands::fileClicked(const std::filesystem::path& file) {
    // A second click while the first file is still being read is dropped, not piled up.
    if (!parts_.context.settings.lists.showMetadataWindow || parts_.progress.isWaiting()) return;
    parts_.context.currentFile = file;
    parts_.panel.newSelection(file);
}

}  // namespace window
