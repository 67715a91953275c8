#include "properties/PropertyTexts.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>
#include <cmath>
#include <limits>

namespace properties {
namespace {

constexpr std::int64_t kNanosecondsInAMillisecond = 1'000'000;
constexpr std::int64_t kNanosecondsInASecond = 1'000'000'000;

/// Digits behind the point as nanoseconds.
std::int64_t fraction(QStringView digits) {
    std::int64_t value = 0;
    for (int i = 0; i < 9; ++i) value = value * 10 + (i < digits.size() ? digits[i].digitValue() : 0);
    return value;
}

std::optional<int> offsetOf(const QString& zone) {
    if (zone == u"Z" || zone == u"UTC") return 0;
    if (zone.size() < 5) return std::nullopt;
    const int seconds = (zone.mid(1, 2).toInt() * 60 + zone.right(2).toInt()) * 60;
    return zone[0] == u'-' ? -seconds : seconds;
}

struct Moment {
    QDate date;
    QTime time;
    std::int64_t fraction = 0;  ///< nanoseconds
    std::optional<int> offset;  ///< seconds east
};

std::optional<Moment> parseMoment(const QString& text) {
    static const QRegularExpression form(QStringLiteral(
        R"(^\s*(?:UTC )?(\d{4})[:\-/](\d\d?)[:\-/](\d\d?)(?:[T ]+(\d\d?):(\d\d?)(?::(\d\d?)(?:[.,](\d+))?)?)?\s*(Z|UTC|[+\-]\d\d:?\d\d)?\s*$)"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    Moment moment;
    moment.date = QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    moment.time = QTime(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(6).toInt());
    if (!moment.date.isValid() || !moment.time.isValid()) return std::nullopt;
    moment.fraction = fraction(match.capturedView(7));
    moment.offset = offsetOf(match.captured(8));
    if (text.trimmed().startsWith(u"UTC ")) moment.offset = 0;
    return moment;
}

/// Within what nanoseconds of 64 bits can hold: the years 1678 to 2261.
std::optional<std::int64_t> nanosecondsOf(const QDateTime& time, std::int64_t fraction) {
    if (!time.isValid()) return std::nullopt;
    const std::int64_t seconds = time.toSecsSinceEpoch();
    if (std::abs(seconds) >= std::numeric_limits<std::int64_t>::max() / kNanosecondsInASecond)
        return std::nullopt;
    return seconds * kNanosecondsInASecond + fraction;
}

}  // namespace

std::optional<PointInTime> parsePointInTime(const QString& text) {
    const std::optional<Moment> moment = parseMoment(text);
    if (!moment) return std::nullopt;
    const QDateTime time = moment->offset
                               ? QDateTime(moment->date, moment->time, Qt::OffsetFromUTC, *moment->offset)
                               : QDateTime(moment->date, moment->time);
    const auto nanoseconds = nanosecondsOf(time, moment->fraction);
    return nanoseconds ? std::optional(PointInTime{*nanoseconds}) : std::nullopt;
}

std::optional<LocalTime> parseLocalTime(const QString& text) {
    const std::optional<Moment> moment = parseMoment(text);
    if (!moment) return std::nullopt;
    const auto nanoseconds = nanosecondsOf(QDateTime(moment->date, moment->time, Qt::UTC), moment->fraction);
    return nanoseconds ? std::optional(LocalTime{*nanoseconds}) : std::nullopt;
}

LocalTime localTimeOf(PointInTime time) {
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(time.nanoseconds / kNanosecondsInAMillisecond);
    return {time.nanoseconds + moment.offsetFromUtc() * kNanosecondsInASecond};
}

std::optional<Rational> parseRational(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral(R"(^\s*([+\-]?\d{1,18})(?:/(\d{1,18})|[.,](\d{1,9}))?\s*$)"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    Rational value{match.captured(1).toLongLong(), 1};
    if (match.hasCaptured(2)) value.denominator = match.captured(2).toLongLong();
    const QString decimals = match.captured(3);
    const bool negative = match.captured(1).startsWith(u'-');
    for (const QChar digit : decimals) {
        if (std::abs(value.numerator) > std::numeric_limits<std::int32_t>::max() / 10) break;
        value.numerator = value.numerator * 10 + (negative ? -digit.digitValue() : digit.digitValue());
        value.denominator *= 10;
    }
    if (value.denominator == 0) return std::nullopt;
    return value;
}

std::optional<std::int64_t> parseLeadingInteger(const QString& text) {
    static const QRegularExpression form(QStringLiteral(R"(^\s*([+\-]?\d{1,18}))"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return match.captured(1).toLongLong();
}

QStringList splitList(const QString& text) {
    QStringList elements;
    for (const QString& element : text.split(u';', Qt::SkipEmptyParts))
        if (const QString trimmed = element.trimmed(); !trimmed.isEmpty()) elements.append(trimmed);
    return elements;
}

QString textFromBytes(const std::string& bytes) {
    const std::size_t length = std::min(bytes.find('\0'), bytes.size());
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(length));
    QString text = view.isValidUtf8() ? QString::fromUtf8(view) : QString::fromLatin1(view);
    while (!text.isEmpty() && text.back().isSpace()) text.chop(1);
    return text;
}

Angle angleOfSeconds(double seconds) {
    constexpr std::int64_t kMillion = 1'000'000;
    const std::int64_t total = std::llround(seconds * kMillion);
    const std::int64_t minutes = total / (60 * kMillion);
    return {static_cast<double>(minutes / 60), static_cast<double>(minutes % 60),
            static_cast<double>(total % (60 * kMillion)) / kMillion};
}

QString exifDateText(LocalTime time) {
    return QDateTime::fromMSecsSinceEpoch(time.nanoseconds / kNanosecondsInAMillisecond, Qt::UTC)
        .toString(QStringLiteral("yyyy:MM:dd HH:mm:ss"));
}

}  // namespace properties
