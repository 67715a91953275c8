#pragma once

#include <filesystem>

namespace platform {

/// Copies a regular file, its permissions and its times to the target, which is replaced whole or not at all:
/// the bytes go into a new file beside it that is then renamed. Where the file system can share the blocks of
/// the two files, no bytes are copied. Nobody gets more of the copy than of the source: where the copy cannot
/// have the source's group, group and others get what both have of the source; where a list of its own says
/// who may do what with the source, they get nothing; atMost takes away more. 0, or the number of the
/// system's error.
[[nodiscard]] int copyFile(const std::filesystem::path& source, const std::filesystem::path& target,
                           std::filesystem::perms atMost = std::filesystem::perms::mask);

/// The bytes alone, from the one open file's position to the other's. The same answer; after a failure a part
/// may have been copied.
[[nodiscard]] int copyContent(int source, int target);

}  // namespace platform
