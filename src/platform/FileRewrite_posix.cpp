#include "platform/FileRewrite.h"

#include "platform/FileAccess.h"
#include "platform/FileBelongings.h"
#include "platform/FileCopy.h"
#include "platform/FileDescriptor.h"
#include "platform/UniqueFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestAttribute = 65536;

/// Owner, permissions and extended attributes. Who may not give a file away keeps it; nothing here can fail
/// the write.
void copyAttributes(int from, const struct stat& facts, int to) {
    static_cast<void>(::fchown(to, facts.st_uid, facts.st_gid) == 0);
    static_cast<void>(::fchmod(to, facts.st_mode & 07777));
    const ssize_t length = ::flistxattr(from, nullptr, 0);
    if (length <= 0) return;
    std::string names(static_cast<std::size_t>(length), '\0');
    const ssize_t got = ::flistxattr(from, names.data(), names.size());
    names.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    for (std::size_t at = 0; at < names.size(); at += std::string_view(names.c_str() + at).size() + 1) {
        std::vector<char> value(kLongestAttribute);
        const ssize_t size = ::fgetxattr(from, names.c_str() + at, value.data(), value.size());
        if (size >= 0)
            static_cast<void>(
                ::fsetxattr(to, names.c_str() + at, value.data(), static_cast<std::size_t>(size), 0) == 0);
    }
}

/// Not every system tells the two apart.
int noSpaceForNoQuota(int error) {
    return error == EDQUOT ? ENOSPC : error;
}

void syncFolder(const fs::path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) static_cast<void>(::fsync(descriptor.get()) == 0);
}

}  // namespace

struct FileRewrite::Source {
    FileDescriptor descriptor;
    struct stat facts {};
};

FileRewrite::FileRewrite() = default;

FileRewrite::~FileRewrite() {
    if (!copy_.empty()) ::unlink(copy_.c_str());
}

int FileRewrite::open(const fs::path& file) {
    std::error_code error;
    original_ = fs::canonical(file, error);
    if (error) return error.value();
    if (const std::error_code refused = checkAccess(original_, AccessRight::Write)) return refused.value();
    source_ = std::make_unique<Source>();
    source_->descriptor =
        FileDescriptor(::open(original_.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!source_->descriptor.isOpen()) return errno;
    struct stat& facts = source_->facts;
    if (::fstat(source_->descriptor.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return EACCES;
    // Who may write everything still means it when a file is marked as not to be written.
    return (facts.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 ? EACCES : 0;
}

int FileRewrite::makeCopy() {
    const UniqueFile copy =
        makeUniqueFile(original_.parent_path() / ".tagwright-", original_.extension().native());
    if (!copy.isOpen()) return noSpaceForNoQuota(copy.error);
    copy_ = copy.path;
    return noSpaceForNoQuota(copyContent(source_->descriptor.get(), copy.descriptor.get()));
}

int FileRewrite::finishCopy(bool keepTimes) {
    const FileDescriptor changed(::open(copy_.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (!changed.isOpen()) return errno;
    copyAttributes(source_->descriptor.get(), source_->facts, changed.get());
    const timespec times[] = {source_->facts.st_atim, source_->facts.st_mtim};
    if (keepTimes) static_cast<void>(::futimens(changed.get(), times) == 0);
    return ::fsync(changed.get()) == 0 ? 0 : noSpaceForNoQuota(errno);
}

int FileRewrite::takePlace() {
    FileBelongings belongings(original_);
    if (::rename(copy_.c_str(), original_.c_str()) != 0) return noSpaceForNoQuota(errno);
    copy_.clear();
    // The new contents are there whatever else is lost, of which was told before.
    static_cast<void>(belongings.giveBack());
    syncFolder(original_.parent_path());
    return 0;
}

}  // namespace platform
