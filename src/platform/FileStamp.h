#pragma once

#include <cstdint>
#include <filesystem>

namespace platform {

/// By what a file is known to be the one that was read: another one in its place, or a write to it, changes
/// the stamp. All zero for a file that is not there.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;

    bool isFile() const { return inode != 0; }
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Follows links.
FileStamp stampOf(const std::filesystem::path& file);

}  // namespace platform
