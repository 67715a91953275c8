#pragma once

#include <filesystem>
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

enum class WriteMode { Replace, Append };

/// Writes the bytes to the file, which is made when it is missing; Replace empties it first. Not atomic, and
/// never through a link: for files of the program's own. 0, or the number of the system's error.
[[nodiscard]] int writeFile(const std::filesystem::path& file, WriteMode mode, std::string_view bytes);

}  // namespace platform
