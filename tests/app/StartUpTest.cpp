#include "app/StartUp.h"

#include "app/SettingsStore.h"
#include "app/ToolPlaces.h"
#include "platform/IniFile.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using app::AppContext;

class StartUpTest : public ::testing::Test {
 protected:
    StartUpTest() {
        fs::create_directories(folder_ / "cache");
        fs::create_directories(folder_ / "tools");
        path_ = qgetenv("PATH");
        qputenv("PATH", QByteArray::fromStdString("relative::" + (folder_ / "tools").string()));
    }
    ~StartUpTest() override { qputenv("PATH", path_); }

    AppContext started() {
        AppContext context;
        app::derivePaths(context, folder_ / "Tagwright");
        EXPECT_EQ(app::preparePaths(context, QDate(2031, 2, 3)), QString());
        return context;
    }
    fs::path program(const fs::path& path, bool executable = true) {
        support::writeBytes(path, "#!/bin/sh\n");
        fs::permissions(path, executable ? fs::perms::owner_all : fs::perms::owner_read);
        return path;
    }

    support::TemporaryFolder folder_;
    QByteArray path_;
};

TEST_F(StartUpTest, AllPathsStandInTheFolderOfTheExecutable) {
    const AppContext context = started();
    const fs::path install = folder_.path();
    EXPECT_EQ(context.installPath, install);
    EXPECT_EQ(context.cachePath, install / "cache");
    EXPECT_EQ(context.iniPath, install / "cache/Tagwright.ini");
    EXPECT_EQ(context.columnsHeaderPath, install / "cache/ColumnsHeader.ini");
    EXPECT_EQ(context.reportsPath, install / "cache/reports");
    EXPECT_EQ(context.reportFile, install / "cache/reports/02-03-2031-BatchReport.txt");
    EXPECT_EQ(context.savePath, install / "cache/sav");
    EXPECT_EQ(context.tempPath, install / "Temp");
    EXPECT_EQ(context.exifToolPath, install / "exiftool");
    EXPECT_EQ(context.ffmpegPath, install / "ffmpeg");
}

TEST_F(StartUpTest, AFirstStartMakesTheSettingsFileWithTheInstallFolderAlone) {
    const AppContext context = started();
    EXPECT_EQ(support::readBytes(context.iniPath).find("[PATHS]"), 0u);
    EXPECT_EQ(platform::IniFile(context.iniPath).find("PATHS", "InstallPath"), folder_.path().string());
    EXPECT_EQ(context.settings.main.language, 9);
}

TEST_F(StartUpTest, TheLanguageAndTheEarlySettingsAreRead) {
    support::writeBytes(folder_ / "cache" / "Tagwright.ini", "[Main]\nLanguage=12\n[Dark]\nDarkTone=4\n");
    const AppContext context = started();
    EXPECT_EQ(context.settings.main.language, 12);
    EXPECT_EQ(context.settings.dark.darkTone, 4);
}

TEST_F(StartUpTest, AToolIsWhereTheSettingsNameItThenBesideTheProgramThenOnThePath) {
    const fs::path onPath = program(folder_ / "tools" / "exiftool");
    AppContext context = started();
    app::resolveTools(context);
    EXPECT_EQ(context.exifToolPath, onPath);
    EXPECT_TRUE(app::FindExifTool(context));

    const fs::path beside = program(folder_ / "exiftool");
    app::resolveTools(context);
    EXPECT_EQ(context.exifToolPath, beside);

    const fs::path named = program(folder_ / "named tool");
    EXPECT_EQ(app::chooseExifTool(context, named), QString());
    app::resolveTools(context);
    EXPECT_EQ(context.exifToolPath, named);

    fs::remove(named);
    app::resolveTools(context);
    EXPECT_FALSE(app::FindExifTool(context)) << "one that was named and is gone is asked for, not replaced";
    EXPECT_TRUE(context.exifToolPath.empty());
}

TEST_F(StartUpTest, AChosenToolSurvivesTheSecondReadOfTheSettings) {
    support::writeBytes(folder_ / "cache" / "Tagwright.ini",
                        "[Main]\nViewMode=1\n[PATHS]\nExifToolPath=/gone/exiftool\n");
    AppContext context = started();
    app::resolveTools(context);
    EXPECT_FALSE(app::FindExifTool(context));
    const fs::path chosen = program(folder_ / "chosen");
    app::chooseExifTool(context, chosen);
    app::LoadSettings(context);
    EXPECT_EQ(context.exifToolPath, chosen);
}

