#include "platform/ProcessFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <string_view>
#include <vector>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPrefix = "process-";
constexpr const char* kLockName = "lock";
constexpr int kMostProcesses = 999;
constexpr mode_t kOwnerOnly = 0700;
constexpr mode_t kLockMode = 0600;

std::error_code errorOf(int number) {
    return {number, std::system_category()};
}

std::string nameOf(int number) {
    return std::string(kPrefix) + std::to_string(number);
}

/// 0 when the name does not begin like a process folder's.
int numberOf(std::string_view name) {
    if (!name.starts_with(kPrefix)) return 0;
    name.remove_prefix(kPrefix.size());
    int number = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), number);
    return parsed.ec == std::errc() && number > 0 && number <= kMostProcesses ? number : 0;
}

/// Whether the name in the folder still is what was opened.
bool isStillAt(int folder, const char* name, int opened) {
    struct stat named {};
    struct stat facts {};
    return ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && ::fstat(opened, &facts) == 0 &&
           named.st_ino == facts.st_ino && named.st_dev == facts.st_dev;
}

bool isOwnedBy(int opened, uid_t user) {
    struct stat facts {};
    return ::fstat(opened, &facts) == 0 && facts.st_uid == user;
}

FileDescriptor openFolder(int parent, const char* name) {
    return FileDescriptor(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

enum class LockAnswer {
    Taken,
    Elsewhere,  ///< another process lives in the folder, or it is none of ours
    Vanished,   ///< its process has just removed it
    Failed,     ///< the file system keeps no locks, or the lock cannot be written: see errno
};

/// Whoever has the lock and finds it still in its place is alone with the folder. The one who removes a
/// folder takes the lock file away last, so that nobody waits on a file that the next one cannot see.
LockAnswer takeLock(int parent, const char* name, FileDescriptor& lock) {
    const FileDescriptor folder = openFolder(parent, name);
    if (!folder.isOpen()) return errno == ENOENT ? LockAnswer::Vanished : LockAnswer::Elsewhere;
    if (!isOwnedBy(folder.get(), ::geteuid())) return LockAnswer::Elsewhere;
    lock = FileDescriptor(
        ::openat(folder.get(), kLockName, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kLockMode));
    if (!lock.isOpen()) {
        if (errno == ENOENT) return LockAnswer::Vanished;
        return errno == ELOOP || errno == EISDIR ? LockAnswer::Elsewhere : LockAnswer::Failed;
    }
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? LockAnswer::Elsewhere : LockAnswer::Failed;
    if (!isStillAt(parent, name, folder.get()) || !isStillAt(folder.get(), kLockName, lock.get()))
        return LockAnswer::Vanished;
    // A file system without modes has nothing to narrow.
    static_cast<void>(!::fchmod(folder.get(), kOwnerOnly));
    return LockAnswer::Taken;
}

std::vector<fs::path> entriesOf(const fs::path& folder, std::error_code& error) {
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

/// All but the lock, and what stands beside the folder under a longer name.
std::error_code empty(const fs::path& folder, int number) {
    std::error_code first;
    std::error_code error;
    std::vector<fs::path> doomed;
    for (fs::path& entry : entriesOf(folder, error)) {
        if (entry.filename() != kLockName) doomed.push_back(std::move(entry));
    }
    if (error && error != std::errc::no_such_file_or_directory) first = error;
    for (fs::path& entry : entriesOf(folder.parent_path(), error)) {
        const std::string name = entry.filename().native();
        if (name != nameOf(number) && numberOf(name) == number) doomed.push_back(std::move(entry));
    }
    for (const fs::path& entry : doomed) {
        fs::remove_all(entry, error);  // takes a link away, not what it points to
        if (error && !first) first = error;
    }
    return first;
}

/// For the one who has the lock.
std::error_code removeWhole(const fs::path& folder, int number) {
    const std::error_code first = empty(folder, number);
    if (first) return first;
    const bool isUnlocked = ::unlink((folder / kLockName).c_str()) == 0 || errno == ENOENT;
    if (!isUnlocked) return errorOf(errno);
    // Somebody who looks whether we are dead may have put a lock there just now: he removes it then.
    if (::rmdir(folder.c_str()) == 0 || errno == ENOENT || errno == ENOTEMPTY || errno == EEXIST) return {};
    return errorOf(errno);
}

/// Why the parent cannot be trusted; 0 when it can.
int refusalOf(const fs::path& parent, FileDescriptor& opened) {
    opened = openFolder(AT_FDCWD, parent.c_str());
    if (!opened.isOpen()) return errno;
    return isOwnedBy(opened.get(), ::geteuid()) || isOwnedBy(opened.get(), 0) ? 0 : EPERM;
}

}  // namespace

ClaimedFolder ProcessFolder::claim(const fs::path& parent) {
    FileDescriptor opened;
    if (const int refusal = refusalOf(parent, opened); refusal != 0) return {{}, errorOf(refusal).message()};
    for (int number = 1; number <= kMostProcesses;) {
        const std::string name = nameOf(number);
        if (::mkdirat(opened.get(), name.c_str(), kOwnerOnly) != 0 && errno != EEXIST)
            return {{}, errorOf(errno).message()};
        FileDescriptor lock;
        switch (takeLock(opened.get(), name.c_str(), lock)) {
            case LockAnswer::Taken:
                break;
            case LockAnswer::Elsewhere:
                ++number;
                continue;
            case LockAnswer::Vanished:
                continue;
            case LockAnswer::Failed:
                return {{}, errorOf(errno).message()};
        }
        const fs::path path = parent / name;
        if (const std::error_code error = empty(path, number)) return {{}, error.message()};
        return {ProcessFolder(path, number, std::move(lock)), {}};
    }
    return {{}, errorOf(EUSERS).message()};
}

std::error_code ProcessFolder::clearAbandoned(const fs::path& parent) {
    FileDescriptor opened;
    if (const int refusal = refusalOf(parent, opened); refusal != 0) return errorOf(refusal);
    std::error_code first;
    std::error_code error;
    for (const fs::path& entry : entriesOf(parent, error)) {
        const std::string name = entry.filename().native();
        const int number = numberOf(name);
        if (number == 0 || name != nameOf(number)) continue;
        FileDescriptor lock;
        const LockAnswer answer = takeLock(opened.get(), name.c_str(), lock);
        std::error_code failure;
        if (answer == LockAnswer::Failed) failure = errorOf(errno);
        if (answer == LockAnswer::Taken) failure = removeWhole(entry, number);
        if (failure && !first) first = failure;
    }
    return first ? first : error;
}

bool ProcessFolder::isProcessName(const std::string& name) {
    return numberOf(name) != 0;
}

ProcessFolder::~ProcessFolder() {
    // Whoever wants to know of a failure calls remove(); what stays is cleared by the next start.
    static_cast<void>(remove());
}

std::error_code ProcessFolder::remove() {
    if (!lock_.isOpen()) return {};
    const FileDescriptor lock = std::move(lock_);
    FileDescriptor parent;
    const int refusal = refusalOf(path_.parent_path(), parent);
    if (refusal != 0) return refusal == ENOENT ? std::error_code() : errorOf(refusal);
    struct stat named {};
    struct stat held {};
    const int found = ::lstat((path_ / kLockName).c_str(), &named);
    if (found != 0 && errno == ENOENT) return removeWhole(path_, number_);
    if (found != 0) return errorOf(errno);
    // Taken away, and made again by another process, while we lived: nothing of ours is left there.
    if (::fstat(lock.get(), &held) == 0 && (held.st_ino != named.st_ino || held.st_dev != named.st_dev))
        return {};
    return removeWhole(path_, number_);
}

std::error_code makeOwnSubfolder(const fs::path& folder) {
    std::error_code ignored;
    if (fs::symlink_status(folder, ignored).type() != fs::file_type::directory) fs::remove(folder, ignored);
    if (::mkdir(folder.c_str(), kOwnerOnly) != 0 && errno != EEXIST) return errorOf(errno);
    const FileDescriptor opened = openFolder(AT_FDCWD, folder.c_str());
    if (!opened.isOpen()) return errorOf(errno);
    if (!isOwnedBy(opened.get(), ::geteuid())) return errorOf(EPERM);
    // A file system without modes has nothing to narrow.
    static_cast<void>(!::fchmod(opened.get(), kOwnerOnly));
    return {};
}

}  // namespace platform
