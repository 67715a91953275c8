#pragma once

#include "platform/PointInTime.h"

#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <variant>

namespace properties {

struct Rational {
    std::int64_t numerator = 0;
    std::int64_t denominator = 1;

    friend bool operator==(const Rational&, const Rational&) = default;
};

using platform::PointInTime;

/// What a clock on the wall showed, wherever that was: nanoseconds since 1970 by that clock. No zone shifts
/// it, and no summer time has gaps for it.
struct LocalTime {
    std::int64_t nanoseconds = 0;

    friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// Degrees, minutes and seconds; degrees and minutes are whole.
using Angle = std::array<double, 3>;

/// What a file has for a property; the first alternative stands for nothing at all, which is not the same as
/// an empty text or zero.
using PropertyValue = std::variant<std::monostate, QString, std::int64_t, double, Rational, PointInTime,
                                   LocalTime, QStringList, Angle>;

inline bool isAbsent(const PropertyValue& value) {
    return std::holds_alternative<std::monostate>(value);
}

}  // namespace properties
