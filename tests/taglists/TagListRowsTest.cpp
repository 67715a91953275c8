#include "taglists/TagListRows.h"

#include "support/TemporaryFolder.h"
#include "taglists/AddTagsGroups.h"
#include "taglists/TagValueWrites.h"
#include "tags/Entries.h"

#include <gtest/gtest.h>

using namespace taglists;
using namespace tags;
using tags::ValueKind;

namespace {

const tags::TagDictionary& dictionary() {
    static const tags::TagDictionary kDictionary;
    return kDictionary;
}

TagRow row(const char* group, const char* name, const char* fileValue = "") {
    TagRow row;
    row.name = QString::fromUtf8(name);
    row.group = QString::fromUtf8(group);
    row.kind = ValueKind::Text;
    row.value = row.fileValue = QString::fromUtf8(fileValue);
    return row;
}

std::string names(const TagRows& rows) {
    QStringList all;
    for (const TagRow& row : rows) all << row.group + u':' + row.name;
    return all.join(u' ').toStdString();
}

}  // namespace

TEST(TagListRows, AFamilyGivesItsWritableTagsButNoBinaryOnes) {
    for (const auto& [mode, family] : {std::pair{1, 1}, {2, 2}, {7, 3}}) {
        const TagRows rows = rowsOfMode(dictionary(), mode);
        std::size_t expected = 0;
        for (const tags::TagRecord* record : tags::tagsOfFamily(dictionary(), *tags::findFamily(family)))
            expected += record->writable && record->valueKind != ValueKind::Binary ? 1 : 0;
        EXPECT_EQ(rows.size(), expected) << mode;
        EXPECT_GT(rows.size(), 90U) << mode;
        for (const TagRow& row : rows) {
            EXPECT_NE(row.kind, ValueKind::Binary);
            EXPECT_TRUE(dictionary().FindTagById(static_cast<std::uint32_t>(row.tagId)));
            EXPECT_FALSE(row.changed || row.ticked || !row.value.isEmpty());
        }
    }
}

TEST(TagListRows, OtherNumbersAreNoMode) {
    for (const int mode : {0, 3, 8, 10, 11, 22, 31, 35, 281, -1}) {
        EXPECT_TRUE(rowsOfMode(dictionary(), mode).empty()) << mode;
    }
}

TEST(TagListRows, CommandsGiveTheirOwnNumberAsDesigned) {
    for (const int command : {22, 31, 35})
        EXPECT_EQ(modeOfCommand(app::CommandForm::Designed, command), command);
    EXPECT_EQ(modeOfCommand(app::CommandForm::Corrected, 22), 1);
    EXPECT_EQ(modeOfCommand(app::CommandForm::Corrected, 31), 2);
    EXPECT_EQ(modeOfCommand(app::CommandForm::Corrected, 35), 7);
    EXPECT_EQ(modeOfCommand(app::CommandForm::Corrected, 23), 23);
    EXPECT_EQ(familyNameOfCommand(22), "EXIF");
    EXPECT_EQ(familyNameOfCommand(31), "IPTC");
    EXPECT_EQ(familyNameOfCommand(35), "XMP");
}

TEST(TagListRows, ValuesFileTypesFollowTheMode) {
    struct {
        int mode;
        int preselected;
        const char* extension;
    } const cases[] = {{1, 0, "exif"},  {2, 1, "iptc"}, {7, 2, "xmp"},
                       {281, 2, "xmp"}, {10, 2, "gps"}, {22, 0, ""}};
    for (const auto& row : cases) {
        const ValuesFileType type = valuesFileTypeOfMode(row.mode);
        EXPECT_EQ(type.preselected, row.preselected) << row.mode;
        EXPECT_EQ(type.extension, row.extension) << row.mode;
    }
    EXPECT_EQ(valuesFileTypes(app::CommandForm::Designed),
              QStringList({"EXIF (*.exif)", "IPTC (*.iptc)", "XMP (*.xmp)"}));
}

TEST(AddTagsGroups, EveryCommandHasItsGroup) {
    struct {
        int command;
        const char* group;
        std::uint32_t category;
    } const cases[] = {
        {23, "IFD0", 1413},        {24, "IFD1", 1414},       {30, "ExifIFD", 1418},
        {32, "IPTC", 1422},        {33, "IPTC", 1421},       {34, "IPTC", 1423},
        {36, "XMP", 1487},         {57, "XMP-aas", 1425},    {76, "XMP-DepthBlueEffect", 1153},
        {96, "XMP-Gml", 1151},     {100, "XMP-idpriv", 996}, {112, "XMP-Mp", 1476},
        {121, "XMP-pmtm-1", 1807}, {142, "GPS", 1076},       {107, "IFD0", 1413},
        {128, "IFD0", 1413},       {31, "IFD0", 1413},       {0, "IFD0", 1413},
    };
    for (const auto& row : cases) {
        const AddTagsGroup& group = addTagsGroupOf(row.command);
        EXPECT_EQ(group.group, row.group) << row.command;
        EXPECT_EQ(group.categoryId, row.category) << row.command;
    }
    EXPECT_EQ(addTagsGroups().size(), 95U);
}

