#include "exiftool/ReadCommands.h"

#include "exiftool/StarterUnderTest.h"
#include "support/EditingContext.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

using namespace exiftool;
using support::readBytes;
using support::TemporaryFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class RecordingFeedback : public ReadFeedback {
 public:
    void showStatus(const QString& text) override { events.push_back(text.toStdString()); }
    void beginWait() override { events.emplace_back("<wait>"); }
    void endWait() override { events.emplace_back("</wait>"); }

    std::vector<std::string> events;
};

/// The real ExifTool on files of its own.
class ReadCommandsTest : public testing::Test {
 protected:
    void SetUp() override {
        runner_.setWarmStarter(starterUnderTest());
        context_ = support::editingContext(folder_.path());
        std::filesystem::current_path(folder_ / "photos");
    }

    std::filesystem::path makePhoto(const std::string& name) {
        auto file = folder_ / "photos" / name;
        if (!std::filesystem::exists(master_)) {
            support::writeJpeg(master_);
            support::ExifTool({"-q", "-overwrite_original", "-EXIF:Artist=Somebody", "-XMP-dc:Title=A title",
                               "-IPTC:Keywords=word", "-XMP-lr:HierarchicalSubject=a|b", "-GPSLatitude=48.5",
                               "-GPSLatitudeRef=N", "-GPSLongitude=11.25", "-GPSLongitudeRef=W",
                               master_.string()});
        }
        std::filesystem::copy_file(master_, file);
        return file;
    }

    TemporaryFolder folder_;
    std::filesystem::path master_ = folder_ / "master.jpg";
    app::AppContext context_;
    ToolRunner runner_{context_};
    RecordingFeedback feedback_;
    ReadCommands commands_{context_, runner_, feedback_};
    std::filesystem::path output_ = folder_ / "Temp/Metadata.txt";
};

}  // namespace

TEST_F(ReadCommandsTest, EveryNameIsReadLikeAnyOther) {
    std::vector<std::string> names = support::hostileNames();
    names.insert(names.end(), {std::string(251, 'n').append(".jpg"), std::string(255, 'n'), ".hidden.jpg",
                               "trailing |", "no extension", " leading.jpg", "%f %%e.jpg", "\" >owned \".jpg",
                               "\"\n\"touch\" owned\n\".jpg"});
    for (const std::string& name : names) {
        const auto file = makePhoto(name);
        EXPECT_EQ(commands_.ReadForPanel(file, output_, true), 1) << name;
        EXPECT_THAT(readBytes(output_), HasSubstr("[IFD0] 0x013b Artist: Somebody\n")) << name;
        EXPECT_THAT(readBytes(output_), Not(HasSubstr("[File]"))) << name;
    }
    for (const auto& folder : {folder_ / "photos", folder_ / "Temp", folder_.path()})
        EXPECT_FALSE(std::filesystem::exists(folder / "owned"));
    std::filesystem::remove(output_);
    EXPECT_TRUE(std::filesystem::is_empty(context_.tempPath)) << "no batch file is left";
}

TEST_F(ReadCommandsTest, ARelativeNameIsNoOption) {
    makePhoto("-if.jpg");
    EXPECT_EQ(commands_.ReadForPanel("-if.jpg", output_, false), 1);
    EXPECT_THAT(readBytes(output_), HasSubstr("Artist: Somebody"));
}

TEST_F(ReadCommandsTest, AnEmptyPathRunsNothing) {
    EXPECT_EQ(commands_.ReadForPanel({}, output_, true), 0);
    EXPECT_EQ(commands_.ReadGroupAll({}, output_, "GPS"), 0);
    EXPECT_EQ(commands_.ReadCategory({}, output_, 1), 0);
    EXPECT_EQ(commands_.ReadOneValue({}, "GPSLatitude", true), QString());
    EXPECT_EQ(commands_.ReadGpsPosition({}, output_), 0);
    EXPECT_TRUE(std::filesystem::is_empty(context_.tempPath));
    EXPECT_THAT(feedback_.events, IsEmpty());
}

TEST_F(ReadCommandsTest, TellsWhatItReads) {
    const auto file = makePhoto("a.jpg");
    const std::string reading = "Reading " + file.string();
    static_cast<void>(commands_.ReadForPanel(file, output_, true));
    EXPECT_THAT(std::exchange(feedback_.events, {}), ElementsAre("<wait>", reading, "</wait>"));
    static_cast<void>(commands_.ReadForPanel(file, output_, false));
    EXPECT_THAT(std::exchange(feedback_.events, {}), ElementsAre("<wait>", "</wait>"));
    static_cast<void>(commands_.ReadGroupAll(file, output_, "GPS"));
    EXPECT_THAT(std::exchange(feedback_.events, {}), IsEmpty());
    static_cast<void>(commands_.ReadCategory(file, output_, 1076));
    EXPECT_THAT(std::exchange(feedback_.events, {}), ElementsAre("<wait>", reading, "</wait>"));
}

TEST_F(ReadCommandsTest, ATempFolderThatIsGoneEndsInReady) {
    const auto file = makePhoto("a.jpg");
    std::filesystem::remove(context_.tempPath);
    const std::string reading = "Reading " + file.string();
    EXPECT_EQ(commands_.ReadForPanel(file, output_, true), 0);
    EXPECT_THAT(std::exchange(feedback_.events, {}), ElementsAre("<wait>", reading, "Ready", "</wait>"));
    EXPECT_EQ(commands_.ReadGroupAll(file, output_, "GPS"), 0);
    EXPECT_EQ(commands_.ReadCategory(file, output_, 1076), 0);
    EXPECT_THAT(feedback_.events, ElementsAre("Ready", "<wait>", reading, "Ready", "</wait>"));
}

