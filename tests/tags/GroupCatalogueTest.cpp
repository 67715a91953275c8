#include "tags/GroupCatalogue.h"

#include "app/Settings.h"
#include "platform/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

using tags::FindGroup;
using tags::GroupEntry;
using tags::GroupGate;
using tags::GroupImage;
using testing::ElementsAre;

namespace {

std::vector<std::uint32_t> groupsOfImage(GroupImage image) {
    std::vector<std::uint32_t> positions;
    for (std::uint32_t position = 0; position < tags::kGroupCount; ++position) {
        if (tags::GroupIconClass(position) == image) positions.push_back(position);
    }
    return positions;
}

std::size_t shownGroups(const app::Settings& settings) {
    std::size_t shown = 0;
    for (std::uint32_t group = 0; group < tags::kGroupCount; ++group) {
        if (tags::GroupIsShown(group, settings)) ++shown;
    }
    return shown;
}

app::Settings settingsWith(bool app::Settings::MetadataList::*key, bool value) {
    app::Settings settings;
    settings.metadataList.*key = value;
    return settings;
}

app::Settings everythingShown() {
    app::Settings settings;
    auto& show = settings.metadataList;
    show.showExif = show.showComposite = show.showGps = show.showIptc = true;
    show.showIcc = show.showMakerNotes = show.showXmp = true;
    return settings;
}

}  // namespace

TEST(GroupTable, PositionsAreGroupIdsButForOneCrossing) {
    const std::span<const GroupEntry> table = tags::groupTable();
    ASSERT_EQ(table.size(), 330U);
    for (std::uint32_t position = 0; position < table.size(); ++position) {
        const std::uint32_t expected = position == 197 ? 198 : position == 198 ? 197 : position;
        EXPECT_EQ(table[position].groupId, expected);
        EXPECT_TRUE(table[position].key.starts_with(u'[') && table[position].key.ends_with(u']')) << position;
    }
    EXPECT_EQ(platform::wide(table[197].key), "[SR2DataIFD12]");
    EXPECT_EQ(platform::wide(table[198].key), "[SR2DataIFD]");
}

TEST(GroupTable, OnlyMetaIfdStandsTwice) {
    std::map<QString, std::vector<std::uint32_t>> positions;
    for (std::uint32_t position = 0; position < tags::kGroupCount; ++position) {
        positions[platform::wide(tags::groupTable()[position].key).toLower()].push_back(position);
    }
    for (const auto& [key, found] : positions) {
        if (key == "[metaifd]") {
            EXPECT_THAT(found, ElementsAre(101, 112));
        } else {
            EXPECT_EQ(found.size(), 1U) << key.toStdString();
        }
    }
}

TEST(GroupTable, SpellsGroupsItsOwnWay) {
    const std::pair<std::uint32_t, const char*> names[] = {
        {0, "AC3"},         {8, "Audible"},         {30, "File"},
        {57, "HTTP-equiv"}, {78, "IFD0"},           {112, "MetaIFD"},
        {149, "Leica"},     {209, "System"},        {215, "Track4"},
        {227, "Track18"},   {252, "XMP-camera_1_"}, {257, "XMP_CreatorAtom"},
        {291, "XMP_lr"},    {310, "XMP-rdf"},       {329, "ZIP"}};
    for (const auto& [position, name] : names) EXPECT_EQ(tags::groupName(position), name);
    EXPECT_EQ(tags::groupName(330), QString());
}

TEST(FindGroup, FindsEveryKeyInAnyCase) {
    for (const GroupEntry& entry : tags::groupTable()) {
        const QString key = platform::wide(entry.key);
        const std::uint32_t expected = key == "[MetaIFD]" ? 101 : entry.groupId;  // the first of the two
        EXPECT_EQ(FindGroup(key), expected) << key.toStdString();
        EXPECT_EQ(FindGroup(key.toLower()), expected) << key.toStdString();
        EXPECT_EQ(FindGroup(key.toUpper()), expected) << key.toStdString();
    }
}

