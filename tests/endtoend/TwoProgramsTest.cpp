#include "EditedFolder.h"

#include <sys/stat.h>

#include <thread>

// Two programs run at once on one install folder, as two windows of one user do.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

constexpr const char* kNoPicture = "no picture at all";

class TwoProgramsTest : public endtoend::EditedFolder {
 protected:
    void SetUp() override {
        for (const char* side : {"left", "right"}) {
            subfolder(side);
            for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) makePhoto(std::string(side) + "/" + name);
        }
    }

    void makePhoto(const std::string& name) {
        photo(name, {"-XMP-dc:Title=" + name, "-IPTC:Headline=" + name, "-EXIF:Artist=" + name});
    }

    /// Both at the same time, each on a thread of its own.
    template <typename Work>
    static void atOnce(DrivenProgram& left, DrivenProgram& right, Work work) {
        std::thread other([&] { work(right, "right"); });
        work(left, "left");
        other.join();
    }

    /// Every name of the program's folder but the lock.
    static std::vector<fs::path> filesOf(const DrivenProgram& program) {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(program.temp())) {
            if (entry.path().filename() != "lock") files.push_back(entry.path());
        }
        return files;
    }
};

/// Adds a title to all files of the folder.
void addTitle(DrivenProgram& program, const QString& title) {
    program.tell("select", program.fileNames());
    program.tell("command", {"75"});
    program.tell("cell", {"1328", "Title", "Value"});
    program.tell("set", {"1694", title});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
}

}  // namespace

TEST_F(TwoProgramsTest, EveryClickShowsTheValuesOfItsOwnWindow) {
    DrivenProgram left;
    DrivenProgram right(&left);
    atOnce(left, right, [&](DrivenProgram& program, const std::string& side) {
        program.tell("open", {path(side)});
        for (int click = 0; click < 30; ++click) {
            const std::string name(1, static_cast<char>('a' + click % 3));
            program.tell("click", {QString::fromStdString(name + ".jpg")});
            EXPECT_EQ(program.value("XMP-dc", "Title"), QString::fromStdString(side + "/" + name + ".jpg"));
        }
    });
    EXPECT_TRUE(fs::exists(left.temp() / "panel/Metadata.txt"));
    EXPECT_TRUE(fs::exists(right.temp() / "panel/Metadata.txt"));
    EXPECT_EQ(right.quit(), 0);
    EXPECT_FALSE(fs::exists(right.temp()));
    left.tell("click", {"b.jpg"});
    EXPECT_EQ(left.value("XMP-dc", "Title"), "left/b.jpg") << "the end of the other took nothing away";
    EXPECT_EQ(left.quit(), 0);
    EXPECT_TRUE(fs::is_empty(left.tempRoot()));
}

TEST_F(TwoProgramsTest, AnOperationNeverTouchesWhatOnlyTheOtherHasChosen) {
    DrivenProgram left;
    DrivenProgram right(&left);
    for (int round = 0; round < 3; ++round) {
        for (const char* side : {"left", "right"}) {
            for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) makePhoto(std::string(side) + "/" + name);
        }
        atOnce(left, right, [&](DrivenProgram& program, const std::string& side) {
            program.tell("open", {path(side)});
            program.tell("select", {"a.jpg", "b.jpg"});
            program.tell("command", {"178"});
            program.tell("check", {kTagList, side == "left" ? "XMP" : "IPTC", "1"});
            program.tell("press", {"1"});
        });
        atOnce(left, right, [&](DrivenProgram& program, const std::string&) {
            program.tell("press", {"1"});
            EXPECT_FALSE(program.takeMessage().isEmpty());
        });
        for (const std::string side : {"left/", "right/"}) {
            for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) {
                const std::string file = side + name;
                const bool isChosen = std::string(name) != "c.jpg";
                EXPECT_EQ(held(file, "XMP-dc:Title").empty(), isChosen && side == "left/") << file;
                EXPECT_EQ(held(file, "IPTC:Headline").empty(), isChosen && side == "right/") << file;
                EXPECT_EQ(held(file, "EXIF:Artist"), file);
            }
        }
    }
    EXPECT_EQ(left.quit(), 0);
    EXPECT_EQ(right.quit(), 0);
}

