#include "EditedFolder.h"
#include "app/LanguageFile.h"
#include "app/TextNumbers.h"
#include "edit/EditTexts.h"
#include "jobs/JobTexts.h"
#include "taglists/TagListTexts.h"

#include <QRegularExpression>

// What the window says of a command that writes is what became of the files, whatever the tool does: one that
// kills itself, one that ends with a failure and no word, one that hangs until the user stops it, one that
// says it is done without having touched anything, and one that leaves half a file behind.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

struct Step {
    QString verb;
    QStringList words;
};

enum class Of { Selection, ShownFile };

/// How a user gets from the chosen files to the write; everything that the dialogs read is read by the real
/// tool.
struct WritingCommand {
    int command;  ///< 0: begins with the first step
    std::vector<Step> steps;
    Of files = Of::Selection;
    /// What the tool prints is what is wanted: nothing is nothing to be had, and any bytes are the right
    /// ones.
    bool isExport = false;
    /// Tried with one file besides; one of each road that leads to the tool.
    bool alsoOfOneFile = false;
};

const Step kRow{"row", {"XMP-dc", "Title", "Tag"}};
const Step kOk{"press", {"1"}};
const Step kYes{"press", {"1"}};

/// A value in the list of tags of a dialog.
std::vector<Step> typed(const QString& tag) {
    return {{"cell", {"1328", tag, "Value"}}, {"set", {"1694", "changed"}}, kOk, kOk};
}

std::vector<Step> copied() {
    return {{"set", {"1321", "#source"}}, {"set", {"1011", "1"}}, kOk};
}

const std::vector<WritingCommand>& writingCommands() {
    static const std::vector<WritingCommand> commands = {
        {0, {{"row", {"XMP-dc", "Title", "Value"}}, {"set", {"1694", "changed"}}, kOk}, Of::ShownFile},
        {10075, {kOk}, Of::ShownFile},
        {10077, {kOk}, Of::ShownFile},
        {1819, {{"press", {"81101"}}, kOk}, Of::ShownFile},
        {1821, {kOk}, Of::ShownFile},
        {1824, typed("Source"), Of::ShownFile},
        {22, typed("Artist")},
        {31, typed("City")},
        {35, typed("Title")},
        {.command = 75, .steps = typed("Title"), .alsoOfOneFile = true},
        {.command = 176, .steps = {{"set", {"1930", "1"}}, kOk}, .alsoOfOneFile = true},
        {177, {{"press", {"81101"}}, kOk}},
        {.command = 178, .steps = {{"press", {"81101"}}, kOk, kYes}, .alsoOfOneFile = true},
        {10044, {kYes}},
        {10066, {kYes}},
        {10067, {kYes}},
        {10068, {kYes}},
        {10069, {kYes}},
        {10071, {kYes}},
        {10072, {kYes}},
        {.command = 10062, .steps = copied(), .alsoOfOneFile = true},
        {10065, copied()},
        {.command = 157, .steps = {}, .alsoOfOneFile = true},
        {172, {}},
        {173, {kYes}},
        {174, {kYes}},
        {183, {{"set", {"1321", "#source"}}, kOk}},
        {185, {}},
        {216, {{"set", {"955", "#target"}}, {"set", {"1069", "1"}}, kOk}, Of::Selection, true},
        {217, {{"set", {"955", "#target"}}, kOk}, Of::Selection, true},
    };
    return commands;
}

/// Cuts every picture that it is given, by name or in a list, and says nothing.
constexpr const char* kHalfWriter = R"(cut() {
    case "$1" in *.jpg) [ -e "$1" ] && head -c 200 "$1" >"$1.half" && cat "$1.half" >"$1" && rm "$1.half";; esac
}
list() {
    while read -r line; do
        case "$line" in -execute*) exit 1;; esac
        cut "${line%?}"
        cut "$line"
    done
}
for word; do
    cut "$word"
    if [ "$last" = -@ ]; then if [ "$word" = - ]; then list; else list <"$word"; fi; fi
    last=$word
done
exit 1)";

struct StandIn {
    const char* name;
    const char* script;      ///< what is run in the place of a write
    bool isStopped = false;  ///< by the user
    bool touchesFiles = false;
    bool deceivesExports = false;
};

constexpr StandIn kStandIns[] = {
    {"kills itself", "kill -9 $$"},
    {"fails without a word", "exit 1"},
    {"says nothing", "exit 0"},
    {.name = "lies", .script = "echo '    1 image files updated'; exit 0", .deceivesExports = true},
    {.name = "hangs", .script = "exec sleep 600", .isStopped = true},
    {.name = "writes half", .script = kHalfWriter, .touchesFiles = true},
};

/// A text of the interface, with what stands in the place of each "%s".
QRegularExpression patternOf(const app::LanguageFile& language, int text, const QString& place) {
    QString pattern = QRegularExpression::escape(language.text(text));
    return QRegularExpression(pattern.replace(QStringLiteral("\\%s"), QStringLiteral("(") + place + u')'));
}

class OutcomeTest : public endtoend::EditedFolder {
 protected:
    void SetUp() override {
        for (const char* name : {"a.jpg", "b.jpg", "source.jpg"})
            photo(name, {"-XMP-dc:Title=old", "-IFD0:Artist=old", "-IPTC:City=old", "-IFD0:Model=Camera",
                         "-ExifIFD:DateTimeOriginal=2001:02:03 04:05:06"});
        fs::create_directory(folder / "target");
    }

