#include "exiftool/WriteSessions.h"

#include "exiftool/OutcomePrinting.h"
#include "exiftool/ToolConversation.h"
#include "support/ManyFormats.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <set>
#include <thread>

using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using exiftool::WriteEvents;
using exiftool::WriteRequest;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::Each;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

namespace fs = std::filesystem;

namespace {

constexpr const char* kTool = "/usr/bin/exiftool";
const fs::path kSamples = TAGWRIGHT_BIN_DIR "/samples";

/// Ends or stops ExifTool at the files of that name, by an expression of its own.
const std::string kDeadly = "$FileName !~ /deadly/ or kill(9, readlink('/proc/self'))";
const std::string kDeadlyInTheMiddle =
    "$FileName !~ /deadly/ or (open(HALF, '>', \"$Directory/$FileName\" . '_exiftool_tmp') and"
    " kill(9, readlink('/proc/self')))";
const std::string kHanging = "$FileName !~ /hanging/ or sleep(1000)";

testing::Matcher<Outcome> isOfKind(OutcomeKind kind) {
    return Field("kind", &Outcome::kind, kind);
}

class WriteSessionsTest : public testing::Test {
 protected:
    void SetUp() override {
        request_.exifTool = kTool;
        request_.arguments = {"-overwrite_original", "-Title=written"};
    }

    fs::path addPhoto(std::string_view name) {
        const fs::path file = folder_ / name;
        support::writeJpeg(file);
        request_.files.push_back(file);
        return file;
    }

    void addPhotos(int count) {
        for (int i = 0; i < count; ++i) addPhoto(std::to_string(100 + i) + ".jpg");
    }

    /// A stand-in in the place of the tool.
    void useScript(const std::string& script) {
        request_.exifTool = folder_ / "tool";
        writeBytes(request_.exifTool, "#!/bin/sh\n" + script);
        fs::permissions(request_.exifTool, fs::perms::owner_all);
    }

    /// The real tool, whose starts are counted.
    void countStarts() { useScript("echo >>'" + starts_.string() + "'; exec " + kTool + " \"$@\""); }
    std::size_t starts() const { return fs::exists(starts_) ? fs::file_size(starts_) : 0; }

    Outcomes write(const WriteEvents& events = {}) {
        return exiftool::writeFiles(request_, {stop_.get_token(), cut_.get_token()}, events);
    }

    static std::string titleOf(const fs::path& file) {
        return support::ExifTool({"-s3", "-Title", file.string()});
    }

    TemporaryFolder folder_;
    fs::path starts_ = folder_ / "starts";
    WriteRequest request_;
    std::stop_source stop_;
    std::stop_source cut_;
};

/// Small files of the formats that can be made here, and all samples at hand.
std::vector<fs::path> filesOfManyFormats(const fs::path& folder) {
    support::makeFilesOfManyFormats(folder);
    for (const std::vector<fs::path>& samples : {support::filesIn(kSamples), support::addedSamples()})
        for (const fs::path& file : samples)
            fs::copy_file(file, folder / file.filename(), fs::copy_options::skip_existing);
    std::vector<fs::path> files = support::filesIn(folder);
    for (const fs::path& file : files) fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    return files;
}

}  // namespace

TEST_F(WriteSessionsTest, FilesOfEveryFormatAreByteForByteThoseOfRunsOfTheirOwn) {
    const std::vector<std::vector<std::string>> operations{
        {"-P", "-overwrite_original", "-m", "-Title=A title", "-Keywords=one", "-Keywords=two",
         "-XMP:Rating=3", "-Artist=Somebody", "-XMP-dc:Description-de=Zeile 1\nZeile 2"},
        {"-overwrite_original", "-all=", "-Adobe:All=", "-Quicktime:All="},
    };
    fs::create_directories(folder_ / "master");
    const std::vector<fs::path> masters = filesOfManyFormats(folder_ / "master");
    countStarts();
    request_.sessionLimit = 2;
    for (const auto& operation : operations) {
        request_.arguments = operation;
        request_.files.clear();
        std::vector<fs::path> alone;
        for (const char* name : {"alone", "together"}) {
            fs::remove_all(folder_ / name);
            fs::create_directories(folder_ / name);
        }
        for (const fs::path& master : masters) {
            alone.push_back(folder_ / "alone" / master.filename());
            request_.files.push_back(folder_ / "together" / master.filename());
            fs::copy_file(master, alone.back());
            fs::copy_file(master, request_.files.back());
        }
        fs::remove(starts_);
        const Outcomes outcomes = write();
        EXPECT_LE(starts(), 2U) << "a session each, not a run a file";
        std::set<std::string> written;
        for (std::size_t i = 0; i < masters.size(); ++i) {
            std::vector<std::string> words = operation;
            words.push_back(alone[i].string());
            const std::string said = support::ExifTool(words);
            EXPECT_EQ(readBytes(request_.files[i]), readBytes(alone[i])) << masters[i];
            EXPECT_EQ(outcomes[i].file, request_.files[i]);
            EXPECT_EQ(isWritten(outcomes[i].kind), said.find("1 image files updated") != std::string::npos)
                << said << testing::PrintToString(outcomes[i]);
            EXPECT_EQ(outcomes[i].kind == OutcomeKind::Unchanged,
                      said.find("1 image files unchanged") != std::string::npos)
                << said << testing::PrintToString(outcomes[i]);
            if (isWritten(outcomes[i].kind)) written.insert(masters[i].extension().string());
        }
        // What holds nothing has nothing to be taken away.
        if (operation != operations.front()) continue;
        for (const char* format : support::kWritableFormats) EXPECT_TRUE(written.contains(format)) << format;
    }
}

