#include "DrivenProgram.h"
#include "PictureFolder.h"

using endtoend::DrivenProgram;
namespace fs = std::filesystem;

namespace {

class BadInstallTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override { photo("a.jpg", {"-XMP-dc:Title=of a"}); }

    static DrivenProgram::Options after(std::function<void(const fs::path& install)> prepare) {
        DrivenProgram::Options options;
        options.prepare = std::move(prepare);
        return options;
    }
};

}  // namespace

TEST_F(BadInstallTest, WithoutALanguageFileTheProgramSaysSoAndEnds) {
    const struct {
        const char* what;
        std::function<void(const fs::path&)> prepare;
    } cases[] = {
        {"missing", [](const fs::path& install) { fs::remove_all(install / "babel"); }},
        {"empty", [](const fs::path& install) { support::writeBytes(install / "babel/0009.dlk", ""); }},
        {"cut",
         [](const fs::path& install) {
             fs::resize_file(install / "babel/0009.dlk", fs::file_size(install / "babel/0009.dlk") / 2);
         }},
        {"changed",
         [](const fs::path& install) {
             std::string bytes = support::readBytes(install / "babel/0009.dlk");
             for (std::size_t at = 40; at < bytes.size(); at += 997)
                 bytes[at] = static_cast<char>(bytes[at] ^ 0x5a);
             support::writeBytes(install / "babel/0009.dlk", bytes);
         }},
        {"a folder",
         [](const fs::path& install) {
             fs::remove(install / "babel/0009.dlk");
             fs::create_directory(install / "babel/0009.dlk");
         }},
    };
    for (const auto& [what, prepare] : cases) {
        DrivenProgram program(after(prepare));
        const QJsonObject message = program.tell("message");
        EXPECT_EQ(message["text"].toString(), "Could not initialize the framework!") << what;
        EXPECT_EQ(message["icon"].toInt(), 16) << what;
        program.tell("press", {"1"});
        EXPECT_EQ(program.waitForEnd(), 0) << what;
    }
}

TEST_F(BadInstallTest, ASettingsFileFullOfGarbageGivesDefaults) {
    std::string noise;
    for (int at = 0; at < 100000; ++at) noise += static_cast<char>((at * 7919 + at / 251) & 0xff);
    const std::string files[] = {
        noise,
        "",
        "[Main\nViewMode=\n=\n[[[]]]\n[]\n",
        std::string(200000, '['),
        "[Main]\nViewMode=9\nSortMode=-7\nLanguage=9\n",
        "[WINDOWS_SIZES]\nHolder_Left_Width=2147483647\nHolder_Right_Width=-2147483648\n"
        "Main_Width=99999999999999\n[MainWindow-Position]\nLeft=2000000000\nTop=2000000000\n"
        "Right=2100000000\nBottom=2100000000\n[Metadata_Panel]\nCOL_DATA=2000000000\n"};
    for (const std::string& file : files) {
        DrivenProgram program(after(
            [&](const fs::path& install) { support::writeBytes(install / "cache/Tagwright.ini", file); }));
        if (file.starts_with("[Main]\nViewMode=9")) {
            EXPECT_TRUE(program.takeMessage().contains("SortMode::_from_integral: invalid argument"));
        }
        program.tell("open", {path()});
        EXPECT_EQ(program.fileNames(), QStringList("a.jpg")) << file.substr(0, 30);
        program.tell("command", {"284"});
        program.tell("press", {"1"});
        EXPECT_EQ(program.quit(), 0) << file.substr(0, 30);
        EXPECT_EQ(program.setting("Nodes", "1"), folder.path().string()) << "the next start has a sound file";
        EXPECT_EQ(program.setting("Main", "ViewMode").value_or(""), "1") << file.substr(0, 30);
    }
}

TEST_F(BadInstallTest, AColumnFileFullOfGarbageGivesTheNameColumn) {
    for (const char* text : {"[SYSTEM]\r\n0=nonsense\r\n1=9,90\r\n", "[SYSTEM]\r\n0=99999,10\r\n1=-1,-1\r\n",
                             "\xff\xfe\0x", "[SYSTEM]\r\n0=1,2147483647\r\n1=9,2147483647\r\n"}) {
        DrivenProgram program(after([&](const fs::path& install) {
            support::writeBytes(install / "cache/ColumnsHeader.ini", text);
        }));
        program.tell("open", {path()});
        EXPECT_EQ(program.fileNames(), QStringList("a.jpg")) << text;
        EXPECT_EQ(program.quit(), 0);
        EXPECT_TRUE(support::readBytes(program.install() / "cache/ColumnsHeader.ini")
                        .starts_with("[SYSTEM]\r\n0=1,"));
    }
}

TEST_F(BadInstallTest, ATempFolderThatIsMissingOrNoFolderIsToldAtTheStart) {
    const std::function<void(const fs::path&)> prepares[] = {
        [](const fs::path& install) { fs::remove(install / "Temp"); },
        [](const fs::path& install) {
            fs::remove(install / "Temp");
            support::writeBytes(install / "Temp", "a file");
        },
        [](const fs::path& install) {
            fs::rename(install / "Temp", install / "elsewhere");
            fs::create_directory_symlink(install / "elsewhere", install / "Temp");
        },
    };
    for (const auto& prepare : prepares) {
        DrivenProgram program(after(prepare));
        const QString message = program.takeMessage();
        EXPECT_TRUE(message.contains("Temp")) << message.toStdString();
        EXPECT_EQ(program.waitForEnd(), 0);
    }
}

TEST_F(BadInstallTest, ATempFolderThatGoesWhileTheProgramRunsIsNoDisaster) {
    DrivenProgram program;
    program.tell("open", {path()});
    fs::remove_all(program.tempRoot());
    program.tell("click", {"a.jpg"});
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_EQ(program.status(), "Ready");
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(fs::is_directory(program.tempRoot())) << "made again for the next start";
}

TEST_F(BadInstallTest, ColumnsThatCannotBeWrittenAreToldAndTheEndGoesOn) {
    DrivenProgram program;
    program.tell("open", {path()});
    const fs::path columns = program.install() / "cache/ColumnsHeader.ini";
    fs::remove(columns);
    fs::create_directories(columns / "in the way");
    program.tell("quit");
    ASSERT_TRUE(endtoend::waitFor([&] { return program.say("message")["ok"].toBool(); }));
    const QJsonObject message = program.tell("message");
    EXPECT_EQ(message["text"].toString(),
              "Could not write to ColumnsHeader.ini.\nError: " + QString::number(EISDIR));
    EXPECT_EQ(message["icon"].toInt(), 64);
    program.tell("press", {"1"});
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_EQ(program.setting("Nodes", "1"), folder.path().string());
    EXPECT_TRUE(fs::is_empty(program.tempRoot()));
}

TEST_F(BadInstallTest, SettingsThatCannotBeWrittenAreTold) {
    DrivenProgram program(after([](const fs::path& install) {
        fs::remove_all(install / "cache");
        support::writeBytes(install / "cache", "a file in the way");
    }));
    const QString atStart = program.takeMessage();
    EXPECT_FALSE(atStart.isEmpty());
    program.tell("open", {path()});
    program.tell("command", {"17"});
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title").value_or("none"), "none") << "the defaults hide it";
    program.tell("quit");
    for (const char* told : {"Could not write to ColumnsHeader.ini.", "settings"}) {
        EXPECT_TRUE(endtoend::waitFor([&] { return program.say("message")["ok"].toBool(); }));
        EXPECT_TRUE(program.takeMessage().contains(told)) << told;
    }
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(fs::is_regular_file(program.install() / "cache"));
}
