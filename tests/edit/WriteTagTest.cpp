#include "exiftool/WriteTag.h"

#include "edit/PanelEdit.h"
#include "edit/TrialWrite.h"
#include "edit/WholeValue.h"
#include "platform/Text.h"
#include "support/EditedFile.h"
#include "support/ManyFormats.h"
#include "support/ToolStandIns.h"
#include "tags/Entries.h"

#include <gmock/gmock.h>

#include <sstream>

using namespace edit;
using namespace exiftool;
using namespace tags;
using enum exiftool::OutcomeKind;
using testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

constexpr auto kHostileValues = std::to_array<const char*>({
    "x\" -if \"system('touch owned')\" \"",
    "\" >owned 2>>owned \"",
    "a >owned",
    "$(touch owned) `touch owned` ; touch owned | touch owned &",
    "100% %PATH% %%d",
    "line\nfeed\n-XMP-dc:Creator=owned",
    "-execute",
    "<owned",
    "@owned",
    "back\\slash \\\" end\\",
    "gr\xC3\xBC\xC3\x9F",
    "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E",
    "\xF0\x9F\x93\xB7 \xF0\x9F\x8E\x89",
    "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
});

struct LineCase {
    const char* what;
    app::CurrentEdit edit;
    const char* designed;  ///< between tool and file
    const char* corrected;
};

app::CurrentEdit edited(const char* group, const char* name, const char* value) {
    app::CurrentEdit edit;
    edit.id = 1;
    edit.groupIndex = 78;
    edit.group = QString::fromUtf8(group);
    edit.name = QString::fromUtf8(name);
    edit.value = QString::fromUtf8(value);
    return edit;
}

std::vector<LineCase> lineCases() {
    app::CurrentEdit list = edited("IFD0", "Orientation", "Rotate 90 CW");
    list.comboCode = "6";
    list.valueKind = 4;
    app::CurrentEdit several = edited("XMP-dc", "Subject", "one\ntwo, three");
    several.severalValues = true;
    app::CurrentEdit noEntries = several;
    noEntries.value = "\n";
    app::CurrentEdit oddEntries = several;
    oddEntries.value = tags::joinEntries({" one ", "", "two\nlines"});
    app::CurrentEdit plainEntry = edited("XMP-dc", "Title", "a b");
    plainEntry.language = "x-default";
    app::CurrentEdit withOthers = edited("ItemList", "Title", "a b");
    withOthers.translations = {{"Title-deu-DE", "x\"y"}};
    app::CurrentEdit escape = edited("IPTC", "CodedCharacterSet", "% G");
    escape.id = 853;
    app::CurrentEdit escaped = escape;
    escaped.value = "ESC % G";
    app::CurrentEdit utf8 = escape;
    utf8.value = "UTF8";
    app::CurrentEdit property = edited("Photo", "CameraModel", "x");
    property.groupIndex = 335;
    return {
        {"a value", edited("IFD0", "Artist", "Ada"), "-Artist=\"Ada\" ", "-IFD0:Artist=\"Ada\" "},
        {"empty", edited("IFD0", "Artist", ""), "-Artist= ", "-IFD0:Artist= "},
        {"a group with a hyphen", edited("XMP-dc", "Title", "a b"), "-Title=\"a b\" ",
         "-XMP-dc:Title=\"a b\" "},
        {"a quote", edited("IFD0", "Artist", "a\"b"), "-Artist=\"a\"b\" ", "-IFD0:Artist=\"a\"b\" "},
        {"a choice", list, "-Orientation=\"Rotate 90 CW\" ", "-IFD0:Orientation#=\"6\" "},
        {"entries", several, "-Subject=\"one\ntwo, three\" ",
         "-XMP-dc:Subject=\"one\" -XMP-dc:Subject=\"two, three\" "},
        {"no entries", noEntries, "-Subject=\"\n\" ", "-XMP-dc:Subject= "},
        {"odd entries", oddEntries,
         "-Subject=\" one \n\xEF\xB7\x90"
         "e\ntwo\xEF\xB7\x90\nlines\" ",
         "-XMP-dc:Subject=\" one \" -XMP-dc:Subject^= -XMP-dc:Subject=\"two\nlines\" "},
        {"one language", plainEntry, "-Title=\"a b\" ", "-XMP-dc:Title-x-default=\"a b\" "},
        {"languages beside it", withOthers, "-Title=\"a b\" ",
         "-ItemList:Title=\"a b\" -ItemList:Title-deu-DE=\"x\"y\" "},
        {"an escape sequence", escape, "-CodedCharacterSet=\"ESC % G\" ",
         "-IPTC:CodedCharacterSet=\"ESC % G\" "},
        {"one that is written out", escaped, "-CodedCharacterSet=\"ESC ESC % G\" ",
         "-IPTC:CodedCharacterSet=\"ESC % G\" "},
        {"a word for one", utf8, "-CodedCharacterSet=\"UTF8\" ", "-IPTC:CodedCharacterSet=\"UTF8\" "},
        {"Latin in IPTC", edited("IPTC", "City", "K\xC3\xB6ln"), "-City=\"K\xC3\xB6ln\" ",
         "-IPTC:City=\"K\xC3\xB6ln\" "},
        {"more in IPTC", edited("IPTC", "City", "\xE6\x9D\xB1"), "-City=\"\xE6\x9D\xB1\" ",
         "-tagsfromfile @ -IPTC:All --IPTC:City \"-IPTC:CodedCharacterSet<${FileType;$_='UTF8'}\" "
         "-IPTC:City=\"\xE6\x9D\xB1\" "},
        {"a property's group", property, "-CameraModel=\"x\" ", "-CameraModel=\"x\" "},
    };
}

