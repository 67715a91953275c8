#include "tags/GroupCatalogue.h"
#include "tags/TagDictionary.h"
#include "tags/TagFamilies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

// The rules that the generated table keeps. Ids, sizes and spellings stand in settings, export sets and label
// files, so that a table that breaks one of them breaks what users have stored.

using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;
using testing::ElementsAre;
using testing::Pair;

namespace {

using Text = std::u16string_view;

std::span<const TagRecord> rows() {
    static const TagDictionary kDictionary;
    return kDictionary.records();
}

template <typename Key>
std::map<Key, int> countBy(auto&& keyOf) {
    std::map<Key, int> counts;
    for (const TagRecord& row : rows()) ++counts[keyOf(row)];
    return counts;
}

template <typename Key>
int severalTimes(const std::map<Key, int>& counts) {
    return static_cast<int>(
        std::ranges::count_if(counts, [](const auto& entry) { return entry.second > 1; }));
}

std::map<std::uint32_t, int> rowsPerId() {
    return countBy<std::uint32_t>([](const TagRecord& row) { return row.id; });
}

/// Lower case of the table's letters, which are all ASCII.
std::u16string folded(Text name) {
    std::u16string lower(name);
    for (char16_t& unit : lower) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 0x20);
    }
    return lower;
}

std::uint32_t groupId(QStringView key) {
    return tags::FindGroup(key).value();
}

std::set<Text> spellingsOf(QStringView key) {
    std::set<Text> spellings;
    for (const TagRecord& row : rows()) {
        if (row.groupIndex == groupId(key)) spellings.insert(row.group);
    }
    return spellings;
}

}  // namespace

TEST(TagDictionaryContent, IdsLeaveTheirGaps) {
    ASSERT_EQ(rows().size(), 13741U);
    const auto ids = rowsPerId();
    EXPECT_EQ(ids.size(), 13683U);
    EXPECT_EQ(ids.begin()->first, 0U);
    EXPECT_EQ(ids.rbegin()->first, 14032U);
    EXPECT_EQ(rows().front().id, 0U);
    EXPECT_EQ(severalTimes(ids), 56);
}

TEST(TagDictionaryContent, IdsRiseWithTheTableOrder) {
    EXPECT_TRUE(std::ranges::is_sorted(rows(), {}, &TagRecord::id));
}

TEST(TagDictionaryContent, SharedIdsNameOneTag) {
    std::map<std::uint32_t, std::set<Text>> names;
    std::map<std::uint32_t, std::multiset<Text>> groups;
    for (const TagRecord& row : rows()) {
        names[row.id].insert(row.name);
        groups[row.id].insert(row.group);
    }
    for (const auto& [id, found] : names) EXPECT_EQ(found.size(), 1U) << id;
    EXPECT_THAT(names[65], ElementsAre(Text(u"ImageHeight")));
    EXPECT_THAT(groups[65], ElementsAre(Text(u"File"), Text(u"File"), Text(u"File")));
    EXPECT_THAT(names[1151], ElementsAre(Text(u"ReferenceBlackWhite")));
    EXPECT_THAT(groups[1151], ElementsAre(Text(u"IFD0"), Text(u"IFD1")));
}

TEST(TagDictionaryContent, NamesRiseButFor505Neighbours) {
    int descents = 0;
    for (std::size_t row = 1; row < rows().size(); ++row) {
        if (folded(rows()[row - 1].name) > folded(rows()[row].name)) ++descents;
    }
    EXPECT_EQ(descents, 505);
}

TEST(TagDictionaryContent, PairsOfGroupAndNameRepeat) {
    std::map<std::pair<std::uint32_t, Text>, std::multiset<std::uint32_t>> ids;
    for (const TagRecord& row : rows()) ids[{row.groupIndex, row.name}].insert(row.id);
    int repeated = 0;
    int withOtherIds = 0;
    for (const auto& [pair, found] : ids) {
        if (found.size() > 1) ++repeated;
        if (std::set<std::uint32_t>(found.begin(), found.end()).size() > 1) ++withOtherIds;
    }
    EXPECT_EQ(repeated, 163);
    EXPECT_GT(withOtherIds, 0);
    EXPECT_LT(withOtherIds, repeated);
}

TEST(TagDictionaryContent, FirstOfRepeatedRowsIsTheEditableOne) {
    std::map<std::pair<std::uint32_t, Text>, bool> firstIsWritable;
    for (const TagRecord& row : rows()) {
        const auto [first, isFirst] = firstIsWritable.try_emplace({row.groupIndex, row.name}, row.writable);
        if (!isFirst) {
            EXPECT_LE(row.writable, first->second) << row.id;
        }
    }
}

