#include "EditedFolder.h"

// Tags that come into a file and tags that leave it, through every dialog for that.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

class AddRemoveTest : public endtoend::EditedFolder {
 protected:
    /// Holds tags of all families.
    void fullPhoto(const std::string& name) {
        photo(name, {"-IFD0:Artist=artist", "-IFD0:Copyright=copyright", "-ExifIFD:ISO=200",
                     "-IPTC:City=city", "-XMP-dc:Title=title", "-XMP-dc:Source=source", "-XMP-xmp:Rating=3"});
    }

    bool hasFamily(const std::string& name, const std::string& family) const {
        return !support::ExifTool({"-s", "-" + family + ":all", file(name).string()}).empty();
    }

    void expectSafetyCopy(const DrivenProgram& program, const std::string& name, const std::string& before) {
        ASSERT_TRUE(fs::exists(safetyCopyOf(program, file(name)))) << name;
        EXPECT_EQ(support::readBytes(safetyCopyOf(program, file(name))), before) << name;
    }
};

}  // namespace

TEST_F(AddRemoveTest, ATagIsAddedToAFileThatLacksItsGroup) {
    const struct {
        const char* command;
        const char* row;
        const char* control;
        const char* value;
        const char* exifTool;
        const char* held;
    } cases[] = {
        {"75", "Title", "1694", "added title", "XMP-dc:Title", "added title"},
        {"32", "City", "1694", "added city", "IPTC:City", "added city"},
        {"23", "Artist", "1694", "added artist", "IFD0:Artist", "added artist"},
        {"30", "ISO", "1694", "400", "ExifIFD:ISO", "400"},
        {"132", "Rating", "1695", "#4", "XMP-xmp:Rating", "4"},
        {"142", "GPSAltitude", "1694", "120", "GPS:GPSAltitude#", "120"},
    };
    DrivenProgram program;
    for (const auto& add : cases) {
        photo("a.jpg");
        const std::string before = support::readBytes(file("a.jpg"));
        show(program, "a.jpg");
        program.tell("command", {add.command});
        EXPECT_EQ(program.tell("dialog")["template"].toInt(), 8);
        program.tell("cell", {kTagList, add.row, "Value"});
        program.tell("set", {add.control, add.value});
        program.tell("press", {"1"});
        EXPECT_EQ(support::readBytes(file("a.jpg")), before) << "nothing is written before OK";
        program.tell("press", {"1"});
        program.refuse("dialog");
        EXPECT_EQ(held("a.jpg", add.exifTool), add.held);
        expectSafetyCopy(program, "a.jpg", before);
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, AListOfTagsIsWorkedThroughByTheKeyboardAlone) {
    fullPhoto("a.jpg");
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("command", {"35"});
    const QJsonObject dialog = program.tell("dialog");
    EXPECT_GT(controlOf(dialog, 1328)["items"].toArray().size(), 100);
    program.tell("type", {"source"});
    program.tell("key", {"Down"});
    EXPECT_EQ(program.tell("dialog")["focus"].toInt(), 1328);
    const QJsonObject list = controlOf(program.tell("dialog"), 1328);
    EXPECT_GE(list["items"].toArray().size(), 1);
    // Down to the row that holds a value.
    for (const QJsonValue& item : list["items"].toArray()) {
        if (item["cells"][0].toString() == "Source" && item["cells"][1].toString() == "XMP-dc") break;
        program.tell("key", {"Down"});
    }
    program.tell("key", {"Return"});
    EXPECT_EQ(program.tell("dialog")["title"].toString(), "Modify: Source");
    program.tell("key", {"Ctrl+A"});
    program.tell("type", {"by keys"});
    program.tell("key", {"Return"});
    ASSERT_TRUE(tabTo(program, kOk));
    program.tell("key", {"Return"});
    program.refuse("dialog");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Source"), "by keys");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "title");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, ACancelledListWritesNothing) {
    fullPhoto("a.jpg");
    const auto before = contents();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const char* command : {"22", "31", "35", "75"}) {
        program.tell("command", {command});
        EXPECT_FALSE(controlOf(program.tell("dialog"), 1328)["items"].toArray().isEmpty()) << command;
        program.tell("cell", {kTagList, "0", "Value"});
        program.tell("key", {"Escape"});
        program.tell("key", {"Escape"});
        program.refuse("dialog");
    }
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(contents(), before);
}

