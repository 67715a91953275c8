#include "tags/TagDictionaryRows.h"

namespace tags {

namespace {

// clang-format off
constexpr TagRecord kRows[] = {
#include "tags/data/TagDictionaryRows.inc"
};
// clang-format on

static_assert(std::size(kRows) == kTagCount);

}  // namespace

std::span<const TagRecord> tagDictionaryRows() {
    return kRows;
}

}  // namespace tags
