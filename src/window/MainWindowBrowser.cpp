#include "app/SettingsStore.h"
#include "app/TextNumbers.h"
#include "browser/AddressBar.h"
#include "browser/PlacesPanel.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "platform/Text.h"
#include "window/MainWindow.h"
#include "window/StatusBar.h"
#include "window/SubjectCommands.h"
#include "window/WindowTexts.h"

#include <QDir>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <system_error>
#include <utility>

namespace window {

void MainWindow::createBrowser() {
    middle_ = new QWidget(client_);
    middle_->setObjectName(QStringLiteral("middle"));
    auto* lists = new QStackedWidget(middle_);
    lists->setObjectName(QStringLiteral("lists"));
    tabs_ = new browser::TabContainer(context_, properties_, language_, *lists, middle_);
    addressBar_ = new browser::AddressBar(*tabs_, language_, middle_);
    auto* layout = new QVBoxLayout(middle_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabs_);
    layout->addWidget(addressBar_);
    layout->addWidget(lists, 1);
}

void MainWindow::connectBrowser() {
    using browser::Tab;
    const auto keep = [this](const boost::signals2::connection& connection) {
        connections_.emplace_back(connection);
    };
    keep(tabs_->TabSelected.connect([this](const Tab&) { tabSelected(); }));
    keep(tabs_->TabNavigationCompleted.connect([this](const Tab& tab) {
        if (&tab == &tabs_->GetSelectedTab()) navigationCompleted();
    }));
    keep(tabs_->TabNavigationStarted.connect([this](const Tab& tab, const std::filesystem::path& folder) {
        if (ready_ && &tab == &tabs_->GetSelectedTab()) commands_->reading().folderLeft(folder);
    }));
    keep(tabs_->TabListSelectionChanged.connect([this](const Tab&) {
        if (ready_) commands_->reading().selectionChanged();
        refreshStatusBar();
        refreshCommands();
    }));
    keep(tabs_->MetadataOutdated.connect([this](const Tab&) { Dispatch(app::command::kClearMetadata); }));
    keep(tabs_->FileClicked.connect([this](const Tab&, const std::filesystem::path& file, std::int32_t) {
        commands_->reading().fileClicked(file);
    }));
    keep(tabs_->FolderSizeCounted.connect([this](const Tab& tab, const QString& size) {
        if (&tab == &tabs_->GetSelectedTab())
            showStatus(QStringLiteral("%1: %2").arg(language_.text(app::text::kFolderSize), size));
    }));
    keep(tabs_->FileActivated.connect(
        [this](const Tab&, const std::filesystem::path& file) { commands_->browse().openPath(file); }));
    keep(addressBar_->StatusMessage.connect([this](const QString& text) { showStatus(text); }));
    keep(
        places_->PlaceActivated.connect([this](const std::filesystem::path& folder) { openFolder(folder); }));
}

void MainWindow::openStartFolder() {
    app::loadStartFolder(context_);
    const std::filesystem::path candidates[] = {
        app::startFolderOf(context_.settings.startFolder),
        platform::pathFromText(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)),
        context_.installPath / "samples",
        platform::pathFromText(QDir::homePath()),
    };
    for (const std::filesystem::path& folder : candidates) {
        browser::TabSettings settings;
        settings.selected = true;
        if (!folder.empty() && tabs_->CreateNewTab(folder, settings) != nullptr) return;
    }
    tabs_->CreateNewTab("/", {});
}

browser::ShellBrowser& MainWindow::activeBrowser() {
    return tabs_->GetSelectedTab().shellBrowser();
}

void MainWindow::tabSelected() {
    // The tags shown belong to a file of the tab that was left.
    if (ready_) commands_->reading().clearMetadata(app::command::kClearMetadata);
    navigationCompleted();
    focusFileList();
}

void MainWindow::navigationCompleted() {
    updateTitle();
    places_->setCurrentFolder(activeBrowser().currentFolder());
    refreshStatusBar();
    if (!ready_) return;
    refreshCommands();
    const bool keeps = std::exchange(keepsStatus_, false);
    const bool isTold = commands_->ending().listWasRead() || keeps;
    commands_->reading().folderShown(isTold);
    const bool isCut = activeBrowser().listingError() != 0 &&
                       activeBrowser().folderState() == browser::FolderState::Readable;
    if (isCut)
        tellListingCut();
    else if (!isTold)
        showStatus(language_.text(app::text::kReady));
}

void MainWindow::tellListingCut() {
    const std::error_code error(activeBrowser().listingError(), std::system_category());
    showStatus(language_.formatted(text::kListingCut, {platform::display(activeBrowser().currentFolder()),
                                                       platform::wide(error.message())}));
}

void MainWindow::updateTitle() {
    const browser::Tab& tab = tabs_->GetSelectedTab();
    const QString place = context_.settings.main.showFullTitlePath
                              ? platform::display(tab.shellBrowser().currentFolder())
                              : tab.name();
    setWindowTitle(place.isEmpty() ? QStringLiteral("Tagwright") : place + QStringLiteral(" - Tagwright"));
}

void MainWindow::focusFileList() {
    if (tabs_ != nullptr && tabs_->hasTabs()) activeBrowser().view().setFocus();
}

bool MainWindow::openFolder(const std::filesystem::path& folder) {
    return commands_->browse().openFolder(folder);
}

void MainWindow::refreshStatusBar() {
    if (tabs_ != nullptr && tabs_->hasTabs()) statusBar_->showTotals(activeBrowser());
}

}  // namespace window
