#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace platform {

struct ClaimedFolder;

/// The folder that this process has for itself inside one that all processes of the program share:
/// "process-1", or the lowest number that no living process has. Only the user can enter it (0700). A lock on
/// the file "lock" inside says that its process lives; the system takes the lock away with the process,
/// however that ends. What a dead process has left belongs to whoever can take the lock. The object owns
/// folder and lock: both end with it. One thread at a time.
class ProcessFolder {
 public:
    /// The parent must exist. It is refused when it is a link, or belongs to somebody who is neither this
    /// user nor the administrator, since such a one could put another folder in the place of ours. A number
    /// whose folder is a link or another user's is passed over. The folder is empty but for the lock.
    [[nodiscard]] static ClaimedFolder claim(const std::filesystem::path& parent);

    /// Removes the folders of dead processes of this user. The first failure; the rest is still removed.
    [[nodiscard]] static std::error_code clearAbandoned(const std::filesystem::path& parent);

    /// Whether the name inside the parent is a process folder's, or begins like one
    /// ("process-2Metadata.txt").
    static bool isProcessName(const std::string& name);

    ~ProcessFolder();
    ProcessFolder(ProcessFolder&& other) noexcept = default;
    ProcessFolder& operator=(ProcessFolder&& other) = delete;
    ProcessFolder(const ProcessFolder&) = delete;
    ProcessFolder& operator=(const ProcessFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// From 1 on; different in all living processes that share the parent.
    int number() const { return number_; }

    /// Removes the folder and what lies in it or begins with its name; links go, what they point to stays. No
    /// failure when it is gone already. Gives up the number in any case.
    [[nodiscard]] std::error_code remove();

 private:
    ProcessFolder(std::filesystem::path path, int number, FileDescriptor lock)
        : path_(std::move(path)), number_(number), lock_(std::move(lock)) {}

    std::filesystem::path path_;
    int number_ = 0;
    FileDescriptor lock_;  ///< open as long as the folder is ours
};

/// Makes a folder in the one of this process, that only the user can enter. A link or a file of that name
/// gives way to it. The error when there is none in the end.
[[nodiscard]] std::error_code makeOwnSubfolder(const std::filesystem::path& folder);

struct ClaimedFolder {
    std::optional<ProcessFolder> folder;
    std::string reason;  ///< for people, when there is no folder
};

}  // namespace platform
