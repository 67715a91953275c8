#pragma once

#include "app/LanguageFile.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <QPoint>
#include <boost/signals2/connection.hpp>
#include <filesystem>
#include <vector>

class QHeaderView;
class QMenu;

namespace browser {
class PlacesPanel;
class Tab;
}  // namespace browser

namespace window {

/// The menus of the right mouse button and of the Menu key: of files and the free area of their list, of the
/// headers of its columns, of tabs and places. The panel has its own. GUI thread.
class ContextMenus {
 public:
    /// map and places outlive it.
    ContextMenus(const WindowParts& parts, CommandMap& map, browser::PlacesPanel& places);

 private:
    void showListMenu(int row, const QPoint& position);
    void showHeaderMenu(const QPoint& position);
    void showTabMenu(int index, const QPoint& position);
    void showPlaceMenu(const std::filesystem::path& folder, const QPoint& position);
    void addEntries(QMenu& menu, const std::vector<app::MenuEntry>& entries);

    const WindowParts& parts_;
    CommandMap& map_;
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace window