class WriteTag : public EditedFile {
 protected:
    /// The write as a click on the row leads to it.
    Outcome write(const fs::path& file, QStringView group, QStringView name, const QString& value,
                  const QString& before = {}, const QString& code = {}) {
        const tags::TagRecord tag = record(group, name);
        TagEditContext from;
        from.value = before;
        TagEditContext to = from;
        to.value = value;
        to.title = QStringView(tag.name).toString();
        to.group = QStringView(tag.group).toString();
        to.tagId = static_cast<int>(tag.id);
        to.comboCode = code;
        to.selection = value.toInt();
        to.severalEntries = form() == app::CommandForm::Corrected && tag.valueKind == ValueKind::Text &&
                            labels.takesSeveralValues(to.tagId);
        return WriteOneTag(context, form(), runner, file, editOfRow(parts, form(), from, to, tag, 0));
    }

    /// ExifTool's own way to leave a tag out takes the other languages along.
    static std::string linesBut(const fs::path& file, QStringView group, const char* name) {
        const std::string own = platform::narrow(QStringLiteral("[%1] %2:").arg(group, QString(name)));
        std::istringstream all(otherTags(file, "Composite:All"));
        std::string lines;
        for (std::string line; std::getline(all, line);)
            if (!line.starts_with(own)) lines += line + '\n';
        return lines;
    }

    static QString to(std::u16string_view name) { return platform::wide(name); }

    void SetUp() override { fs::current_path(folder / "photos"); }
};

}  // namespace

TEST_F(WriteTag, TheLinesAreExactToTheBlank) {
    for (const bool corrected : {false, true}) {
        context.settings.exifTool.correctedCommands = corrected;
        for (const LineCase& row : lineCases()) {
            const std::string expected = std::string("\"/usr/bin/exiftool\" ") +
                                         (corrected ? row.corrected : row.designed) +
                                         "-overwrite_original -charset filename=UTF8 \"/p/a b.jpg\"" +
                                         (corrected ? " 2>>\"" + context.reportFile.string() + "\"" : "");
            EXPECT_EQ(writeTagCommand(context, form(), "/p/a b.jpg", row.edit).text(), expected) << row.what;
        }
    }
}

