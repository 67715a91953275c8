#pragma once

#include <filesystem>
#include <memory>

namespace platform {

/// Changes a file by way of a copy beside it that takes its place, so that at every moment the file is the
/// old or the new one, whole. The steps in their order: open, makeCopy, whatever changes the copy,
/// finishCopy, takePlace; each gives 0 or the number of the system's error (ENOSPC also for a quota that is
/// used up), after which the file is untouched. A copy that has not taken the place goes away with the
/// object. One thread.
class FileRewrite {
 public:
    FileRewrite();
    ~FileRewrite();
    FileRewrite(const FileRewrite&) = delete;
    FileRewrite& operator=(const FileRewrite&) = delete;

    /// Follows links. EACCES for what is no regular file, and for one that nobody may write, whoever asks.
    [[nodiscard]] int open(const std::filesystem::path& file);

    /// The file itself, behind its links.
    const std::filesystem::path& original() const { return original_; }

    /// The whole content, in a file for this user alone, with the original's extension.
    [[nodiscard]] int makeCopy();
    const std::filesystem::path& copy() const { return copy_; }

    /// Gives the copy, or a new file in the copy's place, the original's permissions and extended attributes,
    /// its owner where this user may, its times of modification and access when they are to be kept, and
    /// brings it to the disk.
    [[nodiscard]] int finishCopy(bool keepTimes);

    /// Other names of the file (hard links) lead to the new contents too, and it keeps its owner.
    [[nodiscard]] int takePlace();

 private:
    struct Source;

    std::filesystem::path original_;
    std::filesystem::path copy_;  ///< empty when there is none
    std::unique_ptr<Source> source_;
};

}  // namespace platform
