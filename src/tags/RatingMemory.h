#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tags {

/// The tags whose stars are drawn from the rating memory, by TagRecord id.
constexpr std::array<int, 8> kRatingTagIds = {1142, 2674, 6345, 7426, 7874, 8433, 8434, 8849};

/// The ratings last read: one value for each tag of kRatingTagIds. GUI thread.
class RatingMemory {
 public:
    /// At the start of a load: every slot 0 but Sony's (6345), which keeps its value until the next Sony
    /// rating.
    void clear();
    void Store(int tagId, int rating);
    /// Nothing for an id that has no slot.
    std::optional<int> Rating(int tagId) const;

 private:
    std::array<int, kRatingTagIds.size()> values_{};
};

/// The ratings in the order in which they were read, over the life of the process. It holds ten pairs; when
/// it is full, the oldest pair that a later one of the same tag has made obsolete goes first, so that the
/// last rating of every tag stays known.
class RatingLog {
 public:
    struct Entry {
        int tagId;
        int rating;
    };
    static constexpr std::size_t kCapacity = 10;

    void Append(int tagId, int rating);
    /// The last rating of the tag, or 0.
    int lastRating(int tagId) const;
    std::span<const Entry> entries() const { return entries_; }

 private:
    std::vector<Entry> entries_;
};

/// The rating that the first character of a value preselects: "3" gives 6, as it always has; everything but
/// "1" to "5" gives 0.
int designedRatingSelection(QStringView value);

}  // namespace tags
