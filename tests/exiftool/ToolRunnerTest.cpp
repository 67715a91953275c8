#include "exiftool/ToolRunner.h"

#include "exiftool/StarterUnderTest.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using exiftool::ToolRunner;
using platform::CommandText;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using namespace std::chrono_literals;

namespace {

/// Stand-ins for a tool that does what the real one does not do on demand.
class ToolRunnerTest : public testing::Test {
 protected:
    void SetUp() override {
        runner_.setWarmStarter(starterUnderTest());
        context_.tempPath = folder_.path();
        context_.exifToolPath = folder_ / "tool";
    }

    void writeTool(const std::string& script) {
        writeBytes(context_.exifToolPath, std::string("#!/bin/sh\n").append(script));
        std::filesystem::permissions(context_.exifToolPath, std::filesystem::perms::owner_all);
    }

    CommandText line(std::string_view arguments = "") {
        CommandText text("\"");
        text.outside(context_.exifToolPath.string()).literal("\" ").literal(arguments).literal(" >\"");
        return text.outside((folder_ / "out").string()).literal("\"");
    }

    TemporaryFolder folder_;
    app::AppContext context_;
    ToolRunner runner_{context_};
};

}  // namespace

TEST_F(ToolRunnerTest, WritesTheLineAsItIsAndLeavesTheCommonBatchFile) {
    writeTool("printf '%s' \"$1\"; exit 3");
    const CommandText command = line("a%%b");
    EXPECT_EQ(runner_.RunToolLine(command), 1) << "the status does not count";
    EXPECT_EQ(readBytes(folder_ / "Metadata.bat"), command.text());
    EXPECT_EQ(readBytes(folder_ / "out"), "a%b");
    EXPECT_EQ(runner_.lastOutcome().lines.at(0).child.number, 3);
}

TEST_F(ToolRunnerTest, ANamedBatchFileExistsOnlyDuringTheRun) {
    const auto batch = folder_ / "photo.bat";
    writeTool("cat \"$1\"");
    const CommandText command = line(batch.string());
    EXPECT_EQ(runner_.runBatchFile(batch, command), 1);
    EXPECT_EQ(readBytes(folder_ / "out"), command.text());
    EXPECT_FALSE(std::filesystem::exists(batch));
}

TEST_F(ToolRunnerTest, ABatchFileThatCannotBeWrittenIsNoRun) {
    writeTool("echo never");
    EXPECT_EQ(runner_.runBatchFile(folder_ / "no/such.bat", line()), 0);
    context_.tempPath = folder_ / "no";
    EXPECT_EQ(runner_.RunToolLine(line()), 0);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out"));
}

TEST_F(ToolRunnerTest, AMissingToolOrOutputIsNoRun) {
    writeBytes(folder_ / "out", "of an earlier run");
    EXPECT_EQ(runner_.RunToolLine(line()), 0);
    EXPECT_EQ(readBytes(folder_ / "out"), "");
    EXPECT_THAT(runner_.lastOutcome().answers(), testing::HasSubstr("tool"));
    writeTool("echo never");
    std::filesystem::remove(folder_ / "out");
    std::filesystem::create_directory(folder_ / "out");
    EXPECT_EQ(runner_.RunToolLine(line()), 0);
}

TEST_F(ToolRunnerTest, ADyingToolIsARun) {
    writeTool("echo half; kill -KILL $$");
    EXPECT_EQ(runner_.RunToolLine(line()), 1);
    EXPECT_FALSE(runner_.wasStopped());
    EXPECT_EQ(runner_.lastOutcome().lines.at(0).child.kind, platform::ChildOutcome::Kind::Killed);
    EXPECT_EQ(readBytes(folder_ / "out"), "half\n");
}

TEST_F(ToolRunnerTest, AHangingToolIsStoppedOnRequest) {
    writeTool("trap '' TERM; while :; do sleep 100; done");
    int questions = 0;
    runner_.setKeepWaiting([&](std::chrono::milliseconds) { return ++questions < 3; });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(runner_.runBatchFile(folder_ / "photo.bat", line()), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 4s);
    EXPECT_TRUE(runner_.wasStopped());
    EXPECT_EQ(questions, 3);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "photo.bat"));
    runner_.setKeepWaiting({});
    writeTool("echo good");
    EXPECT_EQ(runner_.RunToolLine(line()), 1);
    EXPECT_FALSE(runner_.wasStopped());
}

TEST_F(ToolRunnerTest, CorrectedCommandsKeepTypedTextInItsArgument) {
    writeTool("printf '[%s]' \"$@\"");
    CommandText command("\"");
    command.outside(context_.exifToolPath.string()).literal("\" -c=\"").typed("a\" b").literal("\" >");
    command.outside((folder_ / "out").string());
    context_.settings.exifTool.correctedCommands = true;
    EXPECT_EQ(runner_.RunToolLine(command), 1);
    EXPECT_EQ(readBytes(folder_ / "out"), "[-c=a\" b]");
    EXPECT_EQ(readBytes(folder_ / "Metadata.bat"), command.text());
}
