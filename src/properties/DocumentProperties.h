#pragma once

#include "properties/PropertyStore.h"
#include "properties/TagSource.h"

/// The properties of files that the source of tags knows. Any thread.
namespace properties {

bool documentsCanGive(PropertyId property);

/// Adds what the file has; nothing while there is no source of tags.
void readDocumentProperties(const std::filesystem::path& file, PropertyValues& values);

/// The same from tags that are there already.
void addDocumentProperties(const FileTags& tags, PropertyValues& values);

}  // namespace properties
