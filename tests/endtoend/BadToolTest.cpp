#include "DrivenProgram.h"
#include "PictureFolder.h"

#include <signal.h>

#include <QElapsedTimer>

using endtoend::DrivenProgram;
namespace fs = std::filesystem;

namespace {

/// Stand-ins for an ExifTool that does what the real one does not do on demand.
class BadToolTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        photo("a.jpg");
        photo("b.jpg");
    }

    /// The lines are run for a read; the session just waits.
    DrivenProgram::Options with(const std::string& lines) {
        const fs::path tool = folder / "tool";
        support::writeBytes(tool,
                            "#!/bin/sh\ncase \"$*\" in *stay_open*) exec sleep 60;; esac\n" + lines + "\n");
        fs::permissions(tool, fs::perms::owner_all);
        DrivenProgram::Options options;
        options.exifTool = tool;
        return options;
    }

    void start(DrivenProgram& program) { program.tell("open", {path()}); }
};

}  // namespace

TEST_F(BadToolTest, AMissingExifToolIsAskedForAndWithoutAnAnswerTheProgramEnds) {
    DrivenProgram::Options options;
    options.environment = {"PATH=/no/such/folder"};
    DrivenProgram program(options);
    const QJsonObject message = program.tell("message");
    EXPECT_EQ(message["title"].toString(), "Tagwright");
    EXPECT_EQ(message["icon"].toInt(), 16);
    EXPECT_EQ(program.refuse("open", {path()}), "there is no window");
    EXPECT_EQ(program.takeMessage(),
              "Could not find the ExifTool path!\nPlease tell Tagwright where ExifTool.exe is installed.");
    program.tell("dialog");
    program.tell("key", {"Escape"});
    EXPECT_EQ(program.takeMessage(), "Could not find the ExifTool path!\nAborting.");
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST_F(BadToolTest, AnExifToolThatIsChosenIsUsedAndKept) {
    DrivenProgram::Options options = with("echo '[IFD0] 0x010f Make: chosen'");
    const QString tool = QString::fromStdString(options.exifTool->string());
    options.exifTool = "/no/such/exiftool";
    options.environment = {"PATH=/no/such/folder"};
    DrivenProgram program(options);
    program.takeMessage();
    program.tell("set", {"1148", tool});
    program.tell("press", {"1"});
    start(program);
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.value("IFD0", "Make"), "chosen");
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(program.setting("PATHS", "ExifToolPath"), tool.toStdString());
}

TEST_F(BadToolTest, AChoiceThatCannotBeKeptIsTold) {
    DrivenProgram::Options options = with("echo '[IFD0] 0x010f Make: chosen'");
    const QString tool = QString::fromStdString(options.exifTool->string());
    options.exifTool.reset();
    options.environment = {"PATH=/no/such/folder"};
    options.prepare = [](const fs::path& install) {
        fs::remove(install / "cache/Tagwright.ini");
        fs::create_directories(install / "cache/Tagwright.ini/in the way");
    };
    DrivenProgram program(options);
    program.takeMessage();
    program.tell("set", {"1148", tool});
    program.tell("press", {"1"});
    EXPECT_TRUE(program.takeMessage().contains("could not be saved"));
    program.refuse("message");
    program.tell("quit");
    EXPECT_TRUE(endtoend::waitFor([&] { return program.say("message")["ok"].toBool(); }));
    EXPECT_TRUE(program.takeMessage().contains("could not be saved"));
    EXPECT_EQ(program.waitForEnd(), 0);
}

TEST_F(BadToolTest, AnExifToolThatCannotBeUsedIsToldAndAnotherOneCanBeChosen) {
    const struct {
        const char* script;
        fs::perms rights;
        const char* reason;
        bool hasWindow;  ///< it starts, and ends when the window stands
    } cases[] = {
        {"#!/bin/sh\nexec sleep 60\n", fs::perms::owner_read, "Permission denied", false},
        {"#!/no/such/perl\n", fs::perms::owner_all, "No such file", false},
        {"#!/usr/bin/perl\nuse Image::NoSuchTool;\n", fs::perms::owner_all,
         "Can't locate Image/NoSuchTool.pm", true},
        {"#!/bin/sh\nexit 0\n", fs::perms::owner_all, "ended at once", true},
    };
    const fs::path broken = folder / "broken";
    for (const auto& [script, rights, reason, hasWindow] : cases) {
        SCOPED_TRACE(reason);
        DrivenProgram::Options options = with("echo '[IFD0] 0x010f Make: chosen'");
        const QString good = QString::fromStdString(options.exifTool->string());
        fs::remove(broken);
        support::writeBytes(broken, script);
        fs::permissions(broken, rights);
        options.exifTool = broken;
        DrivenProgram program(options);
        for (const bool chooses : {false, true}) {
            ASSERT_TRUE(endtoend::waitFor([&] { return program.say("message")["ok"].toBool(); }));
            const QString message = program.takeMessage();
            EXPECT_TRUE(message.contains(reason)) << message.toStdString();
            EXPECT_TRUE(message.contains(QString::fromStdString(broken.string())));
            if (chooses) {
                program.tell("set", {"1148", good});
                program.tell("press", {"1"});
                break;
            }
            program.send("key Escape");
            if (hasWindow) program.send("quit");
            ASSERT_EQ(program.waitForEnd(), 0);
            program.restart();
        }
        start(program);
        program.tell("click", {"a.jpg"});
        EXPECT_EQ(program.value("IFD0", "Make"), "chosen");
        EXPECT_EQ(program.quit(), 0);
        EXPECT_EQ(program.setting("PATHS", "ExifToolPath"), good.toStdString());
    }
}

