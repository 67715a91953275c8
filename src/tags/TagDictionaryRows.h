#pragma once

#include "tags/TagDictionary.h"

#include <span>

namespace tags {

/// The constant table behind TagDictionary, in table order. It stands in a source of its own, because it is
/// the one slow thing to compile.
std::span<const TagRecord> tagDictionaryRows();

}  // namespace tags
