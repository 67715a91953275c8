#pragma once

#include "properties/PropertyValue.h"

#include <optional>
#include <string>

/// The texts that metadata and people write for times and numbers.
namespace properties {

/// "2021:03:04 05:06:07", also with "-", "T", fractions of a second and a zone ("Z", "UTC", "+02:00"), or a
/// date alone. Without a zone it is local time. Nothing for anything else, zero dates included.
std::optional<PointInTime> parsePointInTime(const QString& text);

/// The same texts; a zone is passed over, so that the digits stay as they stand there.
std::optional<LocalTime> parseLocalTime(const QString& text);

/// What clocks here show at that moment.
LocalTime localTimeOf(PointInTime time);

/// "1/250", "-2/3", "2.8", "3". Nothing for anything else and for a zero denominator.
std::optional<Rational> parseRational(const QString& text);

/// The first whole number at the text's start, after blanks; nothing where none is.
std::optional<std::int64_t> parseLeadingInteger(const QString& text);

/// Elements divided by ";", trimmed, empty ones left out.
QStringList splitList(const QString& text);

/// Bytes that should be UTF-8 and are taken for Latin-1 when they are not. Ends at a zero, trailing blanks
/// go.
QString textFromBytes(const std::string& bytes);

/// Seconds of the circle as degrees, minutes and seconds, to a millionth of a second.
Angle angleOfSeconds(double seconds);

/// "2021:03:04 05:06:07".
QString exifDateText(LocalTime time);

}  // namespace properties
