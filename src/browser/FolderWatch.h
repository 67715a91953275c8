#pragma once

#include <QObject>
#include <filesystem>
#include <functional>

class QSocketNotifier;

namespace browser {

/// Tells when the folder on show is taken away: deleted, moved, or its volume removed. What happens inside of
/// it is not its concern. GUI thread.
class FolderWatch : public QObject {
    Q_OBJECT

 public:
    explicit FolderWatch(std::function<void()> vanished, QObject* parent = nullptr);
    ~FolderWatch() override;

    /// From now on this folder; an empty path watches none.
    void watch(const std::filesystem::path& folder);

 private:
    void readEvents();

    std::function<void()> vanished_;
    std::filesystem::path folder_;
    QSocketNotifier* notifier_ = nullptr;
    int queue_ = -1;
    int watch_ = -1;
};

}  // namespace browser
