#include "platform/Text.h"
#include "properties/PhotoFile.h"
#include "properties/PhotoProperties.h"
#include "properties/PhotoPropertyTable.h"
#include "properties/PropertyTexts.h"

#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace properties {
namespace {

using Id = PropertyId;

constexpr std::int64_t kNanosecondsInAMillisecond = 1'000'000;

/// The properties that are read in ways of their own are written like those of the table.
constexpr PhotoSource kOwnWays[] = {
    {Id::DiskRating, PhotoForm::Integer, {"Xmp.xmp.Rating", "Exif.Image.Rating"}},
    {Id::PhotoDateTaken,
     PhotoForm::LocalDate,
     {"Exif.Photo.DateTimeOriginal", "Xmp.exif.DateTimeOriginal", "Xmp.photoshop.DateCreated"}},
    {Id::PhotoPeopleNames, PhotoForm::List, {"Xmp.iptcExt.PersonInImage"}},
};

const PhotoSource* sourceOf(Id property) {
    const auto own = std::ranges::find(kOwnWays, property, &PhotoSource::property);
    return own != std::end(kOwnWays) ? own : findPhotoSource(property);
}

/// One text for the places that hold no list.
QString joined(const PropertyValue& value) {
    if (const auto* list = std::get_if<QStringList>(&value)) return list->join(QStringLiteral("; "));
    if (const auto* text = std::get_if<QString>(&value)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value)) return QString::number(*number);
    if (const auto* fraction = std::get_if<Rational>(&value))
        return QStringLiteral("%1/%2").arg(fraction->numerator).arg(fraction->denominator);
    return {};
}

/// Within what the formats can hold.
Rational shortened(Rational value) {
    const std::int64_t divisor = std::gcd(value.numerator, value.denominator);
    if (divisor > 1) value = {value.numerator / divisor, value.denominator / divisor};
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    while (std::abs(value.numerator) > kMost || value.denominator > kMost)
        value = {value.numerator / 2, std::max<std::int64_t>(value.denominator / 2, 1)};
    return value;
}

// --- Exif

Exiv2::Value::AutoPtr wideBytes(const QString& text) {
    std::string bytes;
    for (const QChar unit : text) {
        bytes.push_back(static_cast<char>(unit.unicode() & 0xFF));
        bytes.push_back(static_cast<char>(unit.unicode() >> 8));
    }
    bytes.append(2, '\0');
    Exiv2::Value::AutoPtr value = Exiv2::Value::create(Exiv2::unsignedByte);
    value->read(reinterpret_cast<const Exiv2::byte*>(bytes.data()), static_cast<long>(bytes.size()),
                Exiv2::invalidByteOrder);
    return value;
}

PropertyResult setExif(Exiv2::ExifData& data, const std::string& name, const PropertyValue& value) {
    const Exiv2::ExifKey key(name);
    if (const auto old = data.findKey(key); old != data.end()) data.erase(old);
    if (name.starts_with("Exif.Image.XP")) {
        data.add(key, wideBytes(joined(value)).get());
        return PropertyResult::Ok;
    }
    std::string text = platform::narrow(joined(value));
    if (const auto* time = std::get_if<LocalTime>(&value)) text = platform::narrow(exifDateText(*time));
    if (name == "Exif.Photo.UserComment") {
        const bool plain =
            std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        text.insert(0, plain ? "charset=Ascii " : "charset=Unicode ");
    }
    const Exiv2::Value::AutoPtr made = Exiv2::Value::create(key.defaultTypeId());
    const bool isNumber =
        std::holds_alternative<std::int64_t>(value) || std::holds_alternative<Rational>(value);
    if (isNumber && made->typeId() != Exiv2::signedRational && made->typeId() != Exiv2::signedShort &&
        made->typeId() != Exiv2::signedLong && text.starts_with('-'))
        return PropertyResult::InvalidParameter;
    if (made->typeId() == Exiv2::unsignedShort && isNumber &&
        std::get<std::int64_t>(value) > std::numeric_limits<std::uint16_t>::max())
        return PropertyResult::InvalidParameter;
    if (made->read(text) != 0) return PropertyResult::InvalidParameter;
    data.add(key, made.get());
    return PropertyResult::Ok;
}

