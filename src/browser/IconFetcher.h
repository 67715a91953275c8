#pragma once

#include "browser/TaskQueue.h"

#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <vector>

namespace browser {

/// The numbers under which icon names of the icon theme are passed about. GUI thread.
class IconNames {
 public:
    static IconNames& instance();

    int indexOf(const QString& name);
    /// Empty for a number that was never given out.
    QString nameOf(int index) const;

 private:
    std::vector<QString> names_;
};

/// Finds the icons of folders on a thread of its own.
class IconFetcher {
 public:
    using Callback = std::function<void(int iconIndex)>;

    virtual ~IconFetcher() = default;

    /// The callback runs on the GUI thread, later, never from within this call.
    virtual void QueueIconTask(const std::filesystem::path& path, Callback callback) = 0;
    /// Drops the tasks that have not begun.
    virtual void clearQueue() = 0;
};

/// The icon of a folder by what the folder is: home, pictures, a volume and so on.
QString folderIconName(const std::filesystem::path& folder);

class ThemeIconFetcher final : public QObject, public IconFetcher {
    Q_OBJECT

 public:
    void QueueIconTask(const std::filesystem::path& path, Callback callback) override;
    void clearQueue() override;

 private:
    TaskQueue queue_;  // last: its thread ends before the object that it answers to
};

}  // namespace browser
