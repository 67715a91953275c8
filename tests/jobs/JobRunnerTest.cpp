#include "jobs/JobRunner.h"

#include "exiftool/LineParts.h"
#include "exiftool/ToolConversation.h"
#include "support/EditingContext.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <semaphore>
#include <thread>

using enum exiftool::OutcomeKind;
using exiftool::Outcome;
using exiftool::Outcomes;
using jobs::Job;
using jobs::JobResult;
using jobs::JobRunner;
using jobs::JobWork;
using support::kindsOf;
using support::readBytes;
using support::writeBytes;
using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

/// Far above what anything here takes; whoever waits so long waits for ever.
constexpr std::chrono::seconds kLimit{20};
constexpr int kLimitMilliseconds = 20'000;
constexpr int kMoreThanAnyGrace =
    std::chrono::milliseconds(std::max(exiftool::kStopGrace, JobRunner::kGrace)).count() + 500;

class JobRunnerTest : public testing::Test {
 protected:
    JobRunnerTest() { context_ = support::editingContext(folder_.path()); }
    ~JobRunnerTest() override {
        gate_.release(100);
        runner_.reset();
    }

    std::vector<fs::path> photos(const std::vector<std::string>& names) const {
        std::vector<fs::path> files;
        for (const std::string& name : names) {
            files.push_back(folder_ / "photos" / name);
            support::writeJpeg(files.back());
        }
        return files;
    }

    [[nodiscard]] bool begin(Job job) {
        return runner_->begin(std::move(job), [this](const JobResult& result) { result_ = result; });
    }
    /// Waits, with an event loop as the window has, until all is over.
    JobResult end() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return result_.has_value(); }, kLimitMilliseconds));
        return result_.value_or(JobResult());
    }
    JobResult carryOut(Job job) {
        EXPECT_TRUE(begin(std::move(job)));
        return end();
    }

    /// Every file's work waits at the gate; begun_ counts those that have come to it.
    Job gatedJob(std::vector<fs::path> files) {
        Job job{.title = QStringLiteral("Wait"), .files = std::move(files)};
        job.workOnFile = [this](JobWork&, const fs::path& file) {
            ++begun_;
            const bool isOpen = gate_.try_acquire_for(kLimit);
            return Outcome{file, isOpen ? Done : Failed, {}};
        };
        return job;
    }
    bool waitForBegun(int count) {
        return QTest::qWaitFor([=, this] { return begun_ >= count; }, kLimitMilliseconds);
    }

    static Job titleJob(std::vector<fs::path> files) {
        Job job{.title = QStringLiteral("Title"), .files = std::move(files)};
        job.workOnFile = [](JobWork& work, const fs::path& file) {
            return work.runner.RunOnFile(file,
                                         platform::CommandText("-overwrite_original -XMP-dc:Title=new"));
        };
        return job;
    }
    [[nodiscard]] bool isClosingDuring(Job job) {
        if (!begin(std::move(job)) || !waitForTool()) return false;
        runner_->closeAfterThisFile();
        return true;
    }
    /// ExifTool begins a photo, tells that it runs, and waits until it may go on; by sessions or by a line a
    /// file.
    Job jobThatWaits(const std::vector<fs::path>& files, bool bySessions) {
        context_.settings.exifTool.correctedCommands = bySessions;
        std::string arguments = "-overwrite_original -XMP-dc:Title=waited -if \"do {open(RUNS, '>', '";
        arguments += (folder_ / "runs").string();
        arguments += "'); close(RUNS); select(undef, undef, undef, 0.02) until -e '";
        arguments += (folder_ / "go").string();
        arguments += "'; 1}\"";
        Job job{.title = QStringLiteral("Title"), .files = files};
        job.workOnFile = [terms = platform::CommandText(arguments)](JobWork& work, const fs::path& file) {
            return work.runner.RunOnFile(file, terms);
        };
        job.lineOf = [terms = platform::CommandText(arguments)](const app::AppContext& context,
                                                                app::CommandForm form, const fs::path& file) {
            return exiftool::lineOnFile(context, form, terms, file);
        };
        return job;
    }
    void forgetRun() {
        result_.reset();
        for (const char* name : {"runs", "go"}) fs::remove(folder_ / name);
    }
    static std::string titleOf(const fs::path& file) {
        return support::ExifTool({"-s3", "-XMP-dc:Title", file.string()});
    }
    void useTool(const std::string& script) { support::useTool(context_, folder_ / "tool", script); }
    /// A tool that tells that it runs.
    void useToolThatHangs(const std::string& before = "") {
        useTool(before + ": >'" + (folder_ / "runs").string() + "'\nexec sleep 100\n");
    }
    bool waitForTool() {
        return QTest::qWaitFor([this] { return fs::exists(folder_ / "runs"); }, kLimitMilliseconds);
    }

    support::TemporaryFolder folder_;
    app::AppContext context_;
    std::optional<JobResult> result_;
    std::counting_semaphore<1000> gate_{0};
    std::atomic<int> begun_ = 0;
    std::unique_ptr<JobRunner> runner_ = std::make_unique<JobRunner>(context_);
};

}  // namespace