// --- XMP

QString isoDate(PointInTime time) {
    const auto moment = QDateTime::fromMSecsSinceEpoch(time.nanoseconds / kNanosecondsInAMillisecond);
    return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODate);
}

/// With the zone that the old text had: the clock of the place is set, not another place.
QString isoDate(LocalTime time, const QString& old) {
    static const QRegularExpression zone(QStringLiteral(R"((Z|[+\-]\d\d:\d\d)$)"));
    QString text = exifDateText(time).replace(u' ', u'T');
    text[4] = text[7] = u'-';
    return text + zone.match(old).captured(1);
}

QString xmpText(const PropertyValue& value, const QString& old) {
    if (const auto* time = std::get_if<PointInTime>(&value)) return isoDate(*time);
    if (const auto* time = std::get_if<LocalTime>(&value)) return isoDate(*time, old);
    return joined(value);
}

/// Values are put in as they are: the library's own reader takes a leading "type=" or "lang=" for an order.
void setXmp(Exiv2::XmpData& data, const std::string& name, const PropertyValue& value) {
    const Exiv2::XmpKey key(name);
    const auto old = data.findKey(key);
    const QString before = old == data.end() ? QString() : textFromBytes(old->toString());
    const std::string text = platform::narrow(xmpText(value, before));
    const Exiv2::TypeId type = Exiv2::XmpProperties::propertyType(key);
    Exiv2::LangAltValue languages;
    if (type == Exiv2::langAlt && old != data.end())
        if (const auto* present = dynamic_cast<const Exiv2::LangAltValue*>(&old->value()))
            languages = *present;
    if (old != data.end()) data.erase(old);
    if (type == Exiv2::langAlt) {
        languages.value_["x-default"] = text;
        data.add(key, &languages);
    } else if (type == Exiv2::xmpBag || type == Exiv2::xmpSeq) {
        Exiv2::XmpArrayValue elements(type);
        if (const auto* list = std::get_if<QStringList>(&value))
            for (const QString& element : *list) elements.read(platform::narrow(element));
        else
            elements.read(text);
        data.add(key, &elements);
    } else {
        Exiv2::XmpTextValue plain;
        plain.value_ = text;
        data.add(key, &plain);
    }
}

// --- IPTC

void eraseIptc(Exiv2::IptcData& data, const Exiv2::IptcKey& key) {
    for (auto old = data.findKey(key); old != data.end(); old = data.findKey(key)) data.erase(old);
}

/// The old value goes in any case; the new one comes only where the record's character set can hold it, since
/// it stands in the first place of the property as well.
void setIptc(Exiv2::IptcData& data, const std::string& name, const PropertyValue& value) {
    const Exiv2::IptcKey key(name);
    const char* charset = data.detectCharset();
    const bool unicode = charset != nullptr && std::string_view(charset) == "UTF-8";
    eraseIptc(data, key);
    const auto* list = std::get_if<QStringList>(&value);
    const QStringList texts = list != nullptr ? *list : QStringList{joined(value)};
    for (const QString& text : texts) {
        const bool plain = std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; });
        if (!plain && !unicode) continue;
        Exiv2::StringValue made(platform::narrow(text));
        data.add(key, &made);
    }
}

// --- all of them

class PhotoWrite {
 public:
    explicit PhotoWrite(Exiv2::Image& image) : image_(image) {}

    PropertyResult write(const PropertyChange& change) {
        const PhotoSource* source = sourceOf(change.property);
        bool placed = false;
        for (const char* name : source->keys) {
            if (name == nullptr) break;
            const std::string key = name;
            if (!canHold(key)) continue;
            const bool present = isPresent(key);
            if (isAbsent(change.value)) {
                erase(key);
                placed = true;
            } else if (!placed || present) {
                if (const PropertyResult result = place(key, change); result != PropertyResult::Ok)
                    return result;
                placed = true;
            }
        }
        if (placed) dropCompanions(change);
        return placed ? PropertyResult::Ok : PropertyResult::NotSupported;
    }

