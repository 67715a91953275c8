#include "taglists/TagValueLines.h"

#include "support/EditedFile.h"

using namespace taglists;
using platform::CommandText;
using tags::ValueKind;

namespace {

const std::filesystem::path kFile = "/photos/my 100%.jpg";
const std::string kTool = "\"/opt/my tools/exiftool\"";
const std::string kTail = " -charset filename=UTF8 \"/photos/my 100%.jpg\"";

TagRow row(const char* group, const char* name, const char* value, const char* fileValue = "") {
    TagRow row;
    row.group = QString::fromUtf8(group);
    row.name = QString::fromUtf8(name);
    row.kind = ValueKind::Text;
    row.fileValue = QString::fromUtf8(fileValue);
    row.value = QString::fromUtf8(value);
    row.changed = row.value != row.fileValue;
    return row;
}

class TagValueLines : public EditedFile {
 protected:
    TagValueLines() {
        context.exifToolPath = "/opt/my tools/exiftool";
        context.reportFile = "/cache/day.txt";
    }
    std::string changedLine(const TagRows& rows) {
        return writeChangedTagsCommand(context, changedTags(parts, rows), kFile).text();
    }
    /// The words that ExifTool gets.
    static std::vector<std::string> words(const CommandText& line) {
        const auto parsed = platform::parseCommands(line, platform::TypedPieces::AsTheyStand);
        EXPECT_EQ(parsed.size(), 1U);
        return parsed.empty() ? std::vector<std::string>() : parsed[0].words;
    }
};

}  // namespace

TEST_F(TagValueLines, DesignedModifyEmptiesTheGroupOfTheFirstRow) {
    const TagRows rows{row("XMP-dc", "Title", ""), row("IFD0", "Make", "Acme")};
    EXPECT_EQ(emptyGroupOfFirstRowCommand(context, rows, kFile).text(), kTool + " -m -XMP-dc=" + kTail);
    EXPECT_EQ(emptyGroupOfFirstRowCommand(context, rows, {}).text(), kTool + " -m -XMP-dc=");
    EXPECT_EQ(emptyGroupOfFirstRowCommand(context, {}, kFile).text(), kTool + " -m -=" + kTail);
}

TEST_F(TagValueLines, DesignedModifyWritesEveryRowWithAValue) {
    const TagRows rows{row("IFD0", "Make", "Acme", "Acme"), row("IFD0", "Model", ""),
                       row("XMP-dc", "Title", "a b")};
    EXPECT_EQ(writeRowsCommand(context, rows, kFile).text(),
              kTool + " -IFD0:Make=\"Acme\" -XMP-dc:Title=\"a b\" -n -z -overwrite_original" + kTail);
    EXPECT_EQ(writeRowsCommand(context, {}, kFile).text(), kTool + " -n -z -overwrite_original" + kTail);
}

TEST_F(TagValueLines, DesignedGpsHasNoQuotesAndNoCharset) {
    const TagRows rows{row("GPS", "GPSLatitude", "48.5"), row("GPS", "GPSAltitude", "")};
    EXPECT_EQ(
        writeGpsRowsCommand(context, rows, kFile).text(),
        kTool + " -m -GPS:GPSLatitude=48.5  -GPS:GPSAltitude= -overwrite_original \"/photos/my 100%.jpg\"");
}

TEST_F(TagValueLines, DesignedAdd) {
    const TagRows rows{row("XMP-Dc", "Title", "a b"), row("XMP-Dc", "Source", "")};
    EXPECT_EQ(emptyGroupCommand(context, u"XMP-dc", kFile).text(), kTool + " -XMP-dc=" + kTail);
    EXPECT_EQ(addRowsCommand(context, rows, u"XMP-dc", kFile).text(),
              kTool + " -XMP-dc:Title=\"a b\" -overwrite_original" + kTail + " 2>\"/cache/day.txt\"");
    EXPECT_EQ(addRowsToOneFileCommand(context, rows, u"XMP-dc", kFile).text(),
              kTool + " -XMP-dc:Title=\"a b\" -overwrite_original" + kTail);
}

TEST_F(TagValueLines, DesignedMeasureModeIsANumber) {
    for (const auto& [shown, written] : {std::pair{"2-Dimentional Measurement", "2"},
                                         {"3-Dimentional Measurement", "3"},
                                         {"other", "other"}}) {
        const TagRows rows{row("GPS", "GPSMeasureMode", shown)};
        EXPECT_EQ(addRowsCommand(context, rows, u"GPS", kFile).text(),
                  kTool + " -GPS:GPSMeasureMode=\"" + written + "\" -overwrite_original" + kTail +
                      " 2>\"/cache/day.txt\"");
    }
    const TagRows other{row("GPS", "GPSStatus", "2-Dimentional Measurement")};
    EXPECT_NE(addRowsCommand(context, other, u"GPS", kFile).text().find("2-Dimentional"), std::string::npos);
}

