#include "platform/AtomicFile.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

std::string reasonFor(int error) {
    return std::system_category().message(error);
}

/// The file beside the target that is to take its place. One name for all: what a killed program has left is
/// used again by the next; a lock keeps two programs that save at once apart, the later one then takes a name
/// of its own.
struct NewFile {
    fs::path path;
    FileDescriptor descriptor;
};

bool isStillAt(const fs::path& path, int descriptor) {
    struct stat named {};
    struct stat opened {};
    return ::lstat(path.c_str(), &named) == 0 && ::fstat(descriptor, &opened) == 0 &&
           named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

std::optional<NewFile> openNewFile(const fs::path& target) {
    NewFile fresh{target, {}};
    fresh.path += ".new";
    fresh.descriptor = FileDescriptor(
        ::open(fresh.path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666));
    if (fresh.descriptor.isOpen() && ::flock(fresh.descriptor.get(), LOCK_EX | LOCK_NB) == 0 &&
        isStillAt(fresh.path, fresh.descriptor.get()) && ::ftruncate(fresh.descriptor.get(), 0) == 0)
        return fresh;
    std::string name = target.native() + ".XXXXXX";
    fresh.descriptor = FileDescriptor(::mkostemp(name.data(), O_CLOEXEC));
    fresh.path = name;
    if (!fresh.descriptor.isOpen()) return std::nullopt;
    return fresh;
}

}  // namespace

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

FileContent readRegularFile(const fs::path& file, std::size_t maximumBytes) {
    FileContent content;
    const FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &facts) != 0) {
        content.status = errno == ENOENT ? FileContent::Status::Missing : FileContent::Status::Failed;
        content.reason = reasonFor(errno);
        return content;
    }
    if (!S_ISREG(facts.st_mode)) {
        content.reason = "Not a regular file";
        return content;
    }
    if (static_cast<std::uintmax_t>(facts.st_size) > maximumBytes) {
        content.status = FileContent::Status::TooBig;
        content.reason = reasonFor(EFBIG);
        return content;
    }
    content.bytes.resize(static_cast<std::size_t>(facts.st_size));
    std::size_t have = 0;
    while (have < content.bytes.size()) {
        const ssize_t got =
            ::read(descriptor.get(), content.bytes.data() + have, content.bytes.size() - have);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            content.reason = reasonFor(errno);
            return content;
        }
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
    }
    content.bytes.resize(have);
    content.status = FileContent::Status::Read;
    return content;
}

std::string replaceFile(const fs::path& file, std::string_view bytes) {
    std::error_code error;
    fs::path resolved = file;
    if (fs::symlink_status(file, error).type() == fs::file_type::symlink) {
        resolved = fs::weakly_canonical(file, error);
        if (error) return error.message();
    }
    std::optional<NewFile> fresh = openNewFile(resolved);
    if (!fresh) return reasonFor(errno);
    struct stat old {};
    if (::stat(resolved.c_str(), &old) == 0)
        static_cast<void>(::fchmod(fresh->descriptor.get(), old.st_mode & 07777));
    int failure = writeAll(fresh->descriptor.get(), bytes);
    if (failure == 0 && ::fdatasync(fresh->descriptor.get()) != 0) failure = errno;
    if (failure == 0 && ::rename(fresh->path.c_str(), resolved.c_str()) != 0) failure = errno;
    if (failure == 0) return {};
    ::unlink(fresh->path.c_str());
    return reasonFor(failure);
}

}  // namespace platform