    /// The real tool, until a file beside it says that writes are to go wrong.
    fs::path tool(const StandIn& standIn) const {
        const fs::path script = folder / "tool";
        const std::string flag = (folder / "broken").string();
        support::writeBytes(script, "#!/bin/sh\nif [ -e '" + flag + "' ]; then\n" + standIn.script +
                                        "\nfi\nexec /usr/bin/exiftool \"$@\"\n");
        fs::permissions(script, fs::perms::owner_all);
        return script;
    }

    void take(DrivenProgram& program, Step step) {
        for (QString& word : step.words)
            if (word.startsWith(u'#')) word = path(word == "#source" ? "source.jpg" : "target");
        program.tell(step.verb, step.words);
    }

    /// All that the window says: the status bar, and what stands in front of it.
    QString said(DrivenProgram& program) {
        QString all = program.status();
        for (int windows = 0; windows < 4; ++windows) {
            const QJsonObject message = program.say("message");
            const QJsonObject dialog = program.say("dialog");
            if (message["ok"].toBool())
                all += '\n' + message["text"].toString();
            else if (dialog["ok"].toBool())
                all += '\n' + controlOf(dialog, 924)["text"].toString();
            else
                break;
            program.say(message["ok"].toBool() ? "press 1" : "key Escape");
        }
        return all;
    }

    std::map<std::string, std::string> photos() const {
        std::map<std::string, std::string> bytes;
        for (const char* name : {"a.jpg", "b.jpg", "source.jpg"})
            bytes[name] = support::readBytes(file(name));
        return bytes;
    }

    /// The number before a text that counts files, of which the first of a summary is "2 files".
    int counted(QString& words, int text) const {
        const QRegularExpression pattern = patternOf(language_, text, QStringLiteral("\\d+(?: files?)?"));
        // The status bar and the report begin with the same summary.
        const QRegularExpressionMatch match = pattern.match(words);
        words.remove(pattern);
        return match.captured(1).section(u' ', 0, 0).toInt();
    }

    /// None of the files was done, and `touched` of them are not what they were.
    void judge(const QString& words, const std::vector<QString>& files, int touched,
               bool mayBeUnchanged) const {
        using namespace ::jobs::text;
        QString left = words;
        EXPECT_LE(counted(left, kCountWarned), touched);
        EXPECT_EQ(counted(left, kCountDone), 0);
        for (const int success : {app::text::kReportEmpty, ::edit::text::kWritten, ::edit::text::kDeleted,
                                  ::taglists::text::kGroupsRemoved, kWordDone})
            EXPECT_FALSE(patternOf(language_, success, QStringLiteral(".+")).match(words).hasMatch())
                << language_.text(success).toStdString();
        const auto unnamed =
            std::ranges::count_if(files, [&](const QString& file) { return !words.contains(file); });
        EXPECT_LE(unnamed,
                  counted(left, kCountNotBegun) + (mayBeUnchanged ? counted(left, kCountUnchanged) : 0))
            << "some are not told of";
    }

    void tryCommand(DrivenProgram& program, const WritingCommand& row, const StandIn& standIn,
                    const QStringList& selection) {
        const bool isOfOne = row.files == Of::ShownFile;
        program.tell("click", {"a.jpg"});
        if (isOfOne)
            take(program, kRow);
        else
            program.tell("select", selection);
        const auto before = photos();
        std::vector<Step> steps = row.steps;
        if (row.command != 0) steps.insert(steps.begin(), Step{"command", {QString::number(row.command)}});
        for (std::size_t at = 0; at + 1 < steps.size(); ++at) take(program, steps[at]);
        support::writeBytes(folder / "broken", "");
        Step last = steps.back();
        if (standIn.isStopped) last = {"nowait", QStringList(last.verb) + last.words};
        take(program, last);
        if (standIn.isStopped) program.tell("stop");
        const QString words = said(program);
        fs::remove(folder / "broken");
        SCOPED_TRACE(words.toStdString());
        const auto after = photos();
        int touched = 0;
        for (const auto& [name, bytes] : before) touched += after.at(name) == bytes ? 0 : 1;
        EXPECT_EQ(touched > 0, standIn.touchesFiles);
        judge(words,
              isOfOne ? std::vector<QString>{"a.jpg"}
                      : std::vector<QString>(selection.begin(), selection.end()),
              touched, row.isExport);
        if (touched > 0)
            for (const auto& [name, bytes] : before) support::writeBytes(file(name), bytes);
    }

    app::LanguageFile language_{TAGWRIGHT_BIN_DIR, 9};
};

}  // namespace

class OutcomeOfEveryWrite : public OutcomeTest, public testing::WithParamInterface<StandIn> {};

TEST_P(OutcomeOfEveryWrite, IsTold) {
    DrivenProgram::Options options;
    options.exifTool = tool(GetParam());
    DrivenProgram program(options);
    program.tell("open", {path()});
    for (const WritingCommand& row : writingCommands()) {
        if (row.isExport && GetParam().deceivesExports) continue;
        SCOPED_TRACE(row.command);
        tryCommand(program, row, GetParam(), {"a.jpg", "b.jpg"});
        if (row.alsoOfOneFile) tryCommand(program, row, GetParam(), {"b.jpg"});
    }
    EXPECT_EQ(program.quit(), 0);
}

INSTANTIATE_TEST_SUITE_P(StandIns, OutcomeOfEveryWrite, testing::ValuesIn(kStandIns),
                         [](const testing::TestParamInfo<StandIn>& info) {
                             std::string name = info.param.name;
                             std::erase(name, ' ');
                             return name;
                         });
