#pragma once

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

/// Puts the bytes in the file's place by way of a file "<name>.new" beside it and a rename, so that at every
/// moment the file is either the old or the new one, whole. Permissions are kept and a symbolic link is
/// followed. The answer is empty on success, else the reason for people, and the file is untouched.
std::string replaceFile(const std::filesystem::path& file, std::string_view bytes);

/// Writes all bytes; 0 or the error number.
int writeAll(int descriptor, std::string_view bytes);

}  // namespace platform
