#pragma once

#include "properties/PropertyStore.h"

namespace properties {

/// Adds what the head of a Sun sound file (.au) tells; MediaInfo takes every sample there for a byte. Reads
/// the head and nothing else. Any thread.
void readSunSound(const std::filesystem::path& file, PropertyValues& values);

}  // namespace properties
