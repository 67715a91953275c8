#include "browser/PropertyText.h"

#include "browser/ColumnText.h"
#include "properties/PropertyTexts.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <optional>

namespace browser {
namespace {

using Id = properties::PropertyId;
using properties::PropertyValue;

constexpr qsizetype kLongestDate = 128;

std::optional<double> numberOf(const PropertyValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* fraction = std::get_if<properties::Rational>(&value);
        fraction != nullptr && fraction->denominator != 0)
        return static_cast<double>(fraction->numerator) / static_cast<double>(fraction->denominator);
    return std::nullopt;
}

std::int64_t integerOf(const PropertyValue& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number == nullptr ? 0 : *number;
}

/// A number for people: no more places than it has, and not more than `places`.
QString plainNumber(double number, int places) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = locale.toString(number, 'f', places);
    if (!text.contains(locale.decimalPoint())) return text;
    while (text.endsWith(locale.zeroDigit())) text.chop(1);
    if (text.endsWith(locale.decimalPoint())) text.chop(locale.decimalPoint().size());
    return text;
}

/// Its digits, which no zone shifts.
QDateTime digitsOf(properties::LocalTime time) {
    return QDateTime::fromMSecsSinceEpoch(time.nanoseconds / 1'000'000, Qt::UTC);
}

QString clockText(properties::LocalTime time) {
    return QLocale().toString(digitsOf(time), QLocale::ShortFormat);
}

/// What the system says by itself.
QString defaultText(const PropertyValue& value) {
    if (const auto* text = std::get_if<QString>(&value)) return *text;
    if (const auto* list = std::get_if<QStringList>(&value)) return list->join(QStringLiteral("; "));
    if (const auto* time = std::get_if<platform::PointInTime>(&value)) return dateText(time->nanoseconds);
    if (const auto* time = std::get_if<properties::LocalTime>(&value)) return clockText(*time);
    if (std::holds_alternative<properties::Angle>(value)) return propertyValueText(value);
    const auto number = numberOf(value);
    return number ? plainNumber(*number, 6) : QString();
}

// --- positions

/// Rounded before it is divided, so that no 60 stands in it.
QString angleText(const properties::Angle& angle) {
    constexpr double kParts = 100;
    const double seconds = angle[0] * 3600 + angle[1] * 60 + angle[2];
    const properties::Angle rounded = properties::angleOfSeconds(std::round(seconds * kParts) / kParts);
    return QString::asprintf("%3.0f° %02.0f' %02.02f\"", rounded[0], rounded[1], rounded[2]);
}

QString metres(const PropertyValue& value) {
    return QString::asprintf("%2.0f m", numberOf(value).value_or(0));
}

QString bearing(const PropertyValue& value) {
    return QString::asprintf("%2.0f °", numberOf(value).value_or(0));
}

/// One of two texts, by the first letter of the formatted one.
template <char16_t kLetter>
QString choice(const PropertyValue& value, const char* with, const char* without) {
    return QString::fromLatin1(defaultText(value).startsWith(QChar(kLetter)) ? with : without);
}

QString measureMode(const PropertyValue& value) {
    return defaultText(value) == u"2" ? QStringLiteral("2-Dimentional Measurement")
                                      : QStringLiteral("3-Dimentional Measurement");
}

QString version(const PropertyValue& value) {
    const auto* bytes = std::get_if<QStringList>(&value);
    if (bytes == nullptr || bytes->size() != 4) return defaultText(value);
    return QString::asprintf("%d,%d,%d,%d", (*bytes)[0].toInt(), (*bytes)[1].toInt(), (*bytes)[2].toInt(),
                             (*bytes)[3].toInt());
}

// --- files

QString bytes(const PropertyValue& value) {
    return sizeText(static_cast<std::uint64_t>(integerOf(value)));
}

QString attributes(const PropertyValue& value) {
    QString letters;
    if ((integerOf(value) & 1) != 0) letters += u'R';
    if ((integerOf(value) & 2) != 0) letters += u'H';
    return letters;
}

