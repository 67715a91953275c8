#pragma once

#include <QString>
#include <boost/signals2.hpp>
#include <filesystem>
#include <optional>

namespace browser {

/// One folder in the history of a tab.
class HistoryEntry {
 public:
    enum class PropertyType { SystemIconIndex };
    using UpdatedSignal = boost::signals2::signal<void(const HistoryEntry&, PropertyType)>;

    HistoryEntry(std::filesystem::path path, QString displayName);

    /// Unique in the process.
    int id() const { return id_; }
    const std::filesystem::path& path() const { return path_; }
    const QString& displayName() const { return displayName_; }
    const std::optional<QString>& fullPathForDisplay() const { return fullPathForDisplay_; }

    /// Number of the folder's icon in IconNames; empty until the icon fetcher has answered.
    std::optional<int> systemIconIndex() const { return systemIconIndex_; }
    /// Fires UpdatedSignal; an equal value does nothing.
    void setSystemIconIndex(int index);

    boost::signals2::connection addUpdatedObserver(const UpdatedSignal::slot_type& slot) const {
        return updated_.connect(slot);
    }

 private:
    int id_;
    std::filesystem::path path_;
    QString displayName_;
    std::optional<QString> fullPathForDisplay_;
    std::optional<int> systemIconIndex_;
    mutable UpdatedSignal updated_;
};

/// The name of a folder for people: its last part, or the path itself for a root.
QString folderDisplayName(const std::filesystem::path& folder);

}  // namespace browser
