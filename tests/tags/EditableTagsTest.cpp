#include "platform/Text.h"
#include "support/TemporaryFolder.h"
#include "tags/TagDictionary.h"

#include <gtest/gtest.h>

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
            names += platform::wide(row.group) + ':' + platform::wide(row.name);
    }
    return names;
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
        if (row.writable && row.valueKind != ValueKind::Binary) ++editable[platform::wide(row.group)];
    }
    for (const char* group :
         {"IFD0", "ExifIFD", "IPTC", "XMP-iptcExt", "XMP-plus", "XMP-exif", "ItemList", "UserData"}) {
        EXPECT_GE(editable[group], 50) << group;
    }
    for (const char* group : {"XMP-dc", "GPS", "XMP-iptcCore", "XMP-PHOTOSHOP", "XMP-tiff", "Keys"}) {
        EXPECT_GE(editable[group], 15) << group;
    }
}