TEST_F(WriteTag, EachKindIsChangedEmptiedAndNothingElse) {
    const struct {
        const char16_t* group;
        const char16_t* name;
        const char* before;
        const char* typed;
        const char* code;
        const char* after;
    } cases[] = {
        {u"ExifIFD", u"CreateDate", "2001:02:03 04:05:06", "2015:06:01 12:13:14", "", "2015:06:01 12:13:14"},

        {u"IFD0", u"Artist", "Ada", "Bob", "", "Bob"},
        {u"XMP-Xmp", u"Rating", "2", "4", "", "4"},
        {u"IFD0", u"Orientation", "Horizontal (normal)", "Rotate 180", "3", "3"},
        {u"ExifIFD", u"ExposureTime", "1/30", "1/125", "", "0.008"},
        {u"ExifIFD", u"ISO", "100", "400", "", "400"},
        {u"XMP-dc", u"Title", "old", "new", "", "new"},
        {u"IPTC", u"City", "Rom", "Wien", "", "Wien"},
    };
    for (const auto& row : cases) {
        const std::string tag =
            QString::fromUtf16(row.group).toStdString() + ":" + QString::fromUtf16(row.name).toStdString();
        const fs::path file = photo({"-" + tag + "=" + row.before, "-XMP-dc:Creator=kept",
                                     "-IPTC:Headline=kept", "-IFD0:Copyright=kept"});
        const std::string others = otherTags(file, tag);
        EXPECT_EQ(write(file, row.group, row.name, QString::fromUtf8(row.typed), row.before, row.code),
                  (Outcome{file, Done, {}}))
            << tag;
        EXPECT_EQ(valueOf(file, tag), row.after);
        EXPECT_EQ(otherTags(file, tag), others);
        if (record(row.group, row.name).valueKind == tags::ValueKind::Rating) continue;
        EXPECT_EQ(write(file, row.group, row.name, "").kind, Done);
        EXPECT_EQ(valueOf(file, tag), "") << tag;
    }
    EXPECT_FALSE(fs::exists(folder / "photos/a.jpg_original"));
}

TEST_F(WriteTag, OnlyTheRowThatWasClickedIsWritten) {
    const fs::path file = photo({"-IFD0:ModifyDate=2001:01:01 00:00:00", "-XMP-xmp:ModifyDate=2002:01:01"});
    EXPECT_EQ(write(file, u"XMP-Xmp", u"ModifyDate", "2015:06:01 12:13:14+02:00").kind, Done);
    EXPECT_EQ(valueOf(file, "IFD0:ModifyDate"), "2001:01:01 00:00:00");
    EXPECT_EQ(valueOf(file, "XMP-xmp:ModifyDate"), "2015:06:01 12:13:14+02:00");
}

TEST_F(WriteTag, EntriesStayEntries) {
    const fs::path file = photo({"-XMP-dc:Subject=a", "-XMP-dc:Subject=b", "-IPTC:Keywords=a"});
    for (const auto& [group, name] : {std::pair(u"XMP-dc", u"Subject"), std::pair(u"IPTC", u"Keywords")}) {
        EXPECT_EQ(write(file, group, name, QStringLiteral("one\ntwo, three\n\u65E5\u672C")),
                  (Outcome{file, Done, {}}));
        const tags::TagRecord tag = record(group, name);
        EXPECT_EQ(editableValue(parts, form(), file, tag, to(tag.name), QStringLiteral("one, two")).text,
                  QStringLiteral("one\ntwo, three\n\u65E5\u672C"));
    }
}

TEST_F(WriteTag, HostileValuesReachTheFileAsTyped) {
    const fs::path file = photo({});
    for (const char* value : kHostileValues) {
        EXPECT_EQ(write(file, u"XMP-dc", u"Title", QString::fromUtf8(value)), (Outcome{file, Done, {}}))
            << value;
        EXPECT_EQ(valueOf(file, "XMP-dc:Title"), value);
    }
    EXPECT_EQ(valueOf(file, "XMP-dc:Creator"), "");
    EXPECT_FALSE(fs::exists("owned"));
}

TEST_F(WriteTag, OtherFormatsKeepForeignAndOddTextToo) {
    const fs::path file = photo({});
    for (const char* value : {"x\" -if \"system('touch owned')\" \"", "line\nfeed",
                              "\xE6\x97\xA5 \xF0\x9F\x93\xB7 \xD7\xA9\xD7\x9C"}) {
        for (const auto& [group, name] : {std::pair(u"IFD0", u"Artist"), std::pair(u"IPTC", u"Headline"),
                                          std::pair(u"File", u"Comment")}) {
            EXPECT_EQ(write(file, group, name, QString::fromUtf8(value)).words, "") << value;
            EXPECT_EQ(valueOf(file, QString::fromUtf16(group).toStdString() + ":" +
                                        QString::fromUtf16(name).toStdString()),
                      value);
        }
    }
    EXPECT_FALSE(fs::exists("owned"));
}

