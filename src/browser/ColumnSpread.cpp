#include "browser/ColumnSpread.h"

#include <numeric>

namespace browser {

ColumnSpread spreadOf(std::span<const int> widths, int room, bool isNameSet, bool isLastSet) {
    const int free = room - std::accumulate(widths.begin(), widths.end(), 0);
    if (free <= 0 || widths.empty()) return {};
    if (!isNameSet) return {.name = free};
    return widths.size() > 1 && !isLastSet ? ColumnSpread{.last = free} : ColumnSpread{};
}

}  // namespace browser
