#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>

namespace platform {

/// Tells when the folder on show is taken away: deleted, moved, or its volume removed. What happens inside of
/// it is not its concern. Lives on a thread with an event loop, and calls there.
class FolderWatch : public QObject {
    Q_OBJECT

 public:
    explicit FolderWatch(std::function<void()> vanished, QObject* parent = nullptr);
    ~FolderWatch() override;

    /// From now on this folder; an empty path watches none.
    void watch(const std::filesystem::path& folder);

 private:
    struct Queue;

    void readEvents();

    std::function<void()> vanished_;
    std::filesystem::path folder_;
    std::unique_ptr<Queue> queue_;  ///< null when the system has none to give
};

}  // namespace platform
