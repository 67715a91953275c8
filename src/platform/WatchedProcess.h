#pragma once

#include "platform/FileDescriptor.h"
#include "platform/ProcessId.h"

#include <chrono>
#include <vector>

namespace platform {

/// A process that somebody else has started, as the first of a group of its own. It is not owned: it goes on
/// when the object ends. While it is watched, its number is no other's. One thread.
class WatchedProcess {
 public:
    /// False when there is no such process, or the system cannot watch one.
    [[nodiscard]] bool watch(ProcessId process);

    /// Readable once the process has ended; -1 when none is watched.
    int descriptor() const { return watch_.get(); }

    bool hasEndedWithin(std::chrono::milliseconds limit) const;

    /// Asks the process and all of its group to end, after grace kills them, then waits at most deathLimit
    /// for the end of the process. Nothing where the process has ended: its number, which also is that of its
    /// group, may be another's by now.
    void stopGroup(std::chrono::milliseconds grace, std::chrono::milliseconds deathLimit) const;

 private:
    /// All of its group, itself among them; none once it has ended.
    std::vector<FileDescriptor> members() const;

    ProcessId process_ = 0;
    FileDescriptor watch_;
};

}  // namespace platform
