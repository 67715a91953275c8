#include "window/WindowParts.h"

#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "dialogs/Messages.h"
#include "window/StatusBar.h"
#include "window/WindowTexts.h"

#include <QItemSelectionModel>
#include <QLocale>

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

QString WindowParts::selectionText() const {
    const qsizetype files = activeBrowser().totals().selectedFiles;
    // Asked for when the command is chosen.
    if (files == 0) return language.text(text::kFilesOfFolder);
    if (files == 1) return language.text(text::kThisFile);
    return language.formatted(text::kSelectedFiles, {QLocale().toString(files)});
}

void WindowParts::tellNothingChosen(int textNumber) const {
    dialogs::showMessage(&window, {language.text(textNumber), dialogs::MessageIcon::Information});
}

void WindowParts::showStatus(const QString& text) const {
    statusBar.showStatus(text);
}

void WindowParts::focusFileList() const {
    if (tabs.hasTabs()) activeBrowser().view().setFocus();
}

}  // namespace window
