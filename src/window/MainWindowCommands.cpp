#include "window/AboutDialog.h"
#include "window/MainWindow.h"

#include "app/TextNumbers.h"
#include "browser/AddressBar.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "controls/Ribbon.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "edit/ValueEditor.h"
#include "panel/MetadataPanel.h"
#include "platform/Text.h"
#include "window/MainWindowFeedback.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QProcess>
#include <QUrl>

#include <algorithm>

namespace window {

const std::vector<MainWindow::HandledCommand>& MainWindow::handledCommands() {
    using namespace app::command;
    static const std::vector<HandledCommand> commands = {
        {kShowFolders, kShowFolders, &MainWindow::toggleFolders},
        {kShowStatusBar, kShowStatusBar, &MainWindow::toggleStatusBar},
        {kViewDetails, kViewJumbo, &MainWindow::setView},
        {kMetadataPanel, kMetadataPanel, &MainWindow::toggleMetadataPanel},
        {kFileDateFromPhoto, kFileDateFromPhoto, &MainWindow::runBatch},
        {kRenameByShutterCount, kRenameByDateAndModel, &MainWindow::runBatch},
        {kDeleteAll, kDeleteAll, &MainWindow::deleteAll},
        {kRemoveTags, kRemoveTags, &MainWindow::removeTags},
        {kRemoveGroupTypes, kRemoveGroupTypes, &MainWindow::removeGroupTypes},
        {kEmbedThumbnail, kEmbedThumbnail, &MainWindow::runBatch},
        {kRemoveThumbnail, kRemoveThumbnail, &MainWindow::runBatch},
        {kExportThumbnail, kExportIccProfile, &MainWindow::exportPayloads},
        {kOpenSelectedFolder, kOpenSelectedFolder, &MainWindow::openSelected},
        {kDeselectAll, kDeselectAll, &MainWindow::clearSelection},
        {kFocusList, kFocusList, &MainWindow::focusList},
        {kRefresh, kRefresh, &MainWindow::refresh},
        {kModifyExif, kModifyExif, &MainWindow::modifyTags},
        {kModifyIptc, kModifyIptc, &MainWindow::modifyTags},
        {kModifyXmp, kModifyXmp, &MainWindow::modifyTags},
        {kFirstAddTags, kLastAddTags, &MainWindow::addTags},
        {kAddTagsToFile, kAddTagsToFile, &MainWindow::addTagsToShownFile},
        {kAbout, kAbout, &MainWindow::showAbout},
        {kBack, kBack, &MainWindow::goBack},
        {kForward, kForward, &MainWindow::goForward},
        {kUp, kUp, &MainWindow::goUp},
        {kClearSelection, kClearSelection, &MainWindow::clearSelection},
        {kCheckBoxes, kCheckBoxes, &MainWindow::toggleCheckBoxes},
        {kInvertSelectionOfRibbon, kInvertSelectionOfRibbon, &MainWindow::invertSelection},
        {kClearMetadata, kClearMetadata, &MainWindow::clearMetadata},
        {kRefreshPanel, kRefreshPanel, &MainWindow::refreshPanel},
        {kApplyItemStates, kApplyItemStates, &MainWindow::applyItemStates},
        {kHtmlDump, kHtmlDump, &MainWindow::dumpFile},
        {kVerboseDump, kVerboseDump, &MainWindow::dumpFile},
        {kExportMenu, kExportMenu, &MainWindow::showExportMenu},
        {kFirstExport, kLastExport, &MainWindow::exportValues},
        {kOpenUrl, kOpenUrl, &MainWindow::openAddress},
        {kRemoveGroupFromFile, kRemoveGroupFromFile, &MainWindow::deleteGroup},
        {kDeleteTag, kDeleteTag, &MainWindow::deleteTag},
        {kDeleteGroup, kDeleteGroup, &MainWindow::deleteGroup},
        {kReadFileAgain, kReadFileAgain, &MainWindow::readFileAgain},
        {kRemoveTagsFromFile, kRemoveTagsFromFile, &MainWindow::removeTagsFromShownFile},
        {kRemoveEverything, kRemoveEverything, &MainWindow::removeFamily},
        {kCopyTagsFromFile, kCopyTagsFromFile, &MainWindow::copyTags},
        {kCopyTags, kCopyTags, &MainWindow::copyTags},
        {kRemoveExif, kRemoveAllMetadata, &MainWindow::removeFamily},
        {kOpenFile, kOpenFile, &MainWindow::openSelected},
        {kSelectAll, kSelectAll, &MainWindow::selectAll},
        {kInvertSelection, kInvertSelection, &MainWindow::invertSelection},
        {kSelectNone, kSelectNone, &MainWindow::clearSelection},
        {kSortAscending, kSortDescending, &MainWindow::sortDirection},
        {kClose, kClose, &MainWindow::closeWindow},
        {kShowHidden, kShowHidden, &MainWindow::toggleHidden},
        {kRefreshOfMenu, kRefreshOfMenu, &MainWindow::refresh},
        {kReadSelection, kReadSelection, &MainWindow::readSelection},
        {kRestart, kRestart, &MainWindow::restart},
        {kBackOfMenu, kBackOfMenu, &MainWindow::goBack},
        {kForwardOfMenu, kForwardOfMenu, &MainWindow::goForward},
        {kUpOfMenu, kUpOfMenu, &MainWindow::goUp},
        {kSortBy + 1, kGroupBy - 1, &MainWindow::sortBy},
    };
    return commands;
}

bool MainWindow::handles(app::CommandId id) {
    return std::ranges::any_of(handledCommands(), [id](const HandledCommand& handled) {
        return id >= handled.first && id <= handled.last;
    });
}

void MainWindow::Dispatch(app::CommandId id) {
    const app::Command* entry = app::findCommand(id);
    // A command that came while a tool is being waited for would start a second wait inside the first.
    if (entry == nullptr || !entry->built || progress_.isWaiting()) return;
    if (entry->needsSelection && selectedFile().empty()) {
        dialogs::showMessage(this,
                             {language_.text(app::text::kNoFileSelected), dialogs::MessageIcon::Information});
        return;
    }
    for (const HandledCommand& handled : handledCommands()) {
        if (id < handled.first || id > handled.last) continue;
        (this->*handled.handler)(id);
        updateToggles();
        return;
    }
}

std::filesystem::path MainWindow::selectedFile() {
    const std::vector<std::filesystem::path> files = activeBrowser().GetSelectedFiles();
    return files.empty() ? std::filesystem::path() : files.front();
}

jobs::OperationParts MainWindow::editParts() {
    jobs::OperationParts parts{context_,   language_, dictionary_,   labels_,   ratingMemory_,
                               ratingLog_, runner_,   readCommands_, *feedback_};
    if (!values_) values_ = std::make_unique<edit::ValueEditor>(parts);
    parts.values = values_.get();
    return parts;
}

void MainWindow::toggleFolders(app::CommandId) {
    context_.settings.main.showFolders = !context_.settings.main.showFolders;
    relayout();
}

void MainWindow::toggleStatusBar(app::CommandId) {
    context_.settings.main.showStatusBar = !context_.settings.main.showStatusBar;
    relayout();
}

void MainWindow::setView(app::CommandId id) {
    const int mode = id - app::command::kViewDetails + 1;
    context_.settings.main.viewMode = mode;
    activeBrowser().SetViewMode(app::viewModeFromIntegral(mode));
}

void MainWindow::toggleMetadataPanel(app::CommandId) {
    app::Settings::Lists& lists = context_.settings.lists;
    setRightPanel(&app::Settings::Lists::showMetadataWindow, !lists.showMetadataWindow);
    readSelection(app::command::kReadSelection);
}

void MainWindow::openSelected(app::CommandId) {
    openPath(selectedFile());
}

void MainWindow::openPath(const std::filesystem::path& path) {
    if (path.empty()) return;
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        openFolder(path);
        return;
    }
    if (!std::filesystem::is_regular_file(path, error)) return;
    // A name that is no UTF-8 goes through as percent bytes.
    const QByteArray bytes = QByteArray::fromStdString(platform::narrow(path));
    const QUrl address = QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"));
    if (!QDesktopServices::openUrl(address))
        dialogs::showMessage(
            this, {language_.formatted(app::text::kNoProgramOpens, {platform::display(path.filename())}),
                   dialogs::MessageIcon::Exclamation});
}