TEST_F(WriteSessionsTest, EachFileIsBegunAndEndedOnceAndCopiedBeforeItIsTouched) {
    addPhotos(70);
    std::mutex guard;
    std::multiset<fs::path> begun;
    std::multiset<fs::path> ended;
    std::multiset<fs::path> copied;
    std::atomic<int> touchedTooEarly = 0;
    const std::string untouched = readBytes(request_.files.front());
    request_.beforeFile = [&](const fs::path& file) {
        if (readBytes(file) != untouched) ++touchedTooEarly;
        const std::lock_guard lock(guard);
        copied.insert(file);
        exiftool::Prepared prepared;
        if (file.filename() == "103.jpg") prepared.words = "no copy";
        return prepared;
    };
    WriteEvents events;
    events.fileBegun = [&](const fs::path& file) { begun.insert(file); };
    events.fileEnded = [&](const Outcome& outcome) { ended.insert(outcome.file); };
    Outcomes outcomes = write(events);
    const std::multiset<fs::path> all(request_.files.begin(), request_.files.end());
    EXPECT_EQ(begun, all);
    EXPECT_EQ(ended, all);
    EXPECT_EQ(copied, all);
    EXPECT_EQ(touchedTooEarly, 0);
    EXPECT_EQ(outcomes[3], (Outcome{request_.files[3], OutcomeKind::Warned, "no copy"}));
    outcomes.erase(outcomes.begin() + 3);
    EXPECT_TRUE(isEveryFileDone(outcomes)) << testing::PrintToString(outcomes);
    EXPECT_EQ(titleOf(request_.files.back()), "written\n");
}

TEST_F(WriteSessionsTest, EveryNameReachesTheToolWhole) {
    countStarts();
    for (const std::string& name : support::hostileNames()) addPhoto(name);
    addPhoto("return at the end.jpg\r");
    const Outcomes outcomes = write();
    EXPECT_THAT(outcomes, Each(isOfKind(OutcomeKind::Done)));
    for (const fs::path& file : request_.files) EXPECT_EQ(titleOf(file), "written\n") << file;
    EXPECT_EQ(starts(), 3U) << "one session, and two names that cannot stand on a line";
}

TEST_F(WriteSessionsTest, ValuesThatCannotStandOnALineArriveAllTheSame) {
    countStarts();
    addPhotos(3);
    request_.arguments = {"-overwrite_original", "-XMP-dc:Title= first\nsecond \\n \"third\""};
    EXPECT_TRUE(isEveryFileDone(write()));
    EXPECT_EQ(starts(), 1U);
    EXPECT_EQ(support::ExifTool({"-b", "-XMP-dc:Title", request_.files[1].string()}),
              " first\nsecond \\n \"third\"");
    request_.arguments = {"-overwrite_original", "-XMP-dc:Title=costs\n$5"};
    EXPECT_TRUE(isEveryFileDone(write()));
    EXPECT_EQ(starts(), 4U) << "no line carries this one";
    EXPECT_EQ(support::ExifTool({"-b", "-XMP-dc:Title", request_.files[1].string()}), "costs\n$5");
}

