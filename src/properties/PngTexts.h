#pragma once

#include "properties/PropertyStore.h"

namespace properties {

/// Adds what the head and the texts of a PNG file tell, which Exiv2 does not read: depth, title, author,
/// description, copyright, program, time. Reads the heads of the chunks and those texts. Any thread.
void readPngTexts(const std::filesystem::path& file, PropertyValues& values);

}  // namespace properties
