#include "exiftool/WriteBatch.h"

#include "exiftool/OutcomePrinting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using exiftool::BatchAnswer;
using exiftool::BatchFile;
using exiftool::Outcome;
using exiftool::OutcomeKind;
using exiftool::Outcomes;
using platform::ChildOutcome;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr const char* kSilent = "ExifTool ended before it gave an account of the file";

BatchFile asItWas(const char* path) {
    return {path, {1, 2, 3, 4, 5, 6, 7}, {1, 2, 3, 4, 5, 6, 7}, false};
}

BatchFile touched(const char* path) {
    BatchFile file = asItWas(path);
    file.after.changedNanoseconds++;
    return file;
}

BatchAnswer whole(const std::string& output, const std::string& errors, const std::string& status = "0") {
    BatchAnswer answer;
    answer.child.kind = ChildOutcome::Kind::Ended;
    answer.isWhole = true;
    answer.token = "=token";
    answer.output = output + "=token\n{ready1}\n";
    answer.errors = errors + "=token " + status + '\n';
    return answer;
}

BatchAnswer cut(ChildOutcome::Kind kind, int number, const std::string& errors) {
    BatchAnswer answer;
    answer.child = {kind, number, {}};
    answer.token = "=token";
    answer.errors = errors;
    return answer;
}

std::vector<OutcomeKind> kindsOf(const Outcomes& outcomes) {
    std::vector<OutcomeKind> kinds;
    for (const Outcome& outcome : outcomes) kinds.push_back(outcome.kind);
    return kinds;
}

}  // namespace

TEST(WriteBatch, AnAnswerIsWholeWhenBothStreamsHaveTheirEndMark) {
    const std::string output = "    1 image files updated\n=token\n{ready1}\n";
    const std::string errors = "Warning: x\n=token 0\n";
    EXPECT_TRUE(exiftool::isWholeAnswer(output, errors, "=token"));
    for (std::size_t size = 0; size < output.size(); ++size)
        EXPECT_FALSE(exiftool::isWholeAnswer(output.substr(0, size), errors, "=token")) << size;
    for (std::size_t size = 0; size < errors.size(); ++size)
        EXPECT_FALSE(exiftool::isWholeAnswer(output, errors.substr(0, size), "=token")) << size;
    EXPECT_FALSE(exiftool::isWholeAnswer("=other\n{ready1}\n", errors, "=token"));
}

TEST(WriteBatch, WhatIsNamedNowhereIsWrittenOnlyIfTheFileHasBeenTouched) {
    const std::vector<BatchFile> files{touched("/a"), asItWas("/b"), asItWas("/c"), asItWas("/d")};
    const Outcomes outcomes = judgeBatch(
        files,
        whole("/b\n    1 image files updated\n    1 image files unchanged\n", "/c\nError: Bad - /c\n", "1"));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(OutcomeKind::Done, OutcomeKind::Unchanged, OutcomeKind::Failed,
                                               OutcomeKind::Failed));
    EXPECT_EQ(outcomes[2].words, "Error: Bad - /c");
    EXPECT_THAT(outcomes[3].words, HasSubstr("no account"));
}

TEST(WriteBatch, ACountThatDoesNotAgreeWithTheFilesIsTold) {
    const std::vector<BatchFile> files{touched("/a"), touched("/b")};
    const Outcomes tooFew = judgeBatch(files, whole("    1 image files updated\n", ""));
    EXPECT_THAT(kindsOf(tooFew), ElementsAre(OutcomeKind::Warned, OutcomeKind::Warned));
    const std::vector<BatchFile> others{touched("/a"), asItWas("/b")};
    const Outcomes tooMany = judgeBatch(others, whole("    2 image files updated\n", ""));
    EXPECT_THAT(kindsOf(tooMany), ElementsAre(OutcomeKind::Done, OutcomeKind::Failed));
    EXPECT_THAT(tooMany[1].words, HasSubstr("it is as it was"));
    EXPECT_THAT(kindsOf(judgeBatch(files, whole("", ""))),
                ElementsAre(OutcomeKind::Failed, OutcomeKind::Failed))
        << "touched by whom?";
    const Outcomes status = judgeBatch(files, whole("    2 image files updated\n", "", "1"));
    EXPECT_THAT(kindsOf(status), ElementsAre(OutcomeKind::Warned, OutcomeKind::Warned));
}

TEST(WriteBatch, OfACutSessionTheFirstUnfinishedFileIsTheOneInWork) {
    const std::vector<BatchFile> files{touched("/a"), asItWas("/b"), asItWas("/c"), asItWas("/d")};
    const Outcomes killed = judgeBatch(files, cut(ChildOutcome::Kind::Killed, 9, "/b\nError: Bad - /b\n"));
    EXPECT_THAT(kindsOf(killed), ElementsAre(OutcomeKind::Done, OutcomeKind::Failed, OutcomeKind::Killed,
                                             OutcomeKind::NotBegun));
    EXPECT_EQ(killed[2].words, "ExifTool was ended by signal 9");
    const Outcomes stopped = judgeBatch(files, cut(ChildOutcome::Kind::Stopped, 0, ""));
    EXPECT_THAT(kindsOf(stopped), ElementsAre(OutcomeKind::Done, OutcomeKind::Stopped, OutcomeKind::NotBegun,
                                              OutcomeKind::NotBegun));
    const Outcomes silent = judgeBatch(files, cut(ChildOutcome::Kind::Ended, 0, ""));
    EXPECT_EQ(silent[0], (Outcome{"/a", OutcomeKind::Warned, kSilent}));
    EXPECT_EQ(silent[1].kind, OutcomeKind::Failed);
}

TEST(WriteBatch, AHalfWrittenFileIsNotFinishedHoweverMuchItHasBeenTouched) {
    std::vector<BatchFile> files{touched("/a"), touched("/b"), asItWas("/c")};
    files[1].isHalfWritten = true;
    EXPECT_THAT(kindsOf(judgeBatch(files, cut(ChildOutcome::Kind::Killed, 9, ""))),
                ElementsAre(OutcomeKind::Done, OutcomeKind::Killed, OutcomeKind::NotBegun));
}
