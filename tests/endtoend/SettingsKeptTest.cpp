#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "app/SettingsStore.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <fstream>

using endtoend::DrivenProgram;

namespace {

class SettingsKeptTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        photo("b.jpg");
        photo("a.jpg");
    }
};

QJsonObject areaOf(DrivenProgram& program, const char* part) {
    return program.tell("area", {part});
}

}  // namespace

TEST_F(SettingsKeptTest, WhatWasSetIsThereAtTheNextStart) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("command", {"50003"});
    program.tell("command", {"40090"});
    program.tell("command", {"8"});
    program.tell("command", {"5040"});
    const QJsonObject middle = areaOf(program, "middle");
    const QJsonObject panel = areaOf(program, "RIGHT_HOLDER");
    EXPECT_EQ(program.quit(), 0);
    const struct {
        const char* section;
        const char* key;
        std::string value;
    } kept[] = {
        {"Nodes", "1", folder.path().string()},
        {"Main", "SortMode", "3"},
        {"Main", "SortAscending", "0"},
        {"Main", "ShowFolders", "0"},
        {"Main", "ViewMode", "1"},
        {"ListView", "ShowCheckBox", "1"},
        {"Lists", "ShowMetadataWindow", "1"},
        {"MainWindow-Position", "Left", "20"},
        {"MainWindow-Position", "Top", "20"},
        {"MainWindow-Position", "Right", "1300"},
        {"MainWindow-Position", "Bottom", "820"},
        {"PATHS", "InstallPath", program.install().string()},
    };
    for (const auto& [section, key, value] : kept)
        EXPECT_EQ(program.setting(section, key), value) << section << " " << key;

    program.restart();
    EXPECT_EQ(program.folder(), path());
    EXPECT_FALSE(areaOf(program, "HolderLeft")["visible"].toBool(true));
    for (const char* side : {"x", "y", "width", "height"}) {
        EXPECT_EQ(areaOf(program, "middle")[side], middle[side]) << side;
        EXPECT_EQ(areaOf(program, "RIGHT_HOLDER")[side], panel[side]) << side;
    }
    program.tell("select", {"a.jpg"});
    EXPECT_TRUE(program.tell("files")["files"][0]["checked"].toBool() !=
                program.tell("files")["files"][1]["checked"].toBool());
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(program.setting("MainWindow-Position", "Left"), "20") << "the window does not creep";
}

TEST_F(SettingsKeptTest, AnyFolderIsShownAgainAtTheNextStart) {
    std::string deep = "long";
    for (int level = 0; level < 12; ++level) deep += "/" + std::string(80, 'a');
    for (const std::string& name : {std::string("no \xE9 text \xFF"), std::string("two\nlines "), deep}) {
        std::filesystem::create_directories(folder / name);
        support::writeBytes(folder / name / "in it.jpg", "x");
        DrivenProgram program({.prepare = [&](const std::filesystem::path& install) {
            const std::filesystem::path last = folder / name;
            std::ofstream(install / "cache/Tagwright.ini", std::ios::app)
                << "\n[Nodes]\n1=" << app::startFolderText(last).toStdString() << '\n';
        }});
        for (int start = 0; start < 2; ++start) {
            EXPECT_EQ(program.fileNames(), QStringList("in it.jpg")) << name << start;
            EXPECT_EQ(program.quit(), 0);
            if (start == 0) program.restart();
        }
    }
}

TEST_F(SettingsKeptTest, TheRectangleOfAMaximisedWindowIsKept) {
    const QByteArray settings = "\n[MainWindow-Position]\nLeft=30\nTop=-41\nRight=1130\nBottom=740\n";
    DrivenProgram program({.moreSettings = settings});
    EXPECT_EQ(program.quit(), 0);
    for (const auto& [key, value] : {std::pair{"Left", "30"}, std::pair{"Top", "-41"},
                                     std::pair{"Right", "1130"}, std::pair{"Bottom", "740"}})
        EXPECT_EQ(program.setting("MainWindow-Position", key), value) << key;
}

