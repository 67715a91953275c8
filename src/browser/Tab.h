#pragma once

#include "browser/ShellBrowser.h"

#include <optional>

namespace browser {

/// What a new tab may be given; each member is optional.
struct TabSettings {
    std::optional<QString> name;   ///< fixed; without it the tab is named after its folder
    std::optional<int> index;      ///< position in the strip; without it the tab goes to the end
    std::optional<bool> selected;  ///< whether the new tab is taken
};

/// One tab: a list with its history. Owned by the TabContainer.
class Tab {
 public:
    enum class PropertyType { Name };

    Tab(int id, BrowserParts& parts, QWidget* holder) : id_(id), browser_(parts, holder) {}

    int id() const { return id_; }
    ShellBrowser& shellBrowser() { return browser_; }
    const ShellBrowser& shellBrowser() const { return browser_; }

    void setFixedName(std::optional<QString> name) {
        fixedName_ = std::move(name);
        Updated(*this, PropertyType::Name);
    }
    QString name() const { return fixedName_.value_or(folderDisplayName(browser_.currentFolder())); }

    boost::signals2::signal<void(const Tab&, PropertyType)> Updated;

 private:
    friend class TabContainer;

    int id_;
    std::optional<QString> fixedName_;
    ShellBrowser browser_;
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace browser