TEST_F(AddRemoveTest, ATagIsDeletedFromThePanelByKeyAndByMenu) {
    fullPhoto("a.jpg");
    DrivenProgram program;
    show(program, "a.jpg");
    std::string before = support::readBytes(file("a.jpg"));
    program.tell("row", {"XMP-dc", "Title", "Tag"});
    program.tell("key", {"Delete"});
    EXPECT_TRUE(controlOf(program.tell("dialog"), 924)["text"].toString().startsWith("Title"));
    program.tell("key", {"Escape"});
    EXPECT_EQ(support::readBytes(file("a.jpg")), before);
    program.tell("key", {"Delete"});
    program.tell("key", {"Return"});
    program.refuse("dialog");
    EXPECT_EQ(support::readBytes(file("a.jpg")), before) << "Enter deletes nothing";
    program.tell("key", {"Delete"});
    ASSERT_TRUE(tabTo(program, kOk));
    program.tell("key", {"Space"});
    program.refuse("dialog");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "");
    expectSafetyCopy(program, "a.jpg", before);
    EXPECT_FALSE(program.value("XMP-dc", "Title").has_value());
    before = support::readBytes(file("a.jpg"));
    program.tell("row", {"IFD0", "Artist", "Value", "right"});
    program.tell("choose", {"10075"});
    program.tell("press", {"1"});
    EXPECT_EQ(held("a.jpg", "IFD0:Artist"), "");
    EXPECT_EQ(held("a.jpg", "IFD0:Copyright"), "copyright");
    EXPECT_EQ(held("a.jpg", "XMP-dc:Source"), "source");
    expectSafetyCopy(program, "a.jpg", before);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, AGroupIsDeletedFromThePanel) {
    fullPhoto("a.jpg");
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("row", {"XMP-dc", "Title", "Value", "right"});
    program.tell("choose", {"10077"});
    EXPECT_TRUE(controlOf(program.tell("dialog"), 924)["text"].toString().contains("XMP-dc"));
    program.tell("press", {"1"});
    EXPECT_FALSE(hasFamily("a.jpg", "XMP-dc"));
    EXPECT_EQ(held("a.jpg", "XMP-xmp:Rating"), "3");
    program.tell("header", {"IPTC"});
    program.tell("choose", {"1821"});
    program.tell("press", {"1"});
    EXPECT_EQ(held("a.jpg", "IPTC:City"), "");
    EXPECT_EQ(held("a.jpg", "IFD0:Artist"), "artist");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, TickedTagsLeaveTheFiles) {
    fullPhoto("a.jpg");
    fullPhoto("b.jpg");
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "b.jpg"});
    const std::string before = support::readBytes(file("b.jpg"));
    program.tell("command", {"177"});
    EXPECT_EQ(program.tell("dialog")["template"].toInt(), 144);
    program.tell("press", {"1"});
    EXPECT_EQ(program.takeMessage(), "Please select at least one tag.");
    program.tell("check", {kTagList, "XMP-dc:Title", "1"});
    // The second by the keyboard.
    ASSERT_TRUE(tabTo(program, 80520));
    program.tell("type", {"City"});
    program.tell("key", {"Down"});
    program.tell("key", {"Space"});
    program.tell("key", {"Return"});
    program.refuse("dialog");
    for (const char* name : {"a.jpg", "b.jpg"}) {
        EXPECT_EQ(held(name, "XMP-dc:Title"), "") << name;
        EXPECT_EQ(held(name, "IPTC:City"), "") << name;
        EXPECT_EQ(held(name, "XMP-dc:Source"), "source") << name;
        EXPECT_EQ(held(name, "IFD0:Artist"), "artist") << name;
    }
    expectSafetyCopy(program, "b.jpg", before);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, TickedGroupsLeaveTheFilesAfterAQuestion) {
    fullPhoto("a.jpg");
    fullPhoto("b.jpg");
    const auto before = contents();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "b.jpg"});
    program.tell("command", {"178"});
    program.tell("press", {"1"});
    EXPECT_EQ(program.takeMessage(), "Please select at least of tag type!");
    program.tell("check", {kTagList, "IPTC", "1"});
    program.tell("check", {kTagList, "XMP", "1"});
    program.tell("press", {"1"});
    EXPECT_EQ(program.tell("message")["text"].toString(),
              "Please confirm the deletion of the selected tags.");
    program.tell("press", {"2"});
    program.refuse("dialog");
    EXPECT_EQ(contents(), before);
    program.tell("command", {"178"});
    program.tell("check", {kTagList, "IPTC", "1"});
    program.tell("check", {kTagList, "XMP", "1"});
    program.tell("press", {"1"});
    program.tell("press", {"1"});
    EXPECT_FALSE(program.takeMessage().isEmpty());
    for (const char* name : {"a.jpg", "b.jpg"}) {
        EXPECT_FALSE(hasFamily(name, "IPTC")) << name;
        EXPECT_FALSE(hasFamily(name, "XMP")) << name;
        EXPECT_TRUE(hasFamily(name, "EXIF")) << name;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, AFamilyOrEverythingLeavesTheFile) {
    const struct {
        const char* command;
        const char* family;
        bool isAll;
    } cases[] = {
        {"10066", "EXIF", false}, {"10067", "IPTC", false}, {"10068", "XMP", false}, {"10072", "XMP", true}};
    DrivenProgram program;
    for (const auto& [command, family, isAll] : cases) {
        fullPhoto("a.jpg");
        const std::string before = support::readBytes(file("a.jpg"));
        show(program, "a.jpg");
        program.tell("command", {command});
        program.tell("press", {"1"});
        program.refuse("message");
        EXPECT_FALSE(hasFamily("a.jpg", family)) << command;
        for (const char* other : {"EXIF", "IPTC", "XMP"})
            EXPECT_EQ(hasFamily("a.jpg", other), !isAll && other != std::string(family))
                << command << " " << other;
        expectSafetyCopy(program, "a.jpg", before);
        EXPECT_FALSE(fs::exists(file("a.jpg_original"))) << "one copy is enough";
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(AddRemoveTest, DeleteAllTakesWhatIsChosen) {
    DrivenProgram program;
    for (const bool everything : {true, false}) {
        fullPhoto("a.jpg");
        show(program, "a.jpg");
        program.tell("command", {"176"});
        const QJsonObject dialog = program.tell("dialog");
        EXPECT_TRUE(controlOf(dialog, 1930)["checked"].toBool());
        EXPECT_FALSE(controlOf(dialog, 1008)["enabled"].toBool());
        if (!everything) {
            // The other of the two radio buttons, by the keyboard.
            ASSERT_TRUE(tabTo(program, 1930));
            program.tell("key", {"Down"});
            program.tell("press", {"1"});
            EXPECT_EQ(program.takeMessage(), "Please select at least one tag.");
            program.tell("set", {"1009", "1"});
        }
        program.tell("press", {"1"});
        program.refuse("dialog");
        EXPECT_FALSE(hasFamily("a.jpg", "IPTC"));
        EXPECT_EQ(hasFamily("a.jpg", "XMP"), !everything);
        EXPECT_EQ(hasFamily("a.jpg", "EXIF"), !everything);
    }
    EXPECT_EQ(program.quit(), 0);
}
