#include "EditedFolder.h"
#include "support/UnprivilegedUser.h"

// Operations over several files, one of which cannot be written.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

class BatchTest : public endtoend::EditedFolder {
 protected:
    void SetUp() override {
        photo("a.jpg", {"-XMP-dc:Source=of a"});
        photo("c.jpg", {"-XMP-dc:Source=of c"});
        // Whoever runs the tests may write every file, so one that nobody can write stands in for a read-only
        // one.
        support::writeBytes(file("b.jpg"), kNoPicture);
    }

    static constexpr const char* kNoPicture = "no picture at all";
};

}  // namespace

TEST_F(BatchTest, AFileThatCannotBeWrittenIsReportedAndTheOthersAreWritten) {
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "b.jpg", "c.jpg"});
    program.tell("command", {"75"});
    program.tell("cell", {kTagList, "Title", "Value"});
    program.tell("set", {kText, "for all"});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
    const QJsonObject report = program.tell("dialog");
    EXPECT_EQ(report["template"].toInt(), 94);
    EXPECT_TRUE(controlOf(report, 924)["text"].toString().contains("b.jpg"));
    EXPECT_FALSE(controlOf(report, 924)["text"].toString().contains("a.jpg"));
    program.tell("key", {"Escape"});
    program.refuse("dialog");
    for (const char* name : {"a.jpg", "c.jpg"}) {
        EXPECT_EQ(held(name, "XMP-dc:Title"), "for all") << name;
        EXPECT_EQ(held(name, "XMP-dc:Source"), std::string("of ").append(name, 1))
            << "what was not changed stays";
    }
    EXPECT_EQ(support::readBytes(file("b.jpg")), kNoPicture);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BatchTest, AnExtensionThatIsNotKnownIsToldAndLeftOut) {
    support::writeBytes(file("notes.unknown"), "notes");
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "notes.unknown"});
    program.tell("command", {"75"});
    program.tell("cell", {kTagList, "Title", "Value"});
    program.tell("set", {kText, "for all"});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
    const QString report = controlOf(program.tell("dialog"), 924)["text"].toString();
    EXPECT_TRUE(report.contains(path("notes.unknown") + " cannot be modified")) << report.toStdString();
    program.tell("key", {"Escape"});
    program.refuse("dialog");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "for all");
    EXPECT_EQ(support::readBytes(file("notes.unknown")), "notes");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BatchTest, WithoutASelectionTheFolderIsAskedFor) {
    subfolder("sub");
    photo("sub/d.jpg");
    const auto before = contents();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select");
    program.tell("command", {"75"});
    EXPECT_EQ(program.tell("dialog")["template"].toInt(), 9);
    program.tell("key", {"Escape"});
    program.refuse("dialog");
    EXPECT_EQ(contents(), before);
    program.tell("command", {"75"});
    program.tell("set", {"1931", "1"});
    program.tell("set", {"1321", path("missing")});
    program.tell("press", {"1"});
    EXPECT_FALSE(program.takeMessage().isEmpty());
    program.tell("set", {"1321", path("sub")});
    program.tell("press", {"1"});
    program.tell("cell", {kTagList, "Title", "Value"});
    program.tell("set", {kText, "of the folder"});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
    program.refuse("dialog");
    EXPECT_EQ(held("sub/d.jpg", "XMP-dc:Title"), "of the folder");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BatchTest, ASelectionOfFoldersAloneSaysWhatToDo) {
    subfolder("sub");
    photo("sub/d.jpg");
    const auto before = contents();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"sub"});
    program.tell("command", {"75"});
    program.refuse("dialog");
    EXPECT_TRUE(program.takeMessage().startsWith("Only folders are selected."));
    EXPECT_EQ(contents(), before);
    program.tell("select", {"a.jpg", "b.jpg"});
    program.tell("command", {"5041"});
    QString listed;
    for (const QJsonValue& control : program.tell("dialog")["controls"].toArray())
        if (control["id"].toInt() == 924) listed = control["text"].toString();
    EXPECT_EQ(listed, path("a.jpg") + '\n' + path("b.jpg"));
    program.tell("key", {"Escape"});
    // A list without rows says why.
    program.tell("select", {"a.jpg"});
    program.tell("command", {"119"});
    EXPECT_EQ(program.tell("dialog")["template"].toInt(), 8);
    program.tell("key", {"Escape"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BatchTest, OperationsWithoutADialogRunOverAllFiles) {
    fs::remove(file("b.jpg"));
    for (const char* name : {"a.jpg", "c.jpg"})
        support::ExifTool(
            {"-q", "-overwrite_original", "-DateTimeOriginal=2001:02:03 04:05:06", file(name).string()});
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "c.jpg"});
    program.tell("command", {"157"});
    program.refuse("dialog");
    EXPECT_FALSE(program.status().isEmpty());
    for (const char* name : {"a.jpg", "c.jpg"})
        EXPECT_TRUE(support::ExifTool({"-s3", "-FileModifyDate", file(name).string()})
                        .starts_with("2001:02:03 04:05:06"))
            << name;
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BatchTest, AReadOnlyFileOfTheSelectionIsLeftAsItIsAndTheFileBehindALinkIsWritten) {
    fs::remove(file("b.jpg"));
    subfolder("behind");
    fs::rename(file("c.jpg"), file("behind/c.jpg"));
    fs::create_symlink("behind/c.jpg", file("c.jpg"));
    const auto kMarked = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    fs::permissions(file("a.jpg"), kMarked);
    const std::string before = support::readBytes(file("a.jpg"));
    DrivenProgram::Options options;
    if (support::UnprivilegedUser::mayRun(TAGWRIGHT_DRIVE)) options.unprivilegedIn = folder.path();
    DrivenProgram program(options);
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "c.jpg"});
    program.tell("command", {"75"});
    program.tell("cell", {kTagList, "Title", "Value"});
    program.tell("set", {kText, "for all"});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
    const QJsonObject report = program.tell("dialog");
    EXPECT_EQ(report["template"].toInt(), 94);
    const QString said = controlOf(report, 924)["text"].toString();
    EXPECT_TRUE(said.contains("read-only") && said.contains("a.jpg")) << said.toStdString();
    EXPECT_FALSE(said.contains("c.jpg")) << said.toStdString();
    program.tell("press", {"1"});
    EXPECT_EQ(support::readBytes(file("a.jpg")), before);
    EXPECT_EQ(fs::status(file("a.jpg")).permissions(), kMarked);
    EXPECT_TRUE(fs::is_symlink(file("c.jpg")));
    EXPECT_EQ(held("behind/c.jpg", "XMP-dc:Title"), "for all");
    EXPECT_EQ(program.quit(), 0);
}
