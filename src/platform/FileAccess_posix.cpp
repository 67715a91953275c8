#include "platform/FileAccess.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
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
    if (::access(path.c_str(), bitsOf(right)) == 0) return {};
    return {errno, std::generic_category()};
}

int writeFile(const std::filesystem::path& file, WriteMode mode, std::string_view bytes) {
    const int start = mode == WriteMode::Append ? O_APPEND : O_TRUNC;
    const FileDescriptor descriptor(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW | start, kNewFileMode));
    return descriptor.isOpen() ? writeAll(descriptor.get(), bytes) : errno;
}

}  // namespace platform
