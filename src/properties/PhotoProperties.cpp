#include "properties/PhotoProperties.h"

#include "platform/RegularFile.h"
#include "platform/Text.h"
#include "properties/PhotoFile.h"
#include "properties/PhotoPropertyTable.h"
#include "properties/PictureDensity.h"
#include "properties/PngTexts.h"
#include "properties/PropertyTexts.h"
#include "properties/RafSize.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <cmath>
#include <string_view>
#include <unordered_map>

namespace properties {
namespace {

using Id = PropertyId;
using Entry = Exiv2::Metadatum;

// The units of resolution.
constexpr std::int64_t kNoUnit = 1;
constexpr std::int64_t kInches = 2;
constexpr std::int64_t kCentimetres = 3;
// Beyond this many bytes a text is no text that anybody wrote.
constexpr long kLongestText = 1L << 20;
constexpr std::size_t kLongestNote = std::size_t{16} * 1024 * 1024;
// Beyond it no camera can count.
constexpr double kMostApex = 100;
// The whole circle.
constexpr double kMostSeconds = 360.0 * 3600;

constexpr Id kComputed[] = {Id::DiskRating,          Id::GpsDateStamp,
                            Id::GpsLatitudeDecimal,  Id::GpsLongitudeDecimal,
                            Id::GpsVersionID,        Id::ImageBitDepth,
                            Id::ImageDimensions,     Id::ImageHorizontalSize,
                            Id::ImageVerticalSize,   Id::ImageHorizontalResolution,
                            Id::ImageResolutionUnit, Id::ImageVerticalResolution,
                            Id::PhotoDateTaken,      Id::PhotoMakerNote,
                            Id::PhotoPeopleNames};

/// Texts that XP tags hold: UTF-16, least byte first, in a row of bytes.
QString wideBytesText(const Entry& entry) {
    QString text;
    for (long i = 0; i + 1 < entry.count() && i < kLongestText; i += 2) {
        const auto unit = static_cast<char16_t>(entry.toLong(i) | (entry.toLong(i + 1) << 8));
        if (unit == 0) break;
        text.append(QChar(unit));
    }
    return text;
}

QString textOf(const Entry& entry) {
    if (entry.size() > kLongestText) return {};
    const std::string key = entry.key();
    if (key.starts_with("Exif.Image.XP")) return wideBytesText(entry);
    const Exiv2::Value& value = entry.value();
    if (const auto* comment = dynamic_cast<const Exiv2::CommentValue*>(&value))
        return textFromBytes(comment->comment());
    if (entry.typeId() == Exiv2::undefined) {
        std::string bytes(static_cast<std::size_t>(value.size()), '\0');
        value.copy(reinterpret_cast<Exiv2::byte*>(bytes.data()), Exiv2::bigEndian);
        // GPS texts stand behind eight bytes that name their character set.
        if (key.starts_with("Exif.GPSInfo.") && bytes.size() >= 8) bytes.erase(0, 8);
        return textFromBytes(bytes);
    }
    if (entry.typeId() == Exiv2::langAlt) return textFromBytes(value.toString(0));
    return textFromBytes(value.toString());
}

std::optional<Rational> fractionOf(const Entry& entry, long n) {
    if (n >= entry.count()) return std::nullopt;
    const Exiv2::Value& value = entry.value();
    if (const auto* positive = dynamic_cast<const Exiv2::URationalValue*>(&value)) {
        const Exiv2::URational& pair = positive->value_[static_cast<std::size_t>(n)];
        return Rational{pair.first, pair.second};
    }
    if (entry.typeId() == Exiv2::xmpText) return parseRational(textOf(entry));
    const Exiv2::Rational pair = value.toRational(n);
    if (!value.ok()) return std::nullopt;
    return Rational{pair.first, pair.second};
}

/// XMP writes an angle as "48,12.5N" or "48,12,30N".
std::optional<Angle> angleOfText(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral(R"(^(\d{1,3}),(\d{1,2}(?:\.\d+)?)(?:,(\d{1,2}(?:\.\d+)?))?[NSEW]?$)"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return angleOfSeconds(match.captured(1).toDouble() * 3600 + match.captured(2).toDouble() * 60 +
                          match.captured(3).toDouble());
}

std::optional<Angle> angleOf(const Entry& entry) {
    if (entry.typeId() == Exiv2::xmpText) return angleOfText(textOf(entry));
    double seconds = 0;
    double unit = 3600;
    for (long n = 0; n < 3; ++n, unit /= 60) {
        const std::optional<Rational> part = fractionOf(entry, n);
        if (!part && n > 0) break;
        if (!part) return std::nullopt;
        if (part->denominator == 0) {
            if (part->numerator != 0 || n == 0) return std::nullopt;
            continue;
        }
        seconds += unit * static_cast<double>(part->numerator) / static_cast<double>(part->denominator);
    }
    if (seconds < 0 || seconds > kMostSeconds) return std::nullopt;
    return angleOfSeconds(seconds);
}

QStringList partsOf(const Entry& entry, bool numerators) {
    QStringList parts;
    for (long n = 0; n < std::min(entry.count(), 3L); ++n)
        if (const auto part = fractionOf(entry, n))
            parts.append(QString::number(numerators ? part->numerator : part->denominator));
    return parts;
}

/// All entries of a photo by key. The entries of camera makers are not looked at.
class Entries {
 public:
    explicit Entries(const Exiv2::Image& image) : image_(image) {
        for (const Exiv2::Exifdatum& datum : image.exifData()) {
            const std::string group = datum.groupName();
            if (group == "Image" || group == "Photo" || group == "GPSInfo" || group == "MakerNote")
                add(datum);
        }
        for (const Exiv2::Xmpdatum& datum : image.xmpData()) add(datum);
        for (const Exiv2::Iptcdatum& datum : image.iptcData()) add(datum);
    }

    const Exiv2::Image& image() const { return image_; }

    const std::vector<const Entry*>* all(const std::string& key) const {
        const auto found = entries_.find(key);
        return found == entries_.end() ? nullptr : &found->second;
    }
    const Entry* first(const std::string& key) const {
        const auto* entries = all(key);
        return entries == nullptr ? nullptr : entries->front();
    }
    QString text(const std::string& key) const {
        const Entry* entry = first(key);
        return entry == nullptr ? QString() : textOf(*entry);
    }

 private:
    void add(const Entry& entry) {
        if (entry.count() > 0) entries_[entry.key()].push_back(&entry);
    }

    const Exiv2::Image& image_;
    std::unordered_map<std::string, std::vector<const Entry*>> entries_;
};

QStringList listOf(const std::vector<const Entry*>& entries) {
    QStringList list;
    for (const Entry* entry : entries) {
        if (entry->familyName() == std::string_view("Exif")) return splitList(textOf(*entry));
        for (long n = 0; n < entry->count() && n < kLongestText; ++n) {
            const bool whole =
                entry->familyName() == std::string_view("Iptc") || entry->typeId() == Exiv2::xmpText;
            const QString text = whole ? textOf(*entry) : textFromBytes(entry->toString(n));
            if (!text.isEmpty() && !list.contains(text)) list.append(text);
            if (whole) break;
        }
    }
    return list;
}

std::optional<double> numberOf(const Entry& entry) {
    const std::optional<Rational> value = fractionOf(entry, 0);
    if (!value || value->denominator == 0) return std::nullopt;
    return static_cast<double>(value->numerator) / static_cast<double>(value->denominator);
}

/// Of the forms that stand for fractions; those without a denominator have no value and no parts.
PropertyValue valueOfFraction(PhotoForm form, const Entry& entry) {
    const std::optional<Rational> value = fractionOf(entry, 0);
    if (!value || value->denominator == 0) return {};
    if (form == PhotoForm::Fraction) return *value;
    if (form == PhotoForm::Numerator) return value->numerator;
    if (form == PhotoForm::Denominator) return value->denominator;
    const double logarithm = static_cast<double>(value->numerator) / static_cast<double>(value->denominator);
    if (std::abs(logarithm) > kMostApex) return {};
    return std::exp2(form == PhotoForm::ApexNumber ? logarithm / 2 : -logarithm);
}

PropertyValue textValue(const QString& text) {
    return text.isEmpty() ? PropertyValue() : PropertyValue(text);
}

PropertyValue listValue(const QStringList& list) {
    return list.isEmpty() ? PropertyValue() : PropertyValue(list);
}

template <typename Value>
PropertyValue valueOrNone(const std::optional<Value>& value) {
    return value ? PropertyValue(*value) : PropertyValue();
}

PropertyValue valueOf(const PhotoSource& source, const std::vector<const Entry*>& entries) {
    const Entry& entry = *entries.front();
    const auto integer = [&]() -> std::optional<std::int64_t> {
        const std::int64_t number = entry.toLong(0);
        return entry.value().ok() ? std::optional(number) : std::nullopt;
    };
    switch (source.form) {
        case PhotoForm::Text:
            return textValue(textOf(entry));
        case PhotoForm::List:
            return listValue(listOf(entries));
        case PhotoForm::Integer:
            return valueOrNone(integer());
        case PhotoForm::Fraction:
        case PhotoForm::Numerator:
        case PhotoForm::Denominator:
        case PhotoForm::ApexNumber:
        case PhotoForm::ApexTime:
            return valueOfFraction(source.form, entry);
        case PhotoForm::Angle:
            return valueOrNone(angleOf(entry));
        case PhotoForm::AngleNumerators:
        case PhotoForm::AngleDenominators:
            return listValue(partsOf(entry, source.form == PhotoForm::AngleNumerators));
        case PhotoForm::Date:
            return valueOrNone(parsePointInTime(textOf(entry)));
        case PhotoForm::LocalDate:
            return valueOrNone(parseLocalTime(textOf(entry)));
        case PhotoForm::Words: {
            const auto number = integer();
            return number ? textValue(photoWords(source.property, *number)) : PropertyValue();
        }
    }
    return {};
}

void addFromTable(const Entries& entries, PropertyValues& values) {
    for (const PhotoSource& source : photoSources())
        for (const char* key : source.keys) {
            if (key == nullptr) break;
            const auto* found = entries.all(key);
            if (found == nullptr) continue;
            values.add(source.property, valueOf(source, *found));
            if (values.has(source.property)) break;
        }
}

void addRating(const Entries& entries, PropertyValues& values) {
    for (const char* key : {"Xmp.xmp.Rating", "Exif.Image.Rating"})
        if (const auto rating = parseLeadingInteger(entries.text(key))) values.add(Id::DiskRating, *rating);
    for (const char* key : {"Xmp.MicrosoftPhoto.Rating", "Exif.Image.RatingPercent"})
        if (const auto percent = parseLeadingInteger(entries.text(key));
            percent && *percent >= 0 && *percent <= 100)
            values.add(Id::DiskRating, *percent == 0 ? std::int64_t{0} : (*percent + 12) / 25 + 1);
}

/// The clock of the place where the photo was taken, with the sub-seconds that stand in a tag of their own.
void addDateTaken(const Entries& entries, PropertyValues& values) {
    const auto add = [&](const char* key, const char* fraction) {
        const QString text = entries.text(key);
        const QString digits = fraction == nullptr ? QString() : entries.text(fraction);
        auto time = digits.isEmpty() ? std::nullopt : parseLocalTime(text + u'.' + digits);
        if (!time) time = parseLocalTime(text);
        if (time) values.add(Id::PhotoDateTaken, *time);
    };
    add("Exif.Photo.DateTimeOriginal", "Exif.Photo.SubSecTimeOriginal");
    add("Exif.Image.DateTimeOriginal", nullptr);
    add("Xmp.exif.DateTimeOriginal", nullptr);
    add("Xmp.photoshop.DateCreated", nullptr);
    add("Exif.Photo.DateTimeDigitized", "Exif.Photo.SubSecTimeDigitized");
}

void addDecimals(const Entries& entries, PropertyValues& values) {
    const auto add = [&](Id angleOfProperty, Id decimal, const char* reference, const char* xmp) {
        const auto* angle = std::get_if<Angle>(&values.at(angleOfProperty));
        if (angle == nullptr) return;
        QString letter = entries.text(reference);
        if (letter.isEmpty()) letter = entries.text(xmp).right(1);
        const double degrees = (*angle)[0] + (*angle)[1] / 60 + (*angle)[2] / 3600;
        const bool negative = letter.startsWith(u'S') || letter.startsWith(u'W');
        values.add(decimal, negative ? -degrees : degrees);
    };
    add(Id::GpsLatitude, Id::GpsLatitudeDecimal, "Exif.GPSInfo.GPSLatitudeRef", "Xmp.exif.GPSLatitude");
    add(Id::GpsLongitude, Id::GpsLongitudeDecimal, "Exif.GPSInfo.GPSLongitudeRef", "Xmp.exif.GPSLongitude");
    const auto addReference = [&](Id property, const char* xmp, QStringView letters) {
        const QString text = entries.text(xmp);
        if (!text.isEmpty() && letters.contains(text.back())) values.add(property, QString(text.back()));
    };
    addReference(Id::GpsLatitudeRef, "Xmp.exif.GPSLatitude", u"NS");
    addReference(Id::GpsLongitudeRef, "Xmp.exif.GPSLongitude", u"EW");
    addReference(Id::GpsDestLatitudeRef, "Xmp.exif.GPSDestLatitude", u"NS");
    addReference(Id::GpsDestLongitudeRef, "Xmp.exif.GPSDestLongitude", u"EW");
}

/// Date and time of the satellites' clock, which is UTC.
void addGpsTime(const Entries& entries, PropertyValues& values) {
    const QString date = entries.text("Exif.GPSInfo.GPSDateStamp");
    if (!date.isEmpty()) {
        const Entry* time = entries.first("Exif.GPSInfo.GPSTimeStamp");
        const Angle clock = time == nullptr ? Angle{} : angleOf(*time).value_or(Angle{});
        const QString text = QString::asprintf(" %02d:%02d:%02dZ", static_cast<int>(clock[0]),
                                               static_cast<int>(clock[1]), static_cast<int>(clock[2]));
        if (const auto moment = parsePointInTime(date + text)) values.add(Id::GpsDateStamp, *moment);
    }
    if (const auto moment = parsePointInTime(entries.text("Xmp.exif.GPSTimeStamp")))
        values.add(Id::GpsDateStamp, *moment);
}

void addGpsVersion(const Entries& entries, PropertyValues& values) {
    QStringList bytes;
    if (const Entry* version = entries.first("Exif.GPSInfo.GPSVersionID");
        version != nullptr && version->count() == 4)
        for (long n = 0; n < 4; ++n) bytes.append(QString::number(version->toLong(n)));
    else if (const QStringList parts = entries.text("Xmp.exif.GPSVersionID").split(u'.'); parts.size() == 4)
        bytes = parts;
    values.addList(Id::GpsVersionID, bytes);
}

/// Regions may also frame pets, bar codes and what the focus was on; those of the other kind frame people
/// only.
void addPeople(const Entries& entries, PropertyValues& values) {
    static constexpr std::string_view kName = "/mwg-rs:Name";
    QStringList names;
    for (const Exiv2::Xmpdatum& datum : entries.image().xmpData()) {
        const std::string key = datum.key();
        const bool isFace = key.ends_with(kName) && entries.text(key.substr(0, key.size() - kName.size()) +
                                                                 "/mwg-rs:Type") == u"Face";
        if (!isFace && !key.ends_with("/MPReg:PersonDisplayName") && key != "Xmp.iptcExt.PersonInImage")
            continue;
        for (const QString& name : listOf({&datum}))
            if (!names.contains(name)) names.append(name);
    }
    values.addList(Id::PhotoPeopleNames, names);
}

/// Dots for each inch, from a density in the file's own unit: 1 for none, 2 for inches, 3 for centimetres.
void addDensity(std::optional<double> horizontal, std::optional<double> vertical, std::int64_t unit,
                PropertyValues& values) {
    constexpr double kCentimetresInAnInch = 2.54;
    if (unit != kInches && unit != kCentimetres) return;
    const double factor = unit == kCentimetres ? kCentimetresInAnInch : 1;
    if (horizontal && *horizontal > 0) values.add(Id::ImageHorizontalResolution, *horizontal * factor);
    if (vertical && *vertical > 0) values.add(Id::ImageVerticalResolution, *vertical * factor);
}

/// From the tags, else from the head of the picture, which is where most programs look.
void addResolution(const Entries& entries, const std::filesystem::path& file, PropertyValues& values) {
    const auto addOf = [&](const std::string& family) {
        const auto number = [&](const char* name) -> std::optional<double> {
            const Entry* entry = entries.first(family + name);
            return entry == nullptr ? std::nullopt : numberOf(*entry);
        };
        const auto unit = parseLeadingInteger(entries.text(family + "ResolutionUnit"));
        const auto horizontal = number("XResolution");
        if (unit) values.add(Id::ImageResolutionUnit, *unit);
        addDensity(horizontal, number("YResolution"), unit.value_or(kInches), values);
        return horizontal.has_value();
    };
    if (addOf("Exif.Image.")) return;
    const auto density = readPictureDensity(file);
    // A mere ratio is what programs write who know no density.
    if (!density || density->unit == kNoUnit) addOf("Xmp.tiff.");
    if (!density) return;
    values.add(Id::ImageResolutionUnit, std::int64_t{density->unit});
    addDensity(density->horizontal, density->vertical, density->unit, values);
}

/// What a container is always pressed with.
void addCompression(const Entries& entries, PropertyValues& values) {
    static constexpr std::pair<std::string_view, const char*> kContainers[] = {
        {"image/jpeg", "JPEG"}, {"image/png", "Deflate"}, {"image/gif", "LZW"}, {"image/jp2", "JPEG 2000"}};
    const std::string type = entries.image().mimeType();
    for (const auto& [container, compression] : kContainers)
        if (type == container) values.addText(Id::ImageCompressionText, QString::fromLatin1(compression));
    // Pictures that name their three components are those of cameras, with eight bits for each. Saves the
    // dear look at the picture itself.
    const Entry* components = entries.first("Exif.Photo.ComponentsConfiguration");
    if (type == "image/jpeg" && components != nullptr && components->count() == 4 &&
        components->toLong(2) != 0)
        values.add(Id::ImageBitDepth, std::int64_t{24});
}

void addPicture(const Entries& entries, const std::filesystem::path& file, PropertyValues& values) {
    const bool isRaf = entries.image().mimeType() == "image/x-fuji-raf";
    const auto raw = isRaf ? readRafSize(file) : std::nullopt;
    const std::int64_t width = raw ? raw->width : entries.image().pixelWidth();
    const std::int64_t height = raw ? raw->height : entries.image().pixelHeight();
    if (width > 0 && height > 0) {
        values.add(Id::ImageHorizontalSize, width);
        values.add(Id::ImageVerticalSize, height);
        values.add(Id::ImageDimensions, QStringLiteral("%1 x %2").arg(width).arg(height));
    }
    if (const Entry* bits = entries.first("Exif.Image.BitsPerSample");
        bits != nullptr && bits->count() <= 16) {
        std::int64_t depth = 0;
        for (long n = 0; n < bits->count(); ++n) depth += bits->toLong(n);
        if (depth > 0) values.add(Id::ImageBitDepth, depth);
    }
    if (const Entry* note = entries.first("Exif.Photo.MakerNote"))
        values.add(Id::PhotoMakerNote, QStringLiteral("(%1 bytes)").arg(note->size()));
}

void addFromEntries(const Entries& entries, PropertyValues& values) {
    addFromTable(entries, values);
    addRating(entries, values);
    addDateTaken(entries, values);
    addDecimals(entries, values);
    addGpsTime(entries, values);
    addGpsVersion(entries, values);
    addPeople(entries, values);
}

/// What is shown where nothing better stands, and is not written: descriptions, and what programs sign with.
void addOtherTexts(const Entries& entries, const std::filesystem::path& file, PropertyValues& values) {
    const std::string type = entries.image().mimeType();
    if (type == "image/png") readPngTexts(file, values);
    values.addText(Id::SummaryComment, entries.text("Xmp.dc.description"));
    if (type == "image/jpeg")
        values.addText(Id::SummaryComment, textFromBytes(entries.image().comment()).trimmed());
}

bool isNote(const std::filesystem::path& file) {
    return platform::display(file.extension()).toLower() == u".xmp";
}

/// The text of a note in UTF-16, which Exiv2 does not read, in UTF-8 and without what names its encoding.
std::optional<std::string> readWideNote(const std::filesystem::path& file) {
    if (!isNote(file)) return std::nullopt;
    const std::string head = platform::readHead(file, 2);
    const bool isBig = head == "\xFE\xFF" || head == std::string_view("\0<", 2);
    if (!isBig && head != "\xFF\xFE" && head != std::string_view("<\0", 2)) return std::nullopt;
    const std::string bytes = platform::readHead(file, kLongestNote);
    QStringDecoder decoder(isBig ? QStringConverter::Utf16BE : QStringConverter::Utf16LE);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return text.mid(std::max<qsizetype>(0, text.indexOf(u"<x:xmpmeta"))).toStdString();
}

}  // namespace

bool photoCanGive(PropertyId property) {
    return findPhotoSource(property) != nullptr ||
           std::ranges::find(kComputed, property) != std::end(kComputed);
}

void addNoteProperties(const std::string& note, PropertyValues& values) {
    try {
        const auto image = openNote(note);
        addFromEntries(Entries(*image), values);
    } catch (...) {
        // A damaged note: what was found before the damage stays.
    }
}

bool readPhotoProperties(const std::filesystem::path& file, PropertyValues& values) {
    if (const std::optional<std::string> note = readWideNote(file)) {
        addNoteProperties(*note, values);
        return true;
    }
    // The library takes all of a note into memory, however long it is.
    std::error_code error;
    if (isNote(file) && std::filesystem::file_size(file, error) > kLongestNote) return true;
    bool isKnown = false;
    try {
        const auto image = openPhoto(file);
        isKnown = image->checkMode(Exiv2::mdExif) != Exiv2::amNone ||
                  image->checkMode(Exiv2::mdXmp) != Exiv2::amNone;
        // Only of notes of metadata is it natural that no picture is found.
        const bool isNote = image->mimeType() == "application/rdf+xml" && !image->xmpData().empty();
        isKnown = isKnown && (image->pixelWidth() > 0 || isNote);
        const Entries entries(*image);
        addFromEntries(entries, values);
        addOtherTexts(entries, file, values);
        addPicture(entries, file, values);
        addResolution(entries, file, values);
        addCompression(entries, values);
    } catch (...) {
        // A damaged or unknown file: what was found before the damage stays.
    }
    return isKnown;
}

}  // namespace properties
