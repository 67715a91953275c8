#include "properties/SafeRewrite.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

namespace properties {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostCopied = std::size_t{1} << 30;  // for one call of the kernel's

PropertyResult resultOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
        case ENOENT:
            return PropertyResult::AccessDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return PropertyResult::DiskFull;
        default:
            return PropertyResult::Failed;
    }
}

/// A file beside the original that goes away unless it was renamed.
class Copy {
 public:
    explicit Copy(const fs::path& original) {
        const std::string extension = original.extension().native();
        std::string name = (original.parent_path() / ".tagwright-XXXXXX").native() + extension;
        descriptor_ =
            platform::FileDescriptor(::mkostemps(name.data(), static_cast<int>(extension.size()), O_CLOEXEC));
        if (descriptor_.isOpen()) path_ = name;
    }
    ~Copy() {
        if (!path_.empty()) ::unlink(path_.c_str());
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    bool isThere() const { return !path_.empty(); }
    const fs::path& path() const { return path_; }
    int descriptor() const { return descriptor_.get(); }
    void close() { descriptor_.close(); }

    bool takePlaceOf(const fs::path& original) {
        if (::rename(path_.c_str(), original.c_str()) != 0) return false;
        path_.clear();
        return true;
    }

 private:
    fs::path path_;
    platform::FileDescriptor descriptor_;
};

/// 0 or the error number.
int copyContent(int from, int to, std::size_t size) {
    if (::ioctl(to, FICLONE, from) == 0) return 0;
    std::size_t left = size;
    while (left > 0) {
        ssize_t copied = ::copy_file_range(from, nullptr, to, nullptr, std::min(left, kMostCopied), 0);
        if (copied < 0 && errno == EINTR) continue;
        if (copied < 0 && (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP)) {
            std::vector<char> block(std::size_t{1} << 20);
            copied = ::read(from, block.data(), block.size());
            for (ssize_t done = 0; done < copied;) {
                const ssize_t written =
                    ::write(to, block.data() + done, static_cast<std::size_t>(copied - done));
                if (written < 0) return errno;
                done += written;
            }
        }
        if (copied < 0) return errno;
        if (copied == 0) break;
        left -= std::min(left, static_cast<std::size_t>(copied));
    }
    return 0;
}

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
        std::vector<char> value(65536);
        const ssize_t size = ::fgetxattr(from, names.c_str() + at, value.data(), value.size());
        if (size >= 0)
            static_cast<void>(
                ::fsetxattr(to, names.c_str() + at, value.data(), static_cast<std::size_t>(size), 0) == 0);
    }
}

void syncFolder(const fs::path& folder) {
    const platform::FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) static_cast<void>(::fsync(descriptor.get()) == 0);
}

}  // namespace

PropertyResult rewriteSafely(const fs::path& file, const FileIdentity& seen, bool keepTimes,
                             const std::function<PropertyResult(const fs::path& copy)>& change) {
    std::error_code error;
    const fs::path original = fs::canonical(file, error);
    if (error || ::access(original.c_str(), W_OK) != 0) return PropertyResult::AccessDenied;
    const platform::FileDescriptor source(
        ::open(original.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat facts {};
    if (!source.isOpen() || ::fstat(source.get(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return PropertyResult::AccessDenied;
    // Who may write everything still means it when a file is marked as not to be written.
    if ((facts.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return PropertyResult::AccessDenied;
    if (identifyFile(original) != seen) return PropertyResult::ChangedMeanwhile;
    Copy copy(original);
    if (!copy.isThere()) return resultOf(errno);
    if (const int failure =
            copyContent(source.get(), copy.descriptor(), static_cast<std::size_t>(facts.st_size)))
        return resultOf(failure);
    copy.close();
    if (const PropertyResult result = change(copy.path()); result != PropertyResult::Ok) return result;

    // The library may have put a new file in the copy's place, so that it is opened again.
    const platform::FileDescriptor changed(::open(copy.path().c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (!changed.isOpen()) return resultOf(errno);
    copyAttributes(source.get(), facts, changed.get());
    const timespec times[] = {facts.st_atim, facts.st_mtim};
    if (keepTimes) static_cast<void>(::futimens(changed.get(), times) == 0);
    if (::fsync(changed.get()) != 0) return resultOf(errno);
    if (identifyFile(original) != seen) return PropertyResult::ChangedMeanwhile;
    if (!copy.takePlaceOf(original)) return resultOf(errno);
    syncFolder(original.parent_path());
    return PropertyResult::Ok;
}

}  // namespace properties
