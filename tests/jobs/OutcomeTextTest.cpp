#include "jobs/OutcomeText.h"

#include "support/ToolStandIns.h"

#include <gmock/gmock.h>

using enum exiftool::OutcomeKind;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using jobs::JobResult;
using jobs::Verdict;
using testing::HasSubstr;
using testing::Not;

namespace {

class OutcomeTextTest : public testing::Test {
 protected:
    static JobResult resultOf(std::vector<OutcomeKind> kinds) {
        JobResult result;
        for (const OutcomeKind kind : kinds) {
            const std::string name = "/photos/" + std::to_string(result.outcomes.size()) + ".jpg";
            result.outcomes.push_back({name, kind, {}});
        }
        return result;
    }

    const app::LanguageFile english_{TAGWRIGHT_BIN_DIR, 9};
};

constexpr OutcomeKind kBad[] = {Warned, Failed, Killed, Stopped, NotStarted, NotBegun};

}  // namespace

TEST_F(OutcomeTextTest, OnlyAJobOfWhichEveryFileIsDoneIsASuccess) {
    EXPECT_EQ(jobs::verdictOf(resultOf({})), Verdict::Nothing);
    EXPECT_EQ(jobs::verdictOf(resultOf({Done, Done})), Verdict::Done);
    EXPECT_EQ(jobs::verdictOf(resultOf({Done, Unchanged})), Verdict::Unchanged);
    EXPECT_EQ(jobs::verdictOf(resultOf({Unchanged})), Verdict::Unchanged);
    for (const OutcomeKind bad : kBad) {
        EXPECT_EQ(jobs::verdictOf(resultOf({Done, bad})), Verdict::Told);
        EXPECT_EQ(jobs::verdictOf(resultOf({bad, Done})), Verdict::Told);
        EXPECT_EQ(jobs::verdictOf(resultOf({Unchanged, bad})), Verdict::Told);
    }
}

TEST_F(OutcomeTextTest, WhatAnOperationShowsItselfHidesNothingThatWentWrong) {
    for (const bool showsItsOwn : {true, false}) {
        EXPECT_EQ(jobs::isReportDue(resultOf({Done, Unchanged}), showsItsOwn), !showsItsOwn);
        for (const OutcomeKind bad : kBad)
            EXPECT_TRUE(jobs::isReportDue(resultOf({Done, bad}), showsItsOwn)) << int(bad);
    }
    for (const OutcomeKind none : {Failed, Killed, Stopped, NotStarted, NotBegun})
        EXPECT_FALSE(jobs::hasBroughtAnything(resultOf({none, none}))) << int(none);
    for (const OutcomeKind some : {Done, Unchanged, Warned})
        EXPECT_TRUE(jobs::hasBroughtAnything(resultOf({Failed, some}))) << int(some);
}

TEST_F(OutcomeTextTest, EachKindIsCountedUnderAWordOfItsOwn) {
    ASSERT_TRUE(english_.valid());
    std::vector<QString> told;
    std::vector<OutcomeKind> all = {Done, Unchanged};
    all.insert(all.end(), std::begin(kBad), std::end(kBad));
    for (const OutcomeKind kind : all) {
        const QString one = jobs::summaryOf(english_, resultOf({kind, kind, kind}));
        EXPECT_THAT(one.toStdString(), HasSubstr("3"));
        EXPECT_EQ(std::ranges::find(told, one), told.end()) << one.toStdString();
        told.push_back(one);
        EXPECT_NE(jobs::wordsOf(english_, {"/a.jpg", kind, {}}), QString());
        EXPECT_EQ(jobs::wordsOf(english_, {"/a.jpg", kind, "its own"}), QStringLiteral("its own"));
    }
    const QString whole = jobs::summaryOf(english_, resultOf(all));
    EXPECT_EQ(whole.split(QStringLiteral(", ")).size(), std::ssize(all));
    EXPECT_EQ(jobs::summaryOf(english_, resultOf({})), QString());
    EXPECT_EQ(jobs::summaryOf(english_, resultOf({Done, Failed, Done, Failed, Failed})),
              QStringLiteral("2 files changed, 3 refused"));
}

TEST_F(OutcomeTextTest, TheReportNamesEveryFileThatDidNotGoWell) {
    for (const OutcomeKind bad : kBad) {
        if (bad == NotBegun) continue;
        JobResult result = resultOf({Done, bad, Unchanged});
        for (const char* words : {"", "disk full"}) {
            result.outcomes[1].words = words;
            const std::string report = jobs::reportOf(english_, result);
            EXPECT_THAT(report, HasSubstr("/photos/1.jpg"));
            EXPECT_THAT(report, HasSubstr(words));
            EXPECT_EQ(report.find("The file was changed") != std::string::npos, bad == Warned) << int(bad);
            EXPECT_THAT(report, Not(HasSubstr("0.jpg")));
            EXPECT_THAT(report, Not(HasSubstr("2.jpg")));
        }
    }
    JobResult read = resultOf({Warned});
    read.outcomes[0].words = "Warning: cut";
    read.changes = jobs::Changes::Nothing;
    EXPECT_THAT(jobs::reportOf(english_, read), Not(HasSubstr("The file was changed"))) << "it was read";
    JobResult twice = resultOf({Failed});
    twice.outcomes[0].words = "Error: broken - /photos/0.jpg";
    const std::string report = jobs::reportOf(english_, twice);
    EXPECT_EQ(report.find("0.jpg"), report.rfind("0.jpg")) << "who names the file needs no name";
}

TEST_F(OutcomeTextTest, HowManyFilesWereLeftIsSaidWithTheReason) {
    JobResult result = resultOf({Done, Stopped, NotBegun, NotBegun});
    result.wasStopped = true;
    EXPECT_EQ(jobs::filesLeftLine(result), "Warning: Stopped - 2 files were not begun\n");
    EXPECT_THAT(jobs::reportOf(english_, result), HasSubstr("2 files were not begun"));
    result.isClosing = true;
    EXPECT_EQ(jobs::filesLeftLine(result), "Warning: The window was closed - 2 files were not begun\n");
    JobResult early = resultOf({Done, NotBegun});
    early.wasStopped = false;
    early.outcomes.back().words = "The tool is gone";
    EXPECT_EQ(jobs::filesLeftLine(early), "Warning: The tool is gone - 1 file was not begun\n");
    early.outcomes.back().words.clear();
    EXPECT_THAT(jobs::filesLeftLine(early), Not(HasSubstr("Stopped"))) << "nobody stopped it";
    EXPECT_EQ(jobs::filesLeftLine(resultOf({Done, Failed})), "");
}
