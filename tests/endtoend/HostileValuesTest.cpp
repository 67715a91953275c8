#include "EditedFolder.h"
#include "platform/Text.h"

// Values and names that a careless program would run, split or follow.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;
using endtoend::hostileValues;

namespace {

class HostileValuesTest : public endtoend::EditedFolder {
 protected:
    void TearDown() override {
        for (const auto& where : {folder.path(), support::workingFolder()})
            EXPECT_FALSE(fs::exists(where / "owned"));
    }

    void seed(const std::string& name, const std::string& title) {
        photo(name);
        // By a file, so that the test's own line cannot change the value.
        support::writeBytes(folder / "value", title);
        support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title<=" + (folder / "value").string(),
                           (folder / name).string()});
        fs::remove(folder / "value");
        ASSERT_EQ(held(name, "XMP-dc:Title"), title);
    }

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const auto& entry : fs::directory_iterator(folder.path()))
            all.push_back(entry.path().filename());
        std::sort(all.begin(), all.end());
        return all;
    }
};

}  // namespace

TEST_F(HostileValuesTest, ReadOutOfAFileTheyAreShownEditedAndWrittenBackAsTheyAre) {
    photo("other.jpg");
    const std::string other = support::readBytes(file("other.jpg"));
    DrivenProgram program;
    for (const std::string& value : hostileValues()) {
        seed("a.jpg", value);
        const QString text = QString::fromStdString(value);
        show(program, "a.jpg");
        program.tell("row", {"XMP-dc", "Title", "Value"});
        EXPECT_EQ(controlOf(program.tell("dialog"), 1694)["text"].toString(), text);
        program.tell("key", {"Ctrl+End"});
        program.tell("type", {"!"});
        program.tell("press", {"1"});
        EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), value + "!");
        EXPECT_EQ(names(), std::vector<std::string>({"a.jpg", "other.jpg"})) << value;
    }
    EXPECT_EQ(support::readBytes(file("other.jpg")), other);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(HostileValuesTest, TypedInTheDialogTheyReachTheFileAsTheyAre) {
    photo("a.jpg", {"-IFD0:Artist=before"});
    DrivenProgram program;
    show(program, "a.jpg");
    for (const std::string& value : hostileValues()) {
        if (value.find('\n') != std::string::npos) continue;
        program.tell("row", {"IFD0", "Artist", "Tag"});
        program.tell("key", {"Return"});
        program.tell("key", {"Ctrl+A"});
        program.tell("type", {QString::fromStdString(value)});
        program.tell("press", {"1"});
        EXPECT_EQ(held("a.jpg", "IFD0:Artist"), value) << value;
        EXPECT_EQ(names(), std::vector<std::string>({"a.jpg"})) << value;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(HostileValuesTest, ListsOfTagsShowAndWriteThemToo) {
    const std::vector<std::string> few(hostileValues().begin(), hostileValues().begin() + 9);
    DrivenProgram program;
    for (const std::string& value : few) {
        seed("a.jpg", value);
        show(program, "a.jpg");
        const QString text = QString::fromStdString(value);
        program.tell("command", {"75"});
        program.tell("cell", {kTagList, "Title", "Value"});
        EXPECT_EQ(controlOf(program.tell("dialog"), 1694)["text"].toString(), text);
        program.tell("set", {kText, text + "?"});
        program.tell("press", {"1"});
        program.tell("cell", {kTagList, "Source", "Value"});
        program.tell("set", {kText, text});
        program.tell("press", {"1"});
        program.tell("press", {"1"});
        EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), value + "?");
        EXPECT_EQ(held("a.jpg", "XMP-dc:Source"), value);
        EXPECT_EQ(names(), std::vector<std::string>({"a.jpg"})) << value;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(HostileValuesTest, TheDialogsThatDeleteAndViewOnlyShowThem) {
    DrivenProgram program;
    for (const std::size_t at : {0, 1, 6}) {
        const std::string& value = hostileValues()[at];
        seed("a.jpg", value);
        const auto before = contents();
        show(program, "a.jpg");
        program.tell("row", {"XMP-dc", "Title", "Value", "alt"});
        EXPECT_EQ(program.tell("dialog")["template"].toInt(), 136);
        program.tell("press", {"1"});
        EXPECT_EQ(contents(), before);
        program.tell("row", {"XMP-dc", "Title", "Tag"});
        program.tell("key", {"Delete"});
        program.tell("press", {"1"});
        EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "");
        EXPECT_EQ(names(), std::vector<std::string>({"a.jpg"})) << value;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(HostileValuesTest, FilesOfHostileNamesAreEditedLikeAnyOther) {
    photo("seed.jpg", {"-XMP-dc:Title=seed"});
    const std::string seed = support::readBytes(file("seed.jpg"));
    fs::remove(file("seed.jpg"));
    for (const std::string& name : support::hostileNames()) support::writeBytes(file(name), seed);
    const std::vector<std::string> before = names();
    DrivenProgram program;
    program.tell("open", {path()});
    for (const std::string& name : support::hostileNames()) {
        const QString shown = platform::display(fs::path(name));
        program.tell("click", {shown});
        program.tell("row", {"XMP-dc", "Title", "Value"});
        // A carriage return is a line feed in an edit of text.
        const QString title = "title of " + QString(shown).replace('\r', '\n');
        program.tell("set", {kText, title});
        program.tell("press", {"1"});
        EXPECT_EQ(held(name, "XMP-dc:Title"), title.toStdString());
        EXPECT_EQ(support::readBytes(safetyCopyOf(program, file(name))), seed) << name;
    }
    EXPECT_EQ(names(), before);
    EXPECT_EQ(program.quit(), 0);
}
