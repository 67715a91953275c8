#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace tags {

/// What a file is, by its extension.
enum class FileClass {
    OtherImage = 0,
    Photograph = 1,
    Audio = 2,
    Video = 3,
    Document = 4,
    Executable = 5,
    Archive = 6,
    Font = 7,
    ElectronicBook = 8,
};

struct ExtensionRecord {
    std::string_view extension;  ///< lower case, with its dot
    FileClass fileClass;
    int support;  ///< -1 to 6; kept for reference
};

/// The 331 extensions whose files the program works on, in order of extension.
std::span<const ExtensionRecord> ExtensionTable();

/// The row of the file's extension, whatever its case; null when there is none or the name has no extension.
const ExtensionRecord* findExtension(const std::filesystem::path& file);

}  // namespace tags
