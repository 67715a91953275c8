#pragma once

#include "platform/ProcessId.h"

#include <chrono>
#include <filesystem>
#include <optional>

/// What this process is to the system.
namespace platform {

ProcessId ownProcessId();

/// The file that this program was started from, its links resolved; empty when the system does not tell.
std::filesystem::path ownExecutable();

/// A path by which other processes reach the working folder of this one, whatever its name is by now.
std::filesystem::path ownWorkingFolder();

/// The permissions that new files of this process go without. Asked so that nothing changes for other
/// threads; nothing when the system does not tell.
std::optional<unsigned> ownFileMask();

/// Ends the process with that status when it has not ended by itself in that time: a thread that waits for a
/// network drive which is gone would keep it for ever. Called when nothing is left that must be done.
void endOwnProcessWithin(std::chrono::milliseconds limit, int status);

}  // namespace platform
