#pragma once

#include <cstdint>

namespace platform {

/// Nanoseconds since 1970, UTC.
struct PointInTime {
    std::int64_t nanoseconds = 0;

    friend bool operator==(const PointInTime&, const PointInTime&) = default;
};

}  // namespace platform
