#include "exiftool/OutcomeJudge.h"

#include "exiftool/OutcomePrinting.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using exiftool::accountOf;
using exiftool::judgeWrite;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::ToolCounts;
using exiftool::wordsOfFile;
using exiftool::WriteFacts;
using platform::ChildOutcome;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

constexpr const char* kTool = "/usr/bin/exiftool";

/// Runs the real tool.
class OutcomeJudgeTest : public testing::Test {
 protected:
    struct Said {
        ChildOutcome child;
        std::string output;
        std::string errors;
    };

    void SetUp() override {
        support::writeJpeg(photo_);
        support::ExifTool({"-q", "-overwrite_original", "-Title=first", photo_.string()});
        writeBytes(broken_, "no photo at all");
    }

    Said run(std::vector<std::string> arguments, const std::vector<fs::path>& files) {
        platform::ChildCommand command;
        command.program = kTool;
        for (const fs::path& file : files) arguments.push_back(file.string());
        command.arguments = std::move(arguments);
        command.output = platform::ChildStream::truncate(folder_ / "out");
        command.errors = platform::ChildStream::truncate(folder_ / "err");
        const ChildOutcome child = platform::runChild(command);
        return {child, readBytes(folder_ / "out"), readBytes(folder_ / "err")};
    }

    Outcome judged(const std::vector<std::string>& arguments, const fs::path& file) {
        WriteFacts facts;
        facts.before = platform::stampOf(file);
        const Said said = run(arguments, {file});
        facts.after = platform::stampOf(file);
        facts.child = said.child;
        facts.account = accountOf(said.output, said.errors);
        facts.wasQuiet = exiftool::isQuiet(arguments);
        return judgeWrite(file, facts);
    }

    TemporaryFolder folder_;
    fs::path photo_ = folder_ / "photo.jpg";
    fs::path broken_ = folder_ / "broken.jpg";
};

WriteFacts endedWith(int status) {
    WriteFacts facts;
    facts.child = {ChildOutcome::Kind::Ended, status, {}};
    facts.before = {1, 2, 3, 4, 5, 6, 7};
    facts.after = facts.before;
    return facts;
}

}  // namespace

