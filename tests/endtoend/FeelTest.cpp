// What the hands feel: where the keyboard and the eye are after something has been done.
#include "DrivenProgram.h"
#include "PictureFolder.h"

using endtoend::DrivenProgram;

namespace {

const QByteArray kDesigned = "[ExifTool]\nCorrectedCommands=0\n";

class FeelTest : public endtoend::PictureFolder {
 protected:
    /// Three photos of which the middle one lacks a title.
    void photos() {
        photo("a.jpg", {"-XMP-dc:Title=of a", "-XMP-dc:Rights=mine", "-XMP-xmp:Label=red",
                        "-XMP-photoshop:City=Ulm", "-IFD0:Artist=Ada", "-IPTC:Headline=h"});
        photo("b.jpg", {"-XMP-dc:Rights=yours", "-IFD0:Artist=Bob", "-IFD0:Make=m"});
        photo("c.jpg", {"-XMP-dc:Title=of c", "-XMP-dc:Rights=mine", "-IFD0:Artist=Cy", "-IFD0:Model=x",
                        "-IFD0:Make=m", "-XMP-photoshop:City=Ulm"});
    }
    /// Tags before and behind those of photos(), so that the list is longer than the panel is high.
    void photoMore(const std::string& name) {
        std::vector<std::string> arguments = {"-q", "-overwrite_original"};
        for (const char* tag :
             {"Software", "ImageDescription", "Copyright", "ISO", "ExposureTime", "LensModel",
              "XMP-photoshop:Credit", "XMP-photoshop:Category", "XMP-photoshop:Country",
              "XMP-photoshop:Headline", "XMP-photoshop:Instructions", "XMP-photoshop:State",
              "XMP-tiff:Artist", "XMP-tiff:Software", "XMP-xmp:Nickname", "XMP-xmp:CreatorTool",
              "XMP-xmpMM:DocumentID", "XMP-xmpMM:InstanceID", "XMP-xmpRights:Owner"})
            arguments.push_back(std::string("-") + tag + "=7");
        arguments.push_back((folder / name).string());
        support::ExifTool(arguments);
    }
    std::string stored(const std::string& tag, const std::string& name) {
        return support::ExifTool({"-s3", "-" + tag, (folder / name).string()});
    }
};

struct Place {
    QString current;
    int top = -1;
    QString focus;
};

Place placeOf(DrivenProgram& program) {
    const QJsonObject rows = program.tell("rows");
    return {rows["current"].toString(), rows["top"].toInt(), program.tell("status")["focus"].toString()};
}

QJsonObject controlOf(const QJsonObject& dialog, int id) {
    for (const QJsonValue& control : dialog["controls"].toArray())
        if (control["id"].toInt() == id) return control.toObject();
    return {};
}

/// The numbers of the open menu's entries, 0 for a separator; those of inner menus in their place.
std::vector<int> entriesOf(const QJsonArray& entries) {
    std::vector<int> numbers;
    for (const QJsonValue& entry : entries) {
        const std::vector<int> inner = entriesOf(entry["entries"].toArray());
        if (inner.empty())
            numbers.push_back(entry["separator"].toBool() ? 0 : entry["id"].toInt());
        else
            numbers.insert(numbers.end(), inner.begin(), inner.end());
    }
    return numbers;
}

std::vector<int> openMenuOf(DrivenProgram& program, const QStringList& command) {
    program.tell(command.front(), command.mid(1));
    const std::vector<int> entries = entriesOf(program.tell("menu")["entries"].toArray());
    program.tell("key", {"Escape"});
    return entries;
}

QString titleOf(DrivenProgram& program) {
    return program.tell("rows")["title"].toString();
}

}  // namespace

