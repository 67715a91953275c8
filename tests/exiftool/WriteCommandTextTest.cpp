#include "exiftool/WriteCommands.h"

#include <gtest/gtest.h>

#include <QLocale>

using app::AppContext;
using app::CommandForm;
using platform::CommandText;
using namespace exiftool;

namespace {

AppContext makeContext() {
    AppContext context;
    context.exifToolPath = "/opt/my tools/exiftool";
    context.reportFile = "/install/cache/reports/day.txt";
    return context;
}

const std::filesystem::path kFile = "/photos/\"best\" 100%.jpg";

}  // namespace

TEST(WriteCommandText, Fragments) {
    EXPECT_EQ(fragments::kOverwriteOriginal, "-overwrite_original ");
    EXPECT_EQ(fragments::kOverwriteOriginalInPlaceLine, "-overwrite_original_in_place\n");
    EXPECT_EQ(fragments::kOverwriteOriginalBehind, " -overwrite_original");
    EXPECT_EQ(fragments::kQuietOverwriteOriginal, "-q -overwrite_original ");
    EXPECT_EQ(fragments::kFileNameCharset, "-charset filename=UTF8 ");
    EXPECT_EQ(fragments::kFileNameCharsetAndQuote, " -charset filename=UTF8 \"");
}

TEST(WriteCommandText, FamilyRemovalByCommand) {
    struct {
        int commandId;
        const char* arguments;
    } const cases[] = {
        {10066, "-m -exif= -Adobe:All= -P -x XML:All -x FILE:All "},
        {10067, "-m -iptc= -P -x XML:All -x FILE:All "},
        {10068, "-m -xmp= -P -x XML:All -x FILE:All "},
        {10069, "-m -icc_profile= -P -x XML:All -x FILE:All "},
        {10071, "-m -geotag= -gps*= -P -x XML:All -x FILE:All "},
        {10072, "-m -all= -Adobe:All= -Quicktime:All= -P -x XML:All -x FILE:All "},
        {10044, "-m -all= -Adobe:All= -Quicktime:All= -P -x XML:All -x FILE:All "},
        {10070, "-m -P -x XML:All -x FILE:All "},
        {0, "-m -P -x XML:All -x FILE:All "},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(removeFamilyArguments(makeContext(), CommandForm::Designed, row.commandId).text(),
                  row.arguments);
        EXPECT_EQ(removeFamilyArguments(makeContext(), CommandForm::Corrected, row.commandId).text(),
                  std::string(row.arguments) + "-overwrite_original ");
    }
}

TEST(WriteCommandText, FamilyRemovalFollowsTheSettings) {
    AppContext context = makeContext();
    context.settings.exifTool.ignoreMinorErrors = false;  // does not decide it
    context.settings.exifTool.preserveDateTime = false;
    EXPECT_EQ(removeFamilyArguments(context, CommandForm::Designed, 10067).text(),
              "-m -iptc= -x XML:All -x FILE:All ");
    context.settings.exifTool.ignoreXml = false;
    EXPECT_EQ(removeFamilyArguments(context, CommandForm::Designed, 10067).text(), "-m -iptc= -x FILE:All ");
    context.settings.exifTool.ignoreFile = false;
    EXPECT_EQ(removeFamilyArguments(context, CommandForm::Designed, 10067).text(), "-m -iptc= ");
}

TEST(WriteCommandText, CopyingTags) {
    struct {
        CopiedFamilies families;
        const char* designed;
        const char* corrected;
    } const cases[] = {
        {{true, true, true}, "-EXIF -IPTC -XMP ", "-EXIF:All -IPTC:All -XMP:All "},
        {{true, false, false}, "-EXIF ", "-EXIF:All "},
        {{false, true, false}, "-IPTC ", "-IPTC:All "},
        {{false, false, true}, "-XMP ", "-XMP:All "},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(
            copyTagsCommand(makeContext(), CommandForm::Designed, row.families, "/a b.jpg", kFile).text(),
            std::string("\"/opt/my tools/exiftool\" ") + row.designed +
                "-tagsfromfile \"/a b.jpg\" \"/photos/\"best\" 100%.jpg\"");
        EXPECT_EQ(
            copyTagsCommand(makeContext(), CommandForm::Corrected, row.families, "/a b.jpg", kFile).text(),
            std::string("\"/opt/my tools/exiftool\" -tagsfromfile \"/a b.jpg\" ") + row.corrected +
                "-overwrite_original -charset filename=UTF8 \"/photos/\"best\" 100%.jpg\" "
                "2>>\"/install/cache/reports/day.txt\"");
    }
}

TEST(WriteCommandText, SingleValue) {
    struct {
        int tagId;
        const char* tag;
        const char* value;
        const char* written;
    } const cases[] = {
        {1, "XMP-dc:Title", "A title", "-XMP-dc:Title=\"A title\""},
        {1, "Artist", "", "-Artist=\"\""},
        {853, "CodedCharacterSet", "% G", "-CodedCharacterSet=\"ESC % G\""},
        {853, "CodedCharacterSet", "UTF8", "-CodedCharacterSet=\"UTF8\""},
        {854, "Other", "% G", "-Other=\"% G\""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(singleValueCommand(makeContext(), kFile, row.tagId, row.tag, CommandText().typed(row.value))
                      .text(),
                  std::string("\"/opt/my tools/exiftool\" ") + row.written +
                      " -overwrite_original -charset filename=UTF8 \"/photos/\"best\" 100%.jpg\"");
    }
}

TEST(SafetyCopy, InitialSettings) {
    const SafetyCopies settings;
    EXPECT_EQ(settings.SafetyCopyEnabled, 1);
    EXPECT_EQ(settings.SafetyCopyFolderMode, 1);
    EXPECT_TRUE(settings.SafetyCopyFolder.empty());
    EXPECT_EQ(settings.SafetyCopyDated, 0);
}

TEST(SafetyCopy, NamesInAllModes) {
    const QDateTime now(QDate(2024, 3, 9), QTime(7, 8, 5));
    const std::string date =
        QLocale().toString(now.date(), QLocale::ShortFormat).replace('/', '-').toStdString();
    struct {
        int mode;
        int dated;
        const char* file;
        std::string copy;
    } const cases[] = {
        {0, 0, "/pics/a.jpg", "/pics//sava-sav.jpg"},
        {1, 0, "/pics/a.jpg", "/install/cache/sav/pics/a-sav.jpg"},
        {1, 0, "/a.jpg", "/install/cache/sav/a-sav.jpg"},
        {1, 0, "/p.q/no dot", "/install/cache/sav/p.q/no dot-sav"},
        {1, 0, "/pics/.hidden", "/install/cache/sav/pics/-sav.hidden"},
        {1, 0, "/pics/a.b.jpg", "/install/cache/sav/pics/a.b-sav.jpg"},
        {1, 0, "/pics/\xE9\n.jpg", "/install/cache/sav/pics/\xE9\n-sav.jpg"},
        {1, 1, "/pics/a.jpg", "/install/cache/sav/pics/a-" + date + "  07-08-05.jpg"},
        {2, 0, "/pics/a.jpg",
         "/other/folder"
         "a-sav.jpg"},
        {7, 1, "/pics/a.jpg", "/other/foldera-" + date + "  07-08-05.jpg"},
    };
    for (const auto& row : cases) {
        SafetyCopies settings;
        settings.SafetyCopyFolderMode = row.mode;
        settings.SafetyCopyFolder = "/other/folder";
        settings.SafetyCopyDated = row.dated;
        EXPECT_EQ(safetyCopyPath(row.file, "/install/cache", settings, now).native(), row.copy);
    }
}
