#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace platform {

/// Tells when the folder or the file on show is taken away: deleted, moved, or its volume removed. What else
/// happens in a folder, or to a file, is not its concern; a file that another one replaces is there all the
/// time. Lives on a thread with an event loop, and calls there.
class FolderWatch : public QObject {
    Q_OBJECT

 public:
    explicit FolderWatch(std::function<void()> vanished, QObject* parent = nullptr);
    ~FolderWatch() override;

    /// From now on this folder; an empty path watches none.
    void watch(const std::filesystem::path& folder);
    /// From now on this file, by its name.
    void watchFile(const std::filesystem::path& file);

 private:
    struct Queue;

    void watchFor(const std::filesystem::path& folder, unsigned events);
    void readEvents();

    std::function<void()> vanished_;
    std::filesystem::path folder_;
    std::string name_;              ///< of the file in it; empty when the folder itself is watched
    std::unique_ptr<Queue> queue_;  ///< null when the system has none to give
};

}  // namespace platform