QString kind(const PropertyValue& value) {
    QString text = defaultText(value);
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

QString stars(const PropertyValue& value) {
    const std::int64_t count = integerOf(value);
    if (count < 0) return QStringLiteral("Rejected");
    if (count == 0) return QStringLiteral("Unrated");
    return count == 1 ? QStringLiteral("1 Star") : QStringLiteral("%1 Stars").arg(count);
}

QString yesOrNo(const PropertyValue& value) {
    if (std::holds_alternative<QString>(value)) return defaultText(value);
    return integerOf(value) != 0 ? QStringLiteral("Yes") : QStringLiteral("No");
}

// --- pictures

QString pixels(const PropertyValue& value) {
    return QStringLiteral("%1 pixels").arg(integerOf(value));
}

QString dotsPerInch(const PropertyValue& value) {
    return plainNumber(numberOf(value).value_or(0), 0) + QStringLiteral(" dpi");
}

QString colorSpace(const PropertyValue& value) {
    if (integerOf(value) == 1) return QStringLiteral("sRGB");
    return integerOf(value) == 0xFFFF ? QStringLiteral("Uncalibrated") : defaultText(value);
}

QString fNumber(const PropertyValue& value) {
    return QStringLiteral("f/") + plainNumber(numberOf(value).value_or(0), 1);
}

QString exposureTime(const PropertyValue& value) {
    const double seconds = numberOf(value).value_or(0);
    if (seconds > 0 && seconds < 0.4) return QStringLiteral("1/%1 sec.").arg(std::llround(1 / seconds));
    return plainNumber(seconds, 1) + QStringLiteral(" sec.");
}

QString exposureBias(const PropertyValue& value) {
    const double steps = numberOf(value).value_or(0);
    return (steps > 0 ? QStringLiteral("+") : QString()) + plainNumber(steps, 1) + QStringLiteral(" step");
}

QString isoSpeed(const PropertyValue& value) {
    return QStringLiteral("ISO-%1").arg(integerOf(value));
}

QString millimetres(const PropertyValue& value) {
    return plainNumber(numberOf(value).value_or(0), 1) + QStringLiteral(" mm");
}

QString distance(const PropertyValue& value) {
    return plainNumber(numberOf(value).value_or(0), 2) + QStringLiteral(" m");
}

QString shortNumber(const PropertyValue& value) {
    return plainNumber(numberOf(value).value_or(0), 2);
}

/// The bits of the flash tag: fired, strobe return, mode, no function, red-eye.
QString flash(const PropertyValue& value) {
    const std::int64_t bits = integerOf(value);
    if ((bits & 32) != 0) return QStringLiteral("No flash function");
    QString text = (bits & 1) != 0 ? QStringLiteral("Flash") : QStringLiteral("No flash");
    const std::int64_t mode = (bits >> 3) & 3;
    if (mode == 1 || mode == 2) text += QStringLiteral(", compulsory");
    if (mode == 3) text += QStringLiteral(", auto");
    if (((bits >> 1) & 3) == 2) text += QStringLiteral(", no strobe return");
    if (((bits >> 1) & 3) == 3) text += QStringLiteral(", strobe return");
    if ((bits & 64) != 0) text += QStringLiteral(", red-eye");
    return text;
}

QString lightSource(const PropertyValue& value) {
    static constexpr std::pair<std::int64_t, const char*> kNames[] = {{0, "Unknown"},
                                                                      {1, "Daylight"},
                                                                      {2, "Fluorescent"},
                                                                      {3, "Tungsten"},
                                                                      {4, "Flash"},
                                                                      {9, "Fine weather"},
                                                                      {10, "Cloudy"},
                                                                      {11, "Shade"},
                                                                      {12, "Daylight fluorescent"},
                                                                      {13, "Day white fluorescent"},
                                                                      {14, "Cool white fluorescent"},
                                                                      {15, "White fluorescent"},
                                                                      {17, "Standard Illuminant A"},
                                                                      {18, "Standard Illuminant B"},
                                                                      {19, "Standard Illuminant C"},
                                                                      {20, "D55"},
                                                                      {21, "D65"},
                                                                      {22, "D75"},
                                                                      {23, "D50"},
                                                                      {24, "ISO studio tungsten"},
                                                                      {255, "Other"}};
    const auto* found =
        std::ranges::find(kNames, integerOf(value), &std::pair<std::int64_t, const char*>::first);
    return found == std::end(kNames) ? defaultText(value) : QString::fromLatin1(found->second);
}

// --- sound and film

QString kilobitsPerSecond(const PropertyValue& value) {
    return QStringLiteral("%1kbps").arg((integerOf(value) + 500) / 1000);
}

QString kilohertz(const PropertyValue& value) {
    return plainNumber(static_cast<double>(integerOf(value)) / 1000, 3) + QStringLiteral(" kHz");
}

QString bits(const PropertyValue& value) {
    return QStringLiteral("%1 bit").arg(integerOf(value));
}

QString channels(const PropertyValue& value) {
    const std::int64_t count = integerOf(value);
    if (count == 1) return QStringLiteral("1 (mono)");
    return count == 2 ? QStringLiteral("2 (stereo)") : QString::number(count);
}

QString duration(const PropertyValue& value) {
    constexpr std::int64_t kTicksInASecond = 10'000'000;
    const std::int64_t seconds = integerOf(value) / kTicksInASecond;
    return QString::asprintf("%02lld:%02lld:%02lld", static_cast<long long>(seconds / 3600),
                             static_cast<long long>(seconds / 60 % 60), static_cast<long long>(seconds % 60));
}

QString framesPerSecond(const PropertyValue& value) {
    return QLocale().toString(numberOf(value).value_or(0), 'f', 2) + QStringLiteral(" frames/second");
}

struct Format {
    Id property;
    QString (*text)(const PropertyValue& value);
};

constexpr auto kFormats = std::to_array<Format>({
    {Id::GpsAltitude, metres},
    {Id::GpsAltitudeRef,
     [](const PropertyValue& v) { return choice<u'0'>(v, "Above sea level", "Below sea level"); }},
    {Id::GpsDateStamp, [](const PropertyValue& v) { return defaultText(v).left(kLongestDate); }},
    {Id::GpsDifferential,
     [](const PropertyValue& v) { return choice<u'0'>(v, "No Correction", "Differential Corrected"); }},
    {Id::GpsImgDirection, bearing},
    {Id::GpsImgDirectionRef,
     [](const PropertyValue& v) { return choice<u'M'>(v, "Magnetic North", "True North"); }},
    {Id::GpsLatitude, propertyValueText},
    {Id::GpsLatitudeRef, [](const PropertyValue& v) { return choice<u'N'>(v, "North", "South"); }},
    {Id::GpsLongitude, propertyValueText},
    {Id::GpsLongitudeRef, [](const PropertyValue& v) { return choice<u'W'>(v, "West", "East"); }},
    {Id::GpsMeasureMode, measureMode},
    {Id::GpsSatellites, propertyValueText},
    {Id::GpsVersionID, version},

    {Id::DiskFileAllocationSize, bytes},
    {Id::DiskFileSize, bytes},
    {Id::DiskAttributes, attributes},
    {Id::DiskKind, kind},
    {Id::DiskRating, stars},

    {Id::ImageColorSpace, colorSpace},
    {Id::ImageHorizontalResolution, dotsPerInch},
    {Id::ImageHorizontalSize, pixels},
    {Id::ImageVerticalResolution, dotsPerInch},
    {Id::ImageVerticalSize, pixels},
    {Id::PhotoAperture, fNumber},
    {Id::PhotoBrightness, shortNumber},
    {Id::PhotoExposureBias, exposureBias},
    {Id::PhotoExposureTime, exposureTime},
    {Id::PhotoFlash, flash},
    {Id::PhotoFNumber, fNumber},
    {Id::PhotoFocalLength, millimetres},
    {Id::PhotoISOSpeed, isoSpeed},
    {Id::PhotoLightSource, lightSource},
    {Id::PhotoMaxAperture, fNumber},
    {Id::PhotoShutterSpeed, exposureTime},
    {Id::PhotoSubjectDistance, distance},

    {Id::AudioChannelCount, channels},
    {Id::AudioEncodingBitrate, kilobitsPerSecond},
    {Id::AudioIsVariableBitRate, yesOrNo},
    {Id::AudioSampleRate, kilohertz},
    {Id::AudioSampleSize, bits},
    {Id::MediaDuration, duration},
    {Id::MusicIsCompilation, yesOrNo},
    {Id::VideoEncodingBitrate, kilobitsPerSecond},
    {Id::VideoFrameRate, framesPerSecond},
    {Id::TelevisionIsATSCContent, yesOrNo},
    {Id::TelevisionIsClosedCaptioningAvailable, yesOrNo},
    {Id::TelevisionIsDTVContent, yesOrNo},
    {Id::TelevisionIsHDContent, yesOrNo},
    {Id::TelevisionIsRepeatBroadcast, yesOrNo},
    {Id::TelevisionIsSAP, yesOrNo},
    {Id::VideoIsSpherical, yesOrNo},
    {Id::VideoIsStereo, yesOrNo},
    {Id::VideoSampleSize, bits},
    {Id::TextTotalEditingTime, duration},
    {Id::VideoTotalBitrate, kilobitsPerSecond},
});

/// The store of the last file, as long as the file is the same.
properties::PropertyStore& storeOf(const std::filesystem::path& path) {
    thread_local std::optional<properties::PropertyStore> store;
    if (!store || store->file() != path || store->identity() != platform::identifyFile(path))
        store.emplace(path);
    return *store;
}

}  // namespace

