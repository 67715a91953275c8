#include "support/SmallFiles.h"
#include "tags/GroupCatalogue.h"
#include "tags/TagDictionary.h"
#include "tags/TagFamilies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <filesystem>

// The tables of groups, families and tags, held against what ExifTool itself lists and prints.

namespace {

using tags::TagDictionary;
using tags::TagRecord;

const TagDictionary& dictionary() {
    static const TagDictionary kDictionary;
    return kDictionary;
}

QString text(std::u16string_view units) {
    return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}

struct ListedTag {
    QString family0;
    QString family1;
    QString name;
    bool writable = false;
};

/// All tags that the installed ExifTool lists.
const std::vector<ListedTag>& listedTags() {
    static const std::vector<ListedTag> kTags = [] {
        std::vector<ListedTag> found;
        QXmlStreamReader listing(QString::fromStdString(support::ExifTool({"-lang", "en", "-f", "-listx"})));
        QString family0;
        QString family1;
        while (!listing.atEnd()) {
            if (listing.readNext() != QXmlStreamReader::StartElement) continue;
            const QXmlStreamAttributes given = listing.attributes();
            if (listing.name() == u"table") {
                family0 = given.value(QLatin1String("g0")).toString();
                family1 = given.value(QLatin1String("g1")).toString();
            } else if (listing.name() == u"tag") {
                const auto own = [&](const char* key, const QString& ofTable) {
                    return given.hasAttribute(QLatin1String(key)) ? given.value(QLatin1String(key)).toString()
                                                                  : ofTable;
                };
                found.push_back({own("g0", family0), own("g1", family1),
                                 given.value(QLatin1String("name")).toString(),
                                 given.value(QLatin1String("writable")) == u"true"});
            }
        }
        EXPECT_FALSE(listing.hasError()) << listing.errorString().toStdString();
        return found;
    }();
    return kTags;
}

/// The names of family 1 that ExifTool lists; "#" stands for a number.
QStringList listedGroups() {
    const QString output = QString::fromStdString(support::ExifTool({"-listg1"}));
    return output.section(u'\n', 1).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

/// The way of a line of ExifTool's output to its record: the bracketed group, then the name.
bool isKnown(const QString& group, const QString& name) {
    const auto groupId = tags::FindGroup(u'[' + group + u']');
    return groupId && dictionary().FindTagId(*groupId, name) >= 0;
}

}  // namespace

TEST(ExifToolsList, IsReadWhole) {
    EXPECT_GT(listedTags().size(), 20000U);
    EXPECT_GT(listedGroups().size(), 250);
}

// --- groups

TEST(GroupKeys, AGroupThatExifToolNamesIsShownUnderThatName) {
    int found = 0;
    for (const QString& name : listedGroups()) {
        const auto group = tags::FindGroup(u'[' + name + u']');
        if (!group) continue;
        ++found;
        // This one stands crossed with its twin.
        const QString shown = name == "SR2DataIFD" ? QStringLiteral("SR2DataIFD12") : name;
        EXPECT_EQ(tags::groupName(*group).toLower(), shown.toLower()) << name.toStdString();
    }
    EXPECT_GE(found, 220);
}

TEST(GroupKeys, NoGroupOfWhatPeopleWriteIsMissing) {
    QHash<QString, int> missing;
    QHash<QString, int> known;
    for (const ListedTag& tag : listedTags()) {
        if (!tag.writable) continue;
        ++(tags::FindGroup(u'[' + tag.family1 + u']') ? known : missing)[tag.family1];
    }
    for (const char* group : {"IFD0", "ExifIFD", "GPS", "IPTC", "ItemList", "Keys", "UserData", "XMP-dc",
                              "XMP-exif", "XMP-iptcCore", "XMP-iptcExt", "XMP-photoshop", "XMP-plus",
                              "XMP-tiff", "XMP-xmp", "XMP-xmpMM", "XMP-xmpRights"})
        EXPECT_GT(known.value(group), 0) << group;
    int inMissing = 0;
    int inKnown = 0;
    for (const int count : std::as_const(missing)) inMissing += count;
    for (const int count : std::as_const(known)) inKnown += count;
    EXPECT_LT(inMissing * 8, inKnown) << "spellings of the catalogue's own hide few of them";
}

// --- families

struct FamilyOfExifTool {
    int number;
    QStringList family0;
    int least;  ///< rows that ExifTool can judge: those that it lists under the same group
};

TEST(TagFamilies, HoldTheTagsOfTheirFamilyInExifTool) {
    const FamilyOfExifTool families[] = {
        {1, {"EXIF", "PrintIM"}, 450},
        {2, {"IPTC"}, 110},
        {3, {"XMP"}, 1400},
        {4, {"EXIF"}, 30},
        {5, {"ICC_Profile"}, 100},
        {7, {"DICOM", "XMP"}, 280},
        {8, {"PNG", "Jpeg2000", "PhotoCD", "GIF", "MNG", "OpenEXR", "Radiance", "JFIF"}, 120},
        {9, {"MakerNotes", "PanasonicRaw", "RAF"}, 3000}};
    QHash<QString, QSet<QString>> families0;
    for (const ListedTag& tag : listedTags())
        families0[(tag.family1 + u':' + tag.name).toLower()].insert(tag.family0);
    for (const FamilyOfExifTool& wanted : families) {
        SCOPED_TRACE(wanted.number);
        const tags::TagFamily* family = tags::findFamily(wanted.number);
        ASSERT_NE(family, nullptr);
        int judged = 0;
        for (const TagRecord* row : tags::tagsOfFamily(dictionary(), *family)) {
            const QString key = text(tags::groupTable()[row->groupIndex].key);
            const QString tag = (key.sliced(1, key.size() - 2) + u':' + text(row->name)).toLower();
            const auto listed = families0.constFind(tag);
            if (listed == families0.constEnd()) continue;
            ++judged;
            EXPECT_TRUE(std::ranges::any_of(wanted.family0, [&](const QString& one) {
                return listed->contains(one);
            })) << tag.toStdString();
        }
        EXPECT_GE(judged, wanted.least);
    }
}

TEST(TagFamilies, LackNoTagThatPeopleWrite) {
    const std::pair<int, QStringList> families[] = {
        {1, {"IFD0"}}, {2, {"IPTC"}}, {3, {"XMP-dc", "XMP-xmp", "XMP-photoshop"}}, {4, {"GPS"}}};
    const QStringList exceptions{"IFD0:MakerNoteSafety"};
    for (const auto& [number, groups] : families) {
        QSet<QString> offered;
        for (const TagRecord* row : tags::tagsOfFamily(dictionary(), *tags::findFamily(number)))
            offered.insert(text(row->name).toLower());
        for (const ListedTag& tag : listedTags()) {
            const QString name = tag.family1 + u':' + tag.name;
            if (!tag.writable || !groups.contains(tag.family1) || exceptions.contains(name)) continue;
            EXPECT_TRUE(offered.contains(tag.name.toLower())) << name.toStdString();
        }
    }
}

// --- tags

TEST(SeenTags, GroupsThatPeopleWriteAreWhole) {
    const QStringList groups{
        "Composite",  "ExifIFD",      "GPS",           "IFD0",         "IPTC",
        "InteropIFD", "ItemList",     "JFIF",          "Keys",         "PDF",
        "PNG",        "Photoshop",    "System",        "UserData",     "XMP-GPano",
        "XMP-MP",     "XMP-acdsee",   "XMP-aux",       "XMP-cc",       "XMP-dc",
        "XMP-dex",    "XMP-digiKam",  "XMP-dwc",       "XMP-exif",     "XMP-expressionmedia",
        "XMP-getty",  "XMP-iptcCore", "XMP-iptcExt",   "XMP-mediapro", "XMP-microsoft",
        "XMP-mwg-rs", "XMP-pdf",      "XMP-photoshop", "XMP-plus",     "XMP-tiff",
        "XMP-xmp",    "XMP-xmpDM",    "XMP-xmpMM",     "XMP-xmpRights"};
    // The dictionary has as many rows as it has; these gave way.
    const QStringList exceptions{"IFD0:MakerNoteSafety", "ItemList:Rating", "UserData:MakerNotePentaxUnknown",
                                 "UserData:Rating"};
    QSet<QString> met;
    int checked = 0;
    for (const ListedTag& tag : listedTags()) {
        if (!tag.writable || !groups.contains(tag.family1)) continue;
        // The blocks of makers are never written by themselves.
        if (tag.family1 == "ExifIFD" && tag.name.startsWith("MakerNote")) continue;
        met.insert(tag.family1);
        ++checked;
        const QString name = tag.family1 + u':' + tag.name;
        EXPECT_EQ(isKnown(tag.family1, tag.name), !exceptions.contains(name)) << name.toStdString();
    }
    EXPECT_EQ(met.size(), groups.size());
    EXPECT_GT(checked, 1000);
}

TEST(SeenTags, WhatExifToolPrintsOfOurPicturesIsKnown) {
    // Other languages of a text and the texts of a recording have no rows.
    const QStringList exceptions{"XMP-dc:Description-de", "RIFF:Title", "RIFF:Artist", "RIFF:Comment"};
    const std::filesystem::path samples = std::filesystem::path(TAGWRIGHT_SOURCE_DIR) / "data/samples";
    const QString output =
        QString::fromStdString(support::ExifTool({"-a", "-u", "-G1", "-s", "-q", "-t", samples.string()}));
    QSet<QString> unknown;
    QSet<QString> shown;
    for (const QString& line : output.split(u'\n')) {
        const QStringList cells = line.split(u'\t');
        if (cells.size() < 3 || cells[0] == "ExifTool") continue;
        const QString name = cells[0] + u':' + cells[1];
        shown.insert(name);
        if (!isKnown(cells[0], cells[1])) unknown.insert(name);
    }
    EXPECT_GT(shown.size(), 150);
    unknown.subtract(QSet<QString>(exceptions.begin(), exceptions.end()));
    EXPECT_TRUE(unknown.isEmpty()) << unknown.values().join(u' ').toStdString();
}

TEST(SeenTags, MostOfWhatRealFilesShowIsKnown) {
    // In how many of 1,993 files ExifTool prints a tag. The sizes of the groups allow 98.9 %.
    QFile counted(QStringLiteral(TAGWRIGHT_SOURCE_DIR "/tools/dictionary/data/seen-in-files.tsv"));
    ASSERT_TRUE(counted.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList lines = QString::fromUtf8(counted.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QStringList columns;
    int shown = 0;
    int known = 0;
    for (const QString& line : lines) {
        if (line.startsWith("# ")) continue;
        const QStringList cells = line.split(u'\t');
        if (columns.isEmpty()) {
            columns = cells;
            ASSERT_TRUE(columns.contains("files") && columns.contains("more"));
            continue;
        }
        const int files = cells[columns.indexOf("files")].toInt() + cells[columns.indexOf("more")].toInt();
        shown += files;
        if (isKnown(cells[columns.indexOf("group")], cells[columns.indexOf("tag")])) known += files;
    }
    EXPECT_GT(shown, 150'000);
    EXPECT_GT(known, shown * 0.984) << known << " of " << shown;
}
