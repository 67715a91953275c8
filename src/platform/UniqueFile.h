#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

/// A new, empty file that nobody else has a name for, for this user alone, open for reading and writing. It
/// stays when the object ends.
struct UniqueFile {
    std::filesystem::path path;
    FileDescriptor descriptor;
    int error = 0;  ///< the number of the system's error when there is no file
    bool isOpen() const { return descriptor.isOpen(); }
};

enum class UniqueFileWrites { AtPosition, AtEnd };

/// Makes the file <start>XXXXXX<suffix>, with letters and digits for the X. start: the folder, and how the
/// name begins.
UniqueFile makeUniqueFile(const std::filesystem::path& start, std::string_view suffix = {},
                          UniqueFileWrites writes = UniqueFileWrites::AtPosition);

/// The same for a folder, without a suffix; empty when it cannot be made.
std::filesystem::path makeUniqueFolder(const std::filesystem::path& start);

}  // namespace platform
