#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "support/UnprivilegedUser.h"

using endtoend::DrivenProgram;
using endtoend::waitFor;

namespace fs = std::filesystem;

namespace {

const QByteArray kDesigned = "[ExifTool]\nCorrectedCommands=0\n";

class PanelEditingTest : public endtoend::PictureFolder {
 protected:
    void show(DrivenProgram& program) {
        program.tell("open", {path()});
        program.tell("click", {"a.jpg"});
    }

    std::string stored(const std::string& tag) {
        return support::ExifTool({"-s3", "-b", "-" + tag, (folder / "a.jpg").string()});
    }

    /// The text of a control of a dialog that was described.
    static QString textOf(const QJsonObject& dialog, int id) {
        for (const QJsonValue& control : dialog["controls"].toArray())
            if (control["id"].toInt() == id) return control["text"].toString();
        return {};
    }

    /// The copy that was made before the last write.
    std::string safetyCopy(const DrivenProgram& program) const {
        const fs::path saved = program.install() / "cache/sav" / folder.path().relative_path() / "a-sav.jpg";
        return fs::exists(saved) ? support::readBytes(saved) : std::string();
    }

    static bool hasRow(DrivenProgram& program, const QString& group, const QString& tag,
                       const QString& value) {
        return waitFor([&] { return program.value(group, tag) == value; });
    }
};

}  // namespace

TEST_F(PanelEditingTest, AnUnchangedValueIsNotWritten) {
    photo("a.jpg", {"-IFD0:Artist=Ada", "-XMP-xmp:Rating=3", "-ExifIFD:CreateDate#=0000:00:00 00:00:00"});
    const std::string before = support::readBytes(folder / "a.jpg");
    DrivenProgram program;
    show(program);
    program.tell("row", {"IFD0", "Artist"});
    program.tell("set", {"1694", "Bob"});
    program.tell("press", {"2"});
    for (const auto& [group, tag] :
         {std::pair("IFD0", "Artist"), std::pair("XMP-xmp", "Rating"), std::pair("ExifIFD", "CreateDate")}) {
        program.tell("row", {group, tag});
        program.tell("press", {"1"});
        EXPECT_EQ(program.status(), QStringLiteral("%1 is as it was").arg(tag));
    }
    EXPECT_EQ(support::readBytes(folder / "a.jpg"), before);
    EXPECT_EQ(safetyCopy(program), "");
}

