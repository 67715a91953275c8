#include "EditedFolder.h"

// One tag of one file, from the click on its row to the bytes of the file.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

struct Control {
    const char* id;
    const char* value;
};

/// A tag of each kind of value.
struct Kind {
    const char* group;
    const char* tag;
    const char* exifTool;  ///< how ExifTool is to read it
    const char* before;
    std::vector<Control> changes;
    const char* after;
    std::vector<Control> emptied;   ///< none where a dialog has no empty value
    std::vector<const char*> keys;  ///< the same change by the keyboard alone; "type " begins a text
    const char* afterKeys;
};

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all = {
        {"XMP-dc",
         "Title",
         "XMP-dc:Title",
         "old title",
         {{"1694", "new title"}},
         "new title",
         {{"1694", ""}},
         {"Ctrl+A", "type typed title", "Return"},
         "typed title"},
        {"ExifIFD",
         "DateTimeOriginal",
         "ExifIFD:DateTimeOriginal",
         "2020:01:02 03:04:05",
         {{"1697", "2021-12-31"}, {"1700", "23:59:58"}},
         "2021:12:31 23:59:58",
         {},
         {"Up", "Return"},
         "2021:01:02 03:04:05"},
        {"ExifIFD",
         "ISO",
         "ExifIFD:ISO",
         "200",
         {{"1694", "3200"}},
         "3200",
         {{"1694", ""}},
         {"Ctrl+A", "type 640", "Return"},
         "640"},
        {"XMP-xmp", "Rating", "XMP-xmp:Rating", "3", {{"1695", "#5"}}, "5", {}, {"Up", "Return"}, "2"},
        {"IFD0",
         "Orientation",
         "IFD0:Orientation#",
         "1",
         {{"1699", "Rotate 180"}},
         "3",
         {},
         {"End", "Return"},
         "8"},
        {"ExifIFD",
         "ExposureTime",
         "ExifIFD:ExposureTime",
         "1/60",
         {{"1694", "1/250"}},
         "1/250",
         {{"1694", ""}},
         {"Ctrl+A", "type 1/125", "Return"},
         "1/125"},
    };
    return all;
}

std::string option(const char* tag) {
    return std::string("-").append(tag);
}

std::string assignment(const char* tag, const char* value) {
    return option(tag).append("=").append(value);
}

class EditTest : public endtoend::EditedFolder {
 protected:
    /// Holds a tag of each kind and some beside them.
    void photoOfAllKinds(const std::string& name = "a.jpg") {
        std::vector<std::string> arguments{"-IFD0:Artist=artist", "-IPTC:City=city", "-GPS:GPSAltitude=12",
                                           "-XMP-dc:Subject=one", "-XMP-dc:Subject=two"};
        for (const Kind& kind : kinds()) arguments.push_back(assignment(kind.exifTool, kind.before));
        photo(name, arguments);
    }

    std::string valueOf(const Kind& kind) const {
        std::string printed = support::ExifTool({"-s3", option(kind.exifTool), file("a.jpg").string()});
        if (printed.ends_with('\n')) printed.pop_back();
        return printed;
    }

    void openEditor(DrivenProgram& program, const Kind& kind) {
        program.tell("row", {kind.group, kind.tag, "Value"});
        EXPECT_EQ(program.tell("dialog")["title"].toString(), QStringLiteral("Modify: ") + kind.tag);
    }

    /// What differs between the file's tags now and then belongs to this tag.
    void expectOnlyTagDiffers(const std::vector<std::string>& before, const Kind& kind) {
        const std::vector<std::string> after = tagsOf("a.jpg");
        for (const auto& lines : {without(before, after), without(after, before)})
            for (const std::string& line : lines) EXPECT_NE(line.find(kind.tag), std::string::npos) << line;
    }
};

}  // namespace

TEST_F(EditTest, EachKindOfValueIsChanged) {
    photoOfAllKinds();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const Kind& kind : kinds()) {
        const std::vector<std::string> before = tagsOf("a.jpg");
        openEditor(program, kind);
        for (const Control& change : kind.changes) program.tell("set", {change.id, change.value});
        program.tell("press", {"1"});
        EXPECT_TRUE(program.status().contains(kind.tag)) << program.status().toStdString();
        EXPECT_EQ(valueOf(kind), kind.after) << kind.tag;
        expectOnlyTagDiffers(before, kind);
        program.refuse("dialog");
        program.refuse("message");
    }
    EXPECT_EQ(program.value("XMP-dc", "Title"), "new title") << "the panel shows it";
    EXPECT_EQ(program.value("IFD0", "Orientation"), "Rotate 180");
    EXPECT_EQ(program.quit(), 0);
    EXPECT_FALSE(fs::exists(file("a.jpg_original")));
}

