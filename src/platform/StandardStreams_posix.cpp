#include "platform/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform {

const char* const kOutputStreamName = "/dev/stdout";
const char* const kErrorStreamName = "/dev/stderr";

FileDescriptor takeStandardOutput() {
    FileDescriptor taken(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    if (taken.isOpen()) ::dup2(STDERR_FILENO, STDOUT_FILENO);
    return taken;
}

}  // namespace platform
