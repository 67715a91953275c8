#include "app/StartUp.h"

#include "app/SettingsStore.h"
#include "app/ToolPlaces.h"
#include "platform/IniFile.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using app::AppContext;

const QDate kDay(2031, 2, 3);

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
        const app::SettingsFaults faults = app::preparePaths(context, kDay);
        EXPECT_EQ(faults.notRead, QString());
        EXPECT_EQ(faults.notSaved, QString());
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
    EXPECT_EQ(context.tempRoot, install / "Temp");
    EXPECT_TRUE(context.tempPath.empty()) << "nobody may work in the folder that all share";
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
    EXPECT_EQ(app::chooseExifTool(context, chosen), QString());
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
    EXPECT_EQ(app::reportName(QDate(2024, 12, 9), 1), "12-09-2024-BatchReport.txt");
    EXPECT_EQ(app::reportName(QDate(2024, 12, 9), 12), "12-09-2024-BatchReport-12.txt");
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

TEST_F(StartUpTest, TwoProcessesHaveFoldersAndReportsOfTheirOwn) {
    fs::create_directory(folder_ / "Temp");
    AppContext first = started();
    AppContext second = started();
    const app::OpenedTempFolder one = app::openTempFolder(first, kDay);
    app::OpenedTempFolder two = app::openTempFolder(second, kDay);
    ASSERT_TRUE(one.folder && two.folder);
    EXPECT_EQ(first.tempPath, first.tempRoot / "process-1");
    EXPECT_EQ(second.tempPath, first.tempRoot / "process-2");
    EXPECT_EQ(first.reportFile, folder_ / "cache/reports/02-03-2031-BatchReport.txt");
    EXPECT_EQ(second.reportFile, folder_ / "cache/reports/02-03-2031-BatchReport-2.txt");

    support::writeBytes(first.tempPath / "Metadata.txt", "of the first");
    EXPECT_EQ(app::closeTempFolder(second, *two.folder), QString());
    EXPECT_FALSE(fs::exists(second.tempPath));
    EXPECT_EQ(support::readBytes(first.tempPath / "Metadata.txt"), "of the first");
}

TEST_F(StartUpTest, TheTempFolderIsEmptiedAtTheEndAndWhatLinksPointToStays) {
    fs::create_directory(folder_ / "Temp");
    AppContext context = started();
    app::OpenedTempFolder opened = app::openTempFolder(context, kDay);
    ASSERT_TRUE(opened.folder);
    fs::create_directories(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "photo.jpg", "x");
    for (const fs::path& folder : {context.tempRoot, context.tempPath}) {
        fs::create_directories(folder / "deep" / "deeper");
        support::writeBytes(folder / "Metadata.txt", "x");
        support::writeBytes(folder / "deep" / "deeper" / ".hidden", "x");
        fs::create_directory_symlink(folder_ / "precious", folder / "link");
        fs::create_directory_symlink(folder_ / "precious", folder / "deep" / "link");
        fs::create_symlink(folder_ / "precious" / "photo.jpg", folder / "photo.jpg");
        fs::create_symlink("/nowhere", folder / "broken");
    }
    EXPECT_EQ(app::closeTempFolder(context, *opened.folder), QString());
    EXPECT_TRUE(fs::is_directory(context.tempRoot));
    EXPECT_TRUE(fs::is_empty(context.tempRoot));
    EXPECT_TRUE(fs::exists(folder_ / "precious" / "photo.jpg"));
}

TEST_F(StartUpTest, ATempFolderThatIsMissingOrALinkIsNotUsed) {
    AppContext context = started();
    app::OpenedTempFolder missing = app::openTempFolder(context, kDay);
    EXPECT_FALSE(missing.folder);
    EXPECT_NE(missing.problem, QString());
    fs::create_directory(folder_ / "precious");
    fs::create_directory_symlink(folder_ / "precious", context.tempRoot);
    app::OpenedTempFolder linked = app::openTempFolder(context, kDay);
    EXPECT_FALSE(linked.folder);
    EXPECT_NE(linked.problem, QString());
    EXPECT_TRUE(context.tempPath.empty());
    EXPECT_TRUE(fs::is_empty(folder_ / "precious"));
}

TEST_F(StartUpTest, ATempFolderThatWentAwayIsMadeAtTheEnd) {
    fs::create_directory(folder_ / "Temp");
    AppContext context = started();
    app::OpenedTempFolder opened = app::openTempFolder(context, kDay);
    ASSERT_TRUE(opened.folder);
    fs::remove_all(context.tempRoot);
    EXPECT_EQ(app::closeTempFolder(context, *opened.folder), QString());
    EXPECT_TRUE(fs::is_directory(context.tempRoot));
}

TEST_F(StartUpTest, NoOtherFolderIsEverEmptied) {
    fs::create_directory(folder_ / "Temp");
    AppContext context = started();
    app::OpenedTempFolder opened = app::openTempFolder(context, kDay);
    ASSERT_TRUE(opened.folder);
    fs::create_directories(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "photo.jpg", "x");
    const fs::path root = context.tempRoot;
    for (const fs::path& other :
         {folder_ / "precious", fs::path(), fs::path("Temp"), root / "..", root / ""}) {
        context.tempRoot = other;
        EXPECT_NE(app::closeTempFolder(context, *opened.folder), QString()) << other;
    }
    context.tempRoot = root;
    fs::rename(root, folder_ / "moved");
    fs::create_directory_symlink(folder_ / "precious", root);
    EXPECT_NE(app::closeTempFolder(context, *opened.folder), QString());
    context.installPath.clear();
    context.tempRoot = "Temp";
    EXPECT_NE(app::closeTempFolder(context, *opened.folder), QString());
    EXPECT_TRUE(fs::exists(folder_ / "precious" / "photo.jpg"));
}

TEST_F(StartUpTest, ASettingsFileThatCannotBeReadIsToldAndSoIsOneThatWasMovedAside) {
    const fs::path ini = folder_ / "cache" / "Tagwright.ini";
    AppContext context;
    app::derivePaths(context, folder_ / "Tagwright");
    fs::create_directory(ini);
    app::SettingsFaults faults = app::preparePaths(context, kDay);
    EXPECT_NE(faults.notRead, QString());
    EXPECT_EQ(faults.notSaved, faults.notRead);

    fs::remove(ini);
    support::writeBytes(ini, "[Main]\n");
    fs::resize_file(ini, platform::IniFile::kMaximumBytes + 1);
    faults = app::preparePaths(context, kDay);
    EXPECT_NE(faults.notRead, QString());
    EXPECT_EQ(faults.notSaved, QString());
    EXPECT_TRUE(fs::exists(folder_ / "cache" / "Tagwright.ini.unreadable"));
}

}  // namespace