TEST_F(WriteTag, WhatCameOutOfTheFileIsHarmlessInTheDesignedFormToo) {
    context.settings.exifTool.correctedCommands = false;
    const fs::path file = photo({});
    for (const char* value : kHostileValues) {
        const QString text = QString::fromUtf8(value);
        const std::string untouched = support::readBytes(file);
        EXPECT_EQ(write(file, u"XMP-dc", u"Creator", text + "!", text).kind, Done);
        EXPECT_EQ(valueOf(file, "XMP-dc:Creator"), text.toStdString() + "!");
        EXPECT_NE(support::readBytes(file), untouched);
    }
    EXPECT_FALSE(fs::exists("owned"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "photos"), {}), 1);
}

TEST_F(WriteTag, HostileNamesAreWritten) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = photo({}, name);
        EXPECT_EQ(write(file, u"XMP-dc", u"Title", "new").kind, Done) << name;
        EXPECT_EQ(valueOf(file, "XMP-dc:Title"), "new") << name;
    }
    EXPECT_FALSE(fs::exists("owned"));
}

TEST_F(WriteTag, TextThatLatinLacksKeepsTheOtherValuesOfItsRecord) {
    const fs::path file =
        photo({"-IPTC:City=M\xC3\xBCnchen", "-IPTC:Keywords=gr\xC3\xBCn", "-IPTC:Keywords=b"});
    EXPECT_EQ(write(file, u"IPTC", u"Headline", QStringLiteral("\u65E5\u672C")), (Outcome{file, Done, {}}));
    EXPECT_EQ(valueOf(file, "IPTC:Headline"), "\xE6\x97\xA5\xE6\x9C\xAC");
    EXPECT_EQ(valueOf(file, "IPTC:City"), "M\xC3\xBCnchen");
    EXPECT_EQ(valueOf(file, "IPTC:Keywords"), "gr\xC3\xBCn\nb");
    const fs::path bare = photo({}, "bare.jpg");
    EXPECT_EQ(write(bare, u"IPTC", u"Headline", QStringLiteral("\u65E5\u672C")), (Outcome{bare, Done, {}}));
    EXPECT_EQ(valueOf(bare, "IPTC:Headline"), "\xE6\x97\xA5\xE6\x9C\xAC");
}

TEST_F(WriteTag, SeveralSuchTextsOfOneLineAllArrive) {
    const fs::path file = photo({"-IPTC:City=Rom", "-IPTC:Credit=gr\xC3\xBCn"});
    const app::CurrentEdit edits[] = {edited("IPTC", "City", "\xE6\x9D\xB1"), edited("IFD0", "Artist", "Ada"),
                                      edited("IPTC", "Headline", "\xE4\xBA\xAC")};
    const platform::CommandText terms = termsOfTags(form(), edits);
    EXPECT_EQ(terms.text(),
              "-tagsfromfile @ -IPTC:All --IPTC:City --IPTC:Headline "
              "\"-IPTC:CodedCharacterSet<${FileType;$_='UTF8'}\" "
              "-IPTC:City=\"\xE6\x9D\xB1\" -IFD0:Artist=\"Ada\" -IPTC:Headline=\"\xE4\xBA\xAC\" ");
    platform::CommandText line = exiftool::toolStart(context).append(terms).literal("-overwrite_original \"");
    EXPECT_EQ(runner.RunToolLine(line.outside(file.string()).literal("\"")), 1);
    EXPECT_EQ(valueOf(file, "IPTC:City"), "\xE6\x9D\xB1");
    EXPECT_EQ(valueOf(file, "IPTC:Headline"), "\xE4\xBA\xAC");
    EXPECT_EQ(valueOf(file, "IPTC:Credit"), "gr\xC3\xBCn");
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "Ada");
}