TEST_F(TagValueLines, CorrectedWritesAndRemovesWhatChanged) {
    EXPECT_EQ(
        changedLine({row("IFD0", "Make", "Acme", "Acme"), row("IFD0", "Model", "", "Old"),
                     row("XMP-dc", "Title", "a b"), row("IFD1", "Make", "")}),
        kTool + " -IFD0:Model= -XMP-dc:Title=\"a b\" -overwrite_original" + kTail + " 2>>\"/cache/day.txt\"");
}

TEST_F(TagValueLines, CorrectedWritesTheCodeOfAListEntry) {
    TagRow chosen = row("IFD0", "Orientation", "Rotate 90 CW");
    chosen.kind = ValueKind::List;
    chosen.tagId = static_cast<int>(record(u"IFD0", u"Orientation").id);
    TagRow byCode = chosen;
    chosen.code = "8";
    EXPECT_NE(changedLine({chosen}).find(" -IFD0:Orientation#=\"8\" "), std::string::npos);
    chosen.code.clear();
    EXPECT_NE(changedLine({chosen}).find(" -IFD0:Orientation#=\"6\" "), std::string::npos);
    byCode.value = "3";
    EXPECT_NE(changedLine({byCode}).find(" -IFD0:Orientation#=\"3\" "), std::string::npos);
    byCode.value = "no entry";
    EXPECT_NE(changedLine({byCode}).find(" -IFD0:Orientation=\"no entry\" "), std::string::npos);
    byCode.value.clear();
    EXPECT_NE(changedLine({byCode}).find(" -IFD0:Orientation= "), std::string::npos);
}

TEST_F(TagValueLines, CorrectedWritesEachEntryOfAList) {
    TagRow keywords = row("IPTC", "Keywords", "one\ntwo");
    keywords.severalEntries = true;
    EXPECT_NE(changedLine({keywords}).find(" -IPTC:Keywords=\"one\" -IPTC:Keywords=\"two\" "),
              std::string::npos);
}

TEST_F(TagValueLines, CorrectedMarksTheEncodingOfIptcOnce) {
    EXPECT_EQ(changedLine({row("IPTC", "City", "\xE6\x9D\xB1\xE4\xBA\xAC"), row("IPTC", "Headline", "", "x"),
                           row("IPTC", "Source", "\xE6\x9D\xB1"), row("XMP-dc", "Title", "t")}),
              kTool +
                  " -tagsfromfile @ -IPTC:All --IPTC:City --IPTC:Headline --IPTC:Source "
                  "\"-IPTC:CodedCharacterSet<${FileType;$_='UTF8'}\" -IPTC:City=\"\xE6\x9D\xB1\xE4\xBA\xAC\" "
                  "-IPTC:Headline= "
                  "-IPTC:Source=\"\xE6\x9D\xB1\" -XMP-dc:Title=\"t\" -overwrite_original" +
                  kTail + " 2>>\"/cache/day.txt\"");
}

TEST_F(TagValueLines, WhatNobodyTypedStaysInsideItsArgument) {
    const char* const hostile =
        "x\" -if \"system('touch /tmp/owned')\" -o \"/tmp/owned\" >/tmp/owned 100%% \n-ver";
    TagRow held = row("IFD0", "Make", hostile, hostile);
    TagRow loaded = row("IFD0", "Model", hostile);
    loaded.loaded = true;
    const TagRows rows{held, loaded};
    const std::string make = std::string("-IFD0:Make=") + hostile;
    const std::string model = std::string("-IFD0:Model=") + hostile;
    EXPECT_EQ(words(writeRowsCommand(context, rows, kFile)),
              (std::vector<std::string>{"/opt/my tools/exiftool", make, model, "-n", "-z",
                                        "-overwrite_original", "-charset", "filename=UTF8", kFile.string()}));
    EXPECT_EQ(words(addRowsToOneFileCommand(context, rows, u"IFD0", kFile)),
              (std::vector<std::string>{"/opt/my tools/exiftool", make, model, "-overwrite_original",
                                        "-charset", "filename=UTF8", kFile.string()}));
    const auto gps = words(writeGpsRowsCommand(context, rows, kFile));
    ASSERT_EQ(gps.size(), 6U);
    EXPECT_EQ(gps[2], std::string("-GPS:Make=") + hostile);
}

TEST_F(TagValueLines, TypedTextBreaksTheDesignedLineOnly) {
    const TagRows rows{row("IFD0", "Make", "a\" -ver \"b")};
    EXPECT_EQ(words(writeRowsCommand(context, rows, kFile))[2], "-ver");
    EXPECT_EQ(words(writeChangedTagsCommand(context, changedTags(parts, rows), kFile))[1],
              "-IFD0:Make=a\" -ver \"b");
}
