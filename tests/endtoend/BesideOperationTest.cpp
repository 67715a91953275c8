#include "EditedFolder.h"

// What the window does while ExifTool is busy with another file.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;
using endtoend::waitFor;

namespace {

const QString kFileDate = "157";
const QString kRenameByDateAndMake = "173";
const QString kRemoveTags = "177";
const QString kVerboseDump = "10007";
const QString kExport = "10034";
const QString kClose = "40092";
const QString kRestart = "40110";

class BesideOperationTest : public endtoend::EditedFolder {
 protected:
    void SetUp() override {
        fs::create_directories(file("other"));
        for (const char* name : {"held.jpg", "a.jpg", "b.jpg", "other/c.jpg"})
            photo(name, {std::string("-XMP-dc:Title=title of ") + name, "-IFD0:Make=Maker",
                         "-AllDates=2001:02:03 04:05:06"});
        support::ExifTool({"-q", "-overwrite_original", "-ThumbnailImage<=" + file("b.jpg").string(),
                           file("a.jpg").string()});
    }

    /// The real tool, which waits with a file until it is let go, if its arguments are such. While it is not,
    /// `meanwhile` can be done by a run for another one. The panel reads what is selected, so that mostly the
    /// writes alone wait.
    DrivenProgram::Options options(const std::string& meanwhile = {},
                                   const std::string& waiting = R"(*\<*held.jpg*)") {
        const fs::path tool = folder / "tool";
        support::writeBytes(tool, "#!/bin/sh\ncase \"$*\" in *stay_open*) ;;\n" + waiting + ") : >'" +
                                      inWork().string() + "'; while [ ! -e '" + letGo().string() +
                                      "' ]; do sleep 0.02; done;;\n" + meanwhile +
                                      "esac\nexec /usr/bin/exiftool \"$@\"\n");
        fs::permissions(tool, fs::perms::owner_all);
        DrivenProgram::Options options;
        options.exifTool = tool;
        options.prepare = [this](const fs::path& install) {
            support::writeBytes(install / "Tagwright", "#!/bin/sh\n: >'" + restarted().string() + "'\n");
            fs::permissions(install / "Tagwright", fs::perms::owner_all);
        };
        return options;
    }
    fs::path inWork() const { return folder / "in work"; }
    fs::path letGo() const { return folder / "let go"; }
    fs::path restarted() const { return folder / "restarted"; }

    /// Has an operation begin on the one file, which goes on until letItEnd().
    void begin(DrivenProgram& program, const QString& command) {
        program.tell("open", {path()});
        program.tell("select", {"held.jpg"});
        program.tell("nowait", {"command", command});
        EXPECT_TRUE(waitFor([&] { return fs::exists(inWork()); }));
    }
    void letItEnd(DrivenProgram& program) {
        support::writeBytes(letGo(), "");
        EXPECT_TRUE(waitFor([&] { return isEnabled(program, kFileDate); }));
        program.tell("await");
    }

    static bool isEnabled(DrivenProgram& program, const QString& command) {
        return program.tell("state", {command})["enabled"].toBool();
    }
    /// The progress of the operation is none that the user has to answer.
    static bool isAsked(DrivenProgram& program) {
        const QJsonObject dialog = program.say("dialog");
        return dialog["ok"].toBool() && dialog["template"].toInt() != 171;
    }
    static QStringList tagsIn(const QJsonObject& list) {
        QStringList tags;
        for (const QJsonValue& row : list["items"].toArray()) tags.append(row["cells"][0].toString());
        return tags;
    }
};

}  // namespace

