#include "platform/PrivateFolders.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kOwner = 0700;
constexpr mode_t kGroup = 070;
constexpr mode_t kOthers = 07;
constexpr mode_t kRepeated = 01777;  // with the bit that keeps users off each other's files
constexpr const char* kAccessList = "system.posix_acl_access";

/// Where there is a list of its own of who may do what, the other permissions do not tell the truth.
bool hasAccessList(const fs::path& path) {
    return ::getxattr(path.c_str(), kAccessList, nullptr, 0) > 0;
}

/// Of the two groups either may be the smaller one for a given user: both get what both had.
mode_t modeForOtherGroup(mode_t mode) {
    const mode_t common = (mode >> 3) & mode & kOthers;
    return (mode & ~(kGroup | kOthers)) | (common << 3) | common;
}

/// What a folder that repeats the model may have when it has the same group.
mode_t modeLike(const fs::path& model, const struct stat& facts) {
    mode_t mode = facts.st_mode & kRepeated;
    struct stat itself {};
    if (::lstat(model.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode))
        mode &= static_cast<mode_t>(permissionsInReach(model)) | S_ISVTX;
    if (hasAccessList(model)) mode &= ~(kGroup | kOthers);
    return mode | kOwner;
}

}  // namespace

Privacy makeFolderLike(const fs::path& folder, const fs::path& model) {
    struct stat wanted {};
    const bool isKnown = ::stat(model.c_str(), &wanted) == 0;
    mode_t mode = isKnown ? modeLike(model, wanted) : kOwner;
    const bool isNew = ::mkdir(folder.c_str(), kOwner) == 0;
    struct stat now {};
    if (::lstat(folder.c_str(), &now) != 0) return Privacy::Kept;
    if (S_ISLNK(now.st_mode)) return Privacy::Lost;
    const bool hasGroup =
        now.st_gid == wanted.st_gid ||
        (isNew && isKnown && ::chown(folder.c_str(), static_cast<uid_t>(-1), wanted.st_gid) == 0);
    if (!hasGroup) mode = modeForOtherGroup(mode);
    const mode_t target = isNew ? mode : now.st_mode & 07777 & (mode | ~kRepeated);
    const bool isRight = !isNew && target == (now.st_mode & 07777);
    return isRight || ::chmod(folder.c_str(), target) == 0 ? Privacy::Kept : Privacy::Lost;
}

Privacy repeatFolders(const fs::path& root, const fs::path& folder) {
    std::error_code error;
    fs::create_directories(root, error);
    Privacy privacy = Privacy::Kept;
    fs::path copy = root;
    fs::path model = folder.root_path();
    for (const fs::path& name : folder.relative_path()) {
        if (name.empty()) continue;
        copy /= name;
        model /= name;
        if (name == "." || name == "..") continue;
        if (makeFolderLike(copy, model) == Privacy::Lost) privacy = Privacy::Lost;
    }
    return privacy;
}

fs::perms permissionsInReach(const fs::path& file) {
    std::error_code error;
    fs::path folder = fs::canonical(file, error);
    struct stat facts {};
    if (error || ::stat(folder.c_str(), &facts) != 0) return fs::perms::owner_all;
    mode_t reach = kOwner | kGroup | kOthers;
    while (folder != folder.parent_path()) {
        folder = folder.parent_path();
        struct stat above {};
        if (::stat(folder.c_str(), &above) != 0) return fs::perms::owner_all;
        if ((above.st_mode & S_IXOTH) == 0) reach &= ~kOthers;
        const bool isSameGroup = above.st_gid == facts.st_gid && !hasAccessList(folder);
        if ((above.st_mode & (isSameGroup ? S_IXGRP : S_IXOTH)) == 0) reach &= ~kGroup;
    }
    return static_cast<fs::perms>(reach);
}

}  // namespace platform