TEST(TagDictionaryContent, KindsHaveTheirNumbersOfRows) {
    const auto cells = countBy<std::pair<bool, ValueKind>>(
        [](const TagRecord& row) { return std::pair(row.writable, row.valueKind); });
    const std::map<std::pair<bool, ValueKind>, int> wanted = {
        {{true, ValueKind::Date}, 69},       {{true, ValueKind::Integer}, 430},
        {{true, ValueKind::Text}, 1136},     {{true, ValueKind::Rating}, 10},
        {{true, ValueKind::List}, 286},      {{true, ValueKind::Binary}, 804},
        {{true, ValueKind::Rational}, 16},   {{false, ValueKind::Date}, 137},
        {{false, ValueKind::Integer}, 2711}, {{false, ValueKind::Text}, 7959},
        {{false, ValueKind::Rating}, 4},     {{false, ValueKind::List}, 151},
        {{false, ValueKind::Binary}, 21},    {{false, ValueKind::Rational}, 7}};
    EXPECT_EQ(cells, wanted);
}

TEST(TagDictionaryContent, RatingsAndNothingElseHaveStars) {
    for (const TagRecord& row : rows()) {
        const bool rating =
            row.name == u"Rating" || (row.name == u"RatingValue" && row.group == u"XMP-iptcExt");
        EXPECT_EQ(row.valueKind == ValueKind::Rating, rating) << row.id;
    }
}

TEST(TagDictionaryContent, LargestGroupsKeepTheirSizes) {
    std::vector<std::pair<int, Text>> sizes;
    for (const auto& [group, count] : countBy<Text>([](const TagRecord& row) { return row.group; })) {
        sizes.emplace_back(count, group);
    }
    std::ranges::sort(sizes, std::greater<>());
    const std::vector<std::pair<int, Text>> largest(sizes.begin(), sizes.begin() + 10);
    EXPECT_THAT(largest,
                ElementsAre(Pair(600, u"Leica"), Pair(427, u"XML"), Pair(423, u"XMP"), Pair(403, u"Olympus"),
                            Pair(383, u"KODAK"), Pair(340, u"Canon"), Pair(305, u"Flashpix"),
                            Pair(287, u"IFD0"), Pair(284, u"DICOM"), Pair(279, u"KodakIFD")));
    EXPECT_LT(sizes[10].first, 279);
}

TEST(TagDictionaryContent, GroupsAreSpeltInSeveralWays) {
    EXPECT_THAT(spellingsOf(u"[FlashPix]"), ElementsAre(Text(u"FlashPix"), Text(u"Flashpix")));
    EXPECT_THAT(spellingsOf(u"[Kodak]"), ElementsAre(Text(u"KODAK"), Text(u"Kodak")));
    EXPECT_THAT(spellingsOf(u"[XMP-crs]"), ElementsAre(Text(u"XMP-CRS"), Text(u"XMP-Crs"), Text(u"XMP-crs")));
    EXPECT_THAT(spellingsOf(u"[XMP-illustrator]"), ElementsAre(Text(u"XMP-ilustrator")));
    EXPECT_TRUE(spellingsOf(u"[Audible]").contains(u"AUDIBLE"));
    EXPECT_EQ(std::ranges::count(rows(), Text(u"HCM_Dicom_HighBitTML-ncc"), &TagRecord::group), 1);
    EXPECT_TRUE(spellingsOf(u"[HTML]").contains(u"HCM_Dicom_HighBitTML-ncc"));
}

TEST(TagDictionaryContent, TextsAreNoLongerThanTheLongestKnown) {
    std::size_t longestName = 0;
    std::size_t longestGroup = 0;
    for (const TagRecord& row : rows()) {
        longestName = std::max(longestName, row.name.size());
        longestGroup = std::max(longestGroup, row.group.size());
    }
    EXPECT_EQ(longestName, 113U);
    EXPECT_EQ(longestGroup, 24U);
}

TEST(TagDictionaryContent, StrayNamesAreKept) {
    std::set<Text> odd;
    int withComma = 0;
    std::set<std::pair<std::uint32_t, Text>> empty;
    for (const TagRecord& row : rows()) {
        if (row.name.empty()) empty.emplace(row.id, row.group);
        const bool plain = std::ranges::all_of(row.name, [](char16_t unit) {
            return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
                   (unit >= u'0' && unit <= u'9') || unit == u'_' || unit == u'-';
        });
        if (plain) continue;
        if (row.name.ends_with(u',')) {
            ++withComma;
        } else {
            odd.insert(row.name);
        }
    }
    EXPECT_THAT(odd, ElementsAre(Text(u"Duration)"), Text(u"ExposureCompensationp)"),
                                 Text(u"FilmCategory(App3)"), Text(u"FullPanoWidthPixels ")));
    EXPECT_EQ(withComma, 10);
    EXPECT_EQ(std::ranges::count(rows(), Text(u"AspectRatio,"), &TagRecord::name), 1);
    EXPECT_THAT(empty, ElementsAre(Pair(2018U, u"Canon"), Pair(7090U, u"XMP"), Pair(11509U, u"XML")));
}

