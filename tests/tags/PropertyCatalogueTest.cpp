#include "tags/PropertyCatalogue.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using tags::PropertyCatalogue;

const tags::PropertyRecord& row(std::u16string_view category, std::u16string_view name) {
    static const tags::PropertyRecord none;
    for (const tags::PropertyRecord& record : tags::propertyRows())
        if (record.category == category && record.name == name) return record;
    ADD_FAILURE() << "no such row";
    return none;
}

TEST(PropertyCatalogue, RowsAreUniqueByNumberAndBeginWithName) {
    std::set<std::uint32_t> numbers;
    for (const tags::PropertyRecord& record : tags::propertyRows()) {
        EXPECT_TRUE(numbers.insert(record.propertyId).second);
        EXPECT_FALSE(record.name.empty());
    }
    EXPECT_EQ(*numbers.begin(), 0U);
    EXPECT_EQ(tags::propertyRows().front().name, u"Name");
    EXPECT_EQ(tags::propertyRows().front().columnType, PropertyCatalogue::kNameColumn);
    EXPECT_EQ(tags::propertyRows().front().propertyId, 0U);
}

TEST(PropertyCatalogue, ANameIsAlsoThereInPlainWords) {
    const std::pair<std::u16string_view, const char*> cases[] = {{u"DateModified", "Date modified"},
                                                                 {u"Name", "Name"},
                                                                 {u"GPSLatitude", "GPS latitude"},
                                                                 {u"FNumber", "F number"},
                                                                 {u"CreatorAppId", "Creator app id"}};
    for (const auto& [name, words] : cases) {
        tags::PropertyRecord record;
        record.name = name;
        EXPECT_EQ(tags::plainName(record).toStdString(), words);
    }
}

TEST(PropertyCatalogue, CategoriesFollowEachOtherWithTheirRowsAndNumbers) {
    struct Category {
        std::u16string_view name;
        std::uint32_t rows;
        std::uint32_t categoryId;
    };
    const Category expected[] = {{u"System", 1, 1073},   {u"Disk", 11, 1139},  {u"Version", 5, 1140},
                                 {u"Summary", 17, 1141}, {u"GPS", 54, 1147},   {u"Audio", 10, 1142},
                                 {u"DRM", 6, 1150},      {u"Image", 14, 1144}, {u"Music", 18, 1084},
                                 {u"Media", 41, 1148},   {u"Photo", 83, 1143}, {u"RecordedTV", 16, 1149},
                                 {u"Text", 25, 1145},    {u"Video", 17, 1146}};
    auto record = tags::propertyRows().begin();
    for (const Category& category : expected)
        for (std::uint32_t i = 0; i < category.rows; ++i, ++record) {
            ASSERT_NE(record, tags::propertyRows().end());
            EXPECT_EQ(record->category, category.name);
            EXPECT_EQ(record->categoryId, category.categoryId);
        }
    EXPECT_EQ(record, tags::propertyRows().end());
}

TEST(PropertyCatalogue, KindsAndWritableRowsAreCounted) {
    std::map<std::uint32_t, int> kinds;
    int writable = 0;
    for (const tags::PropertyRecord& record : tags::propertyRows()) {
        ++kinds[record.valueKind];
        if (record.writable == 0) continue;
        ++writable;
        EXPECT_NE(record.pid, 0U) << record.propertyId << " has no key to be written under";
    }
    EXPECT_EQ(kinds, (std::map<std::uint32_t, int>{{0, 14}, {1, 106}, {2, 197}, {3, 1}}));
    EXPECT_EQ(writable, 77);
    EXPECT_EQ(row(u"Disk", u"Rating").valueKind, 3U);
}

TEST(PropertyCatalogue, ColumnsAreNumberedWithin1And855) {
    std::set<std::uint32_t> columns;
    for (const tags::PropertyRecord& record : tags::propertyRows()) columns.insert(record.columnType);
    EXPECT_EQ(columns.size(), 272U);
    EXPECT_EQ(*columns.begin(), 1U);
    EXPECT_EQ(*columns.rbegin(), 855U);
}

TEST(PropertyCatalogue, KnownColumnsKeepTheirNumbers) {
    struct Column {
        std::uint32_t number;
        std::u16string_view category, name;
    };
    const Column expected[] = {
        {2, u"Disk", u"DateAccessed"},
        {3, u"Disk", u"Attributes"},
        {4, u"Disk", u"DateCreated"},
        {6, u"Disk", u"DateModified"},
        {7, u"Disk", u"Kind"},
        {8, u"Disk", u"FileAllocationSize"},
        {9, u"Disk", u"FileSize"},
        {10, u"Disk", u"Owner"},
        {11, u"Disk", u"SubType"},
        {12, u"Disk", u"Rating"},
        {30, u"Version", u"Company"},
        {31, u"Version", u"Description"},
        {32, u"Version", u"FileVersion"},
        {33, u"Version", u"ProductName"},
        {34, u"Version", u"ProductVersion"},
        {61, u"Summary", u"Author"},
        {63, u"Summary", u"Comment"},
        {67, u"Summary", u"FileExtension"},
        {70, u"Summary", u"ItemTypeText"},
        {71, u"Summary", u"Keywords"},
        {74, u"Summary", u"Subject"},
        {75, u"Summary", u"Title"},
        {207, u"Photo", u"CameraModel"},
        {211, u"Photo", u"DateTaken"},
        {423, u"Media", u"Duration"},
        {437, u"Media", u"Producer"},
        {443, u"Media", u"Publisher"},
        {457, u"Media", u"Writer"},
        {458, u"Media", u"Year"},
        {602, u"Music", u"AlbumTitle"},
    };
    for (const Column& column : expected) {
        EXPECT_EQ(row(column.category, column.name).columnType, column.number);
        ASSERT_NE(tags::findPropertyColumn(column.number), nullptr);
        EXPECT_EQ(tags::findPropertyColumn(column.number)->name, column.name)
            << "the first row of a column counts";
    }
    EXPECT_EQ(row(u"Video", u"Director").columnType, 602U);
    // Numbers that lead to an order of their own although no row has them.
    for (const std::uint32_t free :
         {404U, 405U, 407U, 412U, 413U, 421U, 429U, 430U, 433U, 434U, 435U, 436U, 439U, 444U, 447U})
        EXPECT_EQ(tags::findPropertyColumn(free), nullptr) << free;
}

