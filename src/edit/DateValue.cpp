#include "edit/DateValue.h"

#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace edit {

namespace {

constexpr qsizetype kLongestWithoutTime = 11;
constexpr std::int64_t kNanosecondsInMillisecond = 1'000'000;

const QRegularExpression& dateForm() {
    static const QRegularExpression form(QStringLiteral(
        R"(^(?:(?<year>\d{4})(?:[:/-](?<month>\d{1,2})(?:[:/-](?<day>\d{1,2}))?)?)?)"
        R"((?:(?:^|[ T])(?<hour>\d{1,2}):(?<minute>\d{2})(?::(?<second>\d{2})(?<fraction>\.\d+)?)?)?)"
        R"( ?(?<zone>Z|[+-]\d{2}:?\d{2}(?: DST)?)?$)"));
    return form;
}

int numberAt(const QString& text, qsizetype at, qsizetype length) {
    return text.mid(at, length).toInt();
}

}  // namespace

std::optional<DateValue> readDateValue(QStringView text) {
    const QRegularExpressionMatch match = dateForm().match(text.trimmed().toString());
    if (!match.hasMatch()) return std::nullopt;
    const auto number = [&](QStringView name, int absent) {
        return match.hasCaptured(name) ? match.capturedView(name).toInt() : absent;
    };
    DateValue value;
    using enum DateValue::DateFields;
    value.dateFields = match.hasCaptured(u"day")     ? Day
                       : match.hasCaptured(u"month") ? Month
                       : match.hasCaptured(u"year")  ? Year
                                                     : None;
    value.timeFields = match.hasCaptured(u"second") ? DateValue::TimeFields::Second
                       : match.hasCaptured(u"hour") ? DateValue::TimeFields::Minute
                                                    : DateValue::TimeFields::None;
    if (!value.hasDate() && !value.hasTime()) return std::nullopt;
    value.date = QDate(number(u"year", 1), number(u"month", 1), number(u"day", 1));
    value.time = QTime(number(u"hour", 0), number(u"minute", 0), number(u"second", 0));
    if (!value.date.isValid() || !value.time.isValid()) return std::nullopt;
    value.fraction = match.captured(u"fraction");
    value.zone = match.captured(u"zone");
    return value;
}

QString dateValueText(const DateValue& value) {
    static constexpr const char16_t* kDateForms[] = {u"", u"yyyy", u"yyyy:MM", u"yyyy:MM:dd"};
    static constexpr const char16_t* kTimeForms[] = {u"", u"HH:mm", u"HH:mm:ss"};
    QString text;
    if (value.hasDate()) text = value.date.toString(kDateForms[static_cast<std::size_t>(value.dateFields)]);
    if (value.hasTime()) {
        if (!text.isEmpty()) text += u' ';
        text += value.time.toString(kTimeForms[static_cast<std::size_t>(value.timeFields)]) + value.fraction;
    }
    return text + value.zone;
}

void setFractionAndZone(DateValue& value, const QDateTime& moment) {
    constexpr int kDigits = 3;
    constexpr int kDecimal = 10;
    constexpr int kMinute = 60;
    if (!value.fraction.isEmpty()) {
        const qsizetype digits = value.fraction.size() - 1;
        const QString milliseconds =
            QStringLiteral("%1").arg(moment.time().msec(), kDigits, kDecimal, QLatin1Char('0'));
        value.fraction = u'.' + milliseconds.leftJustified(digits, u'0', true);
    }
    if (value.zone.isEmpty()) return;
    const int offset = moment.offsetFromUtc() / kMinute;
    const auto twoDigits = [](int number) {
        return QStringLiteral("%1").arg(number, 2, kDecimal, QLatin1Char('0'));
    };
    const QString colon = value.zone == u"Z" || value.zone.contains(u':') ? QStringLiteral(":") : QString();
    value.zone = (offset < 0 ? u'-' : u'+') + twoDigits(std::abs(offset) / kMinute) + colon +
                 twoDigits(std::abs(offset) % kMinute);
}

std::optional<CutMoment> cutDateByPosition(const QString& text) {
    CutMoment moment{QDate(numberAt(text, 0, 4), numberAt(text, 5, 2), numberAt(text, 8, 2)), QTime(0, 0)};
    if (text.size() > kLongestWithoutTime)
        moment.time = QTime(numberAt(text, 11, 2), numberAt(text, 14, 2), numberAt(text, 17, 2));
    if (!moment.date.isValid() || !moment.time.isValid()) return std::nullopt;
    return moment;
}

QString joinDateAndTime(const QDate& date, const QTime& time) {
    return QStringLiteral("%1:%2:%3 %4:%5:%6")
        .arg(date.year())
        .arg(date.month())
        .arg(date.day())
        .arg(time.hour())
        .arg(time.minute())
        .arg(time.second());
}

platform::PointInTime localMoment(const QDate& date, const QTime& time) {
    const QTime toTheSecond(time.hour(), time.minute(), time.second());
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / kNanosecondsInMillisecond;
    const std::int64_t milliseconds = QDateTime(date, toTheSecond).toMSecsSinceEpoch();
    return {std::clamp<std::int64_t>(milliseconds, -kMost, kMost) * kNanosecondsInMillisecond};
}

}  // namespace edit