TEST_F(EditTest, EachKindOfValueIsChangedByTheKeyboardAlone) {
    photoOfAllKinds();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const Kind& kind : kinds()) {
        program.tell("row", {kind.group, kind.tag, "Tag"});
        program.tell("key", {"Return"});
        for (const QString key : kind.keys) {
            const bool isText = key.startsWith("type ");
            program.tell(isText ? "type" : "key", {isText ? key.mid(5) : key});
        }
        program.refuse("dialog");
        EXPECT_EQ(valueOf(kind), kind.afterKeys) << kind.tag;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(EditTest, AnEmptyValueTakesTheTagAway) {
    photoOfAllKinds();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const Kind& kind : kinds()) {
        if (kind.emptied.empty()) continue;
        const std::vector<std::string> before = tagsOf("a.jpg");
        openEditor(program, kind);
        for (const Control& change : kind.emptied) program.tell("set", {change.id, change.value});
        program.tell("press", {"1"});
        EXPECT_EQ(valueOf(kind), "") << kind.tag;
        expectOnlyTagDiffers(before, kind);
        EXPECT_FALSE(program.value(kind.group, kind.tag).has_value()) << kind.tag;
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(EditTest, ACancelledDialogLeavesTheFileByteForByte) {
    photoOfAllKinds();
    const auto before = contents();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const Kind& kind : kinds()) {
        for (const bool byKey : {false, true}) {
            openEditor(program, kind);
            for (const Control& change : kind.changes) program.tell("set", {change.id, change.value});
            program.tell(byKey ? "key" : "press", {byKey ? "Escape" : "2"});
            program.refuse("dialog");
        }
    }
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(contents(), before);
    EXPECT_FALSE(fs::exists(safetyCopyOf(program, file("a.jpg"))));
}

TEST_F(EditTest, TheSafetyCopyHoldsTheStateBefore) {
    photoOfAllKinds();
    DrivenProgram program;
    show(program, "a.jpg");
    for (const char* title : {"first change", "second change"}) {
        const std::string before = support::readBytes(file("a.jpg"));
        program.tell("row", {"XMP-dc", "Title", "Value"});
        program.tell("set", {kText, title});
        program.tell("press", {"1"});
        EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), title);
        EXPECT_EQ(support::readBytes(safetyCopyOf(program, file("a.jpg"))), before) << title;
    }
    fs::copy_file(safetyCopyOf(program, file("a.jpg")), file("a.jpg"), fs::copy_options::overwrite_existing);
    program.tell("click", {"a.jpg"});
    EXPECT_EQ(program.value("XMP-dc", "Title"), "first change") << "restored";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(EditTest, WithAltOrWithoutAWritableTagTheValueIsOnlyShown) {
    photoOfAllKinds();
    const auto before = contents();
    DrivenProgram program;
    show(program, "a.jpg");
    const QStringList rows[] = {
        {"XMP-dc", "Title", "Value", "alt"}, {"File", "FileType", "Value"}, {"IFD0", "Orientation", "alt"}};
    for (const QStringList& row : rows) {
        program.tell("row", row);
        const QJsonObject dialog = program.tell("dialog");
        EXPECT_EQ(dialog["template"].toInt(), 136) << row.join(" ").toStdString();
        program.tell("key", {"Escape"});
        program.refuse("dialog");
    }
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(contents(), before);
}

TEST_F(EditTest, AFileThatIsGoneOrWasChangedMeanwhileIsNotOverwritten) {
    photoOfAllKinds();
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("row", {"XMP-dc", "Title", "Value"});
    support::ExifTool(
        {"-q", "-overwrite_original", "-IFD0:Artist=changed meanwhile", file("a.jpg").string()});
    program.tell("set", {kText, "mine"});
    program.tell("press", {"1"});
    EXPECT_FALSE(program.tell("message")["text"].toString().isEmpty());
    program.tell("press", {"2"});
    EXPECT_EQ(held("a.jpg", "XMP-dc:Title"), "old title") << "No was answered";
    program.tell("click", {"a.jpg"});
    fs::remove(file("a.jpg"));
    program.tell("row", {"XMP-dc", "Title", "Value"});
    EXPECT_TRUE(program.takeMessage().contains("a.jpg"));
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_EQ(program.quit(), 0);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(EditTest, OneOfTwoTagsOfTheSameNameIsTheOneThatIsChanged) {
    photo("a.jpg", {"-IFD0:Rating=1", "-XMP-xmp:Rating=1", "-IFD0:Copyright=exif", "-IPTC:City=iptc",
                    "-XMP-photoshop:City=xmp"});
    DrivenProgram program;
    show(program, "a.jpg");
    program.tell("row", {"XMP-photoshop", "City", "Value"});
    program.tell("set", {kText, "changed"});
    program.tell("press", {"1"});
    program.tell("row", {"IFD0", "Rating", "Value"});
    program.tell("set", {"1695", "#4"});
    program.tell("press", {"1"});
    EXPECT_EQ(held("a.jpg", "XMP-photoshop:City"), "changed");
    EXPECT_EQ(held("a.jpg", "IPTC:City"), "iptc");
    EXPECT_EQ(held("a.jpg", "IFD0:Rating"), "4");
    EXPECT_EQ(held("a.jpg", "XMP-xmp:Rating"), "1");
    EXPECT_EQ(program.quit(), 0);
}
