#pragma once

#include "properties/PropertyId.h"

#include <QString>
#include <array>
#include <span>

namespace properties {

/// How the metadata of a photo become the value of a property.
enum class PhotoForm : std::uint8_t {
    Text,
    List,  ///< of texts
    Integer,
    Fraction,
    Numerator,
    Denominator,
    Angle,  ///< degrees, minutes, seconds
    AngleNumerators,
    AngleDenominators,
    Date,        ///< a local date and time, or one with its zone
    LocalDate,   ///< what the clock of the place showed, whatever its zone
    ApexNumber,  ///< an f-number, kept as twice its binary logarithm
    ApexTime,    ///< seconds, kept as their negative binary logarithm
    Words        ///< the text of a number, from the table of words
};

/// Where a property comes from: the first of the keys that the photo has. A write goes to the first key and
/// to those of the others that the photo has, so that no reader finds an old value.
struct PhotoSource {
    PropertyId property;
    PhotoForm form;
    std::array<const char*, 6> keys;  ///< null behind the last
};

/// The properties that are read by key; some more are computed (PhotoProperties.cpp).
std::span<const PhotoSource> photoSources();
const PhotoSource* findPhotoSource(PropertyId property);

/// What a number of that property means, empty when it means nothing known.
QString photoWords(PropertyId property, std::int64_t number);

}  // namespace properties
