#pragma once

#include "properties/PropertyStore.h"

#include <span>

/// The properties of music and other audio, through TagLib. Any thread.
namespace properties {

bool audioCanGive(PropertyId property);
bool audioTagsCanGive(PropertyId property);

/// Adds what the file has. Damage of any kind gives fewer values.
void readAudioProperties(const std::filesystem::path& file, PropertyValues& values);

/// The same without what TagLib finds out about the sound itself.
void readAudioTags(const std::filesystem::path& file, PropertyValues& values);

/// Turns the value of a change into the type that the property is written in; a text is read, an empty one
/// takes the property away.
PropertyResult prepareAudioChange(PropertyChange& change);

/// Writes the prepared changes into the file, which must be a copy that nobody else uses and has the
/// extension of the original.
PropertyResult writeAudioProperties(const std::filesystem::path& copy,
                                    std::span<const PropertyChange> changes);

}  // namespace properties
