#include "platform/FileStamp.h"

#include <sys/stat.h>

namespace platform {

FileStamp stampOf(const std::filesystem::path& file) {
    struct stat now {};
    if (::stat(file.c_str(), &now) != 0) return {};
    return {now.st_dev,          now.st_ino,         now.st_size,        now.st_mtim.tv_sec,
            now.st_mtim.tv_nsec, now.st_ctim.tv_sec, now.st_ctim.tv_nsec};
}

}  // namespace platform
