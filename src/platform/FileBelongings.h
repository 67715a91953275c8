#pragma once

#include <filesystem>
#include <memory>
#include <system_error>

namespace platform {

/// What a file loses when a new one takes its place.
struct FileLosses {
    bool names = false;       ///< its other names (hard links) keep the old contents
    bool owner = false;       ///< the new file belongs to this user
    bool attributes = false;  ///< extended attributes, or a list of who may do what with it

    bool any() const { return names || owner || attributes; }
};

/// What the file system keeps with a file beside its bytes: its other names (hard links), its owner, extended
/// attributes, the list of who may do what with it. Made right before another program puts a new file in its
/// place; gives these back behind that. Follows links. A file that has nothing of the kind costs a few calls
/// of the system. One thread.
///
/// Attributes and lists are put on the new file. Where the file itself has to stay, because it has other
/// names or belongs to somebody else, its new contents are written into it from the new file, which stands in
/// its place until that is done, so that the name never leads to half a file.
class FileBelongings {
 public:
    explicit FileBelongings(const std::filesystem::path& file);
    ~FileBelongings();
    FileBelongings(FileBelongings&&) noexcept;
    FileBelongings& operator=(FileBelongings&&) noexcept;

    /// What giveBack() will not be able to give back.
    const FileLosses& losses() const;

    /// Once. Does nothing where the file still is the old one, or stands under this name no more. What could
    /// not be given back beyond losses().
    [[nodiscard]] FileLosses giveBack();

 private:
    struct Kept;
    std::unique_ptr<Kept> kept_;
};

/// The file behind the name where that is a symbolic link that leads somewhere; else the name as it is.
std::filesystem::path behindLink(const std::filesystem::path& file);

/// Why the file is not to be rewritten: this program may not, or it is marked as not to be written, which
/// also holds for those who may write everything. Nothing for what is not there.
[[nodiscard]] std::error_code checkRewritable(const std::filesystem::path& file);

}  // namespace platform
