#include "EditedFolder.h"

#include <set>

// What the window says of a command that writes is what became of the files, whatever the tool does: one that
// kills itself, one that ends with a failure and no word, one that hangs until the user stops it, and one
// that says it is done without having touched anything.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

struct Step {
    QString verb;
    QStringList words;
};

/// How a user gets from the chosen files to the write; everything that the dialogs read is read by the real
/// tool.
struct WritingCommand {
    int command;
    std::vector<Step> steps;
    bool isOfShownFile = false;  ///< begins with a row of the panel
};

const Step kRow{"row", {"XMP-dc", "Title", "Tag"}};
const Step kOk{"press", {"1"}};
const Step kYes{"press", {"1"}};

/// A value in the list of tags of a dialog.
std::vector<Step> typed(const QString& tag) {
    return {{"cell", {"1328", tag, "Value"}}, {"set", {"1694", "changed"}}, kOk, kOk};
}

const std::vector<WritingCommand>& writingCommands() {
    static const std::vector<WritingCommand> commands = {
        {10075, {kOk}, true},
        {10077, {kOk}, true},
        {22, typed("Artist")},
        {31, typed("City")},
        {35, typed("Title")},
        {75, typed("Title")},
        {176, {{"set", {"1930", "1"}}, kOk}},
        {177, {{"press", {"81101"}}, kOk}},
        {178, {{"press", {"81101"}}, kOk, kYes}},
        {10044, {kYes}},
        {10066, {kYes}},
        {10067, {kYes}},
        {10068, {kYes}},
        {10069, {kYes}},
        {10071, {kYes}},
        {10072, {kYes}},
        {10062, {{"set", {"1321", "#source"}}, {"set", {"1011", "1"}}, kOk}},
        {157, {}},
        {173, {}},
        {174, {}},
        {183, {{"set", {"1321", "#source"}}, kOk}},
        {185, {}},
    };
    return commands;
}

struct StandIn {
    const char* name;
    const char* script;  ///< what is run in the place of a write
    bool isStopped;      ///< by the user
};

constexpr StandIn kStandIns[] = {
    {"kills itself", "kill -9 $$", false}, {"fails without a word", "exit 1", false},
    {"says nothing", "exit 0", false},     {"lies", "echo '    1 image files updated'; exit 0", false},
    {"hangs", "exec sleep 600", true},
};

class OutcomeTest : public endtoend::EditedFolder {
 protected:
    void SetUp() override {
        for (const char* name : {"a.jpg", "b.jpg", "source.jpg"})
            photo(name, {"-XMP-dc:Title=old", "-IFD0:Artist=old", "-IPTC:City=old", "-IFD0:Model=Camera",
                         "-ExifIFD:DateTimeOriginal=2001:02:03 04:05:06"});
    }

    /// The real tool, until a file beside it says that writes are to go wrong.
    fs::path tool(const StandIn& standIn) const {
        const fs::path script = folder / "tool";
        const std::string flag = (folder / "broken").string();
        support::writeBytes(script, "#!/bin/sh\nif [ -e '" + flag +
                                        "' ]; then case \"$*\" in *stay_open*) ;; *) " + standIn.script +
                                        ";; esac; fi\nif [ -e '" + flag + "' ]; then " + standIn.script +
                                        "; fi\nexec /usr/bin/exiftool \"$@\"\n");
        fs::permissions(script, fs::perms::owner_all);
        return script;
    }

    void take(DrivenProgram& program, Step step) {
        for (QString& word : step.words)
            if (word == "#source") word = path("source.jpg");
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

    void tryCommand(DrivenProgram& program, const WritingCommand& row, const StandIn& standIn) {
        program.tell("click", {"a.jpg"});
        if (row.isOfShownFile)
            take(program, kRow);
        else
            program.tell("select", {"a.jpg", "b.jpg"});
        const auto before = photos();
        const bool asks = !row.steps.empty();
        if (asks) program.tell("command", {QString::number(row.command)});
        for (std::size_t at = 0; at + 1 < row.steps.size(); ++at) take(program, row.steps[at]);
        support::writeBytes(folder / "broken", "");
        Step last = asks ? row.steps.back() : Step{"command", {QString::number(row.command)}};
        if (standIn.isStopped) last = {"nowait", QStringList(last.verb) + last.words};
        take(program, last);
        if (standIn.isStopped) program.tell("stop");
        const QString words = said(program);
        fs::remove(folder / "broken");
        EXPECT_EQ(photos(), before);
        for (const char* success :
             {"nothing to report", "was changed in", "was deleted from", "were removed from"})
            EXPECT_FALSE(words.contains(success)) << words.toStdString();
        EXPECT_TRUE(words.contains("a.jpg") || words.contains("failed") || words.contains("stopped") ||
                    words.contains("not begun"))
            << words.toStdString();
    }
};

}  // namespace

class OutcomeOfEveryWrite : public OutcomeTest, public testing::WithParamInterface<StandIn> {};

TEST_P(OutcomeOfEveryWrite, IsTold) {
    DrivenProgram::Options options;
    options.exifTool = tool(GetParam());
    DrivenProgram program(options);
    program.tell("open", {path()});
    for (const WritingCommand& row : writingCommands()) {
        SCOPED_TRACE(row.command);
        tryCommand(program, row, GetParam());
    }
    EXPECT_EQ(program.quit(), 0);
}

INSTANTIATE_TEST_SUITE_P(StandIns, OutcomeOfEveryWrite, testing::ValuesIn(kStandIns),
                         [](const testing::TestParamInfo<StandIn>& info) {
                             std::string name = info.param.name;
                             std::erase(name, ' ');
                             return name;
                         });
