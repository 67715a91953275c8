#include "platform/FileBelongings.h"

#include "platform/FileAccess.h"
#include "platform/FileCopy.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
/// The system's own mark, which it gives to new files by its own rules.
constexpr std::string_view kSystemMark = "security.selinux";
constexpr int kAnchorTries = 8;
/// ExifTool moves the old file there where it is not told to overwrite it.
constexpr const char* kOwnCopyOfExifTool = "_original";

struct Attribute {
    std::string name;
    std::string value;
};

std::vector<Attribute> attributesOf(const fs::path& file) {
    std::vector<Attribute> attributes;
    const ssize_t length = ::listxattr(file.c_str(), nullptr, 0);
    if (length <= 0) return attributes;
    std::string names(static_cast<std::size_t>(length), '\0');
    const ssize_t got = ::listxattr(file.c_str(), names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    for (std::size_t at = 0; at < names.size(); at += std::string_view(names.c_str() + at).size() + 1) {
        Attribute attribute{names.c_str() + at, {}};
        const ssize_t size = ::getxattr(file.c_str(), attribute.name.c_str(), nullptr, 0);
        if (size < 0) continue;
        attribute.value.resize(static_cast<std::size_t>(size));
        const ssize_t read =
            ::getxattr(file.c_str(), attribute.name.c_str(), attribute.value.data(), attribute.value.size());
        if (read < 0) continue;
        attribute.value.resize(static_cast<std::size_t>(read));
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

bool isSuperuser() {
    return ::geteuid() == 0;
}

bool isOwnGroup(gid_t group) {
    if (group == ::getegid()) return true;
    const int count = ::getgroups(0, nullptr);
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(count, 0)));
    const int got = groups.empty() ? 0 : ::getgroups(count, groups.data());
    groups.resize(static_cast<std::size_t>(std::max(got, 0)));
    return std::ranges::find(groups, group) != groups.end();
}

/// Whether this user can put the attribute on a file of their own.
bool canBeGiven(const Attribute& attribute) {
    return isSuperuser() || attribute.name.starts_with("user.") || attribute.name == kAccessList ||
           attribute.name == kSystemMark;
}

bool isSameFile(const struct stat& one, const struct stat& other) {
    return one.st_ino == other.st_ino && one.st_dev == other.st_dev;
}

/// The new bytes over the old ones. Room for them is made first: a full disk is found out before a byte is
/// touched.
int overwrite(int target, const fs::path& from) {
    const FileDescriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat facts {};
    if (!source.isOpen() || ::fstat(source.get(), &facts) != 0) return errno;
    const bool hasRoom = facts.st_size == 0 ||
                         ::fallocate(target, FALLOC_FL_KEEP_SIZE, 0, facts.st_size) == 0 ||
                         errno == EOPNOTSUPP || errno == ENOSYS;
    if (!hasRoom) return errno;
    if (::lseek(target, 0, SEEK_SET) < 0) return errno;
    if (const int failure = copyContent(source.get(), target)) return failure;
    if (::ftruncate(target, facts.st_size) != 0) return errno;
    const std::array<timespec, 2> times{facts.st_atim, facts.st_mtim};
    static_cast<void>(::futimens(target, times.data()) == 0);
    return ::fsync(target) == 0 ? 0 : errno;
}

}  // namespace

struct FileBelongings::Kept {
    fs::path file;
    struct stat facts {};
    bool isFile = false;
    std::vector<Attribute> attributes;
    FileLosses losses;
    FileDescriptor self;  ///< open where the file itself has to stay
    fs::path anchor;      ///< the name that keeps it meanwhile

    ~Kept() {
        if (!anchor.empty()) ::unlink(anchor.c_str());
    }

    void look();
    bool hasToStay() const;
    bool makeAnchor();
    FileLosses giveBackSelf();
    FileLosses giveBackAttributes() const;
};