TEST_F(WriteTag, WhatExifToolSaysIsTold) {
    const fs::path file = photo({"-ExifIFD:ExposureTime=1/30"});
    const std::string before = support::readBytes(file);
    support::writeBytes(context.reportFile, "something earlier\n");
    const Outcome refused = write(file, u"ExifIFD", u"ExposureTime", "abc");
    EXPECT_FALSE(isWritten(refused.kind));
    EXPECT_THAT(refused.words, testing::StartsWith("Warning: "));
    EXPECT_THAT(report(), HasSubstr("something earlier\nWarning"));
    EXPECT_EQ(support::readBytes(file), before);

    const Outcome gone = write(folder / "photos/gone.jpg", u"IFD0", u"Artist", "x");
    EXPECT_EQ(gone.kind, Failed);
    EXPECT_THAT(gone.words, HasSubstr("gone.jpg"));
    context.exifToolPath = folder / "no tool";
    EXPECT_EQ(write(file, u"IFD0", u"Artist", "x").kind, NotStarted);
    EXPECT_EQ(support::readBytes(file), before);
}

TEST_F(WriteTag, AWriteThatIsCutLeavesTheFileWholeAndTheNextOneWorks) {
    const fs::path file = photo({"-IFD0:Artist=Ada"});
    const std::string before = support::readBytes(file);
    support::useTool(context, folder / "tool",
                     "for last; do :; done\necho half >\"${last}_exiftool_tmp\"\nexec sleep 100\n");
    const fs::path half = folder / "photos/a.jpg_exiftool_tmp";
    runner.setKeepWaiting([&](std::chrono::milliseconds) { return !fs::exists(half); });
    EXPECT_EQ(write(file, u"IFD0", u"Artist", "Bob").kind, Stopped);
    EXPECT_EQ(support::readBytes(file), before);
    EXPECT_FALSE(fs::exists(half));
    runner.setKeepWaiting({});
    context.exifToolPath = "/usr/bin/exiftool";
    EXPECT_EQ(write(file, u"IFD0", u"Artist", "Bob").kind, Done);
    EXPECT_EQ(valueOf(file, "IFD0:Artist"), "Bob");
}

TEST_F(WriteTag, APropertyOfTheListGoesThroughTheStoreAndARowOfThePanelDoesNot) {
    const fs::path file = photo({});
    app::CurrentEdit property = edited("Summary", "Title", "By the store");
    property.groupIndex = 330;
    property.id = 31;  // Title
    EXPECT_EQ(WriteOneTag(context, form(), runner, file, property), (Outcome{file, Done, {}}));
    EXPECT_THAT(support::ExifTool({"-s", file.string()}), HasSubstr("By the store"));

    // A tag of [File] whose number is a property's as well.
    const std::string before = support::readBytes(file);
    property.groupIndex = 30;
    property.group = "File";
    property.name = "NoSuchTag";
    property.value = "no";
    const Outcome refused = WriteOneTag(context, form(), runner, file, property);
    EXPECT_FALSE(isWritten(refused.kind));
    EXPECT_THAT(refused.words, HasSubstr("NoSuchTag"));
    EXPECT_EQ(support::readBytes(file), before);
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(WriteOneTag(context, form(), runner, file, property).kind, Done);
    EXPECT_NE(support::readBytes(file), before) << "the designed form takes the number for the property's";
}

TEST_F(WriteTag, AStoreThatRefusesIsTold) {
    const fs::path text = folder / "photos/a.txt";
    support::writeBytes(text, "no picture");
    app::CurrentEdit property = edited("Photo", "DateTaken", "");
    property.groupIndex = 335;
    property.id = 250;
    EXPECT_EQ(WriteOneTag(context, form(), runner, text, property),
              (Outcome{text, Failed, "This property is not supported by this codec!"}));
    EXPECT_EQ(support::readBytes(text), "no picture");
}

TEST_F(WriteTag, NoResultOfThePropertyStorePassesForASuccessButTheOne) {
    using properties::PropertyResult;
    EXPECT_EQ(outcomeOfProperty("/a.jpg", PropertyResult::Ok), (Outcome{"/a.jpg", Done, {}}));
    for (const PropertyResult result : {PropertyResult::AccessDenied, PropertyResult::Failed,
                                        PropertyResult::DiskFull, PropertyResult::ChangedMeanwhile}) {
        const Outcome outcome = outcomeOfProperty("/a.jpg", result);
        EXPECT_EQ(outcome.kind, Failed);
        EXPECT_NE(outcome.words, "") << static_cast<std::uint32_t>(result);
    }
}

