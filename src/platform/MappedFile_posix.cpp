#include "platform/MappedFile.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace platform {

std::shared_ptr<const MappedFile> MappedFile::Open(const std::filesystem::path& file, Links links) {
    const FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY |
                                                             (links == Links::Refused ? O_NOFOLLOW : 0)));
    struct stat facts {};
    if (!descriptor.isOpen() || ::fstat(descriptor.get(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return nullptr;
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* begin = nullptr;
    if (size > 0) {  // the system maps nothing of no length
        begin = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor.get(), 0);
        if (begin == MAP_FAILED) return nullptr;
    }
    return std::shared_ptr<const MappedFile>(new MappedFile(static_cast<const unsigned char*>(begin), size));
}

MappedFile::~MappedFile() {
    if (size_ > 0) ::munmap(const_cast<unsigned char*>(begin_), size_);
}

}  // namespace platform
