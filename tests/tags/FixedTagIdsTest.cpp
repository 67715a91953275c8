#include "tags/TagDictionary.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

#include <set>

using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;

namespace {

constexpr std::u16string_view kAny = u"?";

/// What the first row of an id is; -1 and kAny where it may be anything.
struct FixedRow {
    std::uint32_t id;
    std::uint32_t groupIndex;
    std::u16string_view name;
    std::u16string_view group;
    int valueKind;
    int writable;
    int categoryId;
    int tableId;
};

// clang-format off
constexpr FixedRow kFixedRows[] = {
    {0, 209, u"FileAccessDate", u"System", 0, 0, 1073, 73},
    {1, 30, u"Alpha", u"File", 4, 0, 1718, 73},
    {65, 30, u"ImageHeight", u"File", -1, -1, -1, -1},
    {853, 83, u"CodedCharacterSet", kAny, -1, 1, 1421, -1},
    {900, 83, u"DateCreated", u"IPTC", 0, 1, 1422, -1},
    {946, 83, u"TimeCreated", u"IPTC", 0, 1, 1422, -1},
    {1056, 78, u"A100DataOffset", u"IFD0", 1, 0, 1413, 60},
    {1108, 78, u"ModifyDate", u"IFD0", 0, 1, 1413, 60},
    {1142, 78, u"Rating", u"IFD0", 3, 1, 1413, 60},
    {1143, 78, u"RatingPercent", u"IFD0", -1, 1, 1413, -1},
    {1151, 78, u"ReferenceBlackWhite", u"IFD0", -1, -1, 1413, -1},
    {1213, 78, u"CreateDate", u"IFD0", 0, 1, 1413, -1},
    {1220, 78, u"DateTimeOriginal", u"IFD0", 0, 1, 1413, -1},
    {1364, 79, u"ModifyDate", u"IFD1", 0, 1, 1414, -1},
    {1608, 29, u"DateTimeOriginal", u"ExifIFD", 0, 1, 1418, -1},
    {2018, 11, u"", u"Canon", -1, -1, 1357, -1},
    {2025, 11, u"AFAreaSelectionMethod", u"Canon", 4, 1, 1357, 29},
    {2073, 11, u"Canon_0x0018", u"Canon", 6, 1, 1357, -1},
    {2674, 40, u"Rating", u"FujiFilm", 3, 1, -1, -1},
    {5275, 143, u"ZoomStepCount", u"Olympus", 2, 0, 990, 230},
    {6345, 194, u"Rating", u"Sony", 3, 1, -1, -1},
    {7090, 239, u"", u"XMP", -1, -1, 1088, -1},
    {7426, 241, u"Rating", u"XMP-Acdsee", 3, 1, 1426, -1},
    {7874, 262, u"Rating", u"XMP-Dex", 3, 1, 1437, -1},
    {8335, 287, u"AboutCvTermCvId", u"XMP-iptcExt", 2, 1, 1460, 384},
    {8433, 287, u"Rating", u"XMP-iptcExt", 3, 1, 1460, 384},
    {8434, 287, u"RatingValue", u"XMP-iptcExt", 3, 1, 1460, 384},
    {8617, 304, u"DateCreated", u"XMP-PHOTOSHOP", 0, 1, 1465, -1},
    {8642, 306, u"CopyrightStatus", kAny, 4, 1, 1648, -1},
    {8643, 306, u"CreditLineRequired", kAny, 4, 1, 1648, -1},
    {8644, 306, u"ImageAlterationConstraints", kAny, 4, 1, 1648, -1},
    {8648, 306, u"ImageDuplicationConstraints", kAny, 4, 1, 1648, -1},
    {8649, 306, u"ImageFileConstraints", kAny, 4, 1, 1648, -1},
    {8653, 306, u"ImageType", kAny, 4, 1, 1648, -1},
    {8675, 306, u"LicensorTelephoneType1", kAny, 4, 1, 1648, -1},
    {8678, 306, u"AdultContentWarning", kAny, 4, 1, 1648, -1},
    {8684, 306, u"MinorModelAgeDisclosure", kAny, 4, 1, 1648, -1},
    {8686, 306, u"ModelReleaseStatus", kAny, 4, 1, 1648, -1},
    {8689, 306, u"PropertyReleaseStatus", kAny, 4, 1, 1648, -1},
    {8758, 310, u"About", u"XMP-Rdf", 2, 1, 1468, 400},
    {8799, 314, u"YCbCrSubSampling", kAny, 4, -1, 1470, -1},
    {8835, 319, u"CreateDate", u"XMP-XMP", 0, 1, 1487, -1},
    {8841, 319, u"MetadataDate", u"XMP-Xmp", 0, 1, 1487, -1},
    {8842, 319, u"ModifyDate", u"XMP-Xmp", 0, 1, 1487, -1},
    {8849, 319, u"Rating", u"XMP-Xmp", 3, 1, 1487, -1},
    {9803, 212, u"MediaCreateDate", u"Track1", 0, 1, -1, -1},
    {9807, 212, u"MediaModifyDate", u"Track1", 0, 1, -1, -1},
    {9833, 212, u"TrackCreateDate", u"Track1", 0, 1, -1, -1},
    {9842, 212, u"TrackModifyDate", u"Track1", 0, 1, -1, -1},
    {9907, 213, u"MediaCreateDate", u"Track2", 0, 1, -1, -1},
    {9911, 213, u"MediaModifyDate", u"Track2", 0, 1, -1, -1},
    {10211, 215, u"ZoomTargetWidth", u"Track4", 2, 0, 1782, 326},
    {10720, 166, u"CreateDate", u"QuickTime", 0, 1, -1, -1},
    {10749, 166, u"ModifyDate", u"QuickTime", 0, 1, -1, -1},
    {11509, 232, u"", u"XML", -1, -1, -1, -1},
};
// clang-format on

/// Tags whose value is an embedded picture or the like, by id.
constexpr std::uint32_t kPayloadIds[] = {
    106,   110,   218,   364,   393,   562,   646,   1287,  1313,  1314,  1337,  1338, 1382,
    1476,  1486,  1489,  1503,  1532,  1535,  1559,  1564,  1580,  1953,  1959,  1962, 1968,
    1970,  2280,  2494,  4289,  4615,  5261,  5777,  6195,  6226,  6417,  8852,  9800, 10398,
    10745, 10765, 10825, 12314, 12486, 12514, 12674, 12821, 13131, 13181, 13203, 13383};

constexpr std::u16string_view kPayloadNames[] = {u"PreviewImage",
                                                 u"PreviewPNG",
                                                 u"PreviewTIFF",
                                                 u"ThumbnailImage",
                                                 u"ThumbnailTIFF",
                                                 u"JpgFromRaw",
                                                 u"OtherImage",
                                                 u"CoverArt",
                                                 u"Picture",
                                                 u"MPImage2",
                                                 u"MPImage3",
                                                 u"TiffMeteringImage",
                                                 u"UnknownThumbnail",
                                                 u"MediaData",
                                                 u"StartOfItem",
                                                 u"PhotoshopThumbnail",
                                                 u"PhotoshopBGRThumbnail",
                                                 u"EmbeddedImage",
                                                 u"RawThermalImage",
                                                 u"ScreenNail"};

const TagDictionary& dictionary() {
    static const TagDictionary kDictionary;
    return kDictionary;
}

void expectNumber(int wanted, std::uint32_t found, const char* field) {
    if (wanted >= 0) {
        EXPECT_EQ(found, static_cast<std::uint32_t>(wanted)) << field;
    }
}

}  // namespace