 private:
    bool canHold(const std::string& key) const {
        const Exiv2::MetadataId family = key.starts_with("Exif.")  ? Exiv2::mdExif
                                         : key.starts_with("Xmp.") ? Exiv2::mdXmp
                                                                   : Exiv2::mdIptc;
        const Exiv2::AccessMode mode = image_.checkMode(family);
        return mode == Exiv2::amWrite || mode == Exiv2::amReadWrite;
    }

    bool isPresent(const std::string& key) {
        if (key.starts_with("Exif."))
            return image_.exifData().findKey(Exiv2::ExifKey(key)) != image_.exifData().end();
        if (key.starts_with("Xmp."))
            return image_.xmpData().findKey(Exiv2::XmpKey(key)) != image_.xmpData().end();
        return image_.iptcData().findKey(Exiv2::IptcKey(key)) != image_.iptcData().end();
    }

    void erase(const std::string& key) {
        if (key.starts_with("Exif.")) {
            Exiv2::ExifData& data = image_.exifData();
            if (const auto old = data.findKey(Exiv2::ExifKey(key)); old != data.end()) data.erase(old);
        } else if (key.starts_with("Xmp.")) {
            Exiv2::XmpData& data = image_.xmpData();
            if (const auto old = data.findKey(Exiv2::XmpKey(key)); old != data.end()) data.erase(old);
        } else {
            eraseIptc(image_.iptcData(), Exiv2::IptcKey(key));
        }
    }

    PropertyResult place(const std::string& key, const PropertyChange& change) {
        if (key.starts_with("Exif.")) return setExif(image_.exifData(), key, change.value);
        if (key.starts_with("Xmp."))
            setXmp(image_.xmpData(), key, change.value);
        else
            setIptc(image_.iptcData(), key, change.value);
        return PropertyResult::Ok;
    }

    /// Takes away what would contradict the new value.
    void dropCompanions(const PropertyChange& change) {
        if (change.property == Id::DiskRating)
            for (const char* key : {"Xmp.MicrosoftPhoto.Rating", "Exif.Image.RatingPercent"}) erase(key);
        // What is shown where no other comment stands.
        if (change.property == Id::SummaryComment && isAbsent(change.value)) image_.clearComment();
        if (change.property != Id::PhotoDateTaken) return;
        erase("Exif.Photo.SubSecTimeOriginal");
        if (isAbsent(change.value)) erase("Exif.Photo.OffsetTimeOriginal");
    }

    Exiv2::Image& image_;
};

/// A text as the form's type; nothing when it cannot be read.
std::optional<PropertyValue> readText(PhotoForm form, const QString& text) {
    switch (form) {
        case PhotoForm::Text:
            return text;
        case PhotoForm::List:
            return splitList(text);
        case PhotoForm::Integer: {
            bool valid = false;
            const int number = text.trimmed().toInt(&valid);
            if (valid) return std::int64_t{number};
            break;
        }
        case PhotoForm::Fraction:
            if (const auto value = parseRational(text)) return *value;
            break;
        case PhotoForm::Date:
            if (const auto time = parsePointInTime(text)) return *time;
            break;
        case PhotoForm::LocalDate:
            if (const auto time = parseLocalTime(text)) return *time;
            break;
        case PhotoForm::ApexNumber:
        case PhotoForm::ApexTime:
            if (const auto value = parseRational(text); value && value->numerator > 0)
                return static_cast<double>(value->numerator) / static_cast<double>(value->denominator);
            break;
        default:
            break;
    }
    return std::nullopt;
}

bool isApex(PhotoForm form) {
    return form == PhotoForm::ApexNumber || form == PhotoForm::ApexTime;
}

