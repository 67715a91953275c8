#include "tags/RowAppearance.h"

#include <gtest/gtest.h>

using namespace tags;

namespace {

constexpr PanelColour of(std::uint32_t bgr) {
    return {PanelColour::Source::Setting, bgr};
}

}  // namespace

TEST(RowAppearance, TheValueIsColouredByWhatCanBeDoneWithIt) {
    const app::Settings::Colors colours;
    const RatingMemory memory;
    struct Case {
        const char* what;
        const char16_t* group;
        bool writable;
        ValueKind kind;
        PanelColour value;
        std::optional<ValueKind> icon;
    };
    const Case cases[] = {
        {"plain", u"[IFD0]", false, ValueKind::Text, of(colours.defaultText), std::nullopt},
        {"of the file", u"[File]", false, ValueKind::Integer, {PanelColour::Source::Text, 0}, std::nullopt},
        {"of the system", u"[System]", false, ValueKind::Date, of(colours.system), std::nullopt},
        {"editable", u"[XMP-dc]", true, ValueKind::Text, of(colours.canBeModifiedTag), ValueKind::Text},
        {"editable binary", u"[IFD0]", true, ValueKind::Binary, of(colours.tagHexa), ValueKind::Binary},
        {"editable of the system",
         u"[System]",
         true,
         ValueKind::Date,
         {PanelColour::Source::Link, 0},
         ValueKind::Date},
        {"binary", u"[IFD1]", false, ValueKind::Binary, of(colours.defaultText), ValueKind::Binary},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.what);
        MetadataRow row;
        row.groupId = *FindGroup(QStringView(expected.group));
        row.tagId = 1;
        const TagRecord record{1, u"Name", 0, u"Group", row.groupId, expected.kind, expected.writable, 0};
        const RowAppearance look = appearanceOf(row, record, colours, memory);
        EXPECT_EQ(look.valueColour, expected.value);
        EXPECT_EQ(look.kindIcon, expected.icon);
        EXPECT_EQ(look.tagColour, of(colours.libelle));
        EXPECT_EQ(look.idColour, of(colours.tagId));
        EXPECT_FALSE(look.unknownMark);
    }
    const RowAppearance unknown = appearanceOf({}, std::nullopt, colours, memory);
    EXPECT_EQ(unknown.valueColour, of(colours.unknownTag));
    EXPECT_TRUE(unknown.unknownMark);
}

TEST(RowAppearance, StarsComeFromTheMemoryWhereTheTagHasASlot) {
    const app::Settings::Colors colours;
    RatingMemory memory;
    memory.Store(1142, 4);
    MetadataRow row;
    row.stars = 2;
    row.tagId = 1142;
    EXPECT_EQ(appearanceOf(row, std::nullopt, colours, memory).stars, 4);
    row.tagId = 2674;
    EXPECT_EQ(appearanceOf(row, std::nullopt, colours, memory).stars, 0) << "never set: its stars stay empty";
    row.tagId = 77;
    EXPECT_EQ(appearanceOf(row, std::nullopt, colours, memory).stars, 2);
    row.stars.reset();
    EXPECT_FALSE(appearanceOf(row, std::nullopt, colours, memory).stars);
}

TEST(RowAppearance, StarsAreFiveInAllUnlessThereAreMore) {
    const std::array<std::array<int, 3>, 5> cases = {
        {{0, 0, 5}, {3, 3, 2}, {5, 5, 0}, {7, 7, 0}, {-1, 0, 5}}};
    for (const auto& [rating, filled, empty] : cases) {
        EXPECT_EQ(starsOf(rating).filled, filled) << rating;
        EXPECT_EQ(starsOf(rating).empty, empty) << rating;
    }
}

TEST(RowAppearance, AHeaderTakesAndReplacesItsCount) {
    EXPECT_EQ(groupTitleWithCount(" IFD0", 12), " IFD0 (12)");
    EXPECT_EQ(groupTitleWithCount(" IFD0 (12)", 3), " IFD0 (3)");
    EXPECT_EQ(groupTitleWithCount(" IFD0(12)", 3), " IFD0 (3)");
}

TEST(RowAppearance, OnlyWhatLooksLikeAnAddressIsOfferedToBeOpened) {
    for (const char16_t* value : {u"http://a", u"https://a", u"com.example", u"vnd.youtube:x"})
        EXPECT_TRUE(looksLikeAddress(QStringView(value)));
    for (const char16_t* value : {u"", u"see http://a", u"HTTP://a", u"file:///etc/passwd", u"command"})
        EXPECT_FALSE(looksLikeAddress(QStringView(value)));
}