TEST(FindGroup, KnowsNothingElse) {
    for (const char* token : {"", "[", "]", "[]", "IFD0", "[IFD0", "IFD0]", "[IFD0] ", " [IFD0]", "[IFD00]",
                              "[IFD]", "[ExifTool]", "[XMP-lr]", "[[IFD0]]", "[IFD0][IFD1]"}) {
        EXPECT_EQ(FindGroup(QString(token)), std::nullopt) << token;
    }
    EXPECT_EQ(FindGroup(QString(1000000, u'[')), std::nullopt);
}

TEST(FindGroup, CrossedGroupsLandUnderEachOthersHeader) {
    EXPECT_EQ(tags::groupName(*FindGroup(u"[SR2DataIFD]")), "SR2DataIFD12");
    EXPECT_EQ(tags::groupName(*FindGroup(u"[SR2DataIFD12]")), "SR2DataIFD");
}

TEST(GroupIconClass, GivesEachFamilyItsPicture) {
    EXPECT_THAT(groupsOfImage(GroupImage::Exif),
                ElementsAre(17, 28, 29, 78, 79, 80, 81, 82, 112, 164, 200, 201, 202, 203, 204));
    EXPECT_THAT(groupsOfImage(GroupImage::Iptc), ElementsAre(83, 84, 85));
    EXPECT_THAT(groupsOfImage(GroupImage::File), ElementsAre(30));
    EXPECT_THAT(groupsOfImage(GroupImage::Maker), ElementsAre(107, 192, 193));
    EXPECT_THAT(groupsOfImage(GroupImage::Composite), ElementsAre(18));
    EXPECT_THAT(groupsOfImage(GroupImage::Media),
                ElementsAre(0, 4, 5, 8, 25, 27, 32, 33, 46, 50, 74, 75, 76, 77, 105, 114, 115, 116, 117, 118,
                            119, 125, 126, 146, 210, 230, 329));
    EXPECT_THAT(groupsOfImage(GroupImage::Icc), ElementsAre(66, 67, 68, 69, 70, 71, 72, 73));
    EXPECT_THAT(groupsOfImage(GroupImage::Gps), ElementsAre(47));
    EXPECT_EQ(tags::GroupIconClass(112), GroupImage::Exif);  // by position: the second MetaIFD only
    EXPECT_EQ(tags::GroupIconClass(101), GroupImage::Other);
}

TEST(GroupHasRows, FailsFor25Groups) {
    std::set<QString> without;
    for (std::uint32_t group = 0; group < tags::kGroupCount; ++group) {
        if (!tags::groupHasRows(group)) without.insert(tags::groupName(group));
    }
    const std::set<QString> expected = {"AVI1",
                                        "CHM",
                                        "EPPIM",
                                        "Ge",
                                        "GraphConv",
                                        "GZIP",
                                        "IFD3",
                                        "iWork",
                                        "JPEG-HDR",
                                        "Kyocera",
                                        "MediaJukeBox",
                                        "OCAD",
                                        "OOXML",
                                        "QVCI",
                                        "RAR",
                                        "Rawzor",
                                        "Scalado",
                                        "SVG-v",
                                        "SVG-tmp0",
                                        "XMP-crd",
                                        "XMP_CreatorAtom",
                                        "XMP-Pmi",
                                        "XMP-Swf",
                                        "MetaIFD",
                                        "NikonPreviewInfo"};
    EXPECT_EQ(without, expected);
    EXPECT_TRUE(tags::groupHasRows(101));  // the first MetaIFD
    EXPECT_FALSE(tags::groupHasRows(112));
    EXPECT_FALSE(tags::groupHasRows(330));
}

TEST(GroupIsShown, GroupsWithoutCountStayHiddenWhateverTheSettings) {
    EXPECT_EQ(shownGroups(everythingShown()), 305U);
    for (const QStringView key : {u"[IFD3]", u"[XMP-crd]", u"[XMP-Swf]", u"[Scalado]"}) {
        EXPECT_FALSE(tags::GroupIsShown(*FindGroup(key), everythingShown())) << key.toString().toStdString();
    }
}

