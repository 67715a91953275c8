#pragma once

#include <cstdint>

namespace platform {

/// The number that the system knows a process by; wide enough for any system's. 0 is none.
using ProcessId = std::int64_t;

}  // namespace platform