QString propertyValueText(const PropertyValue& value) {
    if (const auto* text = std::get_if<QString>(&value)) return *text;
    if (const auto* list = std::get_if<QStringList>(&value)) return list->join(QStringLiteral(", "));
    if (const auto* angle = std::get_if<properties::Angle>(&value)) return angleText(*angle);
    if (const auto* time = std::get_if<platform::PointInTime>(&value))
        return QDateTime::fromMSecsSinceEpoch(time->nanoseconds / 1'000'000, Qt::UTC)
            .toString(Qt::ISODateWithMs);
    if (const auto* time = std::get_if<properties::LocalTime>(&value))
        return digitsOf(*time).toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz"));
    if (const auto* number = std::get_if<std::int64_t>(&value)) return QString::number(*number);
    const auto number = numberOf(value);
    return number ? QString::number(*number, 'g', 10) : QString();
}

QString propertyText(const tags::PropertyRecord& property, const PropertyValue& value) {
    if (properties::isAbsent(value)) return {};
    const auto format = std::ranges::find(kFormats, static_cast<Id>(property.propertyId), &Format::property);
    return format == kFormats.end() ? defaultText(value) : format->text(value);
}

QString GetPropertyText(const std::filesystem::path& path, const tags::PropertyRecord& property) {
    return propertyText(property, storeOf(path).get(static_cast<Id>(property.propertyId)));
}

QString GetPropertyText(const std::filesystem::path& path, const tags::FormatId& formatId,
                        std::uint32_t pid) {
    const tags::PropertyRecord* property = tags::findPropertyKey(formatId, pid);
    return property == nullptr ? QString() : GetPropertyText(path, *property);
}

}  // namespace browser