TEST_F(ReadCommandsTest, AGroupIsReadInTheFormOfTheValueFinder) {
    EXPECT_EQ(commands_.ReadGroupAll(makePhoto("a.jpg"), output_, "XMP-dc"), 1);
    EXPECT_EQ(readBytes(output_), "[XMP-dc] Title: A title\n");
}

TEST_F(ReadCommandsTest, CategoriesAreReadInTheCorrectedForm) {
    const auto file = makePhoto("a.jpg");
    const std::pair<int, const char*> cases[] = {
        {1436, "[XMP-dc] Title: A title\n"}, {1462, "[XMP-lr] HierarchicalSubject: a|b\n"},
        {1422, "[IPTC] Keywords: word\n"},   {1076, "[GPS] GPSLongitudeRef: West\n"},
        {1, "[IFD0] Artist: Somebody\n"},    {1088, "[XMP-dc] Title: A title\n"},
        {7, "[IPTC] Keywords: word\n"},
    };
    for (const auto& [category, line] : cases) {
        EXPECT_EQ(commands_.ReadCategory(file, output_, category), 1);
        EXPECT_THAT(readBytes(output_), HasSubstr(line)) << category;
    }
    context_.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(commands_.ReadCategory(file, output_, 1436), 1);
    EXPECT_EQ(readBytes(output_), "") << "selector and file are one word";
    EXPECT_EQ(commands_.ReadCategory(file, output_, 1076), 1);
    EXPECT_THAT(readBytes(output_), HasSubstr("GPSLongitudeRef: West"));
}

TEST_F(ReadCommandsTest, OneValueLandsBesideTheTempFolderInTheDesignedForm) {
    const auto file = makePhoto("a.jpg");
    EXPECT_EQ(commands_.ReadOneValue(file, "GPSLatitude", true), "48.5");
    EXPECT_EQ(commands_.ReadOneValue(file, "GPSLongitudeRef", false), "West");
    EXPECT_EQ(commands_.ReadOneValue(file, "Title", false), "A title");
    EXPECT_EQ(commands_.ReadOneValue(file, "ISO", false), QString());
    EXPECT_FALSE(std::filesystem::exists(folder_ / "TempMetadata.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder_ / "Temp/Metadata.bat")) << "stays behind";
    context_.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(commands_.ReadOneValue(file, "GPSLatitude", true), QString()) << "the line ends in no return";
    EXPECT_THAT(readBytes(folder_ / "TempMetadata.txt"), testing::MatchesRegex("GPS Latitude +: 48.5\n"));
}

TEST_F(ReadCommandsTest, PositionAndDumps) {
    const auto file = makePhoto("a \"$(b)\".jpg");
    EXPECT_EQ(commands_.ReadGpsPosition(file, output_), 1);
    EXPECT_EQ(readBytes(output_),
              "GPSLatitude: 48.5\nGPSLatitudeRef: N\nGPSLongitude: -11.25\nGPSLongitudeRef: W\n");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Temp/MetaData.bat"));
    EXPECT_EQ(commands_.DumpHtml(file, output_), 1);
    EXPECT_THAT(readBytes(output_), HasSubstr("<html"));
    EXPECT_EQ(commands_.DumpVerbose(file, output_), 1);
    EXPECT_THAT(readBytes(output_), HasSubstr("Artist = Somebody"));
    EXPECT_TRUE(std::filesystem::exists(folder_ / "Temp/Metadata.bat"));
}

TEST_F(ReadCommandsTest, ExportedValuesLeaveTheFileGroupOutWhenTheyShould) {
    const auto file = makePhoto("a.jpg");
    platform::CommandText fileArgument;
    platform::CommandText target;
    fileArgument.literal("\"").outside(file.string()).literal("\"");
    target.literal("\"").outside(output_.string()).literal("\"");
    const platform::CommandText extra("-G -S -charset filename=UTF8 ");
    EXPECT_EQ(commands_.ExportValues(fileArgument, target, extra), 1);
    EXPECT_THAT(readBytes(output_),
                testing::AllOf(HasSubstr("[EXIF] Artist: Somebody\n"), Not(HasSubstr("[File]"))));
    context_.settings.exifTool.ignoreFile = false;
    EXPECT_EQ(commands_.ExportValues(fileArgument, target, extra), 1);
    EXPECT_THAT(readBytes(output_), HasSubstr("[File] MIMEType: image/jpeg\n"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Temp/Metadata.bat"));
}

TEST_F(ReadCommandsTest, CzechWorksInTheCorrectedForm) {
    context_.settings.exifTool.dataLanguage = 0;
    const auto file = makePhoto("a.jpg");
    static_cast<void>(commands_.ReadForPanel(file, output_, false));
    EXPECT_THAT(readBytes(output_), HasSubstr("Artist: Somebody"));
    context_.settings.exifTool.correctedCommands = false;
    static_cast<void>(commands_.ReadForPanel(file, output_, false));
    EXPECT_EQ(readBytes(output_), "") << "ExifTool knows no language \"ce\"";
}