TEST_F(JobRunnerTest, OutcomesComeInTheOrderOfTheFilesWhateverOrderTheWorkEndedThemIn) {
    Job job{.title = QStringLiteral("All"), .files = {"/a", "/b", "/c", "/b"}};
    job.leftOut = {{"/x", Failed, "unknown"}};
    job.workOnAll = [](JobWork&, const std::vector<fs::path>&) {
        return Outcomes{{"/c", Failed, "third"}, {"/b", Warned, "second"}, {"/b", Done, {}}};
    };
    const JobResult result = carryOut(std::move(job));
    EXPECT_EQ(result.title, QStringLiteral("All"));
    ASSERT_EQ(result.outcomes.size(), 5u);
    EXPECT_EQ(result.outcomes[0], (Outcome{"/a", NotBegun, {}})) << "of which the work has said nothing";
    EXPECT_EQ(result.outcomes[1].file, "/b");
    EXPECT_EQ(result.outcomes[2], (Outcome{"/c", Failed, "third"}));
    EXPECT_EQ(result.outcomes[3].file, "/b");
    EXPECT_EQ(result.outcomes[4], (Outcome{"/x", Failed, "unknown"}));
    EXPECT_FALSE(result.wasStopped);
}

TEST_F(JobRunnerTest, EachFileIsWorkedOnInItsTurnAndTold) {
    QSignalSpy began(runner_.get(), &JobRunner::Began);
    QSignalSpy begun(runner_.get(), &JobRunner::FileBegun);
    QSignalSpy ended(runner_.get(), &JobRunner::JobEnded);
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg", "c.jpg"});
    gate_.release(3);
    const JobResult result = carryOut(gatedJob(files));
    EXPECT_THAT(result.outcomes, ElementsAre(Outcome{files[0], Done, {}}, Outcome{files[1], Done, {}},
                                             Outcome{files[2], Done, {}}));
    ASSERT_EQ(began.size(), 1);
    EXPECT_EQ(began[0][0].toString(), QStringLiteral("Wait"));
    EXPECT_EQ(began[0][1].value<std::size_t>(), 3u);
    ASSERT_GE(begun.size(), 1) << "the first at least, the others not faster than a screen";
    EXPECT_EQ(begun[0][0].value<fs::path>(), files[0]);
    EXPECT_EQ(begun[0][1].value<std::size_t>(), 1u);
    EXPECT_EQ(ended.size(), 1);
    EXPECT_FALSE(runner_->isRunning());
}

TEST_F(JobRunnerTest, AfterAStopNoFurtherFileIsBegun) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
    gate_.release();
    ASSERT_TRUE(begin(gatedJob(files)));
    ASSERT_TRUE(waitForBegun(2));
    runner_->stop();
    EXPECT_TRUE(runner_->isRunning()) << "a stop does not wait";
    gate_.release();
    const JobResult result = end();
    EXPECT_THAT(kindsOf(result.outcomes), ElementsAre(Done, Done, NotBegun, NotBegun));
    EXPECT_EQ(result.outcomes[3].file, files[3]);
    EXPECT_TRUE(result.wasStopped);
    EXPECT_FALSE(result.isClosing);
    EXPECT_EQ(begun_, 2);
}