TEST_F(WriteSessionsTest, EachFileOfABatchHasAnOutcomeAndWordsOfItsOwn) {
    addPhotos(3);
    writeBytes(request_.files[1], "no photo at all");
    request_.files.push_back(folder_ / "missing.jpg");
    request_.arguments = {"-overwrite_original", "-if", "$FileName !~ /102/", "-Title=x"};
    Outcomes outcomes = write();
    EXPECT_EQ(outcomes[0], (Outcome{request_.files[0], OutcomeKind::Done, ""}));
    EXPECT_EQ(outcomes[1].kind, OutcomeKind::Failed);
    EXPECT_EQ(outcomes[1].words,
              "Error: Not a valid JPG (looks more like a TXT) - " + request_.files[1].string());
    EXPECT_EQ(outcomes[2].kind, OutcomeKind::Unchanged) << "it did not meet the condition";
    EXPECT_EQ(outcomes[3].kind, OutcomeKind::Failed);
    EXPECT_THAT(outcomes[3].words, HasSubstr("File not found"));
    request_.arguments = {"-q", "-overwrite_original", "-NoTag=1", "-Title=y"};
    outcomes = write();
    EXPECT_EQ(outcomes[0].kind, OutcomeKind::Warned);
    EXPECT_THAT(outcomes[0].words, HasSubstr("'NoTag' is not defined"));
    EXPECT_EQ(outcomes[1].kind, OutcomeKind::Failed) << "also when the tool does not count";
    request_.arguments = {"-overwrite_original", "-NoTag=1"};
    EXPECT_THAT(write(), Each(isOfKind(OutcomeKind::Failed)));
}

TEST_F(WriteSessionsTest, AFileThatIsListedTwiceIsWrittenTwiceOneAfterTheOther) {
    addPhotos(20);
    request_.files.push_back(request_.files[0]);
    fs::create_hard_link(request_.files[1], folder_ / "linked.jpg");
    request_.files.push_back(folder_ / "linked.jpg");
    request_.arguments = {"-overwrite_original", "-Keywords+=again"};
    EXPECT_TRUE(isEveryFileDone(write()));
    EXPECT_EQ(support::ExifTool({"-s3", "-Keywords", request_.files[0].string()}), "again, again\n");
    EXPECT_EQ(support::ExifTool({"-s3", "-Keywords", request_.files[1].string()}), "again, again\n")
        << "both names lead to one file";
    EXPECT_EQ(support::ExifTool({"-s3", "-Keywords", (folder_ / "linked.jpg").string()}), "again, again\n");
}

TEST_F(WriteSessionsTest, NamesAreGivenOneAfterTheOtherSoThatNoFileIsLost) {
    addPhotos(40);
    countStarts();
    request_.arguments = {"-FileName=same%-c.jpg"};
    EXPECT_TRUE(isEveryFileDone(write()));
    EXPECT_EQ(starts(), 1U);
    std::size_t photos = 0;
    for (const auto& entry : fs::directory_iterator(folder_.path()))
        photos += entry.path().filename().native().starts_with("same") ? 1 : 0;
    EXPECT_EQ(photos, 40U);
}

TEST_F(WriteSessionsTest, AKilledSessionLosesTheFileInWorkAndANewOneTakesTheRest) {
    for (const std::string& expression : {kDeadly, kDeadlyInTheMiddle}) {
        request_.files.clear();
        addPhotos(40);
        const fs::path deadly = addPhoto("deadly.jpg");
        std::rotate(request_.files.begin() + 5, request_.files.end() - 1, request_.files.end());
        countStarts();
        fs::remove(starts_);
        request_.sessionLimit = 1;
        request_.arguments = {"-overwrite_original", "-if", expression, "-Title=written"};
        const Outcomes outcomes = write();
        ASSERT_EQ(outcomes[5].file, deadly);
        EXPECT_EQ(outcomes[5].kind, OutcomeKind::Killed);
        EXPECT_THAT(outcomes[5].words, HasSubstr("signal 9"));
        EXPECT_EQ(countOf(outcomes, OutcomeKind::Done), 40U) << testing::PrintToString(outcomes);
        EXPECT_EQ(starts(), 2U);
        EXPECT_EQ(titleOf(deadly), "");
        EXPECT_FALSE(fs::exists(deadly.string() + "_exiftool_tmp")) << "would bar every later write";
    }
}