TEST_F(WriteTag, NoWriteTellsASuccessThatIsNone) {
    const fs::path file = photo({"-XMP-dc:Creator=Ada"});
    support::expectTruthOfStandIns(
        context, runner, folder.path(), folder / "photos",
        {{"one tag", [&] { return Outcomes{write(file, u"XMP-dc", u"Creator", "Bob")}; }}});
}

TEST_F(WriteTag, AValueIsReadWithEveryCharacter) {
    const fs::path file = photo({"-XMP-dc:Title=two\nlines ", "-XMP-dc:Title-de=zwei", "-XMP-dc:Subject=a",
                                 "-XMP-dc:Subject^=", "-XMP-dc:Subject=b, c\n", "-XMP-dc:Rights=A. B.",
                                 "-XMP-dc:Date=2001", "-XMP-dc:Date=2002:03", "-IFD0:Artist=gr\xFC\xDF\x01"});
    const struct {
        const char16_t* group;
        const char16_t* name;
        const char* row;
        const char* shown;
        QString whole;
    } cases[] = {
        {u"XMP-dc", u"Title", "Title", "two.lines", "two\nlines "},
        {u"XMP-dc", u"Title", "Title-de", "zwei", "zwei"},
        {u"XMP-dc", u"Subject", "Subject", "a, , b, c.", joinEntries({"a", "", "b, c\n"})},
        {u"XMP-dc", u"Rights", "Rights", "A. B.", "A. B."},
        {u"XMP-dc", u"Date", "Date", "2001, 2002:03", "2001\n2002:03"},
        {u"IFD0", u"Artist", "Artist", "gr??.", QStringLiteral(u"gr\xDCFC\xDCDF\x01")},
        {u"XMP-dc", u"Source", "Source", "", ""},
    };
    for (const auto& row : cases) {
        const EditableValue value = editableValue(parts, form(), file, record(row.group, row.name),
                                                  QString(row.row), QString(row.shown));
        EXPECT_EQ(value.text, row.whole) << row.row;
        EXPECT_EQ(value.fault + value.refusal, QString());
        EXPECT_EQ(value.severalEntries, row.whole.contains(u'\n') && row.name[0] != u'T') << row.row;
    }
    const tags::TagRecord title = record(u"XMP-dc", u"Title");
    EXPECT_NE(editableValue(parts, form(), folder / "gone.jpg", title, "Title", "a").fault, QString());
    // What a row shows would destroy what it does not show.
    const fs::path tool = context.exifToolPath;
    for (const char* script : {"kill -KILL $$", "echo two.lin; exit 1", "exit 1"}) {
        support::useTool(context, folder / "tool", script);
        const EditableValue value = editableValue(parts, form(), file, title, "Title", "two.lines");
        EXPECT_NE(value.fault, QString()) << script;
        EXPECT_EQ(value.text, QString()) << script;
    }
    context.exifToolPath = tool;
    context.settings.exifTool.correctedCommands = false;
    EXPECT_EQ(editableValue(parts, form(), file, title, "Title", "two.lines").text,
              QStringLiteral("two.lines"));
}