TEST(TagDictionaryContent, TablesAndCategoriesHaveTheirNumbers) {
    const auto tables = countBy<std::uint32_t>([](const TagRecord& row) { return row.tableId; });
    const auto categories = countBy<std::uint32_t>([](const TagRecord& row) { return row.categoryId; });
    EXPECT_EQ(tables.size(), 411U);
    EXPECT_EQ(categories.size(), 409U);
    EXPECT_EQ(categories.begin()->first, 841U);
    EXPECT_EQ(categories.rbegin()->first, 2016U);
}

TEST(TagDictionaryContent, GroupIndexIsThatOfTheSpellingWhereTheCatalogueKnowsIt) {
    for (const TagRecord& row : rows()) {
        ASSERT_LT(row.groupIndex, 330U) << row.id;
        if (row.group == u"HCM_Dicom_HighBitTML-ncc") continue;
        const QString token =
            u'[' + QString::fromUtf16(row.group.data(), static_cast<qsizetype>(row.group.size())) + u']';
        const auto group = tags::FindGroup(token);
        if (group) {
            EXPECT_EQ(*group, row.groupIndex) << row.id;
        }
    }
}

TEST(TagDictionaryContent, CategoriesOfFamiliesHaveRows) {
    const auto categories = countBy<std::uint32_t>([](const TagRecord& row) { return row.categoryId; });
    for (const tags::TagFamily& family : tags::tagFamilies()) {
        for (const std::uint32_t category : family.categories) {
            EXPECT_TRUE(categories.contains(category)) << category;
        }
    }
}

TEST(TagDictionaryContent, PropertyCategoriesAndTreeRootsHaveNoTags) {
    constexpr std::uint32_t kNotForTags[] = {1084, 1139, 1140, 1141, 1142, 1143, 1144, 1145,
                                             1146, 1147, 1148, 1149, 1150, 1343, 1344, 1345};
    for (const TagRecord& row : rows()) {
        EXPECT_EQ(std::ranges::count(kNotForTags, row.categoryId), 0) << row.id;
    }
}

struct CategoryOfGroup {
    std::uint32_t categoryId;
    QStringView key;
};

TEST(TagDictionaryContent, CategoriesThatDialogsNameHoldTheirGroupOnly) {
    constexpr CategoryOfGroup kCategories[] = {
        {1413, u"[IFD0]"},          {1414, u"[IFD1]"},          {1415, u"[IFD2]"},
        {1416, u"[SubIFD]"},        {1417, u"[SubIFD1]"},       {1716, u"[SubIFD2]"},
        {1418, u"[ExifIFD]"},       {1086, u"[EXIF]"},          {1712, u"[PrintIM]"},
        {1419, u"[InteropIFD]"},    {1421, u"[IPTC]"},          {1422, u"[IPTC]"},
        {1423, u"[IPTC]"},          {1424, u"[IPTC]"},          {1713, u"[IPTC2]"},
        {1714, u"[IPTC3]"},         {1088, u"[XMP]"},           {1076, u"[GPS]"},
        {1073, u"[System]"},        {1718, u"[File]"},          {1434, u"[XMP_CreatorAtom]"},
        {1462, u"[XMP_lr]"},        {1471, u"[XMP-xmpRights]"}, {1096, u"[XMP-xmpRights]"},
        {1436, u"[XMP-dc]"},        {1487, u"[XMP-xmp]"},       {1648, u"[XMP-plus]"},
        {1465, u"[XMP-Photoshop]"}, {1807, u"[XMP-pmtm_1_]"}};
    for (const CategoryOfGroup& category : kCategories) {
        int count = 0;
        for (const TagRecord& row : rows()) {
            if (row.categoryId != category.categoryId) continue;
            ++count;
            EXPECT_EQ(row.groupIndex, groupId(category.key)) << row.id;
        }
        EXPECT_GT(count, 0) << category.categoryId;
    }
}

TEST(TagDictionaryContent, EditableFileRowsCannotBeTakenForFileProperties) {
    constexpr std::uint32_t kFirstIdAboveProperties = 318;
    for (const TagRecord& row : rows()) {
        if (!row.writable || row.valueKind == ValueKind::Binary) continue;
        if (row.groupIndex != groupId(u"[File]") && row.groupIndex != groupId(u"[System]")) continue;
        EXPECT_GE(row.id, kFirstIdAboveProperties);
    }
}
