#include "BlockSharing.h"

#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>

namespace bench {

bool canShareBlocks(const std::filesystem::path& source, const std::filesystem::path& target) {
    const platform::FileDescriptor from(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
    const platform::FileDescriptor to(::open(target.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    return ::ioctl(to.get(), FICLONE, from.get()) == 0;
}

}  // namespace bench
