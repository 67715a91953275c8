#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

struct FileContent {
    enum class Status { Read, Missing, TooBig, Failed };
    Status status = Status::Failed;
    std::string bytes;
    std::string reason;  ///< for people, unless it was read
};

/// All bytes of a regular file. Anything else (a FIFO, a device, a folder) is a failure and is not waited
/// for.
FileContent readRegularFile(const std::filesystem::path& file, std::size_t maximumBytes);

/// Puts bytes in a file's place by way of a file "<name>.new" beside it and a rename, so that at every moment
/// the file is either the old or the new one, whole. Permissions are kept and a symbolic link is followed.
/// From its making to its end no other program replaces the file in this way, so that what is read of it in
/// between is what is replaced.
class FileReplacement {
 public:
    /// Waits a few seconds for another program that is at it, and then no longer.
    explicit FileReplacement(const std::filesystem::path& file);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// The number of the system's error when nothing can be replaced here; else 0.
    int error() const { return error_; }

    /// Once. 0, or the number of the system's error, and the file is untouched.
    [[nodiscard]] int commit(std::string_view bytes);

 private:
    void open();

    std::filesystem::path target_;
    std::filesystem::path path_;  ///< of the file beside it; empty when there is none
    FileDescriptor descriptor_;   ///< locked
    int error_ = 0;
};

/// A FileReplacement's commit. The answer is empty on success, else the reason for people.
[[nodiscard]] std::string replaceFile(const std::filesystem::path& file, std::string_view bytes);

/// Writes all bytes; 0 or the error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view bytes);

}  // namespace platform