void FileBelongings::Kept::look() {
    isFile = ::stat(file.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
    if (!isFile) return;
    attributes = attributesOf(file);
    if (!hasToStay() || makeAnchor()) return;
    losses.names = facts.st_nlink > 1;
    losses.owner = !isSuperuser() && (facts.st_uid != ::geteuid() || !isOwnGroup(facts.st_gid));
    losses.attributes = !std::ranges::all_of(attributes, canBeGiven);
}

bool FileBelongings::Kept::hasToStay() const {
    const bool isGivenAway = facts.st_uid != ::geteuid() || !isOwnGroup(facts.st_gid);
    return facts.st_nlink > 1 || (isGivenAway && !isSuperuser()) ||
           !std::ranges::all_of(attributes, canBeGiven);
}

bool FileBelongings::Kept::makeAnchor() {
    self = FileDescriptor(::open(file.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat opened {};
    if (!self.isOpen() || ::fstat(self.get(), &opened) != 0 || !isSameFile(opened, facts)) return false;
    std::random_device random;
    for (int tries = 0; tries < kAnchorTries; ++tries) {
        fs::path name = file.parent_path() / (".tagwright-" + std::to_string(random()));
        name += file.extension();
        if (::link(file.c_str(), name.c_str()) == 0) {
            anchor = name;
            return true;
        }
        if (errno != EEXIST) break;
    }
    self.close();
    return false;
}

FileLosses FileBelongings::Kept::giveBackSelf() {
    const FileLosses all{
        .names = facts.st_nlink > 1, .owner = facts.st_uid != ::geteuid(), .attributes = !attributes.empty()};
    fs::path ownCopy = file;
    ownCopy += kOwnCopyOfExifTool;
    struct stat copied {};
    const bool isMovedThere = ::lstat(ownCopy.c_str(), &copied) == 0 && isSameFile(copied, facts);
    // The copy is to hold the old contents when the file has the new ones.
    if (isMovedThere && copyFile(ownCopy, ownCopy) != 0) return all;
    if (overwrite(self.get(), file) != 0 || ::rename(anchor.c_str(), file.c_str()) != 0) return all;
    anchor.clear();
    return {};
}

FileLosses FileBelongings::Kept::giveBackAttributes() const {
    FileLosses lost;
    bool hadList = false;
    for (const Attribute& attribute : attributes) {
        hadList = hadList || attribute.name == kAccessList;
        const bool isGiven = ::setxattr(file.c_str(), attribute.name.c_str(), attribute.value.data(),
                                        attribute.value.size(), 0) == 0;
        const bool isExpected = canBeGiven(attribute) && attribute.name != kSystemMark;
        lost.attributes = lost.attributes || (!isGiven && isExpected);
    }
    // A new file may have got the list of its folder, and with it rights that nobody had on the old one.
    if (!hadList && ::getxattr(file.c_str(), kAccessList, nullptr, 0) > 0) {
        const bool isTaken = ::removexattr(file.c_str(), kAccessList) == 0;
        lost.attributes = lost.attributes || !isTaken;
        static_cast<void>(::chmod(file.c_str(), facts.st_mode & 07777) == 0);
    }
    return lost;
}

FileBelongings::FileBelongings(const fs::path& file) : kept_(std::make_unique<Kept>()) {
    kept_->file = file;
    kept_->look();
}

FileBelongings::~FileBelongings() = default;
FileBelongings::FileBelongings(FileBelongings&&) noexcept = default;
FileBelongings& FileBelongings::operator=(FileBelongings&&) noexcept = default;

const FileLosses& FileBelongings::losses() const {
    return kept_->losses;
}

FileLosses FileBelongings::giveBack() {
    struct stat now {};
    const bool isNew = kept_->isFile && ::stat(kept_->file.c_str(), &now) == 0 && S_ISREG(now.st_mode) &&
                       !isSameFile(now, kept_->facts);
    if (!isNew) return {};
    return kept_->anchor.empty() ? kept_->giveBackAttributes() : kept_->giveBackSelf();
}

fs::path behindLink(const fs::path& file) {
    struct stat facts {};
    if (::lstat(file.c_str(), &facts) != 0 || !S_ISLNK(facts.st_mode)) return file;
    std::error_code error;
    fs::path target = fs::canonical(file, error);
    return error ? file : target;
}

std::error_code checkRewritable(const fs::path& file) {
    struct stat facts {};
    if (::stat(file.c_str(), &facts) != 0) return {};
    if (S_ISREG(facts.st_mode) && (facts.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return {EPERM, std::generic_category()};
    return checkAccess(file, AccessRight::Write);
}

}  // namespace platform
