#include "DrivenProgram.h"
#include "PictureFolder.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>

using endtoend::DrivenProgram;

namespace {

QJsonObject controlOf(const QJsonObject& dialog, int id) {
    for (const QJsonValue& control : dialog["controls"].toArray())
        if (control["id"].toInt() == id) return control.toObject();
    return {};
}

QList<int> entryIds(const QJsonObject& menu) {
    QList<int> ids;
    for (const QJsonValue& entry : menu["entries"].toArray())
        if (!entry["separator"].toBool()) ids.append(entry["id"].toInt());
    return ids;
}

class DriveTest : public endtoend::PictureFolder {
 protected:
    void SetUp() override {
        photo("a.jpg", {"-XMP-dc:Title=of a", "-XMP-xmp:Rating=3", "-IFD0:Artist=https://example.org/"});
        photo("b c.jpg");
        subfolder("sub");
    }
};

}  // namespace

TEST_F(DriveTest, LinesThatAreNoCommandAreRefusedAndTheNextOneWorks) {
    DrivenProgram program;
    const QByteArray lines[] = {
        "nonsense",
        "OPEN /tmp",
        "open",
        "open /tmp /tmp",
        "open \"unfinished",
        "open \"bad \\escape\"",
        "open \"two\"words",
        "\"\"",
        "command",
        "command about",
        "command 1",
        "command 12.5",
        "wait long",
        "choose 1",
        "press 1",
        "press x",
        "set 1",
        "check 1 2",
        "check 1 2 yes",
        "menu",
        "message",
        "dialog",
        "key Nonsense",
        "key \"\"",
        "click missing.jpg",
        "click",
        "select missing.jpg",
        "doubleclick missing.jpg",
        "row IFD0 Missing",
        "row IFD0",
        "header Missing",
        "focus Missing",
        "screenshot /no/such/folder/picture.png",
        "open /no/such/folder",
        "open " + path("a.jpg").toUtf8(),
        QByteArray("\xff\xfe"),
        QByteArray("a\0b", 3),
        QByteArray(300000, 'x'),
    };
    for (const QByteArray& line : lines) {
        const QJsonObject answer = program.say(line);
        EXPECT_FALSE(answer["ok"].toBool(true)) << line.left(60).toStdString();
        EXPECT_FALSE(answer["error"].toString().isEmpty()) << line.left(60).toStdString();
    }
    EXPECT_TRUE(program.say("  \t wait   1 \r")["ok"].toBool());
    EXPECT_EQ(program.say("\"open\" \"" + path().toUtf8() + "\"")["path"].toString(), path());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, WordsAreJsonStrings) {
    DrivenProgram program;
    program.tell("open", {path()});
    const QByteArray lines[] = {"select \"b c.jpg\"", "select \"b\\u0020c.jpg\"", "select a.jpg \"b c.jpg\"",
                                "select"};
    const QStringList selected[] = {{"b c.jpg"}, {"b c.jpg"}, {"a.jpg", "b c.jpg"}, {}};
    for (std::size_t at = 0; at < std::size(lines); ++at) {
        EXPECT_TRUE(program.say(lines[at])["ok"].toBool()) << lines[at].toStdString();
        EXPECT_EQ(program.selectedFiles(), selected[at]) << lines[at].toStdString();
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, SeveralCommandsInOneGoAreAnsweredOneByOneInTheirOrder) {
    DrivenProgram program;
    EXPECT_TRUE(program.say("open \"" + path().toUtf8() + "\"\nclick a.jpg\nstatus\ntitle")["ok"].toBool());
    EXPECT_TRUE(program.nextAnswer()["ok"].toBool());
    EXPECT_EQ(program.nextAnswer()["text"].toString(), "Ready");
    EXPECT_EQ(program.nextAnswer()["title"].toString(), path() + " - Tagwright");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, FilesTellTheColumnsByTheirCatalogueNames) {
    std::filesystem::last_write_time(folder / "a.jpg", std::filesystem::file_time_type::clock::now());
    DrivenProgram program;
    program.tell("open", {path()});
    const QJsonArray files = program.tell("files")["files"].toArray();
    ASSERT_EQ(files.size(), 3);
    EXPECT_EQ(files[0]["name"].toString(), "sub");
    for (const char* column : {"DateModified", "FileSize", "ItemTypeText"}) {
        EXPECT_EQ(files[0]["columns"][column].toString(QStringLiteral("absent")), "")
            << "of a folder: " << column;
        EXPECT_FALSE(files[1]["columns"][column].toString().isEmpty()) << column;
    }
    EXPECT_EQ(files[1]["columns"]["ItemTypeText"].toString(), "JPEG image");
    EXPECT_FALSE(files[1]["selected"].toBool(true));
    EXPECT_FALSE(files[1]["checked"].toBool(true));
    EXPECT_TRUE(files[1].toObject().contains("group"));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, AModalDialogIsDescribedAndHoldsTheWindowBack) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("command", {"284"});
    const QJsonObject dialog = program.tell("dialog");
    EXPECT_EQ(dialog["template"].toInt(), 284);
    EXPECT_EQ(dialog["title"].toString(), "About Tagwright");
    EXPECT_TRUE(controlOf(dialog, 28402)["text"].toString().startsWith("Version "));
    EXPECT_EQ(controlOf(dialog, 1)["class"].toString(), "QPushButton");
    EXPECT_TRUE(controlOf(dialog, 1)["enabled"].toBool());
    for (const char* command : {"click a.jpg", "command 284", "open /tmp", "select a.jpg", "doubleclick sub"})
        EXPECT_FALSE(program.say(command)["ok"].toBool(true)) << command;
    program.refuse("message");
    program.refuse("menu");
    program.refuse("press", {"77"});
    program.refuse("set", {"1", "text"});
    EXPECT_EQ(program.folder(), path());
    EXPECT_EQ(program.fileNames().size(), 3);
    EXPECT_EQ(program.status(), "Ready");
    program.tell("press", {"1"});
    program.refuse("dialog");
    program.tell("command", {"284"});
    program.tell("key", {"Escape"});
    program.refuse("dialog");
    program.tell("key", {"Down"});
    EXPECT_EQ(program.selectedFiles(), QStringList("a.jpg")) << "the list has the keyboard back";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, AMessageBoxIsToldWithIconAndButtons) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select");
    program.tell("command", {"40012"});
    const QJsonObject message = program.tell("message");
    EXPECT_EQ(message["title"].toString(), "Tagwright");
    EXPECT_FALSE(message["text"].toString().isEmpty());
    EXPECT_EQ(message["icon"].toInt(), 64);
    EXPECT_EQ(message["buttons"][0]["id"].toInt(), 1);
    EXPECT_EQ(message["buttons"][0]["text"].toString(), "OK");
    program.refuse("dialog");
    program.refuse("click", {"a.jpg"});
    program.tell("press", {"1"});
    program.refuse("message");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, MenusOfThePanelAreToldAndChosenFrom) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    program.tell("row", {"XMP-dc", "Title", "right"});
    EXPECT_TRUE(entryIds(program.tell("menu")).contains(40063));
    EXPECT_FALSE(entryIds(program.tell("menu")).contains(40011));
    program.refuse("choose", {"1"});
    program.tell("key", {"Escape"});
    program.refuse("menu");
    program.tell("row", {"IFD0", "Artist", "Value", "right"});
    EXPECT_TRUE(entryIds(program.tell("menu")).contains(40011)) << "an address can be opened";
    program.tell("click", {"b c.jpg"});
    program.refuse("menu");
    EXPECT_EQ(program.selectedFiles(), QStringList("b c.jpg")) << "a click beside the menu closes it";
    program.tell("click", {"a.jpg"});
    program.tell("header", {"IFD0"});
    for (const int entry : {1821, 1824, 40201, 40202})
        EXPECT_TRUE(entryIds(program.tell("menu")).contains(entry)) << entry;
    program.tell("choose", {"40201"});
    program.refuse("menu");
    EXPECT_GT(program.rows().size(), 10) << "rows of collapsed groups count";
    program.tell("row", {"XMP-dc", "Title", "Tag", "left"});
    program.tell("header", {"XMP-dc"});
    program.tell("choose", {"40202"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, AScreenshotShowsWhatStandsInFrontToo) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("screenshot", {path("plain.png")});
    program.tell("command", {"284"});
    program.tell("screenshot", {path("about.png")});
    program.tell("press", {"1"});
    program.tell("screenshot", {path("after.png")});
    const QImage plain(path("plain.png"));
    EXPECT_EQ(plain.size(), QSize(1280, 800));
    EXPECT_EQ(QImage(path("about.png")).size(), plain.size());
    EXPECT_NE(QImage(path("about.png")), plain);
    EXPECT_EQ(QImage(path("after.png")).size(), plain.size());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, WaitTakesItsTimeAndTheProgramRunsOn) {
    DrivenProgram program;
    program.tell("open", {path()});
    QElapsedTimer since;
    since.start();
    program.tell("wait", {"300"});
    EXPECT_GE(since.elapsed(), 290);
    program.tell("wait", {"0"});
    program.tell("wait", {"-5"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(DriveTest, TheProgramEndsWithItsInput) {
    const std::vector<QByteArray> before[] = {
        {"open \"" + path().toUtf8() + "\""},
        {"command 284"},
        {"open \"" + path().toUtf8() + "\"", "click a.jpg", "row XMP-dc Title right"},
    };
    for (const auto& commands : before) {
        DrivenProgram program;
        for (const QByteArray& command : commands) EXPECT_TRUE(program.say(command)["ok"].toBool());
        program.closeInput();
        EXPECT_EQ(program.waitForEnd(), 0) << commands.back().toStdString();
    }
}

TEST_F(DriveTest, QuitClosesWhatStandsInFront) {
    DrivenProgram program;
    program.tell("command", {"284"});
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(program.setting("WINDOWS_SIZES", "Main_Height").has_value()) << "an ordinary end saves";
}
