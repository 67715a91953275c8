#pragma once

#include "tags/TagDictionary.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tags {

/// A bundle of categories by which dialogs offer tags. The numbers are those of the combo boxes; family 0,
/// the file properties, has no tags and is not in the table.
struct TagFamily {
    int number;
    std::u16string_view name;
    std::span<const std::uint32_t> categories;  ///< in the order in which dialogs list them
};

/// Families 1 to 11 in order.
std::span<const TagFamily> tagFamilies();

/// Null when there is no family of that number.
const TagFamily* findFamily(int number);

bool familyHasCategory(const TagFamily& family, std::uint32_t categoryId);

/// The rows of the family in table order, editable or not. The pointers live as long as the dictionary.
std::vector<const TagRecord*> tagsOfFamily(const TagDictionary& dictionary, const TagFamily& family);

}  // namespace tags
