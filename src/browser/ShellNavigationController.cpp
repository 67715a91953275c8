#include "browser/ShellNavigationController.h"

#include "browser/BrowserTexts.h"
#include "platform/Text.h"

#include <QUrl>

namespace browser {
namespace {

long resultOf(const std::error_code& failure) {
    if (failure == std::errc::permission_denied) return kPathDenied;
    return kPathNotFound;
}

}  // namespace

int navigationFailureText(long result) {
    switch (result) {
        case kNavigationOk:
            return 0;
        case kPathNotFound:
            return text::kNoSuchFolder;
        case kPathDenied:
            return text::kMayNotOpen;
        case kPathIsNoFolder:
            return text::kIsNoFolder;
        default:
            return text::kCannotBeOpened;
    }
}

ShellNavigationController::ShellNavigationController(NavigatorInterface& navigator, IconFetcher& iconFetcher)
    : navigator_(navigator), iconFetcher_(iconFetcher), alive_(std::make_shared<int>(0)) {
    connections_.emplace_back(navigator_.addNavigationCompletedObserver(
        [this](const std::filesystem::path& folder, bool addHistoryEntry) {
            OnNavigationCompleted(folder, addHistoryEntry);
        }));
}

ShellNavigationController::~ShellNavigationController() = default;

bool ShellNavigationController::canGoUp() const {
    return currentEntry() != nullptr && currentEntry()->path().has_relative_path();
}

long ShellNavigationController::GoUp() {
    if (!canGoUp()) return kNavigationFailed;
    const std::filesystem::path parent = currentEntry()->path().parent_path();
    return navigator_.BrowseFolder(parent, true);
}

long ShellNavigationController::Refresh() {
    if (currentEntry() == nullptr) return kNavigationFailed;
    return navigator_.BrowseFolder(currentEntry()->path(), false);
}

long ShellNavigationController::BrowseFolder(const std::filesystem::path& path) {
    std::error_code failure;
    const std::filesystem::file_status status = std::filesystem::status(path, failure);
    if (failure || !std::filesystem::exists(status)) return resultOf(failure);
    if (!std::filesystem::is_directory(status)) return kPathIsNoFolder;
    return navigator_.BrowseFolder(path, true);
}

long ShellNavigationController::BrowseFolder(const QString& path) {
    if (path.isEmpty()) return kPathNotFound;
    if (path.startsWith(u"file://", Qt::CaseInsensitive))
        return BrowseFolder(platform::pathFromText(QUrl(path).toLocalFile()));
    return BrowseFolder(platform::pathFromText(path));
}

long ShellNavigationController::Navigate(const HistoryEntry& entry, bool addHistoryEntry) {
    return navigator_.BrowseFolder(entry.path(), addHistoryEntry);
}

long ShellNavigationController::handleInvalidIndex() {
    return kNavigationFailed;
}

void ShellNavigationController::OnNavigationCompleted(const std::filesystem::path& folder,
                                                      bool addHistoryEntry) {
    if (!addHistoryEntry) return;
    const auto entry = std::make_shared<HistoryEntry>(folder, folderDisplayName(folder));
    const int index = addEntry(entry);
    iconFetcher_.QueueIconTask(
        folder, [this, alive = std::weak_ptr(alive_), index, entryId = entry->id()](int iconIndex) {
            if (!alive.expired()) onIconFetched(index, entryId, iconIndex);
        });
}

void ShellNavigationController::onIconFetched(int index, int entryId, int iconIndex) {
    HistoryEntry* entry = entryAt(index);
    // Another entry may stand there by now: gone back and on to somewhere else.
    if (entry != nullptr && entry->id() == entryId) entry->setSystemIconIndex(iconIndex);
}

}  // namespace browser
