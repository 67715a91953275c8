#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

enum class AccessRight {
    Read,
    Write,
    Execute,
    AddFiles,  ///< to a folder
};

/// Whether this program may do so, links followed; else the system's reason, which also is that there is
/// nothing of that name. An answer of the moment: what is done on it can still fail.
[[nodiscard]] std::error_code checkAccess(const std::filesystem::path& path, AccessRight right);

/// True where nobody at all, on this machine, has the file open. False also where the system cannot tell: on
/// many network file systems, and of a file of another user.
bool isOpenNowhere(const std::filesystem::path& file);

/// Whether a file is opened through a symbolic link. Files of the program's own never are: a link there was
/// laid by somebody else.
enum class Links { Followed, Refused };

enum class WriteMode { Replace, Append };

/// Writes the bytes to the file, which is made when it is missing; Replace empties it first. Not atomic, and
/// never through a link: for files of the program's own. 0, or the number of the system's error.
[[nodiscard]] int writeFile(const std::filesystem::path& file, WriteMode mode, std::string_view bytes);

/// The bytes from that one on of a regular file of the program's own, never through a link; empty also when
/// it cannot be read.
std::string readOwnFile(const std::filesystem::path& file, std::uint64_t from = 0);

/// Calls back with each line of such a file, without its LF, until the answer is false; a last line without
/// LF counts. False when the file cannot be opened.
bool forEachLineOfOwnFile(const std::filesystem::path& file,
                          const std::function<bool(std::string_view)>& call);

}  // namespace platform