TEST_F(BesideOperationTest, ADialogAndThePanelReadAtOnceAndEachShowsItsOwnFile) {
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Rights=rights", file("held.jpg").string()});
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Source=source", file("b.jpg").string()});
    // The panel stays with a file that was clicked in the designed form only.
    DrivenProgram::Options designed = options({}, "*held.jpg*");
    designed.moreSettings = "\n[ExifTool]\nCorrectedCommands=0\n";
    DrivenProgram program(designed);
    program.tell("open", {path()});
    program.tell("nowait", {"click", "held.jpg"});
    program.tell("select", {"b.jpg"});
    program.tell("command", {kRemoveTags});
    const QStringList offered = tagsIn(controlOf(program.tell("dialog"), 1328));
    EXPECT_TRUE(offered.contains("Source") && !offered.contains("Rights")) << offered.join(' ').toStdString();
    support::writeBytes(letGo(), "");
    EXPECT_TRUE(waitFor([&] { return !program.rows().isEmpty(); }));
    EXPECT_EQ(program.value("XMP-dc", "Rights"), "rights");
    EXPECT_EQ(program.value("XMP-dc", "Source"), std::nullopt);
    program.tell("press", {"2"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BesideOperationTest, NoValueIsAskedForThatCouldNotBeWritten) {
    DrivenProgram program(options());
    begin(program, kFileDate);
    program.tell("click", {"a.jpg"});
    program.tell("row", {"XMP-dc", "Title"});
    EXPECT_FALSE(isAsked(program));
    EXPECT_TRUE(program.status().contains("is still running")) << program.status().toStdString();
    // It can be looked at all the same, and stays open when it cannot be written.
    program.tell("row", {"IFD1", "ThumbnailImage"});
    for (const char* button : {"81505", "81506"}) {
        program.tell("press", {button});
        EXPECT_TRUE(program.takeMessage().contains("is still running"));
    }
    letItEnd(program);
    program.tell("press", {"81506"});
    EXPECT_TRUE(program.takeMessage().contains("a.jpg"));
    EXPECT_EQ(held("a.jpg", "ThumbnailImage"), "");
    program.tell("row", {"XMP-dc", "Title"});
    program.tell("set", {kText, "new"});
    program.tell("press", {"1"});
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "new");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BesideOperationTest, WhatBeginsAnotherOneIsGreyUntilItEnds) {
    const QStringList begins = {"22",        "23",  "75",    "157",   "176",
                                kRemoveTags, "216", "10033", kExport, "10066"};
    DrivenProgram program(options());
    begin(program, kFileDate);
    for (const QString& command : begins) EXPECT_FALSE(isEnabled(program, command)) << command.toInt();
    for (const QString& command : {QString("248"), QString("10004"), kClose})
        EXPECT_TRUE(isEnabled(program, command)) << command.toInt();
    program.tell("click", {"a.jpg"});
    program.tell("row", {"XMP-dc", "Title", "Tag"});
    EXPECT_FALSE(isEnabled(program, "10075"));
    letItEnd(program);
    for (const QString& command : begins) EXPECT_TRUE(isEnabled(program, command)) << command.toInt();
    EXPECT_TRUE(isEnabled(program, "10075"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BesideOperationTest, AnExportThatIsRefusedLeavesTheFileThatStandsThere) {
    support::writeBytes(file("a.txt"), "my notes");
    DrivenProgram::Options designed = options();
    designed.moreSettings = "\n[ExifTool]\nCorrectedCommands=0\n";
    DrivenProgram program(designed);
    begin(program, kFileDate);
    program.tell("click", {"a.jpg"});
    program.tell("command", {kExport});
    EXPECT_TRUE(program.status().contains("is still running"));
    EXPECT_EQ(support::readBytes(file("a.txt")), "my notes");
    letItEnd(program);
    program.tell("command", {kExport});
    EXPECT_NE(support::readBytes(file("a.txt")), "my notes");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BesideOperationTest, ARenamedFileStaysSelectedInTheTabItWasBegunIn) {
    const QString renamed = "2001-02-03 04-05-06 - Maker-held.jpg";
    DrivenProgram program(options({}, R"(*-FileName\<*held.jpg*)"));
    program.tell("open", {path()});
    program.tell("select", {"held.jpg"});
    program.tell("command", {kRenameByDateAndMake});
    EXPECT_TRUE(program.tell("message")["text"].toString().contains(renamed));
    program.tell("nowait", {"press", "1"});
    EXPECT_TRUE(waitFor([&] { return fs::exists(inWork()); }));
    program.tell("focus", {"NewTab"});
    program.tell("open", {path("other")});
    program.tell("select", {"c.jpg"});
    letItEnd(program);
    EXPECT_EQ(program.selectedFiles(), QStringList("c.jpg"));
    program.tell("tab", {"0"});
    EXPECT_TRUE(program.fileNames().contains(renamed)) << program.fileNames().join(' ').toStdString();
    EXPECT_EQ(program.selectedFiles(), QStringList(renamed));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BesideOperationTest, ARestartComesWhenTheFileInWorkHasEnded) {
    DrivenProgram program(options());
    begin(program, kFileDate);
    program.tell("command", {kRestart});
    EXPECT_FALSE(fs::exists(restarted()));
    support::writeBytes(letGo(), "");
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_TRUE(waitFor([&] { return fs::exists(restarted()); }));
    EXPECT_TRUE(held("held.jpg", "FileModifyDate").starts_with("2001:02:03"));
}

TEST_F(BesideOperationTest, TheWindowClosesAlsoWhenTheOperationEndsDuringAWait) {
    // A dump, for which is waited, lets the operation end and takes longer itself.
    DrivenProgram::Options designed = options("*b.jpg*) : >'" + letGo().string() + "'; sleep 2;;\n");
    designed.moreSettings = "\n[ExifTool]\nCorrectedCommands=0\n";
    DrivenProgram program(designed);
    begin(program, kFileDate);
    program.tell("command", {kClose});
    program.tell("select", {"b.jpg"});
    program.send("command " + kVerboseDump.toUtf8());
    EXPECT_EQ(program.waitForEnd(), 0);
    EXPECT_FALSE(fs::exists(restarted()));
    EXPECT_TRUE(held("held.jpg", "FileModifyDate").starts_with("2001:02:03"));
}
