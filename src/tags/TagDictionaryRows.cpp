#include "tags/TagDictionaryRows.h"

namespace tags {

namespace {

// clang-format off
// Constant, but too long a table for every compiler to treat as constexpr.
const TagRecord kRows[] = {
#include "tags/data/TagDictionaryRows.inc"
};
// clang-format on

static_assert(std::size(kRows) == kTagCount);

}  // namespace

std::span<const TagRecord> tagDictionaryRows() {
    return kRows;
}

}  // namespace tags
