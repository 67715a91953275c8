#pragma once

#include <filesystem>

namespace platform {

/// Copies a regular file, its permissions and its times to the target, which is replaced whole or not at all:
/// the bytes go into a new file beside it that is then renamed. Where the file system can share the blocks of
/// the two files, no bytes are copied. 0, or the number of the system's error.
int copyFile(const std::filesystem::path& source, const std::filesystem::path& target);

}  // namespace platform
