#pragma once

#include "platform/FileDescriptor.h"

namespace platform {

inline constexpr int kStandardInput = 0;  ///< the descriptor, on every system

/// Keeps the standard output for the caller alone: whatever else of the program writes to it goes to the
/// error stream from now on. Not open when the system has no descriptor to give; then nothing has changed.
FileDescriptor takeStandardOutput();

}  // namespace platform
