#include "browser/IconFetcher.h"

#include "browser/Places.h"

namespace browser {

IconNames& IconNames::instance() {
    static IconNames names;
    return names;
}

int IconNames::indexOf(const QString& name) {
    const auto found = std::ranges::find(names_, name);
    if (found != names_.end()) return static_cast<int>(found - names_.begin());
    names_.push_back(name);
    return static_cast<int>(names_.size()) - 1;
}

QString IconNames::nameOf(int index) const {
    return index >= 0 && index < static_cast<int>(names_.size()) ? names_[static_cast<std::size_t>(index)]
                                                                 : QString();
}

QString folderIconName(const std::filesystem::path& folder) {
    for (const Place& place : knownFolders())
        if (place.path == folder) return place.iconName;
    for (const Place& place : mountedVolumes())
        if (place.path == folder) return place.iconName;
    return QStringLiteral("folder");
}

void ThemeIconFetcher::QueueIconTask(const std::filesystem::path& path, Callback callback) {
    queue_.push(0, [this, path, callback = std::move(callback)] {
        const QString name = folderIconName(path);
        QMetaObject::invokeMethod(
            this, [name, callback] { callback(IconNames::instance().indexOf(name)); }, Qt::QueuedConnection);
    });
}

void ThemeIconFetcher::clearQueue() {
    queue_.clear();
}

}  // namespace browser
