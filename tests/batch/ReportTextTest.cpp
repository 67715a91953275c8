#include "batch/ReportText.h"

#include "exiftool/ReportFile.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace {

using support::ReadBytes;
using support::WriteBytes;

using testing::StartsWith;

class ReportTextTest : public testing::Test {
 protected:
    ReportTextTest() {
        context_.tempPath = folder_.path();
        context_.reportFile = folder_ / "reports/report.txt";
        EXPECT_EQ(exiftool::DeleteReport(context_), "");
    }
    support::TemporaryFolder folder_;
    app::AppContext context_;
};

TEST_F(ReportTextTest, WithoutAReportThereIsNothingToShow) {
    EXPECT_FALSE(batch::FilterReport(context_));
    EXPECT_EQ(batch::ReportBeginning(context_), "");
    WriteBytes(context_.reportFile, "");
    EXPECT_FALSE(batch::FilterReport(context_));
}

TEST_F(ReportTextTest, TheToolsHeadLinesAreLeftOutWhateverTheirCase) {
    WriteBytes(context_.reportFile,
               "---- ExifTool 12 ----\nError: one\r\n---- EXIFTOOL\n ---- ExifTool\n---- ExifToo\nlast");
    EXPECT_EQ(batch::FilterReport(context_)->bytes, "Error: one\n ---- ExifTool\n---- ExifToo\nlast\n");
    EXPECT_EQ(ReadBytes(context_.tempPath / "Metadata.txt"),
              "Error: one\n ---- ExifTool\n---- ExifToo\nlast\n");
}

TEST_F(ReportTextTest, AReportOfHeadLinesAloneIsShownEmpty) {
    WriteBytes(context_.reportFile, "---- ExifTool ----\n---- exiftool x\n");
    ASSERT_TRUE(batch::FilterReport(context_));
    EXPECT_EQ(batch::FilterReport(context_)->bytes, "");
    EXPECT_EQ(ReadBytes(context_.tempPath / "Metadata.txt"), "");
}

TEST_F(ReportTextTest, OfALongReportTheEndIsShownInWholeLines) {
    std::string bytes;
    for (int i = 0; i < 400'000; ++i) bytes += "Warning: line " + std::to_string(i) + " of a file\n";
    WriteBytes(context_.reportFile, bytes);
    const batch::ReportText shown = *batch::FilterReport(context_);
    EXPECT_TRUE(shown.isShort);
    EXPECT_LE(shown.bytes.size(), batch::kShownReportBytes);
    EXPECT_GT(shown.bytes.size(), batch::kShownReportBytes - 100);
    EXPECT_THAT(shown.bytes.substr(0, 20), StartsWith("Warning: line "));
    EXPECT_TRUE(shown.bytes.ends_with("line 399999 of a file\n"));
    EXPECT_EQ(ReadBytes(context_.tempPath / "Metadata.txt"), bytes) << "the copy is whole";
}

TEST_F(ReportTextTest, TheBeginningIs256BytesAtMost) {
    WriteBytes(context_.reportFile, std::string(300, 'x'));
    EXPECT_EQ(batch::ReportBeginning(context_), std::string(256, 'x'));
    WriteBytes(context_.reportFile, "short");
    EXPECT_EQ(batch::ReportBeginning(context_), "short");
}

TEST_F(ReportTextTest, AnyBytesCanBeShown) {
    const QString cut = QStringLiteral("...");
    std::string longLine(4001, 'x');
    longLine.append("\ny");
    const QString bad(QChar::ReplacementCharacter);
    EXPECT_EQ(batch::ReportForDisplay("a\xFF\xE6\x97\xA5\n", cut), u'a' + bad + QStringLiteral(u"\u65E5\n"));
    EXPECT_EQ(batch::ReportForDisplay(std::string("\0\x1B[1m\tx", 7), cut),
              bad + bad + QStringLiteral("[1m\tx"));
    EXPECT_EQ(batch::ReportForDisplay(longLine, cut), QString(4000, u'x') + QStringLiteral("...\ny"));
    EXPECT_EQ(batch::ReportForDisplay("\n\nx\n\n", cut), QStringLiteral("\n\nx\n\n"));
    EXPECT_EQ(batch::ReportForDisplay("", cut), QString());
}

TEST_F(ReportTextTest, LinesOfOurOwnAreOneLineEach) {
    EXPECT_TRUE(exiftool::AppendToReport(context_, "Error: two\nlines - a\r"));
    EXPECT_TRUE(exiftool::AppendToReport(context_, "next"));
    EXPECT_EQ(ReadBytes(context_.reportFile), "Error: two?lines - a?\nnext\n");
    EXPECT_EQ(exiftool::ReportSize(context_), 27u);
    EXPECT_EQ(exiftool::DeleteReport(context_), "");
    EXPECT_EQ(exiftool::ReportSize(context_), 0u);
    EXPECT_FALSE(std::filesystem::exists(context_.reportFile));
}

TEST_F(ReportTextTest, AReportThatCannotBeIsToldBeforehand) {
    context_.reportFile = folder_ / "file/report.txt";
    WriteBytes(folder_ / "file", "");
    EXPECT_NE(exiftool::DeleteReport(context_), "");
    EXPECT_FALSE(exiftool::AppendToReport(context_, "x"));
    context_.reportFile = folder_ / "folder";
    std::filesystem::create_directories(folder_ / "folder/inside");
    EXPECT_NE(exiftool::DeleteReport(context_), "");
}

}  // namespace