TEST_F(TwoProgramsTest, EachHasItsReportAndNeitherLosesOrMixesIt) {
    support::writeBytes(file("left/b.jpg"), kNoPicture);
    support::writeBytes(file("right/c.jpg"), kNoPicture);
    DrivenProgram left;
    DrivenProgram right(&left);
    left.tell("open", {path("left")});
    right.tell("open", {path("right")});
    addTitle(left, "from the left");
    addTitle(right, "from the right");
    for (DrivenProgram* program : {&left, &right}) {
        const bool isLeft = program == &left;
        const QString shown = controlOf(program->tell("dialog"), 924)["text"].toString();
        EXPECT_EQ(shown.contains("left/b.jpg"), isLeft) << shown.toStdString();
        EXPECT_EQ(shown.contains("right/c.jpg"), !isLeft) << shown.toStdString();
        program->tell("key", {"Escape"});
    }
    const std::string kept = support::readBytes(left.report());
    EXPECT_NE(kept.find("left/b.jpg"), std::string::npos);
    EXPECT_NE(support::readBytes(right.report()).find("right/c.jpg"), std::string::npos);

    makePhoto("right/c.jpg");
    right.tell("open", {path("right")});
    addTitle(right, "once more");
    right.refuse("dialog");
    EXPECT_EQ(support::readBytes(left.report()), kept) << "a new report of the other puts away only its own";
    EXPECT_EQ(right.quit(), 0);
    EXPECT_EQ(left.quit(), 0);
    EXPECT_EQ(support::readBytes(left.report()), kept) << "it is there to be read after the program";
}

TEST_F(TwoProgramsTest, NothingIsLeftOfAKilledOneAfterTheNextStart) {
    DrivenProgram left;
    DrivenProgram right(&left);
    right.tell("open", {path("right")});
    right.tell("click", {"a.jpg"});
    left.tell("open", {path("left")});
    left.tell("click", {"a.jpg"});
    const auto kept = filesOf(left);
    right.kill();
    EXPECT_TRUE(fs::exists(right.temp() / "panel/Metadata.txt"));
    right.restart();
    right.tell("title");
    EXPECT_FALSE(fs::exists(right.temp() / "panel/Metadata.txt"))
        << "the number is free and its folder empty";
    right.kill();
    left.kill();
    left.restart();
    left.tell("title");
    EXPECT_FALSE(fs::exists(right.temp()));
    EXPECT_FALSE(fs::exists(left.temp() / "panel/Metadata.txt"));
    EXPECT_FALSE(kept.empty());
    struct stat facts {};
    ASSERT_EQ(stat(left.temp().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777U, 0700u);
    EXPECT_EQ(left.quit(), 0);
}

TEST_F(TwoProgramsTest, WhatTheOtherHasSetIsNotUndone) {
    DrivenProgram left;
    DrivenProgram right(&left);
    left.tell("open", {path("left")});
    right.tell("open", {path("right")});
    right.tell("command", {"50003"});
    right.tell("command", {"40090"});
    right.tell("command", {"8"});
    EXPECT_EQ(right.quit(), 0);
    ASSERT_EQ(left.setting("Main", "SortMode"), "3");
    ASSERT_EQ(left.setting("Main", "ShowFolders"), "0");
    const std::string columns = "[SYSTEM]\r\n0=1,250\r\n1=9,123\r\n\r\n";
    support::writeBytes(left.install() / "cache/ColumnsHeader.ini", columns);
    left.tell("command", {"17"});
    EXPECT_EQ(left.quit(), 0);
    EXPECT_EQ(left.setting("Main", "SortMode"), "3");
    EXPECT_EQ(left.setting("Main", "SortAscending"), "0");
    EXPECT_EQ(left.setting("Main", "ShowFolders"), "0");
    EXPECT_EQ(left.setting("Nodes", "1"), path("left").toStdString()) << "the last to end has shown it";
    EXPECT_EQ(support::readBytes(left.install() / "cache/ColumnsHeader.ini"), columns);
}
