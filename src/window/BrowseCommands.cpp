#include "window/BrowseCommands.h"

#include "app/TextNumbers.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "dialogs/Messages.h"
#include "platform/Text.h"

#include <QDesktopServices>
#include <QUrl>

namespace window {

std::span<const CommandRow<BrowseCommands>> BrowseCommands::rows() {
    using namespace app::command;
    static constexpr CommandRow<BrowseCommands> kRows[] = {
        {kViewDetails, kViewDetails, &BrowseCommands::setView, &BrowseCommands::viewState},
        {kOpenSelectedFolder, kOpenSelectedFolder, &BrowseCommands::openSelected, &BrowseCommands::ifOpens},
        {kDeselectAll, kDeselectAll, &BrowseCommands::clearSelection, &BrowseCommands::ifSelected},
        {kFocusList, kFocusList, &BrowseCommands::focusList},
        {kRefresh, kRefresh, &BrowseCommands::refresh},
        {kBack, kBack, &BrowseCommands::goBack, &BrowseCommands::backState},
        {kForward, kForward, &BrowseCommands::goForward, &BrowseCommands::forwardState},
        {kUp, kUp, &BrowseCommands::goUp, &BrowseCommands::upState},
        {kClearSelection, kClearSelection, &BrowseCommands::clearSelection, &BrowseCommands::ifSelected},
        {kCheckBoxes, kCheckBoxes, &BrowseCommands::toggleCheckBoxes, &BrowseCommands::checkBoxesState},
        {kInvertSelectionOfRibbon, kInvertSelectionOfRibbon, &BrowseCommands::invertSelection,
         &BrowseCommands::ifNotEmpty},
        {kApplyItemStates, kApplyItemStates, &BrowseCommands::applyItemStates},
        {kOpenFile, kOpenFile, &BrowseCommands::openSelected, &BrowseCommands::ifOpens},
        {kSelectAll, kSelectAll, &BrowseCommands::selectAll, &BrowseCommands::ifNotEmpty},
        {kInvertSelection, kInvertSelection, &BrowseCommands::invertSelection, &BrowseCommands::ifNotEmpty},
        {kSelectNone, kSelectNone, &BrowseCommands::clearSelection, &BrowseCommands::ifSelected},
        {kSortAscending, kSortDescending, &BrowseCommands::sortDirection},
        {kShowHidden, kShowHidden, &BrowseCommands::toggleHidden, &BrowseCommands::hiddenState},
        {kRefreshOfMenu, kRefreshOfMenu, &BrowseCommands::refresh},
        {kBackOfMenu, kBackOfMenu, &BrowseCommands::goBack, &BrowseCommands::backState},
        {kForwardOfMenu, kForwardOfMenu, &BrowseCommands::goForward, &BrowseCommands::forwardState},
        {kUpOfMenu, kUpOfMenu, &BrowseCommands::goUp, &BrowseCommands::upState},
        {kSortBy + 1, kSortBy + 4, &BrowseCommands::sortBy, &BrowseCommands::sortState},
    };
    return kRows;
}

CommandState BrowseCommands::viewState(app::CommandId id) const {
    return {.checked = parts_.context.settings.main.viewMode == id - app::command::kViewDetails + 1};
}

CommandState BrowseCommands::ifSelected(app::CommandId) const {
    return {.enabled = parts_.hasSelection()};
}

CommandState BrowseCommands::ifOpens(app::CommandId) const {
    const browser::ItemList& list = parts_.activeBrowser().model().list();
    if (list.totals().selectedFiles + list.totals().selectedFolders == 0) return {.enabled = false};
    for (int row = 0; row < list.rowCount(); ++row) {
        const browser::ListItem& item = list.itemAt(row);
        if (!item.selected) continue;
        // A pipe, a device or a link that leads nowhere has no program.
        return {.enabled = item.kind == browser::ItemKind::File || item.isFolder()};
    }
    return {.enabled = false};
}

CommandState BrowseCommands::ifNotEmpty(app::CommandId) const {
    return {.enabled = parts_.activeBrowser().model().rowCount() > 0};
}

CommandState BrowseCommands::backState(app::CommandId) const {
    return {.enabled = parts_.activeBrowser().navigationController().canGoToOffset(-1)};
}

CommandState BrowseCommands::forwardState(app::CommandId) const {
    return {.enabled = parts_.activeBrowser().navigationController().canGoToOffset(+1)};
}

CommandState BrowseCommands::upState(app::CommandId) const {
    return {.enabled = parts_.activeBrowser().navigationController().canGoUp()};
}

CommandState BrowseCommands::checkBoxesState(app::CommandId) const {
    return {.checked = parts_.context.settings.listView.showCheckBox};
}

CommandState BrowseCommands::hiddenState(app::CommandId) const {
    return {.checked = parts_.tabs.showHidden()};
}

CommandState BrowseCommands::sortState(app::CommandId id) const {
    return {.checked = parts_.context.settings.main.sortMode == id - app::command::kSortBy};
}

void BrowseCommands::setView(app::CommandId id) {
    const int mode = id - app::command::kViewDetails + 1;
    parts_.context.settings.main.viewMode = mode;
    parts_.activeBrowser().SetViewMode(app::viewModeFromIntegral(mode));
}

void BrowseCommands::openSelected(app::CommandId) {
    const std::filesystem::path selected = parts_.selectedFile();
    if (selected.empty()) parts_.showStatus(parts_.language.text(app::text::kNoFileSelected));
    openPath(selected);
}

void BrowseCommands::openPath(const std::filesystem::path& path) {
    if (path.empty()) return;
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        openFolder(path);
        return;
    }
    if (!std::filesystem::is_regular_file(path, error)) {
        parts_.showStatus(platform::display(path.filename()) + QStringLiteral(": ") +
                          parts_.language.text(app::text::kNoRegularFile));
        return;
    }
    // A name that is no UTF-8 goes through as percent bytes.
    const QByteArray bytes = QByteArray::fromStdString(platform::narrow(path));
    const QUrl address = QUrl::fromEncoded("file://" + bytes.toPercentEncoding("/"));
    if (!QDesktopServices::openUrl(address))
        dialogs::showMessage(&parts_.window, {parts_.language.formatted(app::text::kNoProgramOpens,
                                                                        {platform::display(path.filename())}),
                                              dialogs::MessageIcon::Exclamation});
}

