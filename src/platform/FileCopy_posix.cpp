#include "platform/FileCopy.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPortion = std::size_t{1} << 30;
constexpr std::size_t kBuffer = std::size_t{1} << 20;

int copyThroughBuffer(int source, int target) {
    std::string buffer(kBuffer, '\0');
    for (;;) {
        const ssize_t got = ::read(source, buffer.data(), buffer.size());
        if (got == 0) return 0;
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        const int failure = writeAll(target, std::string_view(buffer.data(), static_cast<std::size_t>(got)));
        if (failure != 0) return failure;
    }
}

mode_t modeOfCopy(int source, const struct stat& facts, int target, fs::perms atMost) {
    mode_t mode = facts.st_mode & 07777 & static_cast<mode_t>(atMost);
    struct stat copy {};
    if (::fstat(target, &copy) != 0) return mode & S_IRWXU;
    const bool hasGroup =
        copy.st_gid == facts.st_gid || ::fchown(target, static_cast<uid_t>(-1), facts.st_gid) == 0;
    if (!hasGroup) {
        // Of the two groups either may be the smaller one for a given user: both get what both had.
        const mode_t common = (mode >> 3) & mode & S_IRWXO;
        mode = (mode & ~static_cast<mode_t>(S_IRWXG | S_IRWXO | S_ISGID)) | (common << 3) | common;
    }
    // Where there is a list of its own of who may do what, the mode does not tell the truth.
    if (::fgetxattr(source, "system.posix_acl_access", nullptr, 0) > 0) mode &= S_IRWXU;
    if (copy.st_uid != facts.st_uid) mode &= ~static_cast<mode_t>(S_ISUID);
    return mode;
}

int copyInto(int source, const struct stat& facts, int target, fs::perms atMost) {
    const int failure = copyContent(source, target);
    if (failure != 0) return failure;
    const std::array<timespec, 2> times{facts.st_atim, facts.st_mtim};
    // What a file system without owners and times refuses is no reason to go without the copy.
    static_cast<void>(!::fchmod(target, modeOfCopy(source, facts, target, atMost)));
    static_cast<void>(!::futimens(target, times.data()));
    return 0;
}

}  // namespace

int copyContent(int source, int target) {
    if (::ioctl(target, FICLONE, source) == 0) return 0;
    bool hasCopied = false;
    for (;;) {
        const ssize_t copied = ::copy_file_range(source, nullptr, target, nullptr, kPortion, 0);
        hasCopied = hasCopied || copied > 0;
        if (copied > 0 || (copied < 0 && errno == EINTR)) continue;
        // Some file systems answer that nothing is there, or that they cannot; both only before the first
        // byte.
        if (!hasCopied) return copyThroughBuffer(source, target);
        return copied == 0 ? 0 : errno;
    }
}

int copyFile(const fs::path& source, const fs::path& target, fs::perms atMost) {
    const FileDescriptor from(::open(source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!from.isOpen()) return errno;
    struct stat facts {};
    if (::fstat(from.get(), &facts) != 0) return errno;
    if (!S_ISREG(facts.st_mode)) return S_ISDIR(facts.st_mode) ? EISDIR : EINVAL;
    std::string fresh = (target.parent_path() / ".copy-XXXXXX").native();
    const FileDescriptor to(::mkostemp(fresh.data(), O_CLOEXEC));
    if (!to.isOpen()) return errno;
    int failure = copyInto(from.get(), facts, to.get(), atMost);
    if (failure == 0 && ::rename(fresh.c_str(), target.c_str()) != 0) failure = errno;
    if (failure != 0) ::unlink(fresh.c_str());
    return failure;
}

}  // namespace platform
