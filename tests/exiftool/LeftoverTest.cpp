#include "exiftool/ToolRunner.h"
#include "exiftool/WriteSessions.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

// ExifTool writes a new file beside the old one. What it leaves there when it is killed bars later writes,
// but may be the only whole copy.

namespace fs = std::filesystem;
using support::readBytes;
using support::writeBytes;

namespace {

enum class Road { Line, Session, OwnProcess };

class LeftoverTest : public testing::TestWithParam<Road> {
 protected:
    void SetUp() override {
        context_.tempPath = folder_.path();
        context_.cachePath = folder_ / "cache";
        context_.reportFile = folder_ / "report.txt";
        context_.exifToolPath = folder_ / "tool";
        writeBytes(file_, "the whole photo");
        fs::last_write_time(file_, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }

    /// A tool that has half written the new file, then does this to the old one, and is killed. It finds the
    /// file's name at the end of its words or, in a session, of what it is told.
    void runAndKill(const std::string& doing) {
        writeBytes(context_.exifToolPath,
                   "#!/bin/sh\nfor file; do :; done\nif [ \"$file\" = - ]; then\n"
                   "while read -r line && [ \"$line\" != -execute1 ]; do file=$line; done\nfi\n"
                   "printf half >\"${file}_exiftool_tmp\"\n" +
                       doing + "\nkill -KILL $$\n");
        fs::permissions(context_.exifToolPath, fs::perms::owner_all);
        run();
    }

    /// A tool that looks and does nothing.
    void useTool() {
        writeBytes(context_.exifToolPath, "#!/bin/sh\nexit 0\n");
        fs::permissions(context_.exifToolPath, fs::perms::owner_all);
        run();
    }

    void run() {
        if (GetParam() == Road::Line) {
            exiftool::ToolRunner runner(context_);
            runner.safetyCopies().SafetyCopyEnabled = 0;
            outcome_ = runner.RunOnFile(file_, platform::CommandText("-Title=x"));
            return;
        }
        exiftool::WriteRequest request;
        request.exifTool = context_.exifToolPath;
        request.tempFolder = context_.tempPath;
        // The second is one that no line carries.
        request.arguments = {GetParam() == Road::Session ? "-Title=x" : "-XMP-dc:Title=costs\n$5"};
        request.files = {file_};
        outcome_ = exiftool::writeFiles(request, {}, {}).front();
    }

    support::TemporaryFolder folder_;
    app::AppContext context_;
    fs::path file_ = folder_ / "photo.jpg";
    fs::path leftover_ = folder_ / "photo.jpg_exiftool_tmp";
    exiftool::Outcome outcome_;
};

}  // namespace

TEST_P(LeftoverTest, GoesWhenTheFileIsAsItWas) {
    runAndKill(":");
    EXPECT_EQ(outcome_.kind, exiftool::OutcomeKind::Killed) << outcome_.words;
    EXPECT_FALSE(fs::exists(leftover_));
    EXPECT_EQ(readBytes(file_), "the whole photo");
}

TEST_P(LeftoverTest, StaysWhenTheFileHasBeenTouchedInAnyWay) {
    const struct {
        const char* what;
        const char* doing;
    } cases[] = {
        {"other bytes", "printf 'as many letters' >\"$file\""},
        {"other bytes, with its size and time",
         "cp -p \"$file\" \"$file.old\"; printf 'as many letters' >\"$file\"; touch -r \"$file.old\" "
         "\"$file\""},
        {"cut, with its time",
         "cp -p \"$file\" \"$file.old\"; printf cut >\"$file\"; touch -r \"$file.old\" \"$file\""},
        {"another file of the same size and time",
         "cp -p \"$file\" \"$file.old\"; rm \"$file\"; cp -p \"$file.old\" \"$file.new\"; mv \"$file.new\" "
         "\"$file\""},
        {"gone", "rm \"$file\""},
    };
    for (const auto& [what, doing] : cases) {
        fs::remove(leftover_);
        SetUp();
        runAndKill(doing);
        ASSERT_TRUE(fs::exists(leftover_)) << what;
        EXPECT_EQ(readBytes(leftover_), "half") << what;
    }
}

TEST_P(LeftoverTest, ThatWasThereBeforeTheRunStaysWhileItMayBeNeeded) {
    const struct {
        const char* what;
        const char* photo;
        const char* leftover;
        bool isOpen;
        bool stays;
    } cases[] = {
        {"somebody still writes it", "the whole photo", "the who", true, true},
        {"half a file that nobody owns", "the whole photo", "the new ph", false, false},
        {"a whole file that nobody owns", "the whole photo", "the whole new photo", false, false},
        {"a whole file of which the photo is a beginning", "the wh", "the whole new photo", false, true},
        {"a whole file beside an empty photo", "", "the whole new photo", false, true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        writeBytes(file_, row.photo);
        writeBytes(leftover_, row.leftover);
        std::ofstream writer;
        if (row.isOpen) writer.open(leftover_, std::ios::app);
        // What has just been closed may be about to be renamed.
        const auto limit =
            std::chrono::steady_clock::now() + std::chrono::milliseconds(row.stays ? 1300 : 5000);
        do useTool();
        while (fs::exists(leftover_) && std::chrono::steady_clock::now() < limit);
        EXPECT_EQ(fs::exists(leftover_), row.stays);
        if (row.stays) {
            EXPECT_EQ(readBytes(leftover_), row.leftover);
        }
        EXPECT_EQ(readBytes(file_), row.photo);
    }
}

TEST_P(LeftoverTest, IsNotTakenAwayAtOnce) {
    writeBytes(leftover_, "of somebody else");
    useTool();
    EXPECT_TRUE(fs::exists(leftover_));
}

INSTANTIATE_TEST_SUITE_P(Roads, LeftoverTest, testing::Values(Road::Line, Road::Session, Road::OwnProcess));