TEST_F(JobRunnerTest, AStopDuringTheLastFileHasStoppedNothing) {
    ASSERT_TRUE(begin(gatedJob(photos({"a.jpg"}))));
    ASSERT_TRUE(waitForBegun(1));
    runner_->stop();
    gate_.release();
    const JobResult result = end();
    EXPECT_THAT(kindsOf(result.outcomes), ElementsAre(Done));
    EXPECT_FALSE(result.wasStopped);
}

TEST_F(JobRunnerTest, AHangingToolIsEndedByAStop) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    const std::string before = readBytes(files[0]);
    for (const char* onTerminate : {"", "trap '' TERM\n"}) {
        SCOPED_TRACE(onTerminate);
        fs::remove(folder_ / "runs");
        result_.reset();
        useToolThatHangs(onTerminate);
        ASSERT_TRUE(begin(titleJob(files)));
        ASSERT_TRUE(waitForTool());
        runner_->stop();
        const JobResult result = end();
        EXPECT_THAT(kindsOf(result.outcomes), ElementsAre(Stopped, NotBegun));
        EXPECT_TRUE(result.wasStopped);
        for (const fs::path& file : files) EXPECT_EQ(readBytes(file), before);
    }
}

TEST_F(JobRunnerTest, AToolThatEndsWithinItsGraceIsLetEnd) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    const std::string before = readBytes(files[0]);
    useTool(": >'" + (folder_ / "runs").string() + "'\nwhile [ ! -e '" + (folder_ / "go").string() +
            "' ]; do sleep 0.02; done\nfor last; do :; done\necho more >>\"$last\"\n" +
            "echo '    1 image files updated'\n");
    ASSERT_TRUE(begin(titleJob(files)));
    ASSERT_TRUE(waitForTool());
    runner_->stop();
    writeBytes(folder_ / "go", "");
    EXPECT_THAT(kindsOf(end().outcomes), ElementsAre(Done, NotBegun));
    EXPECT_EQ(readBytes(files[0]), before + "more\n");
    EXPECT_EQ(readBytes(files[1]), before);
}

TEST_F(JobRunnerTest, AClosingWindowLetsTheFileInWorkEndOnEveryRoad) {
    for (const bool bySessions : {false, true}) {
        SCOPED_TRACE(bySessions);
        const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
        ASSERT_TRUE(isClosingDuring(jobThatWaits(files, bySessions)));
        // Longer than a cut would give it.
        EXPECT_FALSE(QTest::qWaitFor([this] { return result_.has_value(); }, kMoreThanAnyGrace));
        writeBytes(folder_ / "go", "");
        const JobResult result = end();
        EXPECT_THAT(kindsOf(result.outcomes), ElementsAre(Done, NotBegun));
        EXPECT_TRUE(result.isClosing);
        EXPECT_EQ(titleOf(files[0]), "waited\n");
        EXPECT_EQ(titleOf(files[1]), "");
        forgetRun();
    }
}

TEST_F(JobRunnerTest, AStopCutsWhatAClosingWindowWaitsForOnEveryRoad) {
    for (const bool bySessions : {false, true}) {
        SCOPED_TRACE(bySessions);
        const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
        ASSERT_TRUE(isClosingDuring(jobThatWaits(files, bySessions)));
        runner_->stop();
        EXPECT_THAT(kindsOf(end().outcomes), ElementsAre(Stopped, NotBegun));
        EXPECT_EQ(titleOf(files[0]), "");
        forgetRun();
    }
}

TEST_F(JobRunnerTest, OneJobAtATime) {
    const std::vector<fs::path> files = photos({"a.jpg"});
    ASSERT_TRUE(begin(gatedJob(files)));
    bool hasEnded = false;
    EXPECT_FALSE(runner_->begin(gatedJob(files), [&](const JobResult&) { hasEnded = true; }));
    gate_.release();
    EXPECT_EQ(end().outcomes.size(), 1u);
    EXPECT_EQ(begun_, 1);
    EXPECT_FALSE(hasEnded);
    EXPECT_FALSE(begin({.title = QStringLiteral("Nothing")})) << "a job without files";
    result_.reset();
    gate_.release();
    EXPECT_THAT(kindsOf(carryOut(gatedJob(files)).outcomes), ElementsAre(Done)) << "the next may begin";
}

