#include "support/TemporaryFolder.h"
#include "tags/GroupCatalogue.h"
#include "tags/TagDictionary.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <map>

using tags::TagDictionary;
using tags::TagRecord;
using tags::ValueKind;

namespace {

std::span<const TagRecord> rows() {
    static const TagDictionary kDictionary;
    return kDictionary.records();
}

QString text(std::u16string_view units) {
    return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}

/// What ExifTool says to edits without values of these tags. There is no file, so that only the names are
/// judged.
QStringList warningsOf(const QStringList& names) {
    const support::TemporaryFolder folder;
    QByteArray arguments;
    for (const QString& name : names) arguments += '-' + name.toUtf8() + "=\n";
    support::writeBytes(folder / "arguments",
                        std::string_view(arguments.constData(), static_cast<std::size_t>(arguments.size())));
    QProcess tool;
    tool.start("exiftool",
               {"-@", QString::fromStdString((folder / "arguments").string()), "no such file.jpg"});
    EXPECT_TRUE(tool.waitForFinished(60000));
    QStringList warnings;
    for (const QString& line : QString::fromUtf8(tool.readAllStandardError()).split('\n')) {
        if (line.startsWith("Warning")) warnings += line;
    }
    return warnings;
}

QStringList editableNames() {
    QStringList names;
    for (const TagRecord& row : rows()) {
        if (row.writable && row.valueKind != ValueKind::Binary)
            names += text(row.group) + ':' + text(row.name);
    }
    return names;
}

struct SeenTag {
    QString group;
    QString tag;
    int files;
    int reference;
};

std::vector<SeenTag> seenTags() {
    QFile file(QString(TAGWRIGHT_SOURCE_DIR) + "/tools/dictionary/data/seen-in-files.tsv");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<SeenTag> seen;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
        const QStringList cells = line.split('\t');
        if (line.startsWith("# ") || cells.size() < 5 || cells[0] == "group") continue;
        seen.push_back({cells[0], cells[1], cells[2].toInt(), cells[4].toInt()});
    }
    return seen;
}

}  // namespace

TEST(EditableTags, ExifToolAcceptsEachUnderItsOwnGroup) {
    const QStringList names = editableNames();
    ASSERT_EQ(names.size(), 1947);
    QStringList refused;
    for (const QString& warning : warningsOf(names)) {
        // Maker notes keep their tags: these can be changed, though not be deleted.
        if (!warning.contains("Can't delete Permanent tag")) refused += warning;
    }
    EXPECT_TRUE(refused.isEmpty()) << refused.join('\n').toStdString();
}

TEST(EditableTags, TheCheckSeesARefusedTag) {
    EXPECT_EQ(warningsOf({"IFD0:Make", "IFD0:NoSuchTagAtAll", "IFD1:JpgFromRawStart"}).size(), 2);
}

TEST(EditableTags, AreFewForMakersAndManyForWhatPeopleWrite) {
    std::map<QString, int> editable;
    for (const TagRecord& row : rows()) {
        if (row.writable && row.valueKind != ValueKind::Binary) ++editable[text(row.group)];
    }
    for (const char* group :
         {"IFD0", "ExifIFD", "IPTC", "XMP-iptcExt", "XMP-plus", "XMP-exif", "ItemList", "UserData"}) {
        EXPECT_GE(editable[group], 50) << group;
    }
    for (const char* group : {"XMP-dc", "GPS", "XMP-iptcCore", "XMP-PHOTOSHOP", "XMP-tiff", "Keys"}) {
        EXPECT_GE(editable[group], 15) << group;
    }
}

TEST(SeenTags, EveryTagOfTheReferenceFilesIsFound) {
    const TagDictionary dictionary;
    int checked = 0;
    for (const SeenTag& seen : seenTags()) {
        if (seen.reference == 0) continue;
        const auto group = tags::FindGroup(u'[' + seen.group + u']');
        ASSERT_TRUE(group) << seen.group.toStdString();
        EXPECT_GE(dictionary.FindTagId(*group, seen.tag), 0) << (seen.group + ':' + seen.tag).toStdString();
        ++checked;
    }
    EXPECT_GT(checked, 2000);
}

TEST(SeenTags, NearlyAllThatRealFilesShowIsFound) {
    const TagDictionary dictionary;
    double shown = 0;
    double found = 0;
    for (const SeenTag& seen : seenTags()) {
        shown += seen.files;
        if (dictionary.FindTagId(*tags::FindGroup(u'[' + seen.group + u']'), seen.tag) >= 0)
            found += seen.files;
    }
    EXPECT_GT(found / shown, 0.985);  // the sizes of the largest groups allow no more than 98.8 %
}
