#include "exiftool/ToolRunner.h"

#include "exiftool/StarterUnderTest.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"

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
        context_.cachePath = folder_ / "cache";
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

TEST_F(ToolRunnerTest, NothingOfItsOwnIsOpenedThroughALink) {
    namespace fs = std::filesystem;
    const auto precious = folder_ / "precious.jpg";
    fs::create_directory(folder_ / "Temp");
    fs::create_directory(folder_ / "reports");
    context_.tempPath = folder_ / "Temp";
    context_.reportFile = folder_ / "reports/day.txt";
    runner_.safetyCopies().SafetyCopyEnabled = 0;
    writeTool("echo output; echo errors >&2");
    writeBytes(precious, "never written");
    const fs::path places[] = {context_.tempPath / "out",          context_.tempPath / "errors",
                               context_.tempPath / "Metadata.bat", context_.tempPath / "MetaData.bat",
                               context_.tempPath / "files.tmp",    context_.reportFile};
    for (const fs::path& place : places) fs::create_symlink(precious, place);

    CommandText toOutput("\"");
    toOutput.outside(context_.exifToolPath.string()).literal("\" >\"");
    toOutput.outside(places[0].string()).literal("\"");
    for (const fs::path& errors : {places[1], context_.reportFile}) {
        CommandText toErrors("\"");
        toErrors.outside(context_.exifToolPath.string()).literal("\" 2>>\"");
        toErrors.outside(errors.string()).literal("\"");
        EXPECT_EQ(runner_.RunHidden(toErrors), 0);
    }
    EXPECT_EQ(runner_.RunHidden(toOutput), 0);
    EXPECT_EQ(runner_.RunToolLine(toOutput), 0);
    EXPECT_EQ(runner_.RunOnFile(folder_ / "a.jpg", CommandText("-x")).kind,
              exiftool::OutcomeKind::NotStarted);
    EXPECT_TRUE(runner_.WriteFileList({folder_ / "a.jpg"}).path.empty());
    EXPECT_TRUE(runner_.WriteFileList({folder_ / "a\nb.jpg"}).path.empty());
    EXPECT_EQ(readBytes(precious), "never written");

    CommandText elsewhere("\"");
    elsewhere.outside(context_.exifToolPath.string()).literal("\" >\"");
    fs::create_symlink(folder_ / "export.txt", folder_ / "chosen.txt");
    elsewhere.outside((folder_ / "chosen.txt").string()).literal("\"");
    EXPECT_EQ(runner_.RunHidden(elsewhere), 1) << "what the user chooses may be a link";
    EXPECT_EQ(readBytes(folder_ / "export.txt"), "output\n");
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

TEST_F(ToolRunnerTest, HowARunEndedIsTold) {
    const struct {
        const char* script;
        exiftool::OutcomeKind end;
        const char* fault;        ///< of any run
        const char* faultOfRead;  ///< of one that was to write to the file
    } cases[] = {
        {"echo answer", exiftool::OutcomeKind::Done, "", ""},
        {"exit 0", exiftool::OutcomeKind::Done, "", ""},
        {"exit 1", exiftool::OutcomeKind::Failed, "status 1", "status 1"},
        {"echo half; exit 1", exiftool::OutcomeKind::Failed, "status 1", "status 1"},
        {"echo '[ExifTool] - Version : 1'; echo '[ExifTool] - Erreur : File is empty'; exit 1",
         exiftool::OutcomeKind::Failed, "status 1", ""},
        {"echo half; kill -KILL $$", exiftool::OutcomeKind::Killed, "signal 9", "signal 9"},
    };
    for (const auto& row : cases) {
        writeTool(row.script);
        EXPECT_EQ(runner_.RunToolLine(line()), 1);
        EXPECT_EQ(runner_.lastEnd(), row.end) << row.script;
        const auto holds = [](const std::string& told, const std::string& expected) {
            return expected.empty() ? told.empty() : told.find(expected) != std::string::npos;
        };
        EXPECT_TRUE(holds(runner_.lastFault(), row.fault)) << row.script << runner_.lastFault();
        EXPECT_TRUE(holds(runner_.lastFaultOfRead(folder_ / "out"), row.faultOfRead)) << row.script;
    }
    std::filesystem::remove(context_.exifToolPath);
    EXPECT_EQ(runner_.RunToolLine(line()), 0);
    EXPECT_EQ(runner_.lastEnd(), exiftool::OutcomeKind::NotStarted);
    EXPECT_NE(runner_.lastFaultOfRead(folder_ / "out"), "");
    writeTool("echo half; exec sleep 100");
    runner_.setKeepWaiting([](std::chrono::milliseconds) { return false; });
    EXPECT_EQ(runner_.RunToolLine(line()), 0);
    EXPECT_EQ(runner_.lastEnd(), exiftool::OutcomeKind::Stopped);
    EXPECT_NE(runner_.lastFaultOfRead(folder_ / "out"), "");
}