TEST_F(JobRunnerTest, TheNextJobMayBeginWhenTheEndOfTheLastIsTold) {
    const std::vector<fs::path> files = photos({"a.jpg"});
    gate_.release(2);
    bool hasBegun = false;
    ASSERT_TRUE(
        runner_->begin(gatedJob(files), [&](const JobResult&) { hasBegun = begin(gatedJob(files)); }));
    EXPECT_THAT(kindsOf(end().outcomes), ElementsAre(Done));
    EXPECT_TRUE(hasBegun);
    EXPECT_EQ(begun_, 2);
}

TEST_F(JobRunnerTest, TheWindowsThreadStaysFree) {
    constexpr int kTicks = 25;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        // The work waits for these: it ends only if the ticks come while it runs.
        if (++ticks == kTicks) gate_.release();
    });
    timer.start(1);
    EXPECT_THAT(kindsOf(carryOut(gatedJob(photos({"a.jpg"}))).outcomes), ElementsAre(Done));
    EXPECT_GE(ticks, kTicks);
}

TEST_F(JobRunnerTest, WhatTheUserSetsMeanwhileDoesNotReachTheJob) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    std::vector<app::AppContext> seen;
    std::vector<std::uint8_t> copies;
    Job job{.title = QStringLiteral("See"), .files = files};
    job.workOnFile = [&](JobWork& work, const fs::path& file) {
        ++begun_;
        const bool isOpen = gate_.try_acquire_for(kLimit);
        seen.push_back(work.context);
        EXPECT_EQ(work.form, app::CommandForm::Corrected);
        copies.push_back(work.runner.safetyCopies().SafetyCopyEnabled);
        return Outcome{file, isOpen ? Done : Failed, {}};
    };
    ASSERT_TRUE(begin(std::move(job)));
    ASSERT_TRUE(waitForBegun(1));
    const app::AppContext before = context_;
    context_.settings.exifTool.correctedCommands = false;
    context_.settings.exifTool.dataLanguage += 1;
    context_.exifToolPath = "/another";
    context_.reportFile = "/another/report";
    context_.tempPath = folder_ / "another";
    exiftool::SafetyCopies none;
    none.SafetyCopyEnabled = 0;
    runner_->setSafetyCopies(none);
    gate_.release(2);
    EXPECT_TRUE(exiftool::isEveryFileDone(end().outcomes));
    ASSERT_EQ(seen.size(), 2u);
    for (const app::AppContext& one : seen) {
        EXPECT_TRUE(one.settings.exifTool.correctedCommands);
        EXPECT_EQ(one.settings.exifTool.dataLanguage, before.settings.exifTool.dataLanguage);
        EXPECT_EQ(one.exifToolPath, before.exifToolPath);
        EXPECT_EQ(one.reportFile, before.reportFile);
        EXPECT_EQ(one.tempPath.parent_path(), before.tempPath) << "a folder of its own in it";
    }
    EXPECT_THAT(copies, ElementsAre(1, 1));
    EXPECT_TRUE(fs::is_empty(before.tempPath)) << "nothing is left there";
}

TEST_F(JobRunnerTest, OnlyTheFilesThatAreStillToEndAreInWork) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg", "c.jpg"});
    EXPECT_FALSE(runner_->isWorkingOn(files[0]));
    gate_.release();
    ASSERT_TRUE(begin(gatedJob(files)));
    ASSERT_TRUE(waitForBegun(2));
    EXPECT_FALSE(runner_->isWorkingOn(files[0]));
    EXPECT_TRUE(runner_->isWorkingOn(files[1]));
    EXPECT_TRUE(runner_->isWorkingOn(files[2]));
    EXPECT_FALSE(runner_->isWorkingOn("/another.jpg"));
    gate_.release(2);
    end();
    EXPECT_FALSE(runner_->isWorkingOn(files[2]));
}

