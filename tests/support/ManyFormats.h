#pragma once

#include <filesystem>
#include <vector>

namespace support {

/// The files that stand in the folder itself, sorted; none when there is no such folder.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder);

/// The sample files that the environment variable TAGWRIGHT_SAMPLES adds to those of the install folder,
/// sorted.
std::vector<std::filesystem::path> addedSamples();

/// The extensions of those of the small files below into which ExifTool writes XMP and into which it can on
/// every machine.
inline constexpr const char* kWritableFormats[] = {".jpg", ".png", ".gif", ".eps", ".pdf",
                                                   ".mov", ".xmp", ".mie", ".exv"};

/// Makes a small file of each of them in the folder, of more where Qt has the plugins, one that is no photo
/// in spite of its name and one of a kind that ExifTool does not write.
void makeFilesOfManyFormats(const std::filesystem::path& folder);

}  // namespace support
