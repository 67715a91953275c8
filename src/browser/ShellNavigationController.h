#pragma once

#include "browser/HistoryEntry.h"
#include "browser/IconFetcher.h"
#include "browser/NavigationController.h"
#include "browser/NavigatorInterface.h"

namespace browser {

/// What the operations of a navigation give; the values are fixed.
inline constexpr long kNavigationOk = 0;
inline constexpr long kNavigationFailed = 0x80004005L;
inline constexpr long kPathNotFound = 0x80070003L;
inline constexpr long kPathDenied = 0x80070005L;
inline constexpr long kPathIsNoFolder = 0x8007010BL;

/// The number of a sentence for the status bar, whose place is the path that was typed; 0 for kNavigationOk.
int navigationFailureText(long result);

/// The back and forward history of one tab. It hears of every completed navigation, whoever started it. GUI
/// thread.
class ShellNavigationController final : public NavigationController<HistoryEntry, long> {
 public:
    /// Both must outlive the controller.
    ShellNavigationController(NavigatorInterface& navigator, IconFetcher& iconFetcher);
    ~ShellNavigationController() override;

    /// Shows the parent of the current folder, with history; kNavigationFailed at the root of the file
    /// system.
    long GoUp();
    bool canGoUp() const;
    /// Reads the current folder again, without history.
    long Refresh();
    /// Shows the folder, with history, unless there is none of that path; then nothing happens.
    long BrowseFolder(const std::filesystem::path& path);
    /// The same for a typed text: an address of the scheme "file" is taken too.
    long BrowseFolder(const QString& path);

 private:
    long Navigate(const HistoryEntry& entry, bool addHistoryEntry) override;
    long handleInvalidIndex() override;
    void OnNavigationCompleted(const std::filesystem::path& folder, bool addHistoryEntry);
    void onIconFetched(int index, int entryId, int iconIndex);

    NavigatorInterface& navigator_;
    IconFetcher& iconFetcher_;
    std::shared_ptr<int> alive_;  // late icons look here whether the controller still is
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace browser