TEST_F(JobRunnerTest, AFailedSafetyCopyIsToldOnTheWindowsThreadAndInTheOutcome) {
    const std::vector<fs::path> files = photos({"a.jpg"});
    context_.settings.exifTool.correctedCommands = false;
    writeBytes(context_.cachePath / "sav", "a file in the folder's place");
    QSignalSpy failed(runner_.get(), &JobRunner::SafetyCopyFailed);
    const JobResult result = carryOut(titleJob(files));
    EXPECT_THAT(kindsOf(result.outcomes), ElementsAre(Warned));
    EXPECT_THAT(result.outcomes[0].words, HasSubstr("CopyFile failed"));
    EXPECT_EQ(failed.size(), 1);
    result_.reset();
    Job without = titleJob(files);
    without.makesSafetyCopies = false;
    carryOut(std::move(without));
    EXPECT_EQ(failed.size(), 1) << "none is tried";
}

TEST_F(JobRunnerTest, BeforeAFileIsWrittenWithoutASafetyCopyTheUserIsAsked) {
    using Answer = JobRunner::Answer;
    writeBytes(context_.cachePath / "sav", "a file in the folder's place");
    const struct {
        std::vector<Answer> answers;
        std::vector<exiftool::OutcomeKind> kinds;
    } cases[] = {
        {{Answer::Yes, Answer::No, Answer::Yes}, {Warned, Failed, Warned}},
        {{Answer::YesToAll}, {Warned, Warned, Warned}},
        {{Answer::No, Answer::NoToAll}, {Failed, Failed, Failed}},
        {{}, {Failed, Failed, Failed}},
    };
    for (const bool bySessions : {false, true}) {
        for (const auto& row : cases) {
            const std::vector<fs::path> files = photos({"a.jpg", "b.jpg", "c.jpg"});
            const std::string before = readBytes(files[0]);
            std::size_t asked = 0;
            if (row.answers.empty())
                runner_->setQuestion({});
            else
                runner_->setQuestion([&](const QString& question) {
                    EXPECT_EQ(QThread::currentThread(), qApp->thread());
                    EXPECT_THAT(question.toStdString(), HasSubstr(files[asked].string()));
                    return row.answers.at(asked++);
                });
            Job job = titleJob(files);
            if (bySessions)
                job.lineOf = [](const app::AppContext& context, app::CommandForm form, const fs::path& file) {
                    return exiftool::lineOnFile(
                        context, form, platform::CommandText("-overwrite_original -XMP-dc:Title=new"), file);
                };
            result_.reset();
            const JobResult result = carryOut(std::move(job));
            EXPECT_EQ(kindsOf(result.outcomes), row.kinds);
            EXPECT_EQ(asked, row.answers.size());
            for (std::size_t at = 0; at < files.size(); ++at)
                EXPECT_EQ(readBytes(files[at]) == before, row.kinds[at] == Failed);
        }
    }
    // Who ends the program answers nothing any more.
    runner_->setQuestion([](const QString&) { return Answer::Yes; });
    EXPECT_TRUE(begin(titleJob(photos({"a.jpg"}))));
    result_.reset();
    runner_->waitForEnd();
    ASSERT_TRUE(result_.has_value());
    EXPECT_THAT(kindsOf(result_->outcomes), ElementsAre(Failed));
}

TEST_F(JobRunnerTest, NoStandInPassesForTheTool) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    const auto before = support::bytesBelow(folder_ / "photos");
    for (const support::ToolStandIn& standIn : support::kToolStandIns) {
        if (standIn.hangs) continue;
        SCOPED_TRACE(standIn.what);
        useTool(standIn.script);
        result_.reset();
        EXPECT_THAT(kindsOf(carryOut(titleJob(files)).outcomes), ElementsAre(standIn.kind, standIn.kind));
        EXPECT_TRUE(support::bytesBelow(folder_ / "photos") == before);
    }
}

