#pragma once

#include "platform/FileDescriptor.h"

namespace platform {

inline constexpr int kStandardInput = 0;  ///< the descriptor, on every system

/// By these names a program that is started can open the streams that it was given.
extern const char* const kOutputStreamName;
extern const char* const kErrorStreamName;

/// Keeps the standard output for the caller alone: whatever else of the program writes to it goes to the
/// error stream from now on. Not open when the system has no descriptor to give; then nothing has changed.
FileDescriptor takeStandardOutput();

}  // namespace platform