TEST_F(FeelTest, RowScrollAndKeyboardStayAfterEveryWriteAndRead) {
    photos();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    program.tell("row", {"XMP-dc", "Title", "Tag"});
    const Place before = placeOf(program);
    EXPECT_EQ(before.current, "XMP-dc:Title");
    ASSERT_GT(before.top, 100) << "the row must stand in the middle of the list";
    const struct {
        const char* why;
        std::vector<QStringList> steps;
        const char* current;
    } cases[] = {
        {"read again by a key", {{"key", "F5"}}, "XMP-dc:Title"},
        {"looked at and left", {{"key", "Return"}, {"key", "Escape"}}, "XMP-dc:Title"},
        // ExifTool writes the tag anew, behind its neighbours.
        {"edited by keys", {{"key", "Return"}, {"type", "new"}, {"key", "Return"}}, "XMP-dc:Title"},
        {"edited by mouse",
         {{"row", "XMP-dc", "Title"}, {"set", "1694", "newer"}, {"press", "1"}},
         "XMP-dc:Title"},
        {"another file, which lacks the tag, and back",
         {{"click", "b.jpg"}, {"click", "a.jpg"}, {"key", "F6"}},
         "XMP-dc:Title"},
        {"deleted by keys: the next one of the group", {{"key", "Delete"}, {"press", "1"}}, "XMP-dc:Rights"},
    };
    for (const auto& each : cases) {
        for (const QStringList& step : each.steps) program.tell(step.front(), step.mid(1));
        const Place after = placeOf(program);
        EXPECT_EQ(after.current, each.current) << each.why;
        EXPECT_NEAR(after.top, before.top, 60) << each.why;
        EXPECT_EQ(after.focus, "metadataList") << each.why;
    }
    EXPECT_EQ(stored("XMP-dc:Title", "a.jpg"), "");
    EXPECT_EQ(stored("XMP-dc:Rights", "a.jpg"), "mine\n");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, OneTagIsComparedDownAFolderAndNoOtherIsChosenForIt) {
    photos();
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"}) photoMore(name);
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"c.jpg"});
    program.tell("row", {"XMP-dc", "Title", "Tag"});
    const int top = placeOf(program).top;
    const struct {
        const char* file;
        const char* current;
    } files[] = {{"a.jpg", "XMP-dc:Title"}, {"b.jpg", ""}, {"c.jpg", "XMP-dc:Title"}};
    for (const auto& [file, current] : files) {
        program.tell("click", {file});
        const Place place = placeOf(program);
        EXPECT_EQ(place.current, current) << file;
        if (*current != '\0') {
            EXPECT_NEAR(place.top, top, 2) << file;
        }
        EXPECT_EQ(place.focus, "FileList") << file;
    }
    // Round the panes and back.
    for (const char* pane : {"metadataList", "Places", "FileList"}) {
        program.tell("key", {"F6"});
        EXPECT_EQ(placeOf(program).focus, pane);
    }
    program.tell("key", {"Shift+F6"});
    EXPECT_EQ(placeOf(program).focus, "Places");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, WhatIsSelectedIsReadOnceItRests) {
    photos();
    subfolder("sub");
    DrivenProgram program;
    program.tell("open", {path()});
    const struct {
        const char* why;
        std::vector<QStringList> steps;
        const char* title;
        const char* artist;  ///< empty: no row at all
    } cases[] = {
        {"Home, then an arrow", {{"key", "Home"}, {"key", "Down"}}, "a.jpg", "Ada"},
        {"a letter", {{"type", "b"}}, "b.jpg", "Bob"},
        {"a range", {{"key", "Shift+Down"}}, "c.jpg (2 of 2 selected)", "Cy"},
        {"all", {{"key", "Ctrl+A"}}, "c.jpg (3 of 3 selected)", "Cy"},
        {"a click on one", {{"click", "a.jpg"}}, "a.jpg", "Ada"},
        {"read again by F5", {{"key", "F5"}}, "a.jpg", "Ada"},
        {"a folder", {{"key", "Home"}}, "Metadata", ""},
        {"back to the file", {{"key", "Down"}}, "a.jpg", "Ada"},
        {"nothing", {{"command", "246"}}, "Metadata", ""},
        {"Space on the current one", {{"key", "Space"}}, "a.jpg", "Ada"},
        {"another folder", {{"open", path("sub")}}, "Metadata", ""},
        {"and back", {{"open", path()}}, "Metadata", ""},
    };
    for (const auto& each : cases) {
        for (const QStringList& step : each.steps) program.tell(step.front(), step.mid(1));
        EXPECT_EQ(titleOf(program), each.title) << each.why;
        EXPECT_EQ(program.value("IFD0", "Artist").value_or(QString()), each.artist) << each.why;
    }
    // Before it has rested, there is nothing of another file to be edited.
    program.tell("click", {"a.jpg"});
    program.tell("nowait", {"key", "Down"});
    EXPECT_NE(program.value("IFD0", "Artist").value_or("b's own"), "Ada");
    program.tell("await");
    program.tell("row", {"IFD0", "Artist"});
    const QJsonArray controls = program.tell("dialog")["controls"].toArray();
    const bool isNamed = std::any_of(controls.begin(), controls.end(), [](const QJsonValue& control) {
        return control["text"].toString().contains("\nb.jpg");
    });
    EXPECT_TRUE(isNamed) << "a value dialog names its file";
    program.tell("key", {"Escape"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, TheDesignedFormReadsAtAClickAlone) {
    photos();
    DrivenProgram program({.moreSettings = kDesigned});
    program.tell("open", {path()});
    for (const char* key : {"Home", "Space", "Down"}) {
        program.tell("key", {key});
        EXPECT_TRUE(program.rows().isEmpty()) << key;
    }
    program.tell("key", {"Ctrl+R"});
    EXPECT_EQ(program.value("IFD0", "Artist"), "Bob") << "one key reads";
    program.tell("key", {"Down"});
    EXPECT_EQ(titleOf(program), "b.jpg");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, ATextThatCannotBeEditedIsShownAsTextAndItsBytesAStepFurther) {
    photo("a.jpg", {"-IFD0:Artist=Ada", "-Comment=first line\nsecond line, which is longer\nthird"});
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    program.tell("row", {"File", "MIMEType"});
    QJsonObject dialog = program.tell("dialog");
    EXPECT_EQ(dialog["template"].toInt(), 136);
    EXPECT_EQ(controlOf(dialog, 81507)["text"].toString(), "image/jpeg");
    EXPECT_TRUE(controlOf(dialog, 81507)["visible"].toBool());
    program.tell("set", {"1008", "1"});
    dialog = program.tell("dialog");
    EXPECT_FALSE(controlOf(dialog, 81507)["visible"].toBool());
    EXPECT_TRUE(controlOf(dialog, 924)["text"].toString().startsWith("00000000   69 6D 61"));
    program.tell("press", {"1"});
    // Looked at with Alt, a caption of several lines has them.
    program.tell("row", {"File", "Comment", "Value", "alt"});
    EXPECT_EQ(controlOf(program.tell("dialog"), 81507)["text"].toString(),
              "first line\nsecond line, which is longer\nthird");
    program.tell("press", {"1"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, ListsOfTagsBeginWithWhatTheFileHoldsAndAreNarrowed) {
    photos();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    program.tell("command", {"35"});
    const auto list = [&] { return controlOf(program.tell("dialog"), 1328)["items"].toArray(); };
    const qsizetype all = list().size();
    EXPECT_GT(all, 500);
    QStringList filled;
    for (const QJsonValue& row : list()) {
        const QString value = row["cells"][3].toString();
        if (value.isEmpty()) break;
        filled.append(value);
    }
    for (const char* value : {"of a", "mine", "red", "Ulm"}) EXPECT_TRUE(filled.contains(value)) << value;
    EXPECT_TRUE(controlOf(program.tell("dialog"), 80521)["text"].toString().contains(
        QStringLiteral("%1 filled").arg(filled.size())));
    program.tell("set", {"80525", "1"});
    EXPECT_EQ(list().size(), filled.size()) << "and behind these is none";
    program.tell("set", {"80525", "0"});
    EXPECT_EQ(list().size(), all);
    program.tell("press", {"2"});

    // The panel has the same field.
    const qsizetype rows = program.rows().size();
    program.tell("key", {"Ctrl+F"});
    program.tell("type", {"xmp city"});
    ASSERT_EQ(program.rows().size(), 1);
    EXPECT_EQ(program.rows().first()["value"].toString(), "Ulm");
    program.tell("key", {"Return"});
    EXPECT_EQ(placeOf(program).current, "XMP-Photoshop:City");
    program.tell("click", {"b.jpg"});
    EXPECT_TRUE(program.rows().isEmpty()) << "the filter stays for the next file";
    program.tell("click", {"c.jpg"});
    EXPECT_EQ(program.rows().size(), 1);
    // What the filter hides of a group is deleted with it.
    program.tell("row", {"XMP-photoshop", "City", "Tag"});
    program.tell("key", {"Ctrl+F"});
    program.tell("key", {"Escape"});
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.rows().size(), rows);
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, EveryPlaceHasItsMenu) {
    photos();
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    const struct {
        const char* why;
        QStringList command;
        std::vector<int> entries;
    } cases[] = {
        {"a tag that can be edited",
         {"row", "XMP-dc", "Title", "Tag", "right"},
         {40203, 40063, 0, 8056, 0, 40201, 40202, 0, 10075, 10077}},
        {"the Menu key on it", {"key", "Menu"}, {40203, 40063, 0, 8056, 0, 40201, 40202, 0, 10075, 10077}},
        {"a file",
         {"click", "a.jpg", "0", "right"},
         {40012, 40108, 0, 22, 31, 35, 10065, 0, 40074, 40075, 40076, 0, 177, 178}},
        {"the Menu key on it",
         {"key", "Menu"},
         {40012, 40108, 0, 22, 31, 35, 10065, 0, 40074, 40075, 40076, 0, 177, 178}},
        {"the free area",
         {"menuof", "FileList"},
         {40107, 0, 50001, 50002, 50003, 50004, 0, 40089, 40090, 5040, 40106, 0, 40074}},
        {"a header of a column", {"menuof", "FileListHeader"}, {82520, 82521, 0, 82522, 82523}},
        {"a tab", {"menuof", "FolderTabs"}, {82524, 0, 82525, 82526}},
        {"a place", {"menuof", "Places"}, {82527, 82528, 0, 82529}},
    };
    for (const auto& each : cases) EXPECT_EQ(openMenuOf(program, each.command), each.entries) << each.why;
    program.tell("menuof", {"FolderTabs"});
    program.tell("choose", {"82524"});
    EXPECT_EQ(program.folder(), path()) << "the same folder in a second tab";
    program.tell("menuof", {"FolderTabs"});
    program.tell("choose", {"82525"});
    program.tell("menuof", {"FileListHeader"});
    program.tell("choose", {"82521"});
    EXPECT_EQ(program.fileNames(), QStringList({"c.jpg", "b.jpg", "a.jpg"}));
    program.tell("click", {"a.jpg"});
    program.tell("row", {"IFD0", "Artist", "Tag", "right"});
    program.tell("choose", {"40203"});
    EXPECT_EQ(program.tell("dialog")["title"].toString(), "Modify: Artist");
    program.tell("key", {"Escape"});
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, TheRibbonLeavesNoBandAndTheNamesTakeTheRoom) {
    photos();
    DrivenProgram program;
    program.tell("open", {path()});
    const auto area = [&](const char* name) { return program.tell("area", {name}); };
    const QJsonObject before = area("FileList");
    program.tell("focus", {"ribbonFold"});
    EXPECT_EQ(area("FileListHeader")["width"].toInt(), area("FileList")["width"].toInt());
    EXPECT_EQ(before["width"].toInt(), area("FileList")["width"].toInt());
    const QJsonObject client = area("client");
    const QJsonObject bar = area("statusBar");
    EXPECT_EQ(bar["y"].toInt() + bar["height"].toInt(), client["y"].toInt() + client["height"].toInt());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(FeelTest, RenamingShowsNamesBeforeAndSelectsTheFilesAfter) {
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"})
        photo(name, {"-IFD0:Make=Maker", "-DateTimeOriginal=2001:02:03 04:05:06",
                     "-FileModifyDate=2020:01:02 03:04:05"});
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("select", {"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
    program.tell("command", {"173"});
    const QString question = program.tell("message")["text"].toString();
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg"})
        EXPECT_TRUE(
            question.contains(QStringLiteral("%1\n    becomes  2001-02-03 04-05-06 - Maker-%1").arg(name)))
            << question.toStdString();
    EXPECT_FALSE(question.contains("d.jpg")) << "three are enough";
    program.tell("press", {"2"});
    EXPECT_EQ(program.fileNames(), QStringList({"a.jpg", "b.jpg", "c.jpg", "d.jpg"}));
    program.tell("command", {"173"});
    program.tell("press", {"1"});
    EXPECT_EQ(program.selectedFiles().size(), 4);
    EXPECT_EQ(program.selectedFiles().front(), "2001-02-03 04-05-06 - Maker-a.jpg");
    EXPECT_EQ(program.quit(), 0);
}