struct Gate {
    const char* what;
    bool app::Settings::MetadataList::*key;
    std::size_t groups;  ///< that appear and vanish with the setting
};

TEST(GroupIsShown, EachSettingGatesItsOwnGroups) {
    using List = app::Settings::MetadataList;
    const Gate gates[] = {{"exif", &List::showExif, 14},
                          {"iptc", &List::showIptc, 3},
                          {"xmp", &List::showXmp, 86},
                          {"icc", &List::showIcc, 8},
                          {"makers", &List::showMakerNotes, 37},
                          {"gps", &List::showGps, 1},
                          {"composite", &List::showComposite, 1},
                          {"file", &List::showFileDefault, 0}};
    for (const Gate& gate : gates) {
        SCOPED_TRACE(gate.what);
        EXPECT_EQ(shownGroups(settingsWith(gate.key, true)) - shownGroups(settingsWith(gate.key, false)),
                  gate.groups);
    }
}

struct GateOfGroup {
    QStringView key;
    GroupGate gate;
};

TEST(GroupGateOf, IsAsymmetricOnPurpose) {
    const GateOfGroup groups[] = {{u"[IFD0]", GroupGate::Exif},
                                  {u"[EXIF]", GroupGate::None},
                                  {u"[CIFF]", GroupGate::Exif},
                                  {u"[SubIFD4]", GroupGate::Exif},
                                  {u"[MPImage1]", GroupGate::Exif},
                                  {u"[MPImage2]", GroupGate::None},
                                  {u"[Panasonic]", GroupGate::MakerNotes},
                                  {u"[MakerUnknown]", GroupGate::None},
                                  {u"[Leica]", GroupGate::MakerNotes},
                                  {u"[KodakIFD]", GroupGate::None},
                                  {u"[KDC_IFD]", GroupGate::MakerNotes},
                                  {u"[Sony]", GroupGate::MakerNotes},
                                  {u"[SPIFF]", GroupGate::None},
                                  {u"[SR2DataIFD12]", GroupGate::MakerNotes},
                                  {u"[XMP]", GroupGate::Xmp},
                                  {u"[XMP-xsl]", GroupGate::Xmp},
                                  {u"[XML]", GroupGate::None},
                                  {u"[ZIP]", GroupGate::None},
                                  {u"[System]", GroupGate::None},
                                  {u"[File]", GroupGate::None},
                                  {u"[PhaseOne]", GroupGate::None},
                                  {u"[Apple]", GroupGate::None},
                                  {u"[ICC-view]", GroupGate::Icc},
                                  {u"[GPS]", GroupGate::Gps}};
    for (const GateOfGroup& group : groups) {
        EXPECT_EQ(tags::groupGateOf(*FindGroup(group.key)), group.gate) << group.key.toString().toStdString();
    }
}

TEST(GroupIsShown, DefaultsShowExifAndWhatNothingGates) {
    const app::Settings defaults;
    EXPECT_TRUE(tags::GroupIsShown(*FindGroup(u"[IFD0]"), defaults));
    EXPECT_TRUE(tags::GroupIsShown(*FindGroup(u"[File]"), defaults));
    EXPECT_FALSE(tags::GroupIsShown(*FindGroup(u"[GPS]"), defaults));
    EXPECT_FALSE(tags::GroupIsShown(*FindGroup(u"[XMP-dc]"), defaults));
    EXPECT_FALSE(tags::GroupIsShown(330, everythingShown()));
}

TEST(GroupShowsCount, HeadersOfTwelveGroupsWithRowsShowNone) {
    std::set<QString> without;
    for (std::uint32_t group = 0; group < tags::kGroupCount; ++group) {
        if (tags::groupHasRows(group) && !tags::groupShowsCount(group))
            without.insert(tags::groupName(group));
    }
    EXPECT_EQ(without, (std::set<QString>{"AFCP", "Contax", "DV", "EXIF", "KDC_IFD", "MakerNotes", "Palm",
                                          "Sanyo", "SVG", "SVG-i", "XMP-camera", "XMP-camera_1_"}));
    EXPECT_FALSE(tags::groupShowsCount(112));
}