bool BrowseCommands::openFolder(const std::filesystem::path& folder) {
    const long result = parts_.activeBrowser().navigationController().BrowseFolder(folder);
    if (result == browser::kNavigationOk) return true;
    parts_.showStatus(
        parts_.language.formatted(browser::navigationFailureText(result), {platform::display(folder)}));
    return false;
}

void BrowseCommands::clearSelection(app::CommandId) {
    parts_.activeBrowser().view().clearSelection();
    parts_.focusFileList();
}

void BrowseCommands::selectAll(app::CommandId) {
    parts_.activeBrowser().view().selectAll();
    parts_.focusFileList();
}

void BrowseCommands::invertSelection(app::CommandId) {
    parts_.activeBrowser().view().invertSelection();
    parts_.focusFileList();
}

void BrowseCommands::focusList(app::CommandId) {
    parts_.focusFileList();
}

void BrowseCommands::refresh(app::CommandId) {
    parts_.activeBrowser().refresh();
}

void BrowseCommands::goBack(app::CommandId) {
    parts_.activeBrowser().navigationController().GoToOffset(-1);
}

void BrowseCommands::goForward(app::CommandId) {
    parts_.activeBrowser().navigationController().GoToOffset(+1);
}

void BrowseCommands::goUp(app::CommandId) {
    parts_.activeBrowser().GoUp();
}

void BrowseCommands::toggleCheckBoxes(app::CommandId) {
    parts_.context.settings.listView.showCheckBox = !parts_.context.settings.listView.showCheckBox;
    for (int at = 0; at < parts_.tabs.tabCount(); ++at)
        parts_.tabs.GetTabByIndex(at).shellBrowser().applySettings();
}

void BrowseCommands::toggleHidden(app::CommandId) {
    parts_.tabs.setShowHidden(!parts_.tabs.showHidden());
}

void BrowseCommands::sortBy(app::CommandId id) {
    const int mode = id - app::command::kSortBy;
    app::Settings::Main& settings = parts_.context.settings.main;
    // Choosing the mode that the list has turns the order round.
    if (settings.sortMode == mode) settings.sortAscending = !settings.sortAscending;
    parts_.activeBrowser().SetSortMode(app::sortModeFromIntegral(mode));
}

void BrowseCommands::sortDirection(app::CommandId id) {
    parts_.context.settings.main.sortAscending = id == app::command::kSortAscending;
    parts_.activeBrowser().SetSortMode(app::sortModeFromIntegral(parts_.context.settings.main.sortMode));
}

void BrowseCommands::applyItemStates(app::CommandId) {
    parts_.activeBrowser().applySettings();
}

}  // namespace window
