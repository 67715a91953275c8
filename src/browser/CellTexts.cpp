#include "browser/CellTexts.h"

namespace browser {
namespace {

// A tall window with all of its columns has room in one half.
constexpr qsizetype kMostInAHalf = 8192;

}  // namespace

const CellTexts::Cell* CellTexts::find(std::int32_t itemId, std::uint32_t columnType) {
    const std::uint64_t key = keyOf(itemId, columnType);
    if (const auto found = recent_.constFind(key); found != recent_.constEnd()) return &found.value();
    const auto found = older_.find(key);
    if (found == older_.end()) return nullptr;
    const Cell cell = found.value();
    older_.erase(found);
    set(itemId, columnType, cell);
    return &recent_[key];
}

void CellTexts::set(std::int32_t itemId, std::uint32_t columnType, const Cell& cell) {
    if (recent_.size() >= kMostInAHalf) {
        older_ = std::move(recent_);
        recent_ = {};
    }
    recent_.insert(keyOf(itemId, columnType), cell);
}

void CellTexts::clear() {
    recent_.clear();
    older_.clear();
}

}  // namespace browser
