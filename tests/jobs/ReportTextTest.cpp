#include "jobs/ReportText.h"

#include "exiftool/ReportFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using support::readBytes;
using support::writeBytes;

class ReportTextTest : public testing::Test {
 protected:
    ReportTextTest() {
        context_.tempPath = folder_.path();
        context_.reportFile = folder_ / "reports/report.txt";
        EXPECT_EQ(exiftool::deleteReport(context_), "");
    }
    support::TemporaryFolder folder_;
    app::AppContext context_;
};

TEST_F(ReportTextTest, TheBeginningIs256BytesAtMost) {
    EXPECT_EQ(jobs::reportBeginning(context_), "");
    writeBytes(context_.reportFile, std::string(300, 'x'));
    EXPECT_EQ(jobs::reportBeginning(context_), std::string(256, 'x'));
    writeBytes(context_.reportFile, "short");
    EXPECT_EQ(jobs::reportBeginning(context_), "short");
}

TEST_F(ReportTextTest, AnyBytesCanBeShown) {
    const QString cut = QStringLiteral("...");
    std::string longLine(4001, 'x');
    longLine.append("\ny");
    const QString bad(QChar::ReplacementCharacter);
    EXPECT_EQ(jobs::reportForDisplay("a\xFF\xE6\x97\xA5\n", cut), u'a' + bad + QStringLiteral(u"\u65E5\n"));
    EXPECT_EQ(jobs::reportForDisplay(std::string("\0\x1B[1m\tx", 7), cut),
              bad + bad + QStringLiteral("[1m\tx"));
    EXPECT_EQ(jobs::reportForDisplay(longLine, cut), QString(4000, u'x') + QStringLiteral("...\ny"));
    EXPECT_EQ(jobs::reportForDisplay("\n\nx\n\n", cut), QStringLiteral("\n\nx\n\n"));
    EXPECT_EQ(jobs::reportForDisplay("", cut), QString());
}

TEST_F(ReportTextTest, LinesOfOurOwnAreOneLineEach) {
    EXPECT_TRUE(exiftool::appendToReport(context_, "Error: two\nlines - a\r"));
    EXPECT_TRUE(exiftool::appendToReport(context_, "next"));
    EXPECT_EQ(readBytes(context_.reportFile), "Error: two?lines - a?\nnext\n");
    EXPECT_EQ(exiftool::reportSize(context_), 27u);
    EXPECT_EQ(exiftool::deleteReport(context_), "");
    EXPECT_EQ(exiftool::reportSize(context_), 0u);
    EXPECT_FALSE(std::filesystem::exists(context_.reportFile));
}

TEST_F(ReportTextTest, AReportThatCannotBeIsToldBeforehand) {
    context_.reportFile = folder_ / "file/report.txt";
    writeBytes(folder_ / "file", "");
    EXPECT_NE(exiftool::deleteReport(context_), "");
    EXPECT_FALSE(exiftool::appendToReport(context_, "x"));
    context_.reportFile = folder_ / "folder";
    std::filesystem::create_directories(folder_ / "folder/inside");
    EXPECT_NE(exiftool::deleteReport(context_), "");
}

}  // namespace
