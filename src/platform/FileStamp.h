#pragma once

#include <cstdint>
#include <filesystem>

namespace platform {

/// By what a file is known to be the one that was read: another one in its place, or a write to it, gives a
/// stamp that is not equal. All zero for a file that is not there.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t modifiedSeconds = 0;
    std::int64_t modifiedNanoseconds = 0;
    /// Of the last change to anything, also to permissions and times; nobody can set it.
    std::int64_t changedSeconds = 0;
    std::int64_t changedNanoseconds = 0;

    bool isFile() const { return inode != 0; }

    /// Looks at identity and contents alone: other permissions make no other file.
    friend bool operator==(const FileStamp& one, const FileStamp& other) {
        return one.device == other.device && one.inode == other.inode && one.size == other.size &&
               one.modifiedSeconds == other.modifiedSeconds &&
               one.modifiedNanoseconds == other.modifiedNanoseconds;
    }
};

/// True when nothing at all has happened to the file between the two stamps: a file whose contents were
/// written anew with its old date and size has been touched.
inline bool isUntouched(const FileStamp& before, const FileStamp& after) {
    return before == after && before.changedSeconds == after.changedSeconds &&
           before.changedNanoseconds == after.changedNanoseconds;
}

/// Follows links.
FileStamp stampOf(const std::filesystem::path& file);

}  // namespace platform
