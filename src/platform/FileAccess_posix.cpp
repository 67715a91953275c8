#include "platform/FileAccess.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>

namespace platform {
namespace {

constexpr mode_t kNewFileMode = 0666;

int bitsOf(AccessRight right) {
    switch (right) {
        case AccessRight::Read:
            return R_OK;
        case AccessRight::Write:
            return W_OK;
        case AccessRight::Execute:
            return X_OK;
        case AccessRight::AddFiles:
            return W_OK | X_OK;
    }
    return F_OK;
}

}  // namespace

std::error_code checkAccess(const std::filesystem::path& path, AccessRight right) {
    // By the rights with which it would be opened.
    if (::faccessat(AT_FDCWD, path.c_str(), bitsOf(right), AT_EACCESS) == 0) return {};
    return {errno, std::generic_category()};
}

// The system grants a lease for writing only on a file that nobody else has open. Who opens it meanwhile
// waits, and this program is told by a signal, one that does nothing.
bool isOpenNowhere(const std::filesystem::path& file) {
    const FileDescriptor descriptor(
        ::open(file.c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC));
    if (!descriptor.isOpen() || ::fcntl(descriptor.get(), F_SETSIG, SIGURG) != 0) return false;
    if (::fcntl(descriptor.get(), F_SETLEASE, F_WRLCK) != 0) return false;
    static_cast<void>(::fcntl(descriptor.get(), F_SETLEASE, F_UNLCK) == 0);
    return true;
}

int writeFile(const std::filesystem::path& file, WriteMode mode, std::string_view bytes) {
    const int start = mode == WriteMode::Append ? O_APPEND : O_TRUNC;
    const FileDescriptor descriptor(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | start, kNewFileMode));
    return descriptor.isOpen() ? writeAll(descriptor.get(), bytes) : errno;
}

}  // namespace platform
