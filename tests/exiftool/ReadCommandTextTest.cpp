#include "exiftool/CategorySelectors.h"
#include "exiftool/ReadCommands.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using app::AppContext;
using app::CommandForm;
using platform::CommandText;
using namespace exiftool;
using namespace std::string_literals;

namespace {

AppContext makeContext() {
    AppContext context;
    context.exifToolPath = "/opt/my tools/exiftool";
    context.tempPath = "/install/Temp";
    return context;
}

const std::filesystem::path kFile = "/photos/My \"best\" 100%% \xE9.jpg";
const std::filesystem::path kOutput = "/install/Temp/Metadata.txt";
const std::string kTool = "\"/opt/my tools/exiftool\" ";
const std::string kExact = " -ec -sep \"\x1E\x1F\x1E\"";
const std::string kTail = "\"/photos/My \"best\" 100%% \xE9.jpg\" >\"/install/Temp/Metadata.txt\"";

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string all;
    for (const std::string_view part : parts) all += part;
    return all;
}

class BothForms : public testing::TestWithParam<CommandForm> {
 protected:
    AppContext context_ = makeContext();
};
INSTANTIATE_TEST_SUITE_P(DesignedAndCorrected, BothForms,
                         testing::Values(CommandForm::Designed, CommandForm::Corrected));

}  // namespace

TEST(ReadCommandText, LanguageCodesByIndex) {
    const char* codes[] = {"ce", "de", "en", "es", "fi", "fr", "it",    "ja",
                           "ko", "nl", "pl", "ru", "sv", "tr", "zh-cn", "zh-tw"};
    for (int index = 0; index < 16; ++index) EXPECT_EQ(languageCode(index), codes[index]);
    for (int index : {-1, 16, 1000000}) EXPECT_EQ(languageCode(index), "en");
}

TEST_P(BothForms, PanelRead) {
    struct {
        bool xml, file;
        const char* exclusions;
    } const cases[] = {{true, true, " -x XML:All -x File:All"},
                       {true, false, " -x XML:All"},
                       {false, true, " -x File:All"},
                       {false, false, ""}};
    for (const auto& row : cases) {
        context_.settings.exifTool.ignoreXml = row.xml;
        context_.settings.exifTool.ignoreFile = row.file;
        context_.settings.exifTool.displayUnknownTags = row.xml;  // looked at by no command
        EXPECT_EQ(
            panelReadCommand(context_, GetParam(), kFile, kOutput).text(),
            joined({kTool, "-lang en -a -u", row.exclusions,
                    " -sort -S -G1 -H --ExifToolVersion -x System:all -charset filename=UTF8 ", kTail}));
    }
}

TEST_P(BothForms, GroupAll) {
    EXPECT_EQ(groupAllCommand(context_, GetParam(), kFile, kOutput, "XMP-dc").text(),
              kTool +
                  (GetParam() == CommandForm::Corrected ? "-lang en -a" + kExact : std::string("-lang en")) +
                  " -sort -S -G1 --ExifToolVersion -XMP-dc:All -charset filename=UTF8 " + kTail);
}

TEST_P(BothForms, GpsPosition) {
    EXPECT_EQ(
        gpsPositionCommand(context_, kFile, kOutput).text(),
        kTool +
            "-S -n -GPSLatitude -GPSLatitudeRef -GPSLongitude -GPSLongitudeRef -q -charset filename=UTF8 " +
            kTail);
}

TEST_P(BothForms, Dumps) {
    EXPECT_EQ(dumpHtmlCommand(context_, kFile, kOutput).text(),
              kTool + "-htmldump -charset filename=UTF8 " + kTail);
    EXPECT_EQ(dumpVerboseCommand(context_, kFile, kOutput).text(),
              kTool + "-v3 -charset filename=UTF8 " + kTail);
}

TEST_P(BothForms, LanguageStandsInTheRightCommands) {
    context_.settings.exifTool.dataLanguage = 14;
    const CommandText panel = panelReadCommand(context_, GetParam(), kFile, kOutput);
    EXPECT_EQ(panel.text().rfind(kTool + "-lang zh-cn -a -u ", 0), 0U);
    context_.settings.exifTool.dataLanguage = 0;
    EXPECT_EQ(groupAllCommand(context_, GetParam(), kFile, kOutput, "GPS").text(),
              kTool +
                  (GetParam() == CommandForm::Corrected ? "-lang cs -a" + kExact : std::string("-lang ce")) +
                  " -sort -S -G1 --ExifToolVersion -GPS:All -charset filename=UTF8 " + kTail);
    EXPECT_EQ(gpsPositionCommand(context_, kFile, kOutput).text().find("-lang"), std::string::npos);
}

TEST_P(BothForms, ARelativeFileIsNamedFromTheRoot) {
    const std::string text = panelReadCommand(context_, GetParam(), "-if.jpg", kOutput).text();
    EXPECT_NE(text.find(" \"" + (std::filesystem::current_path() / "-if.jpg").string() + "\" >"),
              std::string::npos);
}

TEST_P(BothForms, PathsArePiecesFromOutside) {
    std::vector<std::string> outside;
    const CommandText command = panelReadCommand(context_, GetParam(), kFile, kOutput);
    for (const CommandText::Piece& piece : command.pieces()) {
        if (piece.origin == CommandText::Origin::Outside)
            outside.push_back(command.text().substr(piece.begin, piece.end - piece.begin));
    }
    EXPECT_EQ(outside,
              (std::vector<std::string>{"/opt/my tools/exiftool", kFile.string(), kOutput.string()}));
}

