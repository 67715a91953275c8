#pragma once

#include "properties/PropertyStore.h"

/// What the file system and the MIME database tell of a file. Any thread.
namespace properties {

bool fileCanGive(PropertyId property);

/// Adds what can be known without a look into the file but for its first bytes, and those only where the name
/// tells nothing. The file is a regular one.
void readFileProperties(const std::filesystem::path& file, PropertyValues& values);

MediaClass mediaClassOf(const std::filesystem::path& file);

}  // namespace properties
