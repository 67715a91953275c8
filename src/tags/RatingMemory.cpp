#include "tags/RatingMemory.h"

#include <algorithm>

namespace tags {

namespace {

constexpr int kSonyRating = 6345;

std::optional<std::size_t> slotOf(int tagId) {
    const auto* found = std::find(kRatingTagIds.begin(), kRatingTagIds.end(), tagId);
    if (found == kRatingTagIds.end()) return std::nullopt;
    return static_cast<std::size_t>(found - kRatingTagIds.begin());
}

}  // namespace

void RatingMemory::clear() {
    const std::optional<int> sony = Rating(kSonyRating);
    values_.fill(0);
    Store(kSonyRating, sony.value_or(0));
}

void RatingMemory::Store(int tagId, int rating) {
    if (const auto slot = slotOf(tagId)) values_[*slot] = rating;
}

std::optional<int> RatingMemory::Rating(int tagId) const {
    if (const auto slot = slotOf(tagId)) return values_[*slot];
    return std::nullopt;
}

void RatingLog::Append(int tagId, int rating) {
    entries_.push_back({tagId, rating});
    if (entries_.size() <= kCapacity) return;
    auto obsolete = entries_.begin();
    for (; obsolete + 1 != entries_.end(); ++obsolete) {
        const bool laterOne = std::any_of(obsolete + 1, entries_.end(),
                                          [&](const Entry& later) { return later.tagId == obsolete->tagId; });
        if (laterOne) break;
    }
    entries_.erase(obsolete + 1 == entries_.end() ? entries_.begin() : obsolete);
}

int RatingLog::lastRating(int tagId) const {
    const auto last = std::find_if(entries_.rbegin(), entries_.rend(),
                                   [tagId](const Entry& entry) { return entry.tagId == tagId; });
    return last == entries_.rend() ? 0 : last->rating;
}

int designedRatingSelection(QStringView value) {
    static constexpr int kSelections[] = {0, 1, 2, 6, 4, 5};
    if (value.isEmpty() || value[0] < u'1' || value[0] > u'5') return 0;
    return kSelections[value[0].unicode() - u'0'];
}

}  // namespace tags
