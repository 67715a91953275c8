#include "platform/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace platform {

RegularFile::RegularFile(const std::filesystem::path& file, Links links)
    : descriptor_(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC |
                                           (links == Links::Refused ? O_NOFOLLOW : 0))) {
    struct stat facts {};
    if (isOpen() && ::fstat(descriptor_.get(), &facts) == 0 && S_ISREG(facts.st_mode))
        size_ = static_cast<std::uint64_t>(facts.st_size);
    else
        descriptor_.close();
}

std::size_t RegularFile::readAt(std::uint64_t position, std::span<std::byte> buffer) const {
    ssize_t got = 0;
    do got = ::pread(descriptor_.get(), buffer.data(), buffer.size(), static_cast<off_t>(position));
    while (got < 0 && errno == EINTR);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

}  // namespace platform