TEST_F(JobRunnerTest, WaitingForTheEndDeliversItAtOnce) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    ASSERT_TRUE(begin(gatedJob(files)));
    gate_.release(2);
    runner_->waitForEnd();
    ASSERT_TRUE(result_);
    EXPECT_THAT(kindsOf(result_->outcomes), ElementsAre(Done, Done));
    EXPECT_FALSE(runner_->isRunning());
    // The end that was under way meanwhile is not told again.
    int ended = 0;
    QObject::connect(runner_.get(), &JobRunner::JobEnded, runner_.get(), [&](const JobResult&) { ++ended; });
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(ended, 0);
}

TEST_F(JobRunnerTest, ARunnerThatGoesEndsItsTool) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg"});
    const std::string before = readBytes(files[0]);
    useToolThatHangs();
    ASSERT_TRUE(begin(titleJob(files)));
    ASSERT_TRUE(waitForTool());
    runner_.reset();
    EXPECT_FALSE(result_) << "nobody is told any more";
    for (const fs::path& file : files) EXPECT_EQ(readBytes(file), before);
}

TEST_F(JobRunnerTest, AJobOfWhichAllFilesWereLeftOutTellsThem) {
    Job job{.title = QStringLiteral("Nothing")};
    job.leftOut = {{"/x", Failed, "unknown"}};
    EXPECT_THAT(carryOut(std::move(job)).outcomes, ElementsAre(Outcome{"/x", Failed, "unknown"}));
}

TEST_F(JobRunnerTest, WhatIsTheSameForAllFilesStartsTheToolOnceAProcessorInTheCorrectedForm) {
    const std::vector<fs::path> files = photos({"a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg", "f.jpg"});
    const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
    useTool("echo >>'" + (folder_ / "starts").string() + "'\nexec exiftool \"$@\"\n");
    for (const bool corrected : {true, false}) {
        SCOPED_TRACE(corrected);
        context_.settings.exifTool.correctedCommands = corrected;
        std::error_code error;
        fs::remove(folder_ / "starts", error);
        result_.reset();
        const platform::CommandText arguments(corrected ? "-overwrite_original -XMP-dc:Title=once"
                                                        : "-overwrite_original -XMP-dc:Title=each");
        Job job{.title = QStringLiteral("Title"), .files = files};
        job.workOnFile = [arguments](JobWork& work, const fs::path& file) {
            return work.runner.RunOnFile(file, arguments);
        };
        job.lineOf = [arguments](const app::AppContext& context, app::CommandForm form,
                                 const fs::path& file) {
            return exiftool::lineOnFile(context, form, arguments, file);
        };
        EXPECT_TRUE(exiftool::isEveryFileDone(carryOut(std::move(job)).outcomes));
        for (const fs::path& file : files)
            EXPECT_EQ(support::ExifTool({"-s3", "-XMP-dc:Title", file.string()}),
                      corrected ? "once\n" : "each\n");
        const std::size_t starts = readBytes(folder_ / "starts").size();
        if (corrected) {
            EXPECT_LE(starts, std::min(processors, files.size()));
        } else {
            EXPECT_EQ(starts, files.size());
        }
    }
}

TEST_F(JobRunnerTest, TheNewNamesOfWhatTheWorkHasRenamedAreTold) {
    const std::vector<fs::path> files = photos({"renamed.jpg", "written.jpg", "removed.jpg"});
    Job job{.title = QStringLiteral("Rename"), .files = files};
    job.workOnFile = [](JobWork&, const fs::path& file) {
        if (file.filename() == "renamed.jpg") fs::rename(file, file.parent_path() / "new.jpg");
        if (file.filename() == "removed.jpg") fs::remove(file);
        // As a tool does that writes a file anew in its place.
        if (file.filename() == "written.jpg") {
            fs::copy_file(file, file.parent_path() / "scratch");
            fs::rename(file.parent_path() / "scratch", file);
        }
        return Outcome{file, Done, {}};
    };
    EXPECT_EQ(carryOut(std::move(job)).newNames,
              (jobs::NewNames{{files[0], files[0].parent_path() / "new.jpg"}}));
}
