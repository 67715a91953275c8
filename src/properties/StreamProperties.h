#pragma once

#include "properties/PropertyStore.h"

/// The properties of video containers and of the streams in them, through MediaInfo. Any thread; one file at
/// a time in the whole process.
namespace properties {

bool streamsCanGive(PropertyId property);

/// Adds what the file has. Damage of any kind gives fewer values. Never reads more than its head, its end and
/// what lies between them up to a fixed sum; of a
/// picture only what stands before its points.
void readStreamProperties(const std::filesystem::path& file, bool isPicture, PropertyValues& values);

}  // namespace properties
