#include "window/ContextMenus.h"

#include "browser/PlacesPanel.h"
#include "browser/ShellBrowser.h"
#include "browser/TabContainer.h"
#include "controls/Icons.h"
#include "platform/Text.h"
#include "window/WindowTexts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>

namespace window {

namespace {

constexpr int kMenuOfItem = 1;
constexpr int kMenuOfFreeArea = 2;

/// The numbers by which scripts choose an entry that is no command.
enum Entry {
    kSortUp = 82520,
    kSortDown,
    kFitColumn,
    kFitColumns,
    kNewTab,
    kCloseTab,
    kCloseOthers,
    kOpen,
    kOpenInTab,
    kCopyPath
};

QAction* add(QMenu& menu, Entry number, const QString& text, const char* icon) {
    QAction* entry = menu.addAction(controls::icon(QString::fromLatin1(icon)), text);
    entry->setData(static_cast<int>(number));
    return entry;
}

int chosenIn(QMenu& menu, const QPoint& position) {
    const QAction* chosen = menu.exec(position);
    return chosen == nullptr ? 0 : chosen->data().toInt();
}

void fitColumn(controls::GroupedListView& view, int section) {
    QHeaderView& header = *view.header();
    header.resizeSection(section, qMax(view.sizeHintForColumn(section), header.sectionSizeHint(section)));
}

}  // namespace

ContextMenus::ContextMenus(const WindowParts& parts, CommandMap& map, browser::PlacesPanel& places)
    : parts_(parts), map_(map) {
    using browser::Tab;
    browser::TabContainer& tabs = parts.tabs;
    connections_.emplace_back(tabs.MenuRequested.connect(
        [this](const Tab&, int row, const QPoint& position) { showListMenu(row, position); }));
    connections_.emplace_back(tabs.HeaderMenuRequested.connect(
        [this](const Tab&, const QPoint& position) { showHeaderMenu(position); }));
    connections_.emplace_back(tabs.TabMenuRequested.connect(
        [this](int index, const QPoint& position) { showTabMenu(index, position); }));
    connections_.emplace_back(places.PlaceMenuRequested.connect(
        [this](const std::filesystem::path& folder, const QPoint& position) {
            showPlaceMenu(folder, position);
        }));
}

void ContextMenus::addEntries(QMenu& menu, const std::vector<app::MenuEntry>& entries) {
    for (const app::MenuEntry& entry : entries) {
        if (!entry.children.empty()) {
            auto* inner = new QMenu(entry.text, &menu);
            addEntries(*inner, entry.children);
            menu.addMenu(inner);
        } else if (entry.commandId == 0) {
            menu.addSeparator();
        } else if (controls::CommandAction* action = map_.action(entry.commandId)) {
            menu.addAction(action->makeEntry(app::formatText(entry.text, {map_.selectionText()}), &menu));
        }
    }
}

void ContextMenus::showListMenu(int row, const QPoint& position) {
    browser::ShellBrowser& list = parts_.activeBrowser();
    // By the Menu key the current item need not be selected; the commands are about what is.
    if (row >= 0 && !list.model().list().itemAt(row).selected)
        list.view().setCurrentIndex(list.model().index(row, 0));
    map_.refresh();
    QMenu menu(&parts_.window);
    addEntries(menu, parts_.language.menu(row >= 0 ? kMenuOfItem : kMenuOfFreeArea));
    menu.exec(position);
}

void ContextMenus::showHeaderMenu(const QPoint& position) {
    browser::ShellBrowser& list = parts_.activeBrowser();
    controls::GroupedListView& view = list.view();
    const int section = view.header()->logicalIndexAt(view.header()->mapFromGlobal(position));
    QMenu menu(&parts_.window);
    if (section >= 0) {
        add(menu, kSortUp, parts_.language.text(text::kSortUp), "view-sort-ascending");
        add(menu, kSortDown, parts_.language.text(text::kSortDown), "view-sort-descending");
        menu.addSeparator();
        add(menu, kFitColumn, parts_.language.text(text::kFitColumn), "resizecol");
    }
    add(menu, kFitColumns, parts_.language.text(text::kFitColumns), "resizecol");
    const int chosen = chosenIn(menu, position);
    if (chosen == kSortUp || chosen == kSortDown) list.sortByColumn(section, chosen == kSortUp);
    if (chosen == kFitColumn) fitColumn(view, section);
    for (int column = 0; chosen == kFitColumns && column < view.header()->count(); ++column)
        fitColumn(view, column);
}

void ContextMenus::showTabMenu(int index, const QPoint& position) {
    browser::TabContainer& tabs = parts_.tabs;
    const int tabId = tabs.GetTabByIndex(index).id();
    QMenu menu(&parts_.window);
    add(menu, kNewTab, parts_.language.text(text::kNewTabHere), "tab-new");
    menu.addSeparator();
    const bool isAlone = tabs.tabCount() < 2;
    add(menu, kCloseTab, parts_.language.text(text::kCloseTab), "tab-close")->setDisabled(isAlone);
    add(menu, kCloseOthers, parts_.language.text(text::kCloseOthers), "tab-close-other")
        ->setDisabled(isAlone);
    const int chosen = chosenIn(menu, position);
    if (chosen == kNewTab) {
        browser::TabSettings settings;
        settings.selected = true;
        tabs.CreateNewTab(tabs.GetTab(tabId).shellBrowser().currentFolder(), settings);
    } else if (chosen == kCloseTab) {
        tabs.closeTab(tabs.GetTab(tabId));
    } else if (chosen == kCloseOthers) {
        for (int at = tabs.tabCount() - 1; at >= 0; --at)
            if (tabs.GetTabByIndex(at).id() != tabId) tabs.closeTab(tabs.GetTabByIndex(at));
    }
}

void ContextMenus::showPlaceMenu(const std::filesystem::path& folder, const QPoint& position) {
    QMenu menu(&parts_.window);
    menu.setDefaultAction(add(menu, kOpen, parts_.language.text(text::kOpenPlace), "document-open-folder"));
    add(menu, kOpenInTab, parts_.language.text(text::kOpenInTab), "tab-new");
    menu.addSeparator();
    add(menu, kCopyPath, parts_.language.text(text::kCopyPath), "edit-copy");
    const int chosen = chosenIn(menu, position);
    if (chosen == kOpen) {
        parts_.activeBrowser().navigationController().BrowseFolder(folder);
    } else if (chosen == kOpenInTab) {
        browser::TabSettings settings;
        settings.selected = true;
        parts_.tabs.CreateNewTab(folder, settings);
    } else if (chosen == kCopyPath) {
        QGuiApplication::clipboard()->setText(platform::display(folder));
    }
}

}  // namespace window