TEST(FixedTagIds, FirstRowOfEachQuotedIdIsTheQuotedOne) {
    for (const FixedRow& fixed : kFixedRows) {
        SCOPED_TRACE(fixed.id);
        const std::optional<TagRecord> record = dictionary().FindTagById(fixed.id);
        ASSERT_TRUE(record);
        EXPECT_EQ(platform::wide(record->name), platform::wide(fixed.name));
        if (fixed.group != kAny) {
            EXPECT_EQ(platform::wide(record->group), platform::wide(fixed.group));
        }
        EXPECT_EQ(record->groupIndex, fixed.groupIndex);
        expectNumber(fixed.valueKind, static_cast<std::uint32_t>(record->valueKind), "valueKind");
        expectNumber(fixed.writable, record->writable ? 1U : 0U, "writable");
        expectNumber(fixed.categoryId, record->categoryId, "categoryId");
        expectNumber(fixed.tableId, record->tableId, "tableId");
    }
}

TEST(FixedTagIds, LookUpByNameGivesTheQuotedIds) {
    for (const FixedRow& fixed : kFixedRows) {
        EXPECT_EQ(dictionary().FindTagId(fixed.groupIndex, platform::wide(fixed.name)),
                  static_cast<int>(fixed.id))
            << fixed.id;
    }
}

TEST(FixedTagIds, PayloadIdsAreBinaryAndUseAllPayloadNames) {
    std::set<std::u16string_view> names;
    for (const std::uint32_t id : kPayloadIds) {
        const std::optional<TagRecord> record = dictionary().FindTagById(id);
        ASSERT_TRUE(record) << id;
        EXPECT_EQ(record->valueKind, ValueKind::Binary) << id;
        names.insert(record->name);
    }
    EXPECT_EQ(names, std::set<std::u16string_view>(std::begin(kPayloadNames), std::end(kPayloadNames)));
}

TEST(FixedTagIds, IdOnTwoRowsGivesTheFirst) {
    const std::span<const TagRecord> records = dictionary().records();
    std::vector<const TagRecord*> rows;
    for (const TagRecord& record : records) {
        if (record.id == 2073) rows.push_back(&record);
    }
    ASSERT_EQ(rows.size(), 2U);
    for (const TagRecord* row : rows) EXPECT_EQ(platform::wide(row->name), "Canon_0x0018");
    EXPECT_EQ(rows[0]->valueKind, ValueKind::Binary);
    EXPECT_TRUE(rows[0]->writable);
    EXPECT_EQ(rows[1]->valueKind, ValueKind::Integer);
    EXPECT_FALSE(rows[1]->writable);
    EXPECT_TRUE(dictionary().FindTagById(2073)->writable);
}