TEST(PropertyCatalogue, KnownKeysLeadToTheirRows) {
    struct Key {
        std::u16string_view category, name;
        const char* format;
        std::uint32_t pid;
    };
    const Key expected[] = {
        {u"System", u"Name", "41CF5AE0-F75A-4806-BD87-59C7D9248EB9", 100},
        {u"Disk", u"DateCreated", "B725F130-47EF-101A-A5F1-02608C9EEBAC", 15},
        {u"Disk", u"Kind", "1E3EE840-BC2B-476C-8237-2ACD1A839B22", 3},
        {u"Disk", u"Rating", "64440492-4C8B-11D1-8B70-080036B11A03", 9},
        {u"Summary", u"Title", "F29F85E0-4FF9-1068-AB91-08002B27B3D9", 2},
        {u"Summary", u"Subject", "F29F85E0-4FF9-1068-AB91-08002B27B3D9", 3},
        {u"Summary", u"Author", "F29F85E0-4FF9-1068-AB91-08002B27B3D9", 4},
        {u"Summary", u"Keywords", "F29F85E0-4FF9-1068-AB91-08002B27B3D9", 5},
        {u"Summary", u"Comment", "F29F85E0-4FF9-1068-AB91-08002B27B3D9", 6},
        {u"Image", u"HorizontalSize", "6444048F-4C8B-11D1-8B70-080036B11A03", 3},
        {u"Image", u"VerticalSize", "6444048F-4C8B-11D1-8B70-080036B11A03", 4},
        {u"Image", u"Dimensions", "6444048F-4C8B-11D1-8B70-080036B11A03", 13},
        {u"Photo", u"Aperture", "14B81DA1-0135-4D31-96D9-6CBFC9671A99", 37378},
        {u"Photo", u"Flash", "6B8B68F6-200B-47EA-8D25-D8050F57339F", 100},
        {u"Photo", u"FocalLength", "14B81DA1-0135-4D31-96D9-6CBFC9671A99", 37386},
        {u"Photo", u"ISOSpeed", "14B81DA1-0135-4D31-96D9-6CBFC9671A99", 34855},
        {u"Photo", u"CameraModel", "14B81DA1-0135-4D31-96D9-6CBFC9671A99", 272},
        {u"Photo", u"ShutterSpeed", "14B81DA1-0135-4D31-96D9-6CBFC9671A99", 37377},
        {u"Photo", u"WhiteBalanceText", "6336B95E-C7A7-426D-86FD-7AE3D39C84B4", 100},
        {u"Text", u"Version", "D5CDD502-2E9C-101B-9397-08002B2CF9AE", 29},
    };
    for (const Key& key : expected) {
        const tags::PropertyRecord& record = row(key.category, key.name);
        EXPECT_EQ(tags::formatIdText(record.formatId), key.format);
        EXPECT_EQ(record.pid, key.pid);
        EXPECT_EQ(tags::findPropertyKey(record.formatId, record.pid), &record);
    }
    for (const tags::PropertyRecord& record : tags::propertyRows()) {
        if (record.category == u"GPS") {
            EXPECT_EQ(record.pid, 100U);
        }
    }
    EXPECT_EQ(tags::findPropertyKey({}, 4711), nullptr);
}

TEST(PropertyCatalogue, TheTwoRowsWrittenAsTimesAreDates) {
    const PropertyCatalogue catalogue;
    for (const std::uint32_t number : {172U, 250U}) {
        ASSERT_NE(catalogue.FindProperty(number), nullptr);
        EXPECT_EQ(catalogue.FindProperty(number)->valueKind, 0U);
        EXPECT_EQ(catalogue.FindProperty(number)->writable, 1U);
    }
    EXPECT_EQ(catalogue.FindProperty(172)->name, u"DateTaken");
}

TEST(PropertyCatalogue, OddSpellingsOfNamesStay) {
    std::map<std::u16string_view, int> names;
    for (const tags::PropertyRecord& record : tags::propertyRows())
        if (record.category == u"GPS" || record.category == u"Photo" || record.category == u"Media")
            ++names[record.name];
    for (const char16_t* name :
         {u"DestLongitudeDenominator", u"DestLongitudeNumerator", u"Sharpness", u"SubjectDistance"})
        EXPECT_EQ(names[name], 2);
    for (const char16_t* name : {u"ProtectionTpe", u"ThumbnailDmallPath", u"GainControl_Numerator"})
        EXPECT_EQ(names[name], 1);
}

TEST(PropertyCatalogue, FindsColumnsByNumber) {
    PropertyCatalogue catalogue;
    ASSERT_NE(catalogue.findColumn(9), nullptr);
    EXPECT_EQ(catalogue.findColumn(9)->name, u"FileSize");
    EXPECT_EQ(catalogue.findColumn(9999), nullptr);
    EXPECT_EQ(catalogue.FindProperty(0)->name, u"Name");
}

TEST(PropertyCatalogue, TheColumnFileGoesThroughItsStates) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "ColumnsHeader.ini",
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
