#include "platform/AtomicFile.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <system_error>
#include <thread>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::seconds kLongestWait(5);
constexpr std::chrono::milliseconds kPause(2);

std::string reasonFor(int error) {
    return std::system_category().message(error);
}

bool isStillAt(const fs::path& path, int descriptor) {
    struct stat named {};
    struct stat opened {};
    return ::lstat(path.c_str(), &named) == 0 && ::fstat(descriptor, &opened) == 0 &&
           named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

/// Whether the file is open and nobody else replaces by way of it.
bool isAlone(const fs::path& path, const FileDescriptor& file) {
    return file.isOpen() && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 && isStillAt(path, file.get());
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

FileReplacement::FileReplacement(const fs::path& file) : target_(file) {
    std::error_code error;
    if (fs::symlink_status(file, error).type() == fs::file_type::symlink) {
        target_ = fs::weakly_canonical(file, error);
        if (error) error_ = error.value();
    }
    if (error_ == 0) open();
}

FileReplacement::~FileReplacement() {
    if (!path_.empty()) ::unlink(path_.c_str());
}

// One name for all: what a killed program has left is used again by the next, and its lock keeps two programs
// apart. One that keeps the lock for ever, as a stopped process does, is passed by on a name of our own.
void FileReplacement::open() {
    fs::path shared = target_;
    shared += ".new";
    const auto deadline = std::chrono::steady_clock::now() + kLongestWait;
    do {
        descriptor_ = FileDescriptor(
            ::open(shared.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666));
        if (!descriptor_.isOpen()) break;
        if (isAlone(shared, descriptor_) && ::ftruncate(descriptor_.get(), 0) == 0) {
            path_ = shared;
            return;
        }
        std::this_thread::sleep_for(kPause);
    } while (std::chrono::steady_clock::now() < deadline);
    std::string name = target_.native() + ".XXXXXX";
    descriptor_ = FileDescriptor(::mkostemp(name.data(), O_CLOEXEC));
    if (descriptor_.isOpen())
        path_ = name;
    else
        error_ = errno;
}

int FileReplacement::commit(std::string_view bytes) {
    if (error_ != 0) return error_;
    struct stat old {};
    if (::stat(target_.c_str(), &old) == 0)
        static_cast<void>(::fchmod(descriptor_.get(), old.st_mode & 07777));
    error_ = writeAll(descriptor_.get(), bytes);
    if (error_ == 0 && ::fdatasync(descriptor_.get()) != 0) error_ = errno;
    if (error_ == 0 && ::rename(path_.c_str(), target_.c_str()) != 0) error_ = errno;
    if (error_ == 0) path_.clear();
    return error_;
}

std::string replaceFile(const fs::path& file, std::string_view bytes) {
    FileReplacement replacement(file);
    const int failure = replacement.commit(bytes);
    return failure == 0 ? std::string() : reasonFor(failure);
}

}  // namespace platform
