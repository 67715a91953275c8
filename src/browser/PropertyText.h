#pragma once

#include "properties/PropertyStore.h"
#include "tags/PropertyCatalogue.h"

#include <QString>
#include <filesystem>

namespace browser {

/// A raw value as text: lists and vectors by their elements with ", " between them, an angle in degrees,
/// minutes and seconds, numbers with a point whatever the language.
QString propertyValueText(const properties::PropertyValue& value);

/// A value for people, in the user's locale; empty for an absent one.
QString propertyText(const tags::PropertyRecord& property, const properties::PropertyValue& value);

/// The text of the property with that key, empty when the file has none. Any thread; blocks as the disk does.
/// The store of the file that was asked last is kept for each thread, so that the cells of a row cost one
/// read.
QString GetPropertyText(const std::filesystem::path& path, const tags::FormatId& formatId, std::uint32_t pid);
QString GetPropertyText(const std::filesystem::path& path, const tags::PropertyRecord& property);

}  // namespace browser
