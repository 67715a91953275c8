#pragma once

#include <span>

namespace browser {

/// What the name column and the last one get of the width that the columns leave free in their list.
struct ColumnSpread {
    int name = 0;
    int last = 0;
};

/// widths: as the user or the program has set them, the name's first. The names, which are cut first, get the
/// free width, and the last column once the user has given the names a width of their own.
ColumnSpread spreadOf(std::span<const int> widths, int room, bool isNameSet, bool isLastSet);

}  // namespace browser
