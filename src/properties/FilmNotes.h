#pragma once

#include "properties/PropertyStore.h"

/// The XMP notes that programs put into films and sound: ratings, titles, keywords. Any thread.
namespace properties {

bool filmNotesCanGive(PropertyId property);

/// Adds what the note of a QuickTime, MPEG-4 or RIFF file holds; reads the heads of its parts and the note.
void readFilmNotes(const std::filesystem::path& file, PropertyValues& values);

}  // namespace properties
