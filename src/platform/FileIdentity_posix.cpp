#include "platform/FileIdentity.h"

#include <sys/stat.h>

namespace platform {
namespace {

constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;

std::int64_t nanoseconds(const timespec& time) {
    return time.tv_sec * kNanosecondsInASecond + time.tv_nsec;
}

FileIdentity identityIn(const struct stat& facts) {
    return {facts.st_dev, facts.st_ino, facts.st_size, nanoseconds(facts.st_mtim),
            nanoseconds(facts.st_ctim)};
}

}  // namespace

std::optional<FileIdentity> identifyFile(const std::filesystem::path& file) {
    struct stat facts {};
    if (::stat(file.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    return identityIn(facts);
}

std::optional<FileIdentity> identifyDescriptor(int descriptor) {
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0) return std::nullopt;
    return identityIn(facts);
}

bool isNameTaken(const std::filesystem::path& path) {
    struct stat ignored {};
    return ::lstat(path.c_str(), &ignored) == 0;
}

}  // namespace platform
