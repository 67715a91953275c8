#include "platform/ProcessFolder.h"

#include "support/TemporaryFolder.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using platform::ClaimedFolder;
using platform::ProcessFolder;

unsigned modeOf(const fs::path& path) {
    struct stat facts {};
    EXPECT_EQ(lstat(path.c_str(), &facts), 0) << path;
    return facts.st_mode & 07777U;
}

/// Another process that has claimed a folder and lives until it is killed.
class Neighbour {
 public:
    explicit Neighbour(const fs::path& parent) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        child_ = fork();
        if (child_ == 0) live(parent, ends[1]);
        close(ends[1]);
        EXPECT_EQ(read(ends[0], &number_, sizeof number_), static_cast<ssize_t>(sizeof number_));
        close(ends[0]);
    }
    ~Neighbour() { kill(); }
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    int number() const { return number_; }
    void kill() {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        child_ = -1;
    }

 private:
    [[noreturn]] static void live(const fs::path& parent, int report) {
        const ClaimedFolder claimed = ProcessFolder::claim(parent);
        const int number = claimed.folder ? claimed.folder->number() : 0;
        if (write(report, &number, sizeof number) != sizeof number) _exit(1);
        for (;;) pause();
    }

    pid_t child_ = -1;
    int number_ = 0;
};

class ProcessFolderTest : public ::testing::Test {
 protected:
    ProcessFolderTest() : parent_(folder_ / "Temp") { fs::create_directory(parent_); }

    support::TemporaryFolder folder_;
    fs::path parent_;
};

TEST_F(ProcessFolderTest, TwoProcessesNeverShareAFolder) {
    const Neighbour first(parent_);
    const Neighbour second(parent_);
    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder) << own.reason;
    EXPECT_EQ(first.number(), 1);
    EXPECT_EQ(second.number(), 2);
    EXPECT_EQ(own.folder->number(), 3);
    EXPECT_EQ(own.folder->path(), parent_ / "process-3");
    for (const char* name : {"process-1", "process-2", "process-3"})
        EXPECT_EQ(modeOf(parent_ / name), 0700u) << name;
}

TEST_F(ProcessFolderTest, AFolderGoesWithItsOwnerAndLeavesThoseOfOthers) {
    const Neighbour neighbour(parent_);
    support::writeBytes(parent_ / "process-1" / "Metadata.txt", "the neighbour's");
    {
        ClaimedFolder own = ProcessFolder::claim(parent_);
        ASSERT_TRUE(own.folder);
        support::writeBytes(own.folder->path() / "Metadata.txt", "x");
        fs::create_directories(own.folder->path() / "deep" / "deeper");
        support::writeBytes(parent_ / "process-2Metadata.txt", "x");
        support::writeBytes(parent_ / "process-1Metadata.txt", "the neighbour's");
        EXPECT_EQ(own.folder->remove(), std::error_code());
    }
    EXPECT_FALSE(fs::exists(parent_ / "process-2"));
    EXPECT_FALSE(fs::exists(parent_ / "process-2Metadata.txt"));
    EXPECT_EQ(support::readBytes(parent_ / "process-1" / "Metadata.txt"), "the neighbour's");
    EXPECT_EQ(support::readBytes(parent_ / "process-1Metadata.txt"), "the neighbour's");
}

TEST_F(ProcessFolderTest, WhatAKilledProcessLeftIsClearedAndTheLivingOnesStay) {
    Neighbour dead(parent_);
    const Neighbour living(parent_);
    Neighbour alsoDead(parent_);
    for (const char* name : {"process-1", "process-2", "process-3"})
        support::writeBytes(parent_ / name / "files.tmp", name);
    dead.kill();
    alsoDead.kill();
    ASSERT_EQ(support::readBytes(parent_ / "process-1/files.tmp"), "process-1") << "a kill clears nothing";

    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder);
    EXPECT_EQ(own.folder->number(), 1) << "the lowest number nobody has";
    EXPECT_FALSE(fs::exists(parent_ / "process-1/files.tmp")) << "nobody starts with another's files";
    EXPECT_EQ(ProcessFolder::clearAbandoned(parent_), std::error_code());
    EXPECT_TRUE(fs::is_directory(parent_ / "process-1")) << "our own";
    EXPECT_EQ(support::readBytes(parent_ / "process-2/files.tmp"), "process-2");
    EXPECT_FALSE(fs::exists(parent_ / "process-3"));
}

TEST_F(ProcessFolderTest, AFolderThatIsNotYetOrNoLongerLockedIsFree) {
    fs::create_directory(parent_ / "process-1");
    fs::permissions(parent_ / "process-1", fs::perms::all);
    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder);
    EXPECT_EQ(own.folder->number(), 1);
    EXPECT_EQ(modeOf(own.folder->path()), 0700u) << "narrowed before anything is put into it";
}

