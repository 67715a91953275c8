#include "exiftool/ToolRunner.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// The report of the day tells what became of all files. A tool that cannot be run adds to it and takes
// nothing away.

namespace fs = std::filesystem;
using platform::CommandText;
using support::readBytes;
using support::writeBytes;

namespace {

constexpr const char* kToldSoFar = "Error: Not a valid JPG - first.jpg\nWarning: of the second\n";

class ReportKeptTest : public testing::Test {
 protected:
    void SetUp() override {
        context_.tempPath = folder_.path();
        context_.cachePath = folder_ / "cache";
        context_.reportFile = folder_ / "report.txt";
        writeBytes(context_.reportFile, kToldSoFar);
        writeBytes(file_, "a photo");
    }

    void write(exiftool::ToolRunner& runner) {
        static_cast<void>(runner.RunOnFile(file_, CommandText("-Title=x")));
    }
    void runLine(exiftool::ToolRunner& runner) {
        CommandText line("\"");
        line.outside(context_.exifToolPath.string()).literal("\" -Title=x \"").outside(file_.string());
        line.literal("\" 2>>\"").outside(context_.reportFile.string()).literal("\"");
        static_cast<void>(runner.RunHidden(line));
    }

    support::TemporaryFolder folder_;
    app::AppContext context_;
    fs::path file_ = folder_ / "photo.jpg";
};

}  // namespace

TEST_F(ReportKeptTest, AToolThatCannotBeRunAddsToItAndTakesNothingAway) {
    writeBytes(folder_ / "text", "no program");
    fs::permissions(folder_ / "text", fs::perms::owner_all);
    writeBytes(folder_ / "barred", "#!/bin/sh\n");
    fs::permissions(folder_ / "barred", fs::perms::owner_read);
    for (const char* tool : {"gone", "gone/with/its folder", "text", "barred", ""}) {
        for (const bool onFile : {true, false}) {
            SetUp();
            context_.exifToolPath = *tool == 0 ? fs::path() : folder_ / tool;
            exiftool::ToolRunner runner(context_);
            if (onFile)
                write(runner);
            else
                runLine(runner);
            const std::string report = readBytes(context_.reportFile);
            EXPECT_TRUE(report.starts_with(kToldSoFar)) << tool << ": " << report;
            EXPECT_GT(report.size(), std::string_view(kToldSoFar).size()) << tool << " is not told";
        }
    }
}

TEST_F(ReportKeptTest, ALineThatMayNotBeRunTakesNothingAway) {
    exiftool::ToolRunner runner(context_);
    CommandText line("\"/bin/echo\" x 2>>\"");
    static_cast<void>(runner.RunHidden(line.outside(context_.reportFile.string()).literal("\"")));
    EXPECT_TRUE(readBytes(context_.reportFile).starts_with(kToldSoFar));
}

TEST_F(ReportKeptTest, AToolThatHasNothingToSayTakesNothingAway) {
    writeBytes(folder_ / "tool", "#!/bin/sh\nexit 0\n");
    fs::permissions(folder_ / "tool", fs::perms::owner_all);
    context_.exifToolPath = folder_ / "tool";
    exiftool::ToolRunner runner(context_);
    write(runner);
    EXPECT_TRUE(readBytes(context_.reportFile).starts_with(kToldSoFar));
}
