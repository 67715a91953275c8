#pragma once

#include "properties/PropertyStore.h"

#include <span>

/// The properties of photos and images, through Exiv2. Any thread.
namespace properties {

bool photoCanGive(PropertyId property);

/// Adds what the file has. Damage of any kind gives fewer values. False when Exiv2 reads no metadata of files
/// of this kind, whatever else it may have found out.
bool readPhotoProperties(const std::filesystem::path& file, PropertyValues& values);

/// Adds what the text of a note in XMP says, in UTF-8.
void addNoteProperties(const std::string& note, PropertyValues& values);

/// Turns the value of a change into the type that the property is written in; a text is read, an empty one
/// takes the property away.
PropertyResult preparePhotoChange(PropertyChange& change);

/// Writes the prepared changes into the file, which must be a copy that nobody else uses.
PropertyResult writePhotoProperties(const std::filesystem::path& copy,
                                    std::span<const PropertyChange> changes);

}  // namespace properties
