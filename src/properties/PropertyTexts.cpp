#include "properties/PropertyTexts.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>
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

}  // namespace

std::optional<PointInTime> parsePointInTime(const QString& text) {
    static const QRegularExpression form(QStringLiteral(
        R"(^\s*(?:UTC )?(\d{4})[:\-/](\d\d?)[:\-/](\d\d?)(?:[T ]+(\d\d?):(\d\d?)(?::(\d\d?)(?:[.,](\d+))?)?)?\s*(Z|UTC|[+\-]\d\d:?\d\d)?\s*$)"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QDate date(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt(), match.captured(6).toInt());
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    std::optional<int> offset = offsetOf(match.captured(8));
    if (text.trimmed().startsWith(u"UTC ")) offset = 0;
    const QDateTime moment =
        offset ? QDateTime(date, time, Qt::OffsetFromUTC, *offset) : QDateTime(date, time);
    if (!moment.isValid()) return std::nullopt;
    const std::int64_t seconds = moment.toSecsSinceEpoch();
    // What nanoseconds of 64 bits can hold: the years 1678 to 2261.
    if (std::abs(seconds) >= std::numeric_limits<std::int64_t>::max() / kNanosecondsInASecond)
        return std::nullopt;
    return PointInTime{seconds * kNanosecondsInASecond + fraction(match.capturedView(7))};
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

QString exifDateText(PointInTime time, std::optional<int> offsetSeconds) {
    QDateTime moment = QDateTime::fromMSecsSinceEpoch(time.nanoseconds / kNanosecondsInAMillisecond);
    if (offsetSeconds) moment = moment.toOffsetFromUtc(*offsetSeconds);
    return moment.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss"));
}

}  // namespace properties
