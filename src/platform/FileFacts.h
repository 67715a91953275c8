#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace platform {

/// What stands behind a name. A link takes the kind of what it points to.
enum class FileKind : std::uint8_t {
    File,
    Folder,
    Fifo,
    CharacterDevice,
    BlockDevice,
    Socket,
    BrokenLink,
    Unknown
};

/// What the file system tells of a file. Of a link, what it tells of the file it leads to, or of the link
/// itself when that leads nowhere. Times are nanoseconds since 1970 in UTC.
struct FileFacts {
    std::uint64_t size = 0;            ///< bytes
    std::uint64_t allocatedBytes = 0;  ///< what it takes up on the volume
    std::int64_t modified = 0;
    std::int64_t accessed = 0;
    std::int64_t created = 0;  ///< the last status change where the file system keeps no birth time
    std::uint32_t owner = 0;   ///< user number
    FileKind kind = FileKind::Unknown;
    bool isLink = false;
    bool isHidden = false;    ///< as file managers of this system have it
    bool isReadOnly = false;  ///< nobody may write to it
    bool isKnown = false;     ///< false: the file system has told no more than the kind
};

/// Nothing when there is no such entry. Opens nothing.
std::optional<FileFacts> factsOf(const std::filesystem::path& path);

}  // namespace platform
