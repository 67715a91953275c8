#include "tags/ImageTags.h"

#include <algorithm>
#include <array>

namespace tags {

namespace {

constexpr auto kImageTags = std::to_array<int>(
    {106,   110,   218,   364,   393,   562,   646,   1287,  1313,  1314,  1337,  1338, 1382,
     1476,  1486,  1489,  1503,  1532,  1535,  1559,  1564,  1580,  1953,  1959,  1962, 1968,
     1970,  2280,  2494,  4289,  4615,  5261,  5777,  6195,  6226,  6417,  8852,  9800, 10398,
     10745, 10765, 10825, 12314, 12486, 12514, 12674, 12821, 13131, 13181, 13203, 13383});
static_assert(std::ranges::is_sorted(kImageTags));

}  // namespace

bool isImageTag(int tagId) {
    return std::ranges::binary_search(kImageTags, tagId);
}

}  // namespace tags
