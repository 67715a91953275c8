#include "batch/BatchLines.h"

#include <gtest/gtest.h>

namespace {

using namespace batch;
using app::CommandForm;

app::AppContext makeContext() {
    app::AppContext context;
    context.exifToolPath = "/opt/exif tool";
    context.reportFile = "/install/cache/reports/01-02-2026-BatchReport.txt";
    return context;
}

const std::filesystem::path kFile = "/photos/a b.jpg";

TEST(BatchLines, AreAsDesignedToTheBlank) {
    const app::AppContext context = makeContext();
    EXPECT_EQ(fileDateLine(context, CommandForm::Designed, kFile).text(),
              "\"/opt/exif tool\" -overwrite_original -FileModifyDate<DateTimeOriginal \"/photos/a b.jpg\"");
    EXPECT_EQ(shutterCountLine(context, CommandForm::Designed, kFile).text(),
              "\"/opt/exif tool\" \"-FileName <${ShutterCount;}.%e\" \"/photos/a b.jpg\" "
              "2>>\"/install/cache/reports/01-02-2026-BatchReport.txt\"");
    EXPECT_EQ(dateAndCameraArguments(CommandForm::Designed, CameraPart::Make).text(),
              "-d \"%%Y-%%m-%%d %%H-%%M-%%S\" \"-FileName<${FileCreateDate;} - ${Make;}-%%f.%%e\" ");
    EXPECT_EQ(dateAndCameraArguments(CommandForm::Designed, CameraPart::Model).text(),
              "-d \"%%Y-%%m-%%d %%H-%%M-%%S\" \"-FileName<${FileCreateDate;} - ${Model;}-%%f.%%e\" ");
}

TEST(BatchLines, TheDesignedThumbnailTextGrowsWithEachFile) {
    EXPECT_EQ(thumbnailArguments(CommandForm::Designed, {kFile}).text(),
              "-ThumbnailImage=\"/photos/a b.jpg\"");
    EXPECT_EQ(thumbnailArguments(CommandForm::Designed, {kFile, "/photos/c.jpg"}).text(),
              "-ThumbnailImage=\"/photos/a b.jpg\"-ThumbnailImage=\"/photos/c.jpg\"");
}

TEST(BatchLines, AreCorrectedToTheBlank) {
    const app::AppContext context = makeContext();
    EXPECT_EQ(
        fileDateLine(context, CommandForm::Corrected, kFile).text(),
        "\"/opt/exif tool\" -overwrite_original -FileModifyDate<DateTimeOriginal -charset filename=UTF8 "
        "\"/photos/a b.jpg\" 2>>\"/install/cache/reports/01-02-2026-BatchReport.txt\"");
    EXPECT_EQ(shutterCountLine(context, CommandForm::Corrected, kFile).text(),
              "\"/opt/exif tool\" -charset filename=UTF8 "
              "\"-FileName<${ShutterCount;tr/0-9//cd;$_=undef if !length}%-c.%e\" \"/photos/a b.jpg\" "
              "2>>\"/install/cache/reports/01-02-2026-BatchReport.txt\"");
    EXPECT_EQ(dateAndCameraArguments(CommandForm::Corrected, CameraPart::Make).text(),
              "-d \"%%Y-%%m-%%d %%H-%%M-%%S\" \"-FileName<${DateTimeOriginal;} - "
              "${Make;tr!/\\\\?*:|<>\\x22\\x25\\x00-\\x1f\\x7f!!d;s/^\\s+|\\s+$//g;$_=undef if !length}"
              "-%%f%%-c.%%e\" -charset filename=UTF8 ");
    EXPECT_EQ(thumbnailArguments(CommandForm::Corrected, {kFile, "/photos/c.jpg"}).text(),
              "-ThumbnailImage= -overwrite_original -charset filename=UTF8 ");
}

TEST(BatchLines, NewNamesAreToldBeforeTheyAreGiven) {
    const std::vector<std::filesystem::path> files = {kFile, "/photos/c.jpg"};
    const std::string line = toldNamesLine(makeContext(), CameraPart::Model, files).text();
    EXPECT_TRUE(line.starts_with(
        "\"/opt/exif tool\" -d \"%%Y-%%m-%%d %%H-%%M-%%S\" \"-TestName<${DateTimeOriginal;}"))
        << line;
    EXPECT_EQ(line.find("-FileName"), std::string::npos) << "it must rename nothing";
    EXPECT_TRUE(line.ends_with("\"/photos/a b.jpg\" \"/photos/c.jpg\" ")) << line;
    EXPECT_EQ(
        toldNames("'/photos/a b.jpg' --> '/photos/2001 - M-a b.jpg'\nWarning: no date\n"
                  "'/photos/it's.jpg' --> '/photos/2001 - M-it's.jpg'\n    0 image files updated\n"),
        (std::vector<batch::ToldName>{{"a b.jpg", "2001 - M-a b.jpg"}, {"it's.jpg", "2001 - M-it's.jpg"}}));
}

TEST(BatchLines, NoPathCanLeaveItsArgument) {
    const app::AppContext context = makeContext();
    const std::filesystem::path hostile = "/photos/x\" -if \"1.jpg";
    for (const CommandForm form : {CommandForm::Designed, CommandForm::Corrected}) {
        for (const platform::CommandText& line :
             {fileDateLine(context, form, hostile), shutterCountLine(context, form, hostile)}) {
            std::size_t held = 0;
            for (const auto& piece : line.pieces()) {
                const std::string text = line.text().substr(piece.begin, piece.end - piece.begin);
                if (text.find("-if") == std::string::npos) continue;
                EXPECT_EQ(piece.origin, platform::CommandText::Origin::Outside);
                ++held;
            }
            EXPECT_EQ(held, 1u);
        }
    }
}

}  // namespace