TEST_F(StartUpTest, WhatCannotBeRunOrIsNoFileIsNotFoundOnThePath) {
    program(folder_ / "tools" / "exiftool", false);
    fs::create_directories(folder_ / "tools" / "ffmpeg");
    AppContext context = started();
    app::resolveTools(context);
    EXPECT_FALSE(app::FindExifTool(context));
    EXPECT_TRUE(context.ffmpegPath.empty());
    EXPECT_TRUE(context.imageMagickPath.empty());
    program(folder_ / "tools" / "convert");
    app::resolveTools(context);
    EXPECT_EQ(context.imageMagickPath, folder_ / "tools" / "convert");
}

TEST_F(StartUpTest, ReportNamesHaveTwoDigitsForMonthAndDay) {
    EXPECT_EQ(app::reportName(QDate(2024, 12, 9)), "12-09-2024-BatchReport.txt");
    EXPECT_EQ(app::reportName(QDate(987, 1, 31)), "01-31-0987-BatchReport.txt");
}

TEST_F(StartUpTest, AWindowStartsMaximisedUnlessItsPlaceIsKnownAndOnTheScreen) {
    using Position = app::Settings::WindowPosition;
    EXPECT_TRUE(app::startsMaximised({}));
    EXPECT_FALSE(app::startsMaximised(Position{0, 0, 800, 600}));
    EXPECT_TRUE(app::startsMaximised(Position{10, 10, 0, 600}));
    EXPECT_TRUE(app::startsMaximised(Position{10, 10, 800, 0}));
    EXPECT_TRUE(app::startsMaximised(Position{-1, 10, 800, 600}));
    EXPECT_TRUE(app::startsMaximised(Position{10, -1, 800, 600}));
    EXPECT_FALSE(app::startsMaximised(Position{10, 10, -800, -600}));
}

TEST_F(StartUpTest, TheTempFolderIsEmptiedAndWhatLinksPointToStays) {
    const AppContext context = started();
    fs::create_directories(context.tempPath / "deep" / "deeper");
    support::writeBytes(context.tempPath / "Metadata.txt", "x");
    support::writeBytes(context.tempPath / "deep" / "deeper" / ".hidden", "x");
    fs::create_directories(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "photo.jpg", "x");
    fs::create_directory_symlink(folder_ / "precious", context.tempPath / "link");
    fs::create_directory_symlink(folder_ / "precious", context.tempPath / "deep" / "link");
    fs::create_symlink(folder_ / "precious" / "photo.jpg", context.tempPath / "photo.jpg");
    fs::create_symlink("/nowhere", context.tempPath / "broken");

    EXPECT_FALSE(app::emptyTempFolder(context));
    EXPECT_TRUE(fs::is_directory(context.tempPath));
    EXPECT_TRUE(fs::is_empty(context.tempPath));
    EXPECT_TRUE(fs::exists(folder_ / "precious" / "photo.jpg"));
}

TEST_F(StartUpTest, AMissingTempFolderIsMade) {
    const AppContext context = started();
    ASSERT_FALSE(fs::exists(context.tempPath));
    EXPECT_FALSE(app::emptyTempFolder(context));
    EXPECT_TRUE(fs::is_directory(context.tempPath));
}

TEST_F(StartUpTest, NoOtherFolderIsEverEmptied) {
    AppContext context = started();
    fs::create_directories(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "photo.jpg", "x");

    fs::create_directory_symlink(folder_ / "precious", context.tempPath);
    EXPECT_EQ(app::emptyTempFolder(context), std::errc::operation_not_permitted);
    for (const fs::path& other : {folder_ / "precious", fs::path(), fs::path("Temp"), context.tempPath / "..",
                                  context.tempPath / ""}) {
        context.tempPath = other;
        EXPECT_EQ(app::emptyTempFolder(context), std::errc::operation_not_permitted) << other;
    }
    context.installPath.clear();
    context.tempPath = "Temp";
    EXPECT_EQ(app::emptyTempFolder(context), std::errc::operation_not_permitted);
    EXPECT_TRUE(fs::exists(folder_ / "precious" / "photo.jpg"));
}

}  // namespace
