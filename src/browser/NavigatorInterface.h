#pragma once

#include <boost/signals2.hpp>
#include <filesystem>

namespace browser {

/// What the history needs of the list that it belongs to.
class NavigatorInterface {
 public:
    using NavigationCompletedSignal = boost::signals2::signal<void(const std::filesystem::path&, bool)>;

    virtual ~NavigatorInterface() = default;

    /// Shows the folder. Gives 0; that the folder could not be read shows in the list.
    virtual long BrowseFolder(const std::filesystem::path& folder, bool addHistoryEntry) = 0;
    virtual boost::signals2::connection addNavigationCompletedObserver(
        const NavigationCompletedSignal::slot_type& slot) = 0;
};

}  // namespace browser