TEST_F(BadToolTest, AnExifToolThatIsTakenAwayLeavesTheListEmpty) {
    DrivenProgram::Options options = with("echo '[IFD0] 0x010f Make: there'");
    DrivenProgram program(options);
    start(program);
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.rows().size(), 1);
    fs::remove(*options.exifTool);
    program.tell("click", {"b.jpg"});
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_EQ(program.status(), "Ready");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadToolTest, WhateverIsPrintedTheRestIsShownAndNothingBreaks) {
    const struct {
        const char* what;
        const char* prints;
        int rows;
    } cases[] = {
        {"garbage", "head -c 200000 /dev/urandom | tr -d '\\n['", 0},
        {"nothing", "true", 0},
        {"an error", "echo 'Error: boom' >&2; exit 7", 0},
        {"half a line", "printf '[IFD0] 0x010f Ma'", 0},
        {"a line without its end", "printf '[IFD0] 0x010f Make: x'", 1},
        {"invalid UTF-8", "printf '[IFD0] 0x010f Make: \\377\\376\\n'", 1},
        {"zeros", "printf '[IFD0] 0x010f Make: a\\000b\\n[IFD0] 0x0110 Model: m\\n'", 2},
        {"empty lines and blanks", "printf '\\n\\n   \\n[]\\n[IFD0]\\n[IFD0] \\n[IFD0] 0x010f Make: x\\n'",
         1},
        {"a kill on the way", "echo '[IFD0] 0x010f Make: x'; kill -9 $$", 1},
        {"a line of 1 MB", "printf '[IFD0] 0x010f Make: '; head -c 1000000 /dev/zero | tr '\\0' x; echo", 1},
    };
    for (const auto& [what, prints, rows] : cases) {
        DrivenProgram::Options options = with(prints);
        // Unknown tags are not counted: garbage may look like some.
        options.moreSettings = "\n[MetadataList]\nShowUnknown=0\n";
        DrivenProgram program(options);
        start(program);
        program.tell("click", {"a.jpg"});
        EXPECT_EQ(program.rows().size(), rows) << what;
        EXPECT_EQ(program.status(), "Ready") << what;
        program.tell("screenshot", {path("shown.png")});
        EXPECT_EQ(program.quit(), 0) << what;
    }
}

TEST_F(BadToolTest, TwoHundredMegabytesOfOutputComeToAnEnd) {
    DrivenProgram program(
        with("printf '[IFD0] 0x010f Make: x\\n'\n"
             "yes '[IFD0] 0xfedc Nothing: 012345678901234567890123456789' | head -c 200000000"));
    start(program);
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.rows().size(), 100000);
    EXPECT_TRUE(program.tell("area", {"metadataTitle"})["text"].toString().contains("the first 100"));
    EXPECT_EQ(program.value("IFD0", "Make"), "x");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadToolTest, AReadThatDoesNotEndIsEndedByTheButtonAfterTenSeconds) {
    DrivenProgram program(with("echo $$ >" + (folder / "child").string() + "; exec sleep 600"));
    start(program);
    QElapsedTimer since;
    since.start();
    program.tell("click", {"a.jpg"});
    // Somewhat less than ten seconds: the clock starts when the click is told.
    EXPECT_GE(since.elapsed(), 9000);
    const QJsonObject dialog = program.tell("dialog");
    EXPECT_EQ(dialog["template"].toInt(), 171);
    QString shown;
    for (const QJsonValue& control : dialog["controls"].toArray()) shown += control["text"].toString() + "|";
    EXPECT_TRUE(shown.contains("Reading a.jpg")) << shown.toStdString();
    EXPECT_TRUE(shown.contains("Stop waiting")) << shown.toStdString();
    program.tell("press", {"17103"});
    EXPECT_TRUE(endtoend::waitFor([&] { return program.say("dialog")["ok"].toBool() == false; }));
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_EQ(program.status(), "Ready");
    const int child = std::stoi(support::readBytes(folder / "child"));
    EXPECT_TRUE(endtoend::waitFor([&] { return kill(child, 0) != 0; })) << "the child still runs";
    program.tell("command", {"8"});
    EXPECT_EQ(program.quit(), 0);
}