TEST_F(WriteTag, ATextInOneLanguageLeavesTheOthers) {
    const fs::path photograph = photo({"-XMP-dc:Title=plain", "-XMP-dc:Title-de=deutsch",
                                       "-XMP-dc:Title-fr=fran\xC3\xA7"
                                       "ais",
                                       "-XMP-dc:Source=kept"});
    support::makeFilesOfManyFormats(folder / "photos");
    const fs::path film = folder / "photos/film.mov";
    support::ExifTool({"-q", "-overwrite_original", "-ItemList:Title=plain", "-ItemList:Title-deu-DE=deutsch",
                       "-ItemList:Artist=kept", "-Keys:Title=plain", "-Keys:Title-deu-DE=deutsch",
                       film.string()});
    const struct {
        fs::path file;
        const char16_t* group;
        const char* name;
    } cases[] = {{photograph, u"XMP-dc", "Title"},
                 {photograph, u"XMP-dc", "Title-de"},
                 {film, u"ItemList", "Title"},
                 {film, u"Keys", "Title"},
                 {film, u"ItemList", "Title-deu-DE"}};
    for (const auto& row : cases) {
        for (const char* value : {"new \xE2\x82\xAC", ""}) {
            const tags::TagRecord tag = record(row.group, u"Title");
            const std::string name = platform::narrow(QStringView(row.group)) + ":" + row.name;
            const std::string others = linesBut(row.file, row.group, row.name);
            ASSERT_NE(others.find("] Title"), std::string::npos);
            MetadataRow clicked;
            clicked.tag = row.name;
            const TagEditContext before = contextOfRow(parts, form(), row.file, clicked, tag).context;
            TagEditContext after = before;
            after.value = QString::fromUtf8(value);
            const QString refusal = refusalOfText(parts, form(), before, after);
            // This ExifTool puts another language in the place of a plain entry that is deleted.
            const bool isRefused = QStringView(row.group) == u"Keys" && after.value.isEmpty();
            EXPECT_EQ(!refusal.isEmpty(), isRefused) << name << refusal.toStdString();
            if (isRefused) continue;
            EXPECT_EQ(WriteOneTag(context, form(), runner, row.file,
                                  editOfRow(parts, form(), before, after, tag, 0))
                          .kind,
                      Done)
                << name;
            EXPECT_EQ(valueOf(row.file, name), value) << name;
            EXPECT_EQ(linesBut(row.file, row.group, row.name), others) << name << value;
        }
    }
}

TEST_F(WriteTag, ATagThatStandsTwiceIsRefused) {
    const fs::path file = photo({"-XMP-dc:Source=a"});
    std::string bytes = support::readBytes(file);
    const auto comment = [](const std::string& text) {
        return std::string("\xFF\xFE\x00", 3) + static_cast<char>(text.size() + 2) + text;
    };
    support::writeBytes(file, bytes.substr(0, 2) + comment("first") + comment("second") + bytes.substr(2));
    ASSERT_EQ(support::ExifTool({"-a", "-s3", "-File:Comment", file.string()}), "first\nsecond\n");
    const EditableValue twice =
        editableValue(parts, form(), file, record(u"File", u"Comment"), "Comment", "second");
    EXPECT_THAT(twice.refusal.toStdString(), HasSubstr("Comment stands 2 times"));
    EXPECT_EQ(editableValue(parts, form(), file, record(u"XMP-dc", u"Source"), "Source", "a").refusal, "");
}

TEST_F(WriteTag, WhatATagCannotHoldIsRefusedAndNothingElse) {
    const fs::path file = photo({"-IFD0:Artist=a", "-XMP-dc:Source=a", "-IFD0:ImageDescription=a"});
    const std::string before = support::readBytes(file);
    const struct {
        const char16_t* group;
        const char16_t* name;
        QString text;
        bool refused;
    } cases[] = {
        {u"IFD0", u"Artist", "blanks at the end  ", true},
        {u"IFD0", u"ImageDescription", "blanks at the end  ", false},
        {u"XMP-dc", u"Source", "a\x01z", true},
        {u"IFD0", u"ImageDescription", "a\x01z\x7F", false},
        {u"XMP-dc", u"Source", QStringLiteral(u"a\uFFFEz"), true},
        {u"XMP-dc", u"Source", QStringLiteral(u"\u00A0a\u2028z\u2029\u0085\t\r\n"), false},
        {u"IFD0", u"XPComment", QString::fromUtf8("\xF0\x9F\x98\x80"), true},
        {u"IFD0", u"ImageDescription", QString::fromLatin1("a\0z", 3), true},
        {u"IFD0", u"ImageDescription", QString(QChar(0xD83D)), true},
    };
    for (const auto& row : cases) {
        const tags::TagRecord tag = record(row.group, row.name);
        TagEditContext from;
        from.filePath = file;
        from.title = QStringView(tag.name).toString();
        from.group = QStringView(tag.group).toString();
        from.tagId = static_cast<int>(tag.id);
        TagEditContext after = from;
        after.value = row.text;
        EXPECT_EQ(!refusalOfText(parts, form(), from, after).isEmpty(), row.refused)
            << QString::fromUtf16(row.name).toStdString() << row.text.toStdString();
    }
    EXPECT_EQ(support::readBytes(file), before);
    EXPECT_EQ(report(), "");
    EXPECT_FALSE(fs::exists(context.tempPath / "Trial.jpg"));
}
