#include "tags/PropertyCatalogue.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using tags::PropertyCatalogue;

TEST(PropertyCatalogue, RowsAreUniqueByNumberAndBeginWithName) {
    std::set<std::uint32_t> numbers;
    for (const tags::PropertyRecord& row : tags::propertyRows()) {
        EXPECT_TRUE(numbers.insert(row.propertyId).second);
        EXPECT_FALSE(row.name.empty());
        EXPECT_FALSE(row.category.empty());
    }
    EXPECT_EQ(tags::propertyRows().front().name, u"Name");
    EXPECT_EQ(tags::propertyRows().front().columnType, PropertyCatalogue::kNameColumn);
    EXPECT_TRUE(std::ranges::is_sorted(tags::propertyRows(), {}, &tags::PropertyRecord::propertyId));
}

TEST(PropertyCatalogue, FindsColumnsByNumber) {
    PropertyCatalogue catalogue;
    ASSERT_NE(catalogue.FindColumn(9), nullptr);
    EXPECT_EQ(catalogue.FindColumn(9)->name, u"FileSize");
    EXPECT_EQ(catalogue.FindColumn(9999), nullptr);
    EXPECT_EQ(catalogue.FindProperty(0)->name, u"Name");
}

TEST(PropertyCatalogue, TheColumnFileGoesThroughItsStates) {
    const support::TemporaryFolder folder;
    support::WriteBytes(folder / "ColumnsHeader.ini",
                        "[SYSTEM]\r\n0=1,400\r\n1=70,200\r\n2=9,30\r\n3=777,100\r\n");
    PropertyCatalogue catalogue;
    std::vector<app::ColumnState> states = catalogue.columnStates();
    app::LoadColumns(folder / "ColumnsHeader.ini", states);
    catalogue.setColumnStates(states);
    std::vector<std::pair<std::uint32_t, int>> columns;
    for (const tags::PropertyRecord* record : catalogue.visibleRecords())
        columns.emplace_back(record->columnType, record->width);
    EXPECT_EQ(columns, (std::vector<std::pair<std::uint32_t, int>>{{1, 250}, {9, 150}, {70, 200}}));
}

TEST(PropertyCatalogue, NameCannotBeHidden) {
    PropertyCatalogue catalogue;
    catalogue.setVisible(1, false);
    EXPECT_EQ(catalogue.visibleRecords().size(), 1U);
    std::vector<app::ColumnState> states = catalogue.columnStates();
    for (app::ColumnState& state : states) state.visible = false;
    catalogue.setColumnStates(states);
    EXPECT_EQ(catalogue.visibleRecords().front()->name, u"Name");
}

}  // namespace