TEST_F(WriteSessionsTest, SessionsThatDieWithoutHavingDoneAFileAreNotStartedForEver) {
    addPhotos(40);
    request_.sessionLimit = 1;
    struct Case {
        const char* script;
        OutcomeKind kind;
        const char* words;
    };
    const Case cases[] = {
        {"kill -9 $$", OutcomeKind::Killed, "signal 9"},
        {"echo no such library >&2; exit 3", OutcomeKind::Failed, "no such library"},
        {"exit 0", OutcomeKind::Failed, "gave no account"},
    };
    for (const Case& row : cases) {
        useScript(row.script);
        const Outcomes outcomes = write();
        EXPECT_EQ(outcomes[0].kind, row.kind) << row.script;
        EXPECT_THAT(outcomes[0].words, HasSubstr(row.words));
        EXPECT_GE(countOf(outcomes, row.kind), 5U) << row.script;
        EXPECT_LE(countOf(outcomes, row.kind), 6U) << row.script;
        EXPECT_EQ(countOf(outcomes, row.kind) + countOf(outcomes, OutcomeKind::NotBegun), 40U);
    }
}

TEST_F(WriteSessionsTest, AToolThatAnswersWithoutACountHasWrittenNothingToRelyOn) {
    addPhotos(20);
    useScript(R"(while read -r line; do
    case "$line" in
        =end*) token=${line%% *};;
        -execute1) echo "$token"; echo "{ready1}"; echo "$token 0" >&2;;
        -stay_open) exit 0;;
    esac
done)");
    EXPECT_THAT(write(), Each(isOfKind(OutcomeKind::Failed)));
    request_.arguments.emplace_back("-q");
    EXPECT_THAT(write(), Each(isOfKind(OutcomeKind::Failed)))
        << "the files are as they were and nowhere named";
}

TEST_F(WriteSessionsTest, AMissingToolIsToldForEveryFile) {
    addPhotos(20);
    request_.exifTool = folder_ / "no such tool";
    bool isCopied = false;
    request_.beforeFile = [&](const fs::path&) {
        isCopied = true;
        return exiftool::Prepared();
    };
    const Outcomes outcomes = write();
    EXPECT_THAT(outcomes, Each(isOfKind(OutcomeKind::NotStarted)));
    EXPECT_THAT(outcomes[7].words, HasSubstr("no such tool"));
    EXPECT_FALSE(isCopied);
}

TEST_F(WriteSessionsTest, ACutEndsAHangingSessionAndBeginsNoOtherFile) {
    addPhotos(60);
    const fs::path hanging = addPhoto("hanging.jpg");
    std::rotate(request_.files.begin() + 2, request_.files.end() - 1, request_.files.end());
    request_.sessionLimit = 1;
    request_.arguments = {"-overwrite_original", "-if", kHanging, "-Title=written"};
    std::chrono::steady_clock::time_point stopped;
    // The stop comes when the tool hangs, which the file before it tells.
    const std::jthread stopper([&] {
        const auto end = std::chrono::steady_clock::now() + 20s;
        const std::uintmax_t size = fs::file_size(request_.files[1]);
        std::error_code error;
        while (fs::file_size(request_.files[1], error) == size && std::chrono::steady_clock::now() < end)
            std::this_thread::yield();
        stopped = std::chrono::steady_clock::now();
        cut_.request_stop();
    });
    const Outcomes outcomes = write();
    EXPECT_LT(std::chrono::steady_clock::now() - stopped, exiftool::kStopGrace + 3s);
    EXPECT_EQ(outcomes[2].kind, OutcomeKind::Stopped);
    EXPECT_EQ(outcomes[0].kind, OutcomeKind::Done);
    EXPECT_EQ(outcomes[1].kind, OutcomeKind::Done);
    EXPECT_EQ(countOf(outcomes, OutcomeKind::NotBegun), 58U) << testing::PrintToString(outcomes);
    EXPECT_EQ(titleOf(request_.files[40]), "");
}

TEST_F(WriteSessionsTest, AStopLetsFilesInHandBeFinished) {
    addPhotos(200);
    WriteEvents events;
    events.fileEnded = [&](const Outcome&) { stop_.request_stop(); };
    const Outcomes outcomes = write(events);
    EXPECT_GT(countOf(outcomes, OutcomeKind::NotBegun), 100U);
    for (const Outcome& outcome : outcomes) {
        EXPECT_EQ(titleOf(outcome.file) == "written\n", outcome.kind == OutcomeKind::Done) << outcome.file;
        if (outcome.kind != OutcomeKind::Done) {
            EXPECT_EQ(outcome.kind, OutcomeKind::NotBegun);
            break;
        }
    }
}

TEST_F(WriteSessionsTest, NoFilesAreNoOutcomes) {
    EXPECT_THAT(write(), IsEmpty());
}