TEST_F(OutcomeJudgeTest, TheRealToolsAnswersAreUnderstood) {
    const std::string longKeyword = "-IPTC:Keywords=" + std::string(100, 'k');
    const fs::path missing = folder_ / "missing.jpg";
    struct Case {
        const char* what;
        std::vector<std::string> arguments;
        fs::path file;
        OutcomeKind kind;
        const char* words;
    };
    const Case cases[] = {
        {"a write", {"-Title=x"}, photo_, OutcomeKind::Done, ""},
        {"with the old date and size",
         {"-P", "-overwrite_original", "-Title=y"},
         photo_,
         OutcomeKind::Done,
         ""},
        {"onto the file itself",
         {"-overwrite_original_in_place", "-P", "-Title=z"},
         photo_,
         OutcomeKind::Done,
         ""},
        {"its date alone", {"-FileModifyDate=2001:02:03 04:05:06"}, photo_, OutcomeKind::Done, ""},
        {"nothing to take away", {"-XMP:Rating-=7"}, photo_, OutcomeKind::Unchanged, ""},
        {"a condition that it does not meet", {"-if", "0", "-Title=x"}, photo_, OutcomeKind::Unchanged, ""},
        {"nothing to copy",
         {"-Title<Nothing"},
         photo_,
         OutcomeKind::Unchanged,
         "Warning: No writable tags set"},
        {"one of two tags unknown",
         {"-NoTag=x", "-Title=w"},
         photo_,
         OutcomeKind::Warned,
         "'NoTag' is not defined"},
        {"a value cut", {longKeyword}, photo_, OutcomeKind::Warned, "[Minor] IPTC:Keywords exceeds length"},
        {"no known tag", {"-NoTag=x"}, photo_, OutcomeKind::Failed, "Nothing to do."},
        {"only reading", {"-Title"}, photo_, OutcomeKind::Failed, "gave no account"},
        {"no photo", {"-Title=x"}, broken_, OutcomeKind::Failed, "Error: Not a valid JPG"},
        {"no file", {"-Title=x"}, missing, OutcomeKind::Failed, "Error: File not found"},
        {"quiet, a write", {"-q", "-Title=a"}, photo_, OutcomeKind::Done, ""},
        {"quiet, with a complaint", {"-quiet", "-NoTag=x", "-Title=b"}, photo_, OutcomeKind::Warned, "NoTag"},
        {"quiet, nothing changed", {"-Q", "-XMP:Rating-=7"}, photo_, OutcomeKind::Unchanged, ""},
        {"very quiet, no photo", {"-q", "-q", "-Title=x"}, broken_, OutcomeKind::Failed, "Not a valid JPG"},
        {"counted on the other stream", {"-j", "-Title=e"}, photo_, OutcomeKind::Done, ""},
        {"in the mode that counts nothing", {"-b", "-Title=c"}, photo_, OutcomeKind::Done, ""},
        {"a new file", {"-o", (folder_ / "new.jpg").string(), "-Title=d"}, photo_, OutcomeKind::Done, ""},
        {"a name that is taken", {"-FileName=broken.jpg"}, photo_, OutcomeKind::Failed, "already exists"},
        {"a new name", {"-FileName=renamed.jpg"}, photo_, OutcomeKind::Done, ""},
    };
    for (const Case& row : cases) {
        const Outcome outcome = judged(row.arguments, row.file);
        EXPECT_EQ(outcome.kind, row.kind) << row.what << ": " << outcome.words;
        EXPECT_EQ(outcome.file, row.file) << row.what;
        if (*row.words == '\0')
            EXPECT_THAT(outcome.words, IsEmpty()) << row.what;
        else
            EXPECT_THAT(outcome.words, HasSubstr(row.words)) << row.what;
        EXPECT_THAT(outcome.words, Not(HasSubstr("image files"))) << row.what;
    }
}

TEST_F(OutcomeJudgeTest, EachOfSeveralFilesGetsTheWordsThatNameItAndThoseThatNameNone) {
    const fs::path likeIt = folder_ / "broken.jpg.jpg";
    const fs::path dash = folder_ / "dash - ";
    fs::create_directories(dash / folder_.path().relative_path());
    const fs::path endsAlike = dash.string() + broken_.string();
    writeBytes(likeIt, "no photo either");
    writeBytes(endsAlike, "nor this");
    writeBytes(likeIt.string() + "_exiftool_tmp", "in the way");
    support::writeJpeg(likeIt);
    const std::vector<fs::path> files{photo_, broken_, endsAlike, likeIt};
    const Said said = run({"-NoTag=x", "-Title=y"}, files);
    const exiftool::ToolAccount account = accountOf(said.output, said.errors);
    EXPECT_EQ(account.counts, (ToolCounts{1, 0, 0, 3}));
    const std::string ofAll = "Warning: Tag 'NoTag' is not defined";
    const std::string notValid = ofAll + "\nError: Not a valid JPG (looks more like a TXT) - ";
    EXPECT_EQ(wordsOfFile(account.words, photo_, files), ofAll);
    EXPECT_EQ(wordsOfFile(account.words, broken_, files), notValid + broken_.string());
    EXPECT_EQ(wordsOfFile(account.words, endsAlike, files), notValid + endsAlike.string());
    EXPECT_EQ(wordsOfFile(account.words, likeIt, files),
              ofAll + "\nError: Temporary file already exists: " + likeIt.string() + "_exiftool_tmp");
}

