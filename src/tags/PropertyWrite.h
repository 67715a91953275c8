#pragma once

#include "properties/PropertyResult.h"
#include "properties/PropertyValue.h"

#include <QString>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace tags {

/// A value that the user gave for a property of the catalogue.
struct PropertyWrite {
    std::uint32_t propertyNumber = 0;  ///< PropertyRecord::propertyId
    QString value;                     ///< empty takes the property away
    platform::PointInTime time;        ///< the value of the two rows that are written as times
};

/// Whether values of that group of the panel or list are written as properties: the files' own two groups,
/// and those of the property categories.
bool isPropertyGroup(std::uint32_t groupId);

/// Writes one property of a file. Nothing when that is not the store's business, so that ExifTool has to
/// write: there is no regular file, no row of that number, or the row has no key. What to tell the user of a
/// result says platform::propertyResultMessage.
std::optional<properties::PropertyResult> WriteProperty(const std::filesystem::path& file,
                                                        const PropertyWrite& write);

}  // namespace tags