TEST(ReadCommandText, OneValue) {
    const AppContext context = makeContext();
    EXPECT_EQ(oneValueCommand(context, CommandForm::Designed, kFile, kOutput, "GPSLatitude", true).text(),
              kTool + "-lang en -q -e -fast2 -q -echo4 -S -n -GPSLatitude -charset filename=UTF8 " + kTail);
    EXPECT_EQ(oneValueCommand(context, CommandForm::Designed, kFile, kOutput, "GPSLatitudeRef", false).text(),
              kTool + "-lang en -q -e -fast2 -q -echo4 -S -GPSLatitudeRef -charset filename=UTF8 " + kTail);
    EXPECT_EQ(oneValueCommand(context, CommandForm::Corrected, kFile, kOutput, "GPSLatitude", true).text(),
              kTool + "-lang en -q -e -fast2 -q -S -n -GPSLatitude -charset filename=UTF8 " + kTail);
}

TEST(ReadCommandText, ExportValues) {
    CommandText file("\"/a b.jpg\"");
    CommandText output("\"/a b.txt\"");
    const CommandText extra("-csv ");
    for (const CommandForm form : {CommandForm::Designed, CommandForm::Corrected}) {
        AppContext context = makeContext();
        EXPECT_EQ(exportValuesCommand(context, form, file, output, extra).text(),
                  kTool + "-lang en -sort --ExifToolVersion -x System:all " +
                      (form == CommandForm::Corrected ? "-x" : "-f") +
                      " File:All -csv \"/a b.jpg\" >\"/a b.txt\"");
        context.settings.exifTool.ignoreFile = false;
        EXPECT_EQ(exportValuesCommand(context, form, file, output, extra).text(),
                  kTool + "-lang en -sort --ExifToolVersion -x System:all -csv \"/a b.jpg\" >\"/a b.txt\"");
    }
}

TEST(ReadCommandText, CategoryWithAllSettings) {
    AppContext context = makeContext();
    const auto text = [&](int category) {
        return categoryCommand(context, CommandForm::Designed, kFile, kOutput, category).text();
    };
    EXPECT_EQ(text(1436),
              kTool + "-lang en -x XML:All -x File:All -e -sort -S -G1 --ExifToolVersion -XMP-dc" + kTail);
    context.settings.exifTool.ignoreXml = false;
    context.settings.exifTool.ignoreComposite = false;
    EXPECT_EQ(text(1076), kTool + "-lang en -x File:All -sort -S -G1 --ExifToolVersion -GPS:All " + kTail);
    context.settings.exifTool.ignoreFile = false;
    EXPECT_EQ(text(7), kTool + "-lang en -sort -S -G1 --ExifToolVersion " + kTail);
}

struct SelectorCase {
    int category;
    const char* designed;
    const char* corrected;
};

TEST(ReadCommandText, CategorySelectors) {
    const SelectorCase cases[] = {
        {1, "-EXIF:All ", "-EXIF:All "},
        {0, "-EXIF:All ", "-EXIF:All "},
        {-1, "-EXIF:All ", "-EXIF:All "},
        {99999, "-EXIF:All ", "-EXIF:All "},
        {7, "", ""},
        {1076, "-GPS:All ", "-GPS:All "},
        {996, "-XMP-idpriv", "-XMP-idpriv:All "},
        {1088, "-XMP", "-XMP:All "},
        {1421, "-EnvelopeRecord", "-IPTC:All "},
        {1422, "-ApplicationRecord", "-IPTC:All "},
        {1423, "-NewsPhoto", "-IPTC:All "},
        {1428, "-XMP-AppleFI", "-XMP-apple-fi:All "},
        {1462, "-XMP-lightroom", "-XMP-lr:All "},
        {1713, "-IPTC2", "-IPTC2:All "},
        {1670, "-XMP-Camera_1_", "-XMP-Camera_1_:All "},
        {1807, "-XMP-pmtm-1", "-XMP-pmtm-1:All "},
        {2003, "-XMP-AnalogExif", "-XMP-AnalogExif:All "},
        {2016, "-XMP-leaf", "-XMP-leaf:All "},
    };
    const std::string rest = " -x XML:All -x File:All -e -sort -S -G1 --ExifToolVersion ";
    for (const SelectorCase& row : cases) {
        EXPECT_EQ(categoryCommand(makeContext(), CommandForm::Designed, kFile, kOutput, row.category).text(),
                  joined({kTool, "-lang en", rest, row.designed, kTail}));
        EXPECT_EQ(
            categoryCommand(makeContext(), CommandForm::Corrected, kFile, kOutput, row.category).text(),
            joined({kTool, "-lang en -a" + kExact, rest, row.corrected, "-charset filename=UTF8 ", kTail}));
    }
}

TEST(ReadCommandText, EverySelectorOfTheTableIsOneOption) {
    std::set<std::string_view> selectors;
    for (const CategorySelector& row : kCategorySelectors) {
        EXPECT_TRUE(row.designed.starts_with('-')) << row.categoryId;
        EXPECT_EQ(row.designed.ends_with(":All "), row.designed.ends_with(' ')) << row.categoryId;
        EXPECT_TRUE(row.corrected.empty() || row.corrected.ends_with(":All ")) << row.categoryId;
        EXPECT_TRUE(selectors.insert(row.designed).second) << row.designed;
    }
    EXPECT_EQ(selectors.size(), 89U);
}
