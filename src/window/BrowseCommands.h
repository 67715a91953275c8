#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <filesystem>

namespace window {

/// The file list: where it is, what it shows and how, what is selected in it. GUI thread.
class BrowseCommands {
 public:
    explicit BrowseCommands(const WindowParts& parts) : parts_(parts) {}

    static std::span<const CommandRow<BrowseCommands>> rows();

    void setView(app::CommandId id);
    void openSelected(app::CommandId id);
    void clearSelection(app::CommandId id);
    void selectAll(app::CommandId id);
    void invertSelection(app::CommandId id);
    void focusList(app::CommandId id);
    void refresh(app::CommandId id);
    void goBack(app::CommandId id);
    void goForward(app::CommandId id);
    void goUp(app::CommandId id);
    void toggleCheckBoxes(app::CommandId id);
    void toggleHidden(app::CommandId id);
    void sortBy(app::CommandId id);
    void sortDirection(app::CommandId id);
    void applyItemStates(app::CommandId id);

    /// A folder in the list, a file in the program that the desktop opens it with; nothing for others.
    void openPath(const std::filesystem::path& path);
    /// In the active tab, as an address typed in the bar does. False, with the reason in the status bar, when
    /// it is no folder.
    bool openFolder(const std::filesystem::path& folder);

 private:
    CommandState viewState(app::CommandId id) const;
    CommandState ifOpens(app::CommandId id) const;
    CommandState ifSelected(app::CommandId id) const;
    CommandState ifNotEmpty(app::CommandId id) const;
    CommandState backState(app::CommandId id) const;
    CommandState forwardState(app::CommandId id) const;
    CommandState upState(app::CommandId id) const;
    CommandState checkBoxesState(app::CommandId id) const;
    CommandState hiddenState(app::CommandId id) const;
    CommandState sortState(app::CommandId id) const;

    const WindowParts& parts_;
};

}  // namespace window
