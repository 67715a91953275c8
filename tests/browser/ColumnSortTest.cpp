#include "browser/ColumnSort.h"

#include <gtest/gtest.h>

namespace {

TEST(ColumnSort, ColumnsMapToTheirModes) {
    const std::pair<std::uint32_t, app::SortMode> cases[] = {{1, app::SortMode::Name},
                                                             {6, app::SortMode::DateModified},
                                                             {9, app::SortMode::Size},
                                                             {70, app::SortMode::Name},
                                                             {11, app::SortMode::Type},
                                                             {7, app::SortMode::Comments},
                                                             {63, app::SortMode::Kind},
                                                             {458, app::SortMode::MediaYear},
                                                             {404, app::SortMode::MediaBeatsPerMinute},
                                                             {855, app::SortMode::Name}};
    for (const auto& [column, mode] : cases) EXPECT_EQ(browser::ColumnToSortMode(column), mode) << column;
}

}  // namespace