/// The logarithm that stands in the file.
Rational apexOf(PhotoForm form, double value) {
    constexpr std::int64_t kParts = 10'000;
    const double logarithm = form == PhotoForm::ApexNumber ? 2 * std::log2(value) : -std::log2(value);
    return shortened({std::llround(logarithm * kParts), kParts});
}

bool fits(PhotoForm form, const PropertyValue& value) {
    switch (form) {
        case PhotoForm::Text:
            return std::holds_alternative<QString>(value);
        case PhotoForm::List:
            return std::holds_alternative<QStringList>(value);
        case PhotoForm::Integer:
            return std::holds_alternative<std::int64_t>(value);
        case PhotoForm::Fraction:
            return std::holds_alternative<Rational>(value);
        case PhotoForm::Date:
            return std::holds_alternative<PointInTime>(value);
        case PhotoForm::LocalDate:
            return std::holds_alternative<LocalTime>(value);
        case PhotoForm::ApexNumber:
        case PhotoForm::ApexTime:
            return std::holds_alternative<double>(value);
        default:
            return false;
    }
}

bool isWritable(PhotoForm form) {
    return form == PhotoForm::Text || form == PhotoForm::List || form == PhotoForm::Integer ||
           form == PhotoForm::Fraction || form == PhotoForm::Date || form == PhotoForm::LocalDate ||
           isApex(form);
}

}  // namespace

PropertyResult preparePhotoChange(PropertyChange& change) {
    const PhotoSource* source = sourceOf(change.property);
    if (source == nullptr || !isWritable(source->form)) return PropertyResult::NotSupported;
    if (const auto* text = std::get_if<QString>(&change.value)) {
        if (text->isEmpty()) {
            change.value = std::monostate();
            return PropertyResult::Ok;
        }
        const std::optional<PropertyValue> value = readText(source->form, *text);
        if (!value) return PropertyResult::InvalidParameter;
        change.value = *value;
    }
    if (isAbsent(change.value)) return PropertyResult::Ok;
    // A moment that was picked here stands for the digits that were picked.
    if (const auto* moment = std::get_if<PointInTime>(&change.value);
        moment != nullptr && source->form == PhotoForm::LocalDate)
        change.value = localTimeOf(*moment);
    if (!fits(source->form, change.value)) return PropertyResult::TypeMismatch;
    if (const auto* number = std::get_if<double>(&change.value)) {
        if (!(*number > 0) || !std::isfinite(*number)) return PropertyResult::InvalidParameter;
        change.value = apexOf(source->form, *number);
    } else if (auto* fraction = std::get_if<Rational>(&change.value)) {
        if (fraction->denominator <= 0) return PropertyResult::InvalidParameter;
        *fraction = shortened(*fraction);
    }
    const auto* stars = std::get_if<std::int64_t>(&change.value);
    if (change.property == Id::DiskRating && (*stars < -1 || *stars > 5))
        return PropertyResult::InvalidParameter;
    return PropertyResult::Ok;
}

PropertyResult writePhotoProperties(const std::filesystem::path& copy,
                                    std::span<const PropertyChange> changes) {
    try {
        const auto image = openPhoto(copy);
        PhotoWrite write(*image);
        for (const PropertyChange& change : changes)
            if (const PropertyResult result = write.write(change); result != PropertyResult::Ok)
                return result;
        image->writeMetadata();
        return PropertyResult::Ok;
    } catch (const std::bad_alloc&) {
        return PropertyResult::OutOfMemory;
    } catch (const Exiv2::Error& error) {
        const int code = error.code();
        const bool kind = code == Exiv2::kerFileContainsUnknownImageType ||
                          code == Exiv2::kerUnsupportedImageType ||
                          code == Exiv2::kerWritingImageFormatUnsupported || code == Exiv2::kerNotAnImage;
        return kind ? PropertyResult::NotSupported : PropertyResult::Failed;
    } catch (...) {
        return PropertyResult::Failed;
    }
}

}  // namespace properties
