#include "app/SettingsStore.h"
#include "app/StartUp.h"
#include "platform/IniFile.h"
#include "support/TemporaryFolder.h"

// A tool that was found where the system keeps it is looked for again at the next start. Were it written
// down, the program would stay with it after it has moved, or after a newer one has been installed in front
// of it.

namespace {

namespace fs = std::filesystem;

constexpr const char* kKeys[] = {"ExifToolPath", "FFMpegPath", "ImageMagickPath"};
constexpr const char* kPrograms[] = {"exiftool", "ffmpeg", "convert"};

class FoundToolsTest : public ::testing::Test {
 protected:
    FoundToolsTest() {
        for (const char* name : {"install", "old", "new"}) fs::create_directory(folder_ / name);
        search("old");
    }
    ~FoundToolsTest() override { qputenv("PATH", path_); }

    void search(const std::string& name) {
        qputenv("PATH", QByteArray::fromStdString((folder_ / name).string()));
    }
    fs::path place(const std::string& where, const std::string& program) {
        fs::path file = folder_ / where / program;
        support::writeBytes(file, "#!/bin/sh\n");
        fs::permissions(file, fs::perms::owner_all);
        return file;
    }
    /// A start that finds the tools, and its end.
    app::AppContext startAndEnd() {
        app::AppContext context;
        context.installPath = folder_ / "install";
        context.iniPath = folder_ / "install/Tagwright.ini";
        static_cast<void>(app::loadSettingsOrDefaults(context));
        app::resolveTools(context);
        EXPECT_EQ(app::SaveSettings(context), QString());
        return context;
    }
    /// Empty as well when there is no such key.
    std::string named(const char* key) {
        return platform::IniFile(folder_ / "install/Tagwright.ini").find("PATHS", key).value_or("");
    }

    support::TemporaryFolder folder_;
    QByteArray path_ = qgetenv("PATH");
};

TEST_F(FoundToolsTest, OnThePathAreNotWrittenDownAndFoundAgainWhereTheyAreNow) {
    for (const char* program : kPrograms) place("old", program);
    EXPECT_EQ(startAndEnd().exifToolPath, folder_ / "old/exiftool");
    for (const char* key : kKeys) EXPECT_EQ(named(key), "") << key;
    for (const char* program : kPrograms) place("new", program);
    search("new");
    const app::AppContext context = startAndEnd();
    EXPECT_EQ(context.exifToolPath, folder_ / "new/exiftool");
    EXPECT_EQ(context.ffmpegPath, folder_ / "new/ffmpeg");
    EXPECT_EQ(context.imageMagickPath, folder_ / "new/convert");
}

TEST_F(FoundToolsTest, BesideTheProgramAreNotWrittenDown) {
    for (const char* program : kPrograms) place("install", program);
    EXPECT_EQ(startAndEnd().exifToolPath, folder_ / "install/exiftool");
    for (const char* key : kKeys) EXPECT_EQ(named(key), "") << key;
}

TEST_F(FoundToolsTest, ThatAreNowhereAreNotWrittenDown) {
    startAndEnd();
    for (const char* key : kKeys) EXPECT_EQ(named(key), "") << key;
}

TEST_F(FoundToolsTest, ThatAreNamedStayNamedWhereverOthersAre) {
    for (const char* program : kPrograms) place("old", program);
    std::string section = "[PATHS]\n";
    for (std::size_t tool = 0; tool < std::size(kKeys); ++tool)
        section += std::string(kKeys[tool]) + "=" + place("new", kPrograms[tool]).string() + "\n";
    support::writeBytes(folder_ / "install/Tagwright.ini", section);
    const app::AppContext context = startAndEnd();
    EXPECT_EQ(context.exifToolPath, folder_ / "new/exiftool");
    for (std::size_t tool = 0; tool < std::size(kKeys); ++tool)
        EXPECT_EQ(named(kKeys[tool]), (folder_ / "new" / kPrograms[tool]).string());
}

TEST_F(FoundToolsTest, ThatIsNamedWhereItWouldBeFoundStaysNamed) {
    support::writeBytes(folder_ / "install/Tagwright.ini",
                        "[PATHS]\nExifToolPath=" + place("old", "exiftool").string() + "\n");
    startAndEnd();
    EXPECT_EQ(named("ExifToolPath"), (folder_ / "old/exiftool").string());
}

}  // namespace
