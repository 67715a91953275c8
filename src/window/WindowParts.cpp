#include "window/WindowParts.h"

#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "window/StatusBar.h"

namespace window {

browser::ShellBrowser& WindowParts::activeBrowser() const {
    return tabs.GetSelectedTab().shellBrowser();
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
