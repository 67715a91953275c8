#pragma once

#include "properties/PropertyValue.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTime>
#include <optional>

namespace edit {

/// A date, a time of day or both, as ExifTool prints them, together with what stands around the numbers.
struct DateValue {
    enum class DateFields { None, Year, Month, Day };
    enum class TimeFields { None, Minute, Second };

    DateFields dateFields = DateFields::Day;
    TimeFields timeFields = TimeFields::Second;
    QDate date;        ///< the first of the month or year where the text says no more
    QTime time;        ///< to the second
    QString fraction;  ///< of the second, with its point: ".123"; empty without
    QString zone;      ///< "+02:00", "Z"; empty without

    bool hasDate() const { return dateFields != DateFields::None; }
    bool hasTime() const { return timeFields != TimeFields::None; }
};

/// Takes a value apart. Nothing when it is no date: other text, or numbers that no calendar has, such as
/// "0000:00:00 00:00:00".
std::optional<DateValue> readDateValue(QStringView text);

/// The text of the parts that the value has, with leading zeros: "2015:06:01 12:13:14.50+02:00".
QString dateValueText(const DateValue& value);

/// Puts the moment's fraction of a second and zone in place of those that the value has; the digits of the
/// fraction stay as many as they were, and a zone without a colon stays without.
void setFractionAndZone(DateValue& value, const QDateTime& moment);

/// A date and a time of day cut out of the text by position, whatever stands there. Nothing when that is no
/// moment.
struct CutMoment {
    QDate date;
    QTime time;
};
std::optional<CutMoment> cutDateByPosition(const QString& text);

/// "2015:6:1 9:5:0", without leading zeros.
QString joinDateAndTime(const QDate& date, const QTime& time);

/// That moment of local time; outside the years 1678 to 2261, which nanoseconds of 64 bits can hold, their
/// end.
platform::PointInTime localMoment(const QDate& date, const QTime& time);

}  // namespace edit