TEST(AddTagsGroups, WhatTheDictionaryHasCanBeReached) {
    std::size_t groups = 0;
    for (const AddTagsGroup& group : addTagsGroups())
        groups += rowsOfCategory(dictionary(), group.categoryId).empty() ? 0 : 1;
    EXPECT_GT(groups, 60U);
    EXPECT_EQ(rowsOfGroup(dictionary(), "gps").size(), rowsOfCategory(dictionary(), 1076).size());
    EXPECT_FALSE(rowsOfGroup(dictionary(), "XMP_lr").empty());
    EXPECT_TRUE(rowsOfGroup(dictionary(), "no such group").empty());
}

TEST(TagListRows, ValuesAreFoundByGroupAndName) {
    const support::TemporaryFolder folder;
    support::writeBytes(
        folder / "out",
        "[IFD0] Make: Acme\n[IFD1] Make: Other\n[XMP-xmp] Rating: 3\nMake: nowhere\n"
        "[IFD0] Make: second\n[IFD0] Software: one: two\n[ExifTool] Warning: [minor] x\n[IFD0\n");
    TagRows rows{row("IFD1", "Make"), row("IFD0", "Make"), row("XMP-Xmp", "Rating"), row("IFD0", "Software"),
                 row("IFD0", "make")};
    TagRows exact = rows;
    EXPECT_TRUE(fillValues(exact, folder / "out"));
    EXPECT_TRUE(fillExactValues(rows, folder / "out", [](int) { return false; }));
    const char* const expected[] = {"Other", "Acme", "3", "one: two", ""};
    for (std::size_t at = 0; at < rows.size(); ++at) {
        EXPECT_EQ(rows[at].value, expected[at]) << at;
        EXPECT_EQ(exact[at].value, at == 2 ? "" : expected[at]) << at;
        EXPECT_EQ(rows[at].fileValue, rows[at].value);
        EXPECT_FALSE(rows[at].changed);
    }
    EXPECT_FALSE(fillValues(rows, folder / "missing"));
    EXPECT_EQ(rows[1].value, "Acme");
    EXPECT_EQ(rows[1].timesInFile, 2);
}

TEST(TagListRows, AValueIsAChangeOnlyWhereItDiffers) {
    TagRow held = row("IFD0", "Make", "Acme");
    setRowValue(held, {.value = "New", .code = "7"});
    EXPECT_TRUE(held.changed);
    EXPECT_EQ(held.code, "7");
    setRowValue(held, {.value = "Acme", .code = "7"});
    EXPECT_FALSE(held.changed);
    EXPECT_EQ(held.code, "");
    TagRow absent = row("IFD0", "Make");
    setRowValue(absent, {.value = ""});
    EXPECT_FALSE(absent.changed);
}

TEST(TagListRows, EmptyingAsksForRemovalOfWhatOneFileHolds) {
    TagRow held = row("IFD0", "Make", "Acme");
    emptyRow(held, false);
    EXPECT_TRUE(held.isRemoval());
    undoRow(held);
    EXPECT_EQ(held.value, "Acme");
    EXPECT_FALSE(held.changed);
    TagRow absent = row("IFD0", "Make");
    setRowValue(absent, {.value = "typed"});
    emptyRow(absent, false);
    EXPECT_FALSE(absent.changed);
    EXPECT_EQ(absent.value, "");
}

TEST(TagListRows, OverSeveralFilesEmptyingForgetsFirstAndRemovesThen) {
    TagRow absent = row("IFD0", "Make");
    setRowValue(absent, {.value = "typed", .severalEntries = true});
    emptyRow(absent, true);
    EXPECT_FALSE(absent.changed);
    EXPECT_FALSE(absent.severalEntries);
    emptyRow(absent, true);
    EXPECT_TRUE(absent.isRemoval());
    emptyRow(absent, true);
    EXPECT_FALSE(absent.changed);
}

TEST(TagListRows, SortsByUnitsNotByLanguage) {
    TagRows rows{row("b", "apple"), row("a", "Zebra"), row("b", "\xC3\xA4"), row("a", "apple"),
                 row("b", "Apple")};
    sortRows(rows, TagSort::Name, true);
    EXPECT_EQ(names(rows), "b:Apple a:Zebra b:apple a:apple b:\xC3\xA4");
    sortRows(rows, TagSort::Name, false);
    EXPECT_EQ(names(rows), "b:\xC3\xA4 b:apple a:apple a:Zebra b:Apple");
    sortRows(rows, TagSort::Group, true);
    EXPECT_EQ(names(rows), "a:apple a:Zebra b:\xC3\xA4 b:apple b:Apple");
}

TEST(TagListRows, AFilterLooksForItsWordsEverywhere) {
    const TagRow tag = row("XMP-dc", "Creator");
    const QString label = "Author of the picture";
    for (const char* filter : {"", " ", "crea", "CREATOR", "xmp crea", "author", "picture dc"})
        EXPECT_TRUE(matchesFilter(tag, label, filter)) << filter;
    for (const char* filter : {"title", "creator title", "xmp-dcCreator"})
        EXPECT_FALSE(matchesFilter(tag, label, filter)) << filter;
}

TEST(TagListRows, AValueIsShownOnOneLine) {
    TagRow list = row("XMP-dc", "Subject");
    setRowValue(list, {.value = joinEntries({"one", "two\nthree"}), .severalEntries = true});
    EXPECT_EQ(shownValue(list), "one, two.three");
    TagRow text = row("XMP-dc", "Description");
    setRowValue(text, {.value = "a\nb"});
    EXPECT_EQ(shownValue(text), "a.b");
}