TEST_F(ProcessFolderTest, ALinkIsNeverTakenForAFolder) {
    fs::create_directory(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "photo.jpg", "x");
    fs::create_directory_symlink(folder_ / "precious", parent_ / "process-1");
    fs::create_directory(parent_ / "process-2");
    fs::create_symlink(folder_ / "precious" / "photo.jpg", parent_ / "process-2" / "lock");

    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder);
    EXPECT_EQ(own.folder->number(), 3);
    fs::create_directory_symlink(folder_ / "precious", own.folder->path() / "link");
    EXPECT_EQ(ProcessFolder::clearAbandoned(parent_), std::error_code());
    EXPECT_EQ(own.folder->remove(), std::error_code());
    EXPECT_EQ(support::readBytes(folder_ / "precious" / "photo.jpg"), "x");
    EXPECT_FALSE(fs::exists(folder_ / "precious" / "lock"));

    fs::create_directory_symlink(parent_, folder_ / "Temp by another name");
    const ClaimedFolder refused = ProcessFolder::claim(folder_ / "Temp by another name");
    EXPECT_FALSE(refused.folder);
    EXPECT_FALSE(refused.reason.empty());
    EXPECT_TRUE(ProcessFolder::clearAbandoned(folder_ / "Temp by another name"));
}

TEST_F(ProcessFolderTest, AFolderOfAnotherUserIsRefused) {
    if (geteuid() != 0) GTEST_SKIP() << "only the administrator can give a folder away";
    fs::create_directory(parent_ / "process-1");
    ASSERT_EQ(chown((parent_ / "process-1").c_str(), 12345, 12345), 0);
    {
        const ClaimedFolder own = ProcessFolder::claim(parent_);
        ASSERT_TRUE(own.folder);
        EXPECT_EQ(own.folder->number(), 2);
        EXPECT_EQ(ProcessFolder::clearAbandoned(parent_), std::error_code());
        EXPECT_TRUE(fs::exists(parent_ / "process-1"));
    }
    ASSERT_EQ(chown(parent_.c_str(), 12345, 12345), 0);
    EXPECT_FALSE(ProcessFolder::claim(parent_).folder);
}

TEST_F(ProcessFolderTest, AParentThatIsMissingOrNoFolderIsAFailureWithAReason) {
    support::writeBytes(folder_ / "file", "x");
    for (const fs::path& parent : {folder_ / "missing", folder_ / "file", fs::path()}) {
        const ClaimedFolder refused = ProcessFolder::claim(parent);
        EXPECT_FALSE(refused.folder) << parent;
        EXPECT_FALSE(refused.reason.empty()) << parent;
    }
}

TEST_F(ProcessFolderTest, AFolderInsideIsNeverSomebodyElses) {
    const fs::path elsewhere = folder_ / "elsewhere";
    fs::create_directory(elsewhere);
    support::writeBytes(elsewhere / "photo", "bytes");
    const fs::path inside = parent_ / "job";
    fs::create_directory_symlink(elsewhere, inside);
    EXPECT_FALSE(platform::makeOwnSubfolder(inside));
    EXPECT_TRUE(fs::is_directory(fs::symlink_status(inside)));
    EXPECT_EQ(modeOf(inside), 0700U);
    EXPECT_EQ(support::readBytes(elsewhere / "photo"), "bytes");
    fs::permissions(inside, fs::perms::all);
    EXPECT_FALSE(platform::makeOwnSubfolder(inside)) << "it is there already";
    EXPECT_EQ(modeOf(inside), 0700U);
    EXPECT_TRUE(platform::makeOwnSubfolder(parent_ / "missing" / "job"));
}

TEST_F(ProcessFolderTest, AFolderThatWentAwayMeanwhileIsNoFailure) {
    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder);
    fs::remove_all(parent_);
    EXPECT_EQ(own.folder->remove(), std::error_code());

    fs::create_directory(parent_);
    ClaimedFolder robbed = ProcessFolder::claim(parent_);
    ASSERT_TRUE(robbed.folder);
    fs::remove_all(robbed.folder->path());
    const Neighbour heir(parent_);
    support::writeBytes(parent_ / "process-1" / "Metadata.txt", "the heir's");
    EXPECT_EQ(robbed.folder->remove(), std::error_code());
    EXPECT_EQ(support::readBytes(parent_ / "process-1" / "Metadata.txt"), "the heir's");
}

TEST_F(ProcessFolderTest, AParentThatBecameALinkIsNotCleared) {
    ClaimedFolder own = ProcessFolder::claim(parent_);
    ASSERT_TRUE(own.folder);
    fs::create_directory(folder_ / "precious");
    support::writeBytes(folder_ / "precious" / "process-1.jpg", "x");
    fs::rename(parent_, folder_ / "moved");
    fs::create_directory_symlink(folder_ / "precious", parent_);
    EXPECT_TRUE(own.folder->remove());
    EXPECT_TRUE(fs::exists(folder_ / "precious" / "process-1.jpg"));
}

TEST_F(ProcessFolderTest, ManyProcessesThatComeAndGoAtOnceNeverMeet) {
    std::vector<pid_t> children;
    for (int child = 0; child < 8; ++child) {
        const pid_t process = fork();
        if (process == 0) {
            for (int round = 0; round < 60; ++round) {
                if (round % 3 == 0 && ProcessFolder::clearAbandoned(parent_)) _exit(1);
                ClaimedFolder own = ProcessFolder::claim(parent_);
                if (!own.folder) _exit(2);
                const fs::path mark = own.folder->path() / "mark";
                if (fs::exists(mark)) _exit(3);
                support::writeBytes(mark, std::to_string(getpid()));
                if (support::readBytes(mark) != std::to_string(getpid())) _exit(4);
                if (own.folder->remove()) _exit(5);
            }
            _exit(0);
        }
        children.push_back(process);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
    EXPECT_EQ(ProcessFolder::clearAbandoned(parent_), std::error_code());
    EXPECT_TRUE(fs::is_empty(parent_));
}

}  // namespace
