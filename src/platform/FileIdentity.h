#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace platform {

/// What a file was at one moment. Two equal ones saw the same file, and nobody has written to it, renamed it
/// or changed its permissions between. Numbers are the system's own, times nanoseconds since 1970.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;  ///< bytes
    std::int64_t modifiedNanoseconds = 0;
    std::int64_t changedNanoseconds = 0;  ///< of what the system keeps of the file, its permissions among it

    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The same file with the same bytes, whatever has become of its permissions and its other names.
bool isSameContent(const FileIdentity& one, const FileIdentity& other);

/// Nothing when there is no regular file of that name. Follows links, opens nothing.
std::optional<FileIdentity> identifyFile(const std::filesystem::path& file);

/// The same for what is behind an open descriptor, whatever it is; nothing when that is not open.
std::optional<FileIdentity> identifyDescriptor(int descriptor);

/// True for every entry of a folder, a link that leads nowhere included.
bool isNameTaken(const std::filesystem::path& path);

}  // namespace platform
