#include "platform/FileAccess.h"
#include "platform/MappedFile.h"
#include "platform/OwnProcess.h"
#include "platform/ProgramSearch.h"
#include "platform/RegularFile.h"
#include "platform/UniqueFile.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>

namespace fs = std::filesystem;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;

TEST(RegularFile, ReadsFromAnyPlaceUpToItsEnd) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "0123456789");
    const platform::RegularFile file(folder / "file");
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.size(), 10U);
    std::array<char, 4> buffer{};
    EXPECT_EQ(file.readAt(3, std::as_writable_bytes(std::span(buffer))), 4U);
    EXPECT_EQ(std::string_view(buffer.data(), 4), "3456");
    EXPECT_EQ(file.readAt(8, std::as_writable_bytes(std::span(buffer))), 2U);
    EXPECT_EQ(file.readAt(10, std::as_writable_bytes(std::span(buffer))), 0U);
    EXPECT_EQ(platform::readHead(folder / "file", 3), "012");
    EXPECT_EQ(platform::readHead(folder / "file", 100), "0123456789");
}

TEST(RegularFile, NeitherWaitsForAPipeNorReadsAFolder) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"pipe", ".", "missing"}) {
        EXPECT_FALSE(platform::RegularFile(folder / name).isOpen()) << name;
        EXPECT_EQ(platform::readHead(folder / name, 10), "") << name;
    }
}

TEST(FileAccess, ReadsOwnFilesNeverThroughALink) {
    const TemporaryFolder folder;
    // Lines that end before, on and behind the border of a block, and one without its feed.
    const std::string content = "a\n" + std::string(65533, 'b') + "\n\n" + std::string(140000, 'c') + "\nend";
    writeBytes(folder / "own", content);
    fs::create_symlink("own", folder / "link");
    EXPECT_EQ(platform::readOwnFile(folder / "own"), content);
    EXPECT_EQ(platform::readOwnFile(folder / "own", content.size() - 3), "end");
    EXPECT_EQ(platform::readOwnFile(folder / "own", content.size() + 3), "");
    std::string joined;
    int lines = 0;
    EXPECT_TRUE(platform::forEachLineOfOwnFile(folder / "own", [&](std::string_view line) {
        joined.append(lines++ == 0 ? "" : "\n").append(line);
        return true;
    }));
    EXPECT_EQ(joined, content);
    EXPECT_EQ(lines, 5);
    for (const char* name : {"link", "missing", "."}) {
        EXPECT_EQ(platform::readOwnFile(folder / name), "") << name;
        EXPECT_FALSE(platform::forEachLineOfOwnFile(folder / name, [](std::string_view) { return true; }))
            << name;
        EXPECT_FALSE(platform::RegularFile(folder / name, platform::Links::Refused).isOpen()) << name;
        EXPECT_EQ(platform::MappedFile::Open(folder / name, platform::Links::Refused), nullptr) << name;
    }
}

TEST(FileAccess, WritesAnewOrBehind) {
    const TemporaryFolder folder;
    const fs::path file = folder / "report";
    using platform::WriteMode;
    EXPECT_EQ(platform::writeFile(file, WriteMode::Append, "one "), 0);
    EXPECT_EQ(platform::writeFile(file, WriteMode::Append, "two"), 0);
    EXPECT_EQ(readBytes(file), "one two");
    EXPECT_EQ(platform::writeFile(file, WriteMode::Replace, "3"), 0);
    EXPECT_EQ(readBytes(file), "3");
    EXPECT_EQ(platform::writeFile(folder / "missing" / "report", WriteMode::Replace, "3"), ENOENT);
    fs::create_symlink("report", folder / "link");
    EXPECT_EQ(platform::writeFile(folder / "link", WriteMode::Append, "4"), ELOOP);
    EXPECT_EQ(readBytes(file), "3");
}

TEST(FileAccess, NamesTheReasonOfARefusal) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "x");
    using platform::AccessRight;
    EXPECT_FALSE(platform::checkAccess(folder / "file", AccessRight::Read));
    EXPECT_FALSE(platform::checkAccess(folder.path(), AccessRight::AddFiles));
    // Also the administrator may execute only what somebody may.
    EXPECT_EQ(platform::checkAccess(folder / "file", AccessRight::Execute), std::errc::permission_denied);
    EXPECT_EQ(platform::checkAccess(folder / "none", AccessRight::Read),
              std::errc::no_such_file_or_directory);
}

TEST(UniqueFile, IsNewAndForThisUserAlone) {
    const TemporaryFolder folder;
    const platform::UniqueFile one = platform::makeUniqueFile(folder / "EXM", ".tmp");
    const platform::UniqueFile other = platform::makeUniqueFile(folder / "EXM", ".tmp");
    ASSERT_TRUE(one.isOpen() && other.isOpen());
    EXPECT_NE(one.path, other.path);
    EXPECT_THAT(one.path.filename().string(), testing::MatchesRegex("EXM......\\.tmp"));
    EXPECT_EQ(fs::status(one.path).permissions(), fs::perms(0600));
    EXPECT_EQ(platform::makeUniqueFile(folder / "missing" / "x").error, ENOENT);
    const fs::path made = platform::makeUniqueFolder(folder / "work-");
    EXPECT_EQ(fs::status(made).permissions(), fs::perms(0700));
    EXPECT_THAT(made.filename().string(), testing::MatchesRegex("work-......"));
}

TEST(OwnProcess, KnowsItsProgramItsFolderAndItsMask) {
    EXPECT_EQ(platform::ownExecutable().filename(), "platform_tests");
    EXPECT_TRUE(fs::equivalent(platform::ownWorkingFolder(), fs::current_path()));
    const mode_t before = ::umask(027);
    const std::optional<unsigned> mask = platform::ownFileMask();
    ::umask(before);
    EXPECT_EQ(mask, 027U);
}

TEST(ProgramSearch, TakesTheFirstThatCanRunFromAbsoluteFolders) {
    const TemporaryFolder folder;
    const std::string before = std::getenv("PATH");
    for (const char* name : {"none", "first", "second"}) {
        fs::create_directories(folder / name);
        writeBytes(folder / name / "tool", "x");
    }
    fs::permissions(folder / "first" / "tool", fs::perms(0755));
    fs::permissions(folder / "second" / "tool", fs::perms(0755));
    const std::string at = folder.path().string();
    ::setenv("PATH", ("first:" + at + "/none:" + at + "/missing:" + at + "/first:" + at + "/second").c_str(),
             1);
    EXPECT_EQ(platform::findProgram("tool"), folder / "first" / "tool");
    EXPECT_EQ(platform::findProgram("no-such-tool"), fs::path());
    ::setenv("PATH", before.c_str(), 1);
}
