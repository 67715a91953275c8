#include "platform/WatchedProcess.h"

#include "platform/Pipe.h"

#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace platform {

bool WatchedProcess::watch(ProcessId process) {
    watch_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(process), 0)));
    process_ = watch_.isOpen() ? process : 0;
    return watch_.isOpen();
}

bool WatchedProcess::hasEndedWithin(std::chrono::milliseconds limit) const {
    return isAnyReadableWithin({watch_.get()}, limit);
}

void WatchedProcess::stopGroup(std::chrono::milliseconds grace, std::chrono::milliseconds deathLimit) const {
    // Group 0 would be that of this program.
    if (process_ <= 1) return;
    const auto group = static_cast<pid_t>(-process_);
    ::kill(group, SIGTERM);
    hasEndedWithin(grace);
    // Also when the process has ended: what it started may still run.
    ::kill(group, SIGKILL);
    hasEndedWithin(deathLimit);
}

}  // namespace platform