TEST(OutcomeJudge, AToolThatSaysNothingIsBelievedOnlyWhenItWasToldToBeQuiet) {
    WriteFacts facts = endedWith(0);
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Failed);
    facts.after.changedNanoseconds++;
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Failed) << "touched by whom?";
    facts.wasQuiet = true;
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Done);
    facts.after = facts.before;
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Unchanged);
    facts.child.number = 1;
    EXPECT_EQ(judgeWrite("f", facts), (Outcome{"f", OutcomeKind::Failed, "ExifTool failed"}));
}

TEST(OutcomeJudge, AToolThatSaysToHaveWrittenAFileThatIsAsItWasFailed) {
    WriteFacts facts = endedWith(0);
    facts.account = accountOf("    1 image files updated\n", "Warning: odd - f\n");
    const Outcome outcome = judgeWrite("f", facts);
    EXPECT_EQ(outcome.kind, OutcomeKind::Failed);
    EXPECT_EQ(outcome.words, "Warning: odd - f\nExifTool counts the file as written, but it is as it was");
    facts.after = {};
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Warned) << "it has another name now";
}

TEST(OutcomeJudge, AWriteThatEndedWithAStatusOfFailureIsNotMerelyDone) {
    WriteFacts facts = endedWith(3);
    facts.account = accountOf("    1 image files updated\n", "");
    facts.after.inode++;
    EXPECT_EQ(judgeWrite("f", facts), (Outcome{"f", OutcomeKind::Warned, "ExifTool ended with status 3"}));
}

TEST(OutcomeJudge, ACutRunIsToldAsWhatItWasWhateverItHadSaid) {
    WriteFacts facts = endedWith(0);
    facts.account = accountOf("    1 image files updated\n", "half a word");
    facts.after.inode++;
    facts.child = {ChildOutcome::Kind::Killed, 9, {}};
    EXPECT_EQ(judgeWrite("f", facts),
              (Outcome{"f", OutcomeKind::Killed, "half a word\nExifTool was ended by signal 9"}));
    facts.child = {ChildOutcome::Kind::Stopped, 0, {}};
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::Stopped);
    facts.child = {ChildOutcome::Kind::NotStarted, 2, "tool: not found"};
    EXPECT_EQ(judgeWrite("f", facts).kind, OutcomeKind::NotStarted);
    EXPECT_THAT(judgeWrite("f", facts).words, HasSubstr("tool: not found"));
}

TEST(OutcomeJudge, OnlyWholeLinesOfTheCountCount) {
    struct Case {
        const char* output;
        std::optional<ToolCounts> counts;
    };
    const Case cases[] = {
        {"", std::nullopt},
        {"    1 image files updated", ToolCounts{1, 0, 0, 0}},
        {"    1 image files updated\r\n", ToolCounts{1, 0, 0, 0}},
        {"Title: 1 image files updated\n", std::nullopt},
        {"    1 image files updated by me\n", std::nullopt},
        {"image files updated\n", std::nullopt},
        {"    1 directories scanned\n    3 image files read\n", std::nullopt},
        {"    0 image files updated\n    2 image files unchanged\n    3 files weren't updated due to "
         "errors\n",
         ToolCounts{0, 0, 2, 3}},
    };
    for (const Case& row : cases) EXPECT_EQ(accountOf(row.output, "").counts, row.counts) << row.output;
}

TEST(OutcomeJudge, AFileOfOtherPermissionsIsTouchedAndStillTheSameFile) {
    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    writeBytes(file, "bytes");
    const platform::FileStamp before = platform::stampOf(file);
    EXPECT_TRUE(platform::isUntouched(before, platform::stampOf(file)));
    // The system's clock for files moves in steps.
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    do fs::permissions(file, fs::perms::owner_read);
    while (platform::isUntouched(before, platform::stampOf(file)) && std::chrono::steady_clock::now() < end);
    EXPECT_FALSE(platform::isUntouched(before, platform::stampOf(file)));
    EXPECT_EQ(before, platform::stampOf(file));
}