void MainWindow::clearSelection(app::CommandId) {
    activeBrowser().view().clearSelection();
    focusFileList();
}

void MainWindow::selectAll(app::CommandId) {
    activeBrowser().view().selectAll();
    focusFileList();
}

void MainWindow::invertSelection(app::CommandId) {
    activeBrowser().view().invertSelection();
    focusFileList();
}

void MainWindow::focusList(app::CommandId) {
    focusFileList();
}

void MainWindow::refresh(app::CommandId) {
    activeBrowser().navigationController().Refresh();
}

void MainWindow::goBack(app::CommandId) {
    activeBrowser().navigationController().GoToOffset(-1);
}

void MainWindow::goForward(app::CommandId) {
    activeBrowser().navigationController().GoToOffset(+1);
}

void MainWindow::goUp(app::CommandId) {
    activeBrowser().GoUp();
}

void MainWindow::toggleCheckBoxes(app::CommandId) {
    context_.settings.listView.showCheckBox = !context_.settings.listView.showCheckBox;
    for (int at = 0; at < tabs_->tabCount(); ++at) tabs_->GetTabByIndex(at).shellBrowser().applySettings();
}

void MainWindow::toggleHidden(app::CommandId) {
    tabs_->setShowHidden(!tabs_->showHidden());
}

void MainWindow::sortBy(app::CommandId id) {
    const int mode = id - app::command::kSortBy;
    app::Settings::Main& settings = context_.settings.main;
    // Choosing the mode that the list has turns the order round.
    if (settings.sortMode == mode) settings.sortAscending = !settings.sortAscending;
    activeBrowser().SetSortMode(app::sortModeFromIntegral(mode));
}

void MainWindow::sortDirection(app::CommandId id) {
    context_.settings.main.sortAscending = id == app::command::kSortAscending;
    activeBrowser().SetSortMode(app::sortModeFromIntegral(context_.settings.main.sortMode));
}

void MainWindow::clearMetadata(app::CommandId) {
    context_.currentFile.clear();
    metadataPanel_->clear();
}

void MainWindow::readSelection(app::CommandId) {
    if (!context_.settings.lists.showMetadataWindow) return;
    std::error_code error;
    const std::filesystem::path selected = selectedFile();
    if (std::filesystem::is_regular_file(selected, error)) context_.currentFile = selected;
    metadataPanel_->newSelection(context_.currentFile);
}

void MainWindow::refreshPanel(app::CommandId) {
    metadataPanel_->Refresh();
}

void MainWindow::showAbout(app::CommandId) {
    AboutDialog dialog(context_, language_, QStringLiteral(TAGWRIGHT_VERSION), this);
    dialog.run();
}

void MainWindow::closeWindow(app::CommandId) {
    close();
}

void MainWindow::restart(app::CommandId) {
    if (!close()) return;
    QProcess::startDetached(platform::display(context_.installPath / "Tagwright"), {});
}

}  // namespace window
