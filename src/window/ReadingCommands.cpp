#include "window/ReadingCommands.h"

#include "browser/ShellBrowser.h"
#include "dialogs/ProgressDialog.h"
#include "panel/MetadataPanel.h"
#include "window/StatusBar.h"

#include <utility>

namespace window {

namespace {

/// Long enough for a key that is held down to pass over a file without its being read.
constexpr std::chrono::milliseconds kRest{150};

}  // namespace

ReadingCommands::ReadingCommands(const WindowParts& parts) : parts_(parts) {
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] { readRested(); });
}

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
    return {.enabled = parts_.panel.canOpenAddress()};
}

void ReadingCommands::clearMetadata(app::CommandId) {
    parts_.context.currentFile.clear();
    parts_.panel.clear();
}

void ReadingCommands::readSelection(app::CommandId) {
    if (!parts_.context.settings.lists.showMetadataWindow) return;
    std::error_code error;
    const browser::ShellBrowser& list = parts_.activeBrowser();
    const browser::FileInView view = list.fileInView(parts_.panel.file());
    const bool follows = followsSelection();
    const std::filesystem::path selected =
        follows && view.row >= 0 ? list.model().list().pathAt(view.row) : parts_.selectedFile();
    rest_.stop();
    if (std::filesystem::is_regular_file(selected, error)) parts_.context.currentFile = selected;
    parts_.panel.newSelection(parts_.context.currentFile);
    if (follows) parts_.panel.showNumber(view.number, view.count);
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

bool ReadingCommands::followsSelection() const {
    return parts_.context.settings.lists.showMetadataWindow &&
           app::commandFormOf(parts_.context) == app::CommandForm::Corrected;
}

void ReadingCommands::dropWhatIsNotInView() {
    if (parts_.panel.file().empty() ||
        browser::isSelectedFile(parts_.activeBrowser().model().list(), parts_.panel.file()))
        return;
    parts_.context.currentFile.clear();
    if (parts_.hasSelectedFile())
        parts_.panel.clearForNext();
    else
        parts_.panel.clear();
}

void ReadingCommands::selectionChanged() {
    if (!followsSelection()) return;
    dropWhatIsNotInView();
    rest_.start();
}

void ReadingCommands::folderLeft(const std::filesystem::path& next) {
    if (!followsSelection() || parts_.panel.file().parent_path() == next) return;
    rest_.stop();
    if (!parts_.panel.file().empty()) clearMetadata(app::command::kClearMetadata);
}

void ReadingCommands::folderShown(bool keepsStatus) {
    if (!followsSelection()) return;
    dropWhatIsNotInView();
    isQuiet_ = keepsStatus;
    if (parts_.hasSelectedFile()) rest_.start();
}

void ReadingCommands::readRested() {
    const bool isQuiet = std::exchange(isQuiet_, false);
    const browser::ShellBrowser& list = parts_.activeBrowser();
    const browser::FileInView view = list.fileInView(parts_.panel.file());
    if (view.row < 0 || !followsSelection()) return;
    const std::filesystem::path file = list.model().list().pathAt(view.row);
    if (file != parts_.panel.file()) {
        parts_.context.currentFile = file;
        if (isQuiet)
            parts_.panel.newSelectionQuietly(file);
        else
            parts_.panel.newSelection(file);
    }
    parts_.panel.showNumber(view.number, view.count);
}

}  // namespace window
