#include "platform/FileDescriptor.h"

#include <unistd.h>

namespace platform {

void FileDescriptor::close() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

}  // namespace platform
