#pragma once

#include <filesystem>

/// Copies that are kept elsewhere must not be seen by more people than what they are copies of: the mode of a
/// file says little when it is the folders above it that keep others out.
namespace platform {

/// Whether what is put into a folder is there as private as in the one it repeats.
enum class Privacy { Kept, Lost };

/// Makes "<root><folder>", each missing folder with the permissions of the one it repeats: never more, but
/// the user's own always. Where it cannot have the same group, group and others get what both have there;
/// where a list of its own says who may do what, they get nothing. Folders that are there already are
/// narrowed and never widened. Lost when one of them cannot be, since it is a link or another user's. Without
/// a word where a folder cannot be made: whoever writes into it will hear why. folder: absolute; root: is
/// made, too, when it is missing, like any other folder.
[[nodiscard]] Privacy repeatFolders(const std::filesystem::path& root, const std::filesystem::path& folder);

/// Makes one folder with the permissions of the model, or narrows it to them, in the same way.
[[nodiscard]] Privacy makeFolderLike(const std::filesystem::path& folder, const std::filesystem::path& model);

/// Of all permissions those that are of use on this file: others have none where a folder above it, behind
/// all links, does not let them through; the file's group likewise.
std::filesystem::perms permissionsInReach(const std::filesystem::path& file);

}  // namespace platform
