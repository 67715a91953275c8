#include "tags/TagFamilies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

using tags::TagFamily;
using tags::TagRecord;
using testing::ElementsAre;

namespace {

struct ExpectedFamily {
    std::u16string_view name;
    std::size_t categories;
    int number;
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t sum;  ///< of the category numbers, which a slip of a digit changes
};

}  // namespace

TEST(TagFamilies, HaveTheirNumbersNamesAndLists) {
    constexpr ExpectedFamily kExpected[] = {
        {u"EXIF", 12, 1, 1086, 1712, 17733},   {u"IPTC", 6, 2, 1421, 1714, 9117},
        {u"XMP", 77, 3, 1088, 1685, 113110},   {u"GPS", 1, 4, 1076, 1076, 1076},
        {u"ICC", 7, 5, 1558, 1564, 10927},     {u"Audio", 32, 6, 1596, 1730, 47344},
        {u"DICOM", 2, 7, 1137, 1438, 2575},    {u"Images", 13, 8, 1411, 1511, 20137},
        {u"Makers", 34, 9, 1357, 1583, 48227}, {u"Documents", 18, 10, 1804, 986, 26406},
        {u"Video", 34, 11, 1552, 1382, 52635}};
    ASSERT_EQ(tags::tagFamilies().size(), std::size(kExpected));
    for (std::size_t index = 0; index < std::size(kExpected); ++index) {
        const TagFamily& family = tags::tagFamilies()[index];
        const ExpectedFamily& expected = kExpected[index];
        SCOPED_TRACE(expected.number);
        EXPECT_EQ(family.number, expected.number);
        EXPECT_EQ(family.name, expected.name);
        ASSERT_EQ(family.categories.size(), expected.categories);
        EXPECT_EQ(family.categories.front(), expected.first);
        EXPECT_EQ(family.categories.back(), expected.last);
        EXPECT_EQ(std::accumulate(family.categories.begin(), family.categories.end(), 0U), expected.sum);
    }
}

TEST(TagFamilies, AreFoundByNumber) {
    ASSERT_NE(tags::findFamily(5), nullptr);
    EXPECT_THAT(tags::findFamily(5)->categories, ElementsAre(1558, 1560, 1561, 1559, 1562, 1563, 1564));
    for (const int number : {-1, 0, 12, 1000}) EXPECT_EQ(tags::findFamily(number), nullptr) << number;
}

TEST(TagFamilies, OneAudioCategoryStandsTwice) {
    const TagFamily* audio = tags::findFamily(6);
    ASSERT_NE(audio, nullptr);
    EXPECT_EQ(std::ranges::count(audio->categories, 1730U), 2);
    EXPECT_TRUE(tags::familyHasCategory(*audio, 1730));
    EXPECT_FALSE(tags::familyHasCategory(*audio, 1413));
}

TEST(TagFamilies, GiveTheirRowsOnceAndInTableOrder) {
    const tags::TagDictionary dictionary;
    for (const TagFamily& family : tags::tagFamilies()) {
        const std::vector<const TagRecord*> rows = tags::tagsOfFamily(dictionary, family);
        EXPECT_FALSE(rows.empty()) << family.number;
        EXPECT_TRUE(std::ranges::is_sorted(rows, std::less<>())) << family.number;
        EXPECT_EQ(std::ranges::adjacent_find(rows), rows.end()) << family.number;
    }
}