TEST_F(PanelEditingTest, ATextInOneLanguageIsChangedAndDeletedAlone) {
    photo("a.jpg", {"-XMP-dc:Title=plain", "-XMP-dc:Title-de=deutsch",
                    "-XMP-dc:Title-fr=fran\xC3\xA7"
                    "ais "});
    const std::string bytes = support::readBytes(folder / "a.jpg");
    const auto comment = [](const std::string& text) {
        return std::string("\xFF\xFE\x00", 3) + static_cast<char>(text.size() + 2) + text;
    };
    support::writeBytes(folder / "a.jpg",
                        bytes.substr(0, 2) + comment("one") + comment("two") + bytes.substr(2));
    DrivenProgram program;
    show(program);
    program.tell("row", {"XMP-dc", "Title"});
    program.tell("set", {"1694", "new"});
    program.tell("press", {"1"});
    EXPECT_TRUE(hasRow(program, "XMP-dc", "Title", "new"));
    program.tell("row", {"XMP-dc", "Title-de"});
    program.tell("set", {"1694", "neu"});
    program.tell("press", {"1"});
    EXPECT_TRUE(hasRow(program, "XMP-dc", "Title-de", "neu"));
    EXPECT_EQ(stored("XMP-dc:Title") + '|' + stored("XMP-dc:Title-de") + '|' + stored("XMP-dc:Title-fr"),
              "new|neu|fran\xC3\xA7"
              "ais ");
    // What is copied is the value, also where its cell shows less.
    program.tell("row", {"XMP-dc", "Title-fr"});
    program.tell("key", {"Escape"});
    program.tell("key", {"Ctrl+C"});
    program.tell("row", {"XMP-dc", "Title-de"});
    program.tell("key", {"Ctrl+V"});
    program.tell("press", {"1"});
    EXPECT_EQ(stored("XMP-dc:Title-de"),
              "fran\xC3\xA7"
              "ais ");
    program.tell("row", {"File", "Comment"});
    EXPECT_NE(program.takeMessage().indexOf("Comment stands 2 times in the group File"), -1);
    EXPECT_EQ(support::ExifTool({"-a", "-s3", "-File:Comment", (folder / "a.jpg").string()}), "one\ntwo\n");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(PanelEditingTest, AGroupIsDeletedFromTheMenuOfARowAndOfItsHeader) {
    photo("a.jpg", {"-XMP-dc:Title=t", "-XMP-dc:Creator=c", "-XMP-xmp:Label=l", "-IFD0:Artist=kept"});
    DrivenProgram program;
    show(program);
    program.tell("row", {"XMP-dc", "Title", "right"});
    program.tell("choose", {"10077"});
    program.tell("press", {"1"});
    EXPECT_EQ(stored("XMP-dc:All"), "");
    program.tell("header", {"XMP-xmp"});
    program.tell("choose", {"1821"});
    EXPECT_EQ(program.tell("dialog")["template"].toInt(), 80077);
    program.tell("press", {"1"});
    EXPECT_EQ(stored("XMP-xmp:Label"), "");
    EXPECT_EQ(stored("IFD0:Artist"), "kept");
}

TEST_F(PanelEditingTest, AFileThatChangedOrVanishedIsTold) {
    photo("a.jpg", {"-IFD0:Artist=Ada"});
    DrivenProgram program;
    show(program);
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Eve", (folder / "a.jpg").string()});
    program.tell("row", {"IFD0", "Artist"});
    EXPECT_EQ(program.value("IFD0", "Artist"), QStringLiteral("Eve")) << "read again";
    program.tell("row", {"IFD0", "Artist"});
    program.tell("set", {"1694", "Bob"});
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Zoe", (folder / "a.jpg").string()});
    program.tell("press", {"1"});
    EXPECT_TRUE(program.tell("message")["text"].toString().contains("in the meantime"));
    program.tell("press", {"2"});
    EXPECT_EQ(stored("IFD0:Artist"), "Zoe");
    program.tell("row", {"IFD0", "Artist"});
    EXPECT_EQ(program.value("IFD0", "Artist"), QStringLiteral("Zoe"));
    program.tell("row", {"IFD0", "Artist"});
    program.tell("set", {"1694", "Bob"});
    fs::rename(folder / "a.jpg", folder / "b.jpg");
    EXPECT_TRUE(endtoend::waitFor([&] { return program.status() == "a.jpg is no longer there."; }));
    program.tell("press", {"1"});
    const QString message = program.takeMessage();
    EXPECT_EQ(message, path("a.jpg") + " is no longer there.");
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_FALSE(program.tell("state", {"10075"})["enabled"].toBool());
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Kay", (folder / "b.jpg").string()});
    EXPECT_FALSE(fs::exists(folder / "a.jpg"));
}

TEST_F(PanelEditingTest, AReportIsShownForAFailedWriteOnlyWhereTheSettingsSaySo) {
    photo("a.jpg", {"-IFD0:Artist=Ada"});
    for (const bool shows : {true, false}) {
        fs::remove(folder / "a.jpg_exiftool_tmp");
        DrivenProgram program(
            {.moreSettings = QByteArray("\n[Misc]\nShowReportOnError=") + (shows ? "1\n" : "0\n")});
        show(program);
        fs::create_directory(folder / "a.jpg_exiftool_tmp");
        program.tell("row", {"IFD0", "Artist", "Tag"});
        program.tell("command", {"10075"});
        program.tell("press", {"1"});
        EXPECT_TRUE(endtoend::waitFor([&] {
            return shows ? program.say("dialog")["template"].toInt() == 94
                         : program.say("status")["text"].toString().startsWith("a.jpg: ");
        }));
        if (shows) program.tell("press", {"1"});
        EXPECT_EQ(program.say("dialog")["ok"].toBool(), false);
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(PanelEditingTest, WhatExifToolRefusesIsShown) {
    photo("a.jpg", {"-IFD0:Artist=Ada"});
    const std::string before = support::readBytes(folder / "a.jpg");
    fs::create_directory(folder / "a.jpg_exiftool_tmp");
    DrivenProgram program;
    show(program);
    program.tell("row", {"IFD0", "Artist"});
    program.tell("set", {"1694", "Bob"});
    program.tell("press", {"1"});
    // The dialog is still there, with what was typed, and says why.
    const QJsonObject dialog = program.tell("dialog");
    EXPECT_EQ(dialog["template"].toInt(), 134);
    EXPECT_EQ(textOf(dialog, 1694), QStringLiteral("Bob"));
    EXPECT_TRUE(textOf(dialog, 80403).startsWith("a.jpg was not written: "))
        << textOf(dialog, 80403).toStdString();
    EXPECT_EQ(support::readBytes(folder / "a.jpg"), before);
    fs::remove(folder / "a.jpg_exiftool_tmp");
    program.tell("press", {"1"});
    EXPECT_TRUE(hasRow(program, "IFD0", "Artist", "Bob"));
    EXPECT_EQ(stored("IFD0:Artist"), "Bob");
    fs::create_directory(folder / "a.jpg_exiftool_tmp");
    program.tell("row", {"IFD0", "Artist"});
    program.tell("set", {"1694", "Ada"});
    program.tell("press", {"1"});
    program.tell("press", {"2"});
    EXPECT_TRUE(hasRow(program, "IFD0", "Artist", "Bob"));
}

TEST_F(PanelEditingTest, AFileThatCannotBeWrittenIsKnownBeforeItsDialogOpens) {
    if (!support::UnprivilegedUser::mayRun(TAGWRIGHT_DRIVE)) GTEST_SKIP() << "the program is root's alone";
    photo("a.jpg", {"-IFD0:Artist=Ada"});
    DrivenProgram program({.unprivilegedIn = folder.path()});
    show(program);
    const auto isTold = [&](const QStringList& command) {
        program.tell(command.front(), command.mid(1));
        const QString message = program.takeMessage();
        EXPECT_TRUE(message.contains("a.jpg cannot be written")) << message.toStdString();
    };
    fs::permissions(folder / "a.jpg", fs::perms::owner_read);
    isTold({"row", "IFD0", "Artist"});
    isTold({"command", "10075"});
    fs::permissions(folder / "a.jpg", fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    isTold({"row", "IFD0", "Artist"});
    fs::permissions(folder.path(), fs::perms::owner_all);
    program.tell("row", {"IFD0", "Artist"});
    EXPECT_EQ(program.tell("dialog")["template"].toInt(), 134);
    program.tell("key", {"Escape"});
}

TEST_F(PanelEditingTest, TheDesignedFormShowsTheTypedValueInItsRow) {
    photo("a.jpg", {"-ExifIFD:ISO=100"});
    DrivenProgram program({.moreSettings = kDesigned});
    show(program);
    program.tell("row", {"ExifIFD", "ISO"});
    program.tell("set", {"1694", "abc"});
    program.tell("press", {"1"});
    EXPECT_EQ(program.value("ExifIFD", "ISO"), QStringLiteral("0"));
    EXPECT_EQ(stored("ExifIFD:ISO"), "0");
}

TEST_F(PanelEditingTest, ReadingAgainKeepsTheRowAndTheKeyboard) {
    photo("a.jpg", {"-IFD0:Artist=Ada", "-IFD0:Copyright=c"});
    DrivenProgram program;
    show(program);
    program.tell("row", {"IFD0", "Artist", "Tag"});
    support::ExifTool({"-q", "-overwrite_original", "-IFD0:Artist=Eve", (folder / "a.jpg").string()});
    program.tell("key", {"F5"});
    EXPECT_TRUE(hasRow(program, "IFD0", "Artist", "Eve"));
    program.tell("key", {"Return"});
    EXPECT_EQ(program.tell("dialog")["title"].toString(), QStringLiteral("Modify: Artist"));
}