// The system lets nobody open a file on which somebody else has a lease, until that gives it up: as a drive
// whose network is gone.
TEST_F(SettingsKeptTest, AFileThatCannotBeOpenedForALongTimeDoesNotKeepAClosedWindowAlive) {
    ::signal(SIGIO, SIG_IGN);
    const int file = ::open((folder / "a.jpg").c_str(), O_RDWR | O_CLOEXEC);
    if (::fcntl(file, F_SETLEASE, F_WRLCK) != 0) GTEST_SKIP() << "the file system gives no leases";
    DrivenProgram::Options options;
    options.prepare = [](const std::filesystem::path& install) {
        support::writeBytes(install / "cache/ColumnsHeader.ini", "[SYSTEM]\r\n0=1,300\r\n1=207,77\r\n\r\n");
    };
    DrivenProgram program(options);
    program.tell("open", {path()});
    EXPECT_TRUE(endtoend::waitFor([&] { return ::fcntl(file, F_GETLEASE) != F_WRLCK; }))
        << "nobody wants to open the file";
    QElapsedTimer since;
    since.start();
    EXPECT_EQ(program.quit(), 0);
    EXPECT_GE(since.elapsed(), 4000) << "nothing was stuck";
    EXPECT_LT(since.elapsed(), 15'000);
    ::close(file);
    EXPECT_EQ(program.setting("Nodes", "1"), folder.path().string());
}

TEST_F(SettingsKeptTest, ColumnsAreWrittenAndReadAgain) {
    DrivenProgram::Options options;
    options.prepare = [](const std::filesystem::path& install) {
        support::writeBytes(install / "cache/ColumnsHeader.ini", "[SYSTEM]\r\n0=1,300\r\n1=9,77\r\n\r\n");
    };
    DrivenProgram program(options);
    program.tell("open", {path()});
    const QJsonObject columns = program.tell("files")["files"][0]["columns"].toObject();
    EXPECT_EQ(columns.keys(), QStringList("FileSize"));
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(support::readBytes(program.install() / "cache/ColumnsHeader.ini"),
              "[SYSTEM]\r\n0=1,250\r\n1=9,77\r\n\r\n")
        << "the name column always starts with 250";
}

TEST_F(SettingsKeptTest, TheTempFolderIsEmptiedByANormalExitAndWhatACrashLeftByTheNextStart) {
    DrivenProgram program;
    support::writeBytes(program.tempRoot() / "left over.txt", "x");
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    EXPECT_TRUE(std::filesystem::exists(program.temp() / "panel/Metadata.txt"));
    program.kill();
    EXPECT_TRUE(std::filesystem::exists(program.temp() / "panel/Metadata.txt"));
    program.restart();
    program.tell("title");
    EXPECT_TRUE(std::filesystem::is_directory(program.temp()));
    EXPECT_FALSE(std::filesystem::exists(program.temp() / "panel/Metadata.txt"));
    EXPECT_TRUE(std::filesystem::exists(program.tempRoot() / "left over.txt")) << "no process's own";
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(std::filesystem::is_directory(program.tempRoot()));
    EXPECT_TRUE(std::filesystem::is_empty(program.tempRoot()));
}

TEST_F(SettingsKeptTest, WhatTheProgramDoesNotKnowStaysInTheFile) {
    DrivenProgram::Options options;
    options.moreSettings = "\n[Stranger]\nkey = value ; with all\n; a remark\n[Main]\nOwn=1\n";
    DrivenProgram program(options);
    program.tell("open", {path()});
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(program.setting("Stranger", "key").has_value());
    EXPECT_EQ(program.setting("Main", "Own"), "1");
    EXPECT_NE(support::readBytes(program.install() / "cache/Tagwright.ini").find("; a remark"),
              std::string::npos);
}

TEST_F(SettingsKeptTest, AStartFolderThatIsGoneGivesWayToAnother) {
    DrivenProgram::Options options;
    options.moreSettings = "\n[Nodes]\n1=/no/such/folder\n";
    DrivenProgram program(options);
    EXPECT_TRUE(std::filesystem::is_directory(program.folder().toStdString()))
        << program.folder().toStdString();
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(SettingsKeptTest, AWindowWithoutAPlaceStartsMaximised) {
    for (const char* position :
         {"Right=0\nBottom=0", "Left=-5\nRight=900\nBottom=700", "Top=-5\nRight=900\nBottom=700"}) {
        DrivenProgram::Options options;
        options.moreSettings = QByteArray("\n[MainWindow-Position]\n") + position + "\n";
        DrivenProgram program(options);
        EXPECT_EQ(program.quit(), 0);
        EXPECT_LT(std::stoi(program.setting("MainWindow-Position", "Top").value_or("0")), 0) << position;
    }
}
