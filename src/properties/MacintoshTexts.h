#pragma once

#include "properties/PropertyStore.h"

/// The texts that old QuickTime programs and cameras write in the encodings of the old Macintosh, which
/// MediaInfo and TagLib do not know. Any thread.
namespace properties {

bool macintoshTextsCanGive(PropertyId property);

/// Adds the texts of the user data of a film that are marked with a language of the Macintosh; those in UTF-8
/// are left to others. Reads the heads of the atoms and those texts, nothing else.
void readMacintoshTexts(const std::filesystem::path& file, PropertyValues& values);

}  // namespace properties
