#pragma once

#include "app/SortMode.h"

#include <cstdint>

namespace browser {

/// What a click on the header of that column sorts by; Name for a column without a mode of its own.
app::SortMode ColumnToSortMode(std::uint32_t columnType);

}  // namespace browser
