#include "window/WindowParts.h"

#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "window/StatusBar.h"

#include <QItemSelectionModel>

namespace window {

browser::ShellBrowser& WindowParts::activeBrowser() const {
    return tabs.GetSelectedTab().shellBrowser();
}

bool WindowParts::hasSelection() const {
    return activeBrowser().view().selectionModel()->hasSelection();
}

bool WindowParts::hasSelectedFile() const {
    return activeBrowser().totals().selectedFiles > 0;
}

std::filesystem::path WindowParts::selectedFile() const {
    const std::vector<std::filesystem::path> files = activeBrowser().GetSelectedFiles();
    return files.empty() ? std::filesystem::path() : files.front();
}

void WindowParts::showStatus(const QString& text) const {
    statusBar.showStatus(text);
}

void WindowParts::focusFileList() const {
    if (tabs.hasTabs()) activeBrowser().view().setFocus();
}

}  // namespace window
