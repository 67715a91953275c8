#include "tags/TagDictionary.h"

#include "platform/Text.h"

#include <gtest/gtest.h>

using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;

namespace {

const TagDictionary& dictionary() {
    static const TagDictionary kDictionary;
    return kDictionary;
}

/// The name with the case of the letter at that place turned over.
QString caseTurned(QString name, qsizetype place) {
    if (place < 0 || place >= name.size()) return name;
    const QChar letter = name[place];
    name[place] = letter.isUpper() ? letter.toLower() : letter.toUpper();
    return name;
}

/// What goes wrong with names: other case early and late, cut, longer, another letter, another script.
std::vector<QString> mutations(const QString& name) {
    return {caseTurned(name, 0),
            caseTurned(name, 1),
            caseTurned(name, 2),
            caseTurned(name, name.size() - 1),
            name.toUpper(),
            name.toLower(),
            name.left(name.size() - 1),
            name.left(2),
            name.left(1),
            name + u'X',
            name + u' ',
            u'X' + name,
            QString(name).replace(u'e', QChar(0xE9)),
            QString(name).replace(u'k', QChar(0x212A)),
            QString(name).replace(u'i', QChar(0x130))};
}

}  // namespace

TEST(FindTagId, AgreesWithThePlainScanOverAllRows) {
    for (const TagRecord& row : dictionary().records()) {
        const QString name = platform::wide(row.name);
        const int found = dictionary().FindTagId(row.groupIndex, name);
        ASSERT_GE(found, 0) << row.id;
        ASSERT_EQ(found, dictionary().findTagIdByScan(row.groupIndex, name)) << row.id;
    }
}

TEST(FindTagId, AgreesWithThePlainScanOverMutatedNamesAndOtherGroups) {
    std::size_t number = 0;
    for (const TagRecord& row : dictionary().records()) {
        const QString name = platform::wide(row.name);
        const std::vector<QString> wrong = mutations(name);
        // Each row tries some of the mutations, so that all are tried on thousands of names in a few seconds.
        for (std::size_t step = 0; step < 3; ++step) {
            const QString& mutated = wrong[(number + step * 5) % wrong.size()];
            ASSERT_EQ(dictionary().FindTagId(row.groupIndex, mutated),
                      dictionary().findTagIdByScan(row.groupIndex, mutated))
                << mutated.toStdString();
        }
        const std::uint32_t otherGroup = (row.groupIndex + 7) % 330;
        ASSERT_EQ(dictionary().FindTagId(otherGroup, name), dictionary().findTagIdByScan(otherGroup, name));
        ++number;
    }
}

struct LookUp {
    const char* what;
    QString name;
    std::uint32_t group;
    int id;
};

TEST(FindTagId, ComparesTheFirstTwoLettersExactlyAndTheRestWithoutCase) {
    const LookUp lookUps[] = {{"exact", "ModifyDate", 78, 1108},
                              {"other case in the third letter", "MoDIFYDATE", 78, 1108},
                              {"other case in the first letter", "modifyDate", 78, -1},
                              {"other case in the second letter", "MOdifyDate", 78, -1},
                              {"shorter", "ModifyDat", 78, -1},
                              {"longer", "ModifyDate ", 78, -1},
                              {"another group", "ModifyDate", 79, 1364},
                              {"a group that does not know it", "ModifyDate", 0, -1},
                              {"no group", "ModifyDate", 330, -1},
                              {"far from any group", "ModifyDate", 0xFFFFFFFF, -1},
                              {"an empty name", "", 11, 2018},
                              {"an empty name in a group without one", "", 78, -1},
                              {"a stray name in another group", "FullPanoWidthPixels ", 287, -1},
                              {"a crossed group", "ModifyDate", 198, -1}};
    for (const LookUp& lookUp : lookUps) {
        SCOPED_TRACE(lookUp.what);
        EXPECT_EQ(dictionary().FindTagId(lookUp.group, lookUp.name), lookUp.id);
        EXPECT_EQ(dictionary().findTagIdByScan(lookUp.group, lookUp.name), lookUp.id);
    }
}

TEST(FindTagById, GivesTheFirstRowOfEveryId) {
    std::uint32_t expected = 0;
    for (const TagRecord& row : dictionary().records()) {
        if (row.id < expected) continue;
        for (; expected < row.id; ++expected) EXPECT_FALSE(dictionary().FindTagById(expected)) << expected;
        const std::optional<TagRecord> found = dictionary().FindTagById(row.id);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->name, row.name);
        EXPECT_EQ(found->groupIndex, row.groupIndex);
        EXPECT_EQ(found->valueKind, row.valueKind);
        EXPECT_EQ(found->writable, row.writable);
        ++expected;
    }
    EXPECT_FALSE(dictionary().FindTagById(14033));
    EXPECT_FALSE(dictionary().FindTagById(0xFFFFFFFF));
}

TEST(FindTagById, LeavesTheSelectionMarkBehind) {
    TagDictionary own;
    for (TagRecord& row : own.records()) row.selected = true;
    EXPECT_FALSE(own.FindTagById(1142)->selected);
    EXPECT_FALSE(dictionary().records()[1].selected);
}

TEST(TagsOfCategory, OffersWhatCanBeTypedInTableOrder) {
    const std::vector<const TagRecord*> offered = dictionary().TagsOfCategory(1413);
    ASSERT_GT(offered.size(), 20U);
    std::size_t writable = 0;
    for (const TagRecord& row : dictionary().records()) {
        if (row.categoryId == 1413 && row.writable && row.valueKind != ValueKind::Binary) ++writable;
    }
    EXPECT_EQ(offered.size(), writable);
    for (std::size_t index = 0; index < offered.size(); ++index) {
        EXPECT_EQ(offered[index]->categoryId, 1413U);
        EXPECT_TRUE(offered[index]->writable);
        EXPECT_NE(offered[index]->valueKind, ValueKind::Binary);
        if (index > 0) {
            EXPECT_LT(offered[index - 1], offered[index]);
        }
    }
    EXPECT_TRUE(dictionary().TagsOfCategory(1073).empty());  // nothing of the file system is written this way
    EXPECT_TRUE(dictionary().TagsOfCategory(0).empty());
}
