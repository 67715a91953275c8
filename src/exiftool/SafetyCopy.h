#pragma once

#include <QDateTime>
#include <QString>
#include <cstdint>
#include <filesystem>

namespace exiftool {

/// Whether and where a file is copied before it is changed. Nothing but the code's owner sets these; they are
/// read anew for every copy.
struct SafetyCopies {
    std::uint8_t SafetyCopyEnabled = 1;
    /// 0: beside the file. 1: under the cache folder, which repeats the file's folders. Other:
    /// SafetyCopyFolder.
    std::int32_t SafetyCopyFolderMode = 1;
    std::filesystem::path SafetyCopyFolder;
    std::int32_t SafetyCopyDated = 0;  ///< a date and time in the name in the place of "sav"
};

/// The name of the file's copy: "<base>-sav<extension>", or with the date and time in the user's short format
/// for "sav". The folder is put together as text, so that the base name stands right behind the last letter
/// of a folder that ends in no separator ("/photos//sava-sav.jpg" beside "/photos/a.jpg"). Where the name
/// would be longer than 255 bytes, it is shortened and has a number: "<beginning>~<number>-sav<extension>".
std::filesystem::path safetyCopyPath(const std::filesystem::path& file,
                                     const std::filesystem::path& cachePath, const SafetyCopies& settings,
                                     const QDateTime& now);

/// Copies the file, in the place of an earlier copy of the same name; an earlier one stays whole when the new
/// one fails. Makes the missing folders. Nobody sees the copy who could not see the file: the folders under
/// the cache folder have the permissions of those they repeat, and where folders say nothing the copy's own
/// are narrowed. Does not look at SafetyCopyEnabled. Empty on success, else the
/// message for the user, for a box titled "Error".
[[nodiscard]] QString MakeSafetyCopy(const std::filesystem::path& file,
                                     const std::filesystem::path& cachePath, const SafetyCopies& settings);

}  // namespace exiftool
