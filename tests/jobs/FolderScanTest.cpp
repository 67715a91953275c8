#include "jobs/FolderScan.h"

#include "support/TemporaryFolder.h"

#include <sys/stat.h>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using jobs::filesOfSelection;
using jobs::FolderScan;
using jobs::scanFolder;
using testing::ElementsAre;
using testing::IsEmpty;

class FolderScanTest : public testing::Test {
 protected:
    fs::path make(const std::string& name) {
        const fs::path file = folder_ / name;
        fs::create_directories(file.parent_path());
        support::writeBytes(file, "x");
        return file;
    }
    support::TemporaryFolder folder_;
};

TEST_F(FolderScanTest, WithoutSubfoldersItTakesTheKnownExtensionsOfThatFolderAlone) {
    const fs::path jpg = make("b.JPG");
    const fs::path png = make("a.png");
    make("c.unknown");
    make("noextension");
    make("sub/d.jpg");
    fs::create_directory(folder_ / "folder.jpg");
    const FolderScan scan = scanFolder(folder_.path(), false);
    EXPECT_THAT(scan.files, ElementsAre(png, jpg));
    EXPECT_THAT(scan.unreadable, IsEmpty());
}

TEST_F(FolderScanTest, WithSubfoldersItTakesEveryFileBelow) {
    const fs::path first = make("a.jpg");
    const fs::path other = make("c.unknown");
    const fs::path deep = make("sub/deeper/bytes\xFF.jpg");
    EXPECT_THAT(scanFolder(folder_.path(), true).files, ElementsAre(first, other, deep));
}

TEST_F(FolderScanTest, NoLoopOfLinksHoldsItUp) {
    const fs::path file = make("sub/a.jpg");
    fs::create_directory_symlink(folder_.path(), folder_ / "sub/loop");
    fs::create_symlink(folder_ / "sub/self", folder_ / "sub/self");
    fs::create_symlink(file, folder_ / "link.jpg");
    fs::create_symlink(folder_ / "gone.jpg", folder_ / "nowhere.jpg");
    EXPECT_THAT(scanFolder(folder_.path(), true).files, ElementsAre(folder_ / "link.jpg", file));
    EXPECT_THAT(scanFolder(folder_ / "sub/loop", false).files, ElementsAre(folder_ / "sub/loop/link.jpg"))
        << "the folder itself may be a link";
}

TEST_F(FolderScanTest, WhatIsNoFileIsLeftOut) {
    ASSERT_EQ(mkfifo((folder_ / "pipe.jpg").c_str(), 0600), 0);
    EXPECT_THAT(scanFolder(folder_.path(), false).files, IsEmpty());
    EXPECT_THAT(scanFolder(folder_.path(), true).files, IsEmpty());
}

TEST_F(FolderScanTest, AFolderThatCannotBeReadIsToldAndTheRestGoesOn) {
    const FolderScan gone = scanFolder(folder_ / "gone", true);
    EXPECT_THAT(gone.files, IsEmpty());
    EXPECT_THAT(gone.unreadable, ElementsAre((folder_ / "gone").string() + ": No such file or directory"));

    const fs::path file = make("z/a.jpg");
    make("locked/b.jpg");
    fs::permissions(folder_ / "locked", fs::perms::none);
    const FolderScan scan = scanFolder(folder_.path(), true);
    if (geteuid() == 0) {
        EXPECT_EQ(scan.files.size(), 2u) << "permissions bar nobody here";
    } else {
        EXPECT_THAT(scan.files, ElementsAre(file));
        EXPECT_THAT(scan.unreadable, ElementsAre((folder_ / "locked").string() + ": Permission denied"));
    }
}

TEST_F(FolderScanTest, ALongScanLetsTheWindowBreathe) {
    for (int i = 0; i < 600; ++i) make(std::to_string(i));
    int pulses = 0;
    scanFolder(folder_.path(), true, [&] { ++pulses; });
    EXPECT_EQ(pulses, 2);
}

TEST_F(FolderScanTest, OfASelectionTheFoldersAreSkippedAndTheOrderIsKept) {
    const fs::path last = make("z.jpg");
    const fs::path first = make("a.unknown");
    fs::create_directory(folder_ / "sub");
    fs::create_directory_symlink(folder_ / "sub", folder_ / "linked");
    const fs::path pipe = folder_ / "pipe.jpg";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const fs::path gone = folder_ / "gone.jpg";
    const jobs::SelectionFiles files =
        filesOfSelection({last, folder_ / "sub", gone, folder_ / "linked", pipe, first});
    EXPECT_THAT(files.files, ElementsAre(last, gone, first));
    EXPECT_THAT(files.refused, ElementsAre(pipe));
    EXPECT_THAT(filesOfSelection({folder_ / "sub"}).files, IsEmpty());
}

}  // namespace
