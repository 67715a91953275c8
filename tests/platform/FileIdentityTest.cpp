#include "platform/FileIdentity.h"

#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

namespace fs = std::filesystem;
using support::TemporaryFolder;
using support::writeBytes;

namespace {

/// So that no write falls into the same tick of the clock as the one before.
void setOld(const fs::path& file) {
    const timespec times[] = {{1'000'000'000, 5}, {1'000'000'000, 7}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
}

}  // namespace

TEST(FileIdentity, TellsWritesOtherFilesAndChangedPermissionsApart) {
    const TemporaryFolder folder;
    const fs::path file = folder / "photo.jpg";
    writeBytes(file, "bytes");
    setOld(file);
    const auto before = platform::identifyFile(file);
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 5);
    EXPECT_EQ(before->modifiedNanoseconds, 1'000'000'000'000'000'007);
    EXPECT_EQ(platform::identifyFile(file), before);

    auto permitted = before;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (permitted == before && std::chrono::steady_clock::now() < end) {
        ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
        permitted = platform::identifyFile(file);
    }
    EXPECT_NE(permitted, before);
    EXPECT_TRUE(platform::isSameContent(*before, *permitted));

    writeBytes(file, "BYTES");
    EXPECT_FALSE(platform::isSameContent(*before, *platform::identifyFile(file)));

    writeBytes(folder / "other", "bytes");
    setOld(folder / "other");
    fs::rename(folder / "other", file);
    EXPECT_FALSE(platform::isSameContent(*before, *platform::identifyFile(file)));
}

TEST(FileIdentity, FollowsLinksAndKnowsRegularFilesOnly) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "x");
    fs::create_symlink("file", folder / "link");
    fs::create_symlink("nowhere", folder / "broken");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(platform::identifyFile(folder / "link"), platform::identifyFile(folder / "file"));
    for (const char* name : {"broken", "pipe", "missing", "."})
        EXPECT_FALSE(platform::identifyFile(folder / name)) << name;
    for (const char* name : {"broken", "pipe", "link"})
        EXPECT_TRUE(platform::isNameTaken(folder / name)) << name;
    EXPECT_FALSE(platform::isNameTaken(folder / "missing"));
}

TEST(FileIdentity, OfADescriptorIsThatOfItsFile) {
    const TemporaryFolder folder;
    writeBytes(folder / "file", "x");
    const int opened = ::open((folder / "file").c_str(), O_RDONLY);
    EXPECT_EQ(platform::identifyDescriptor(opened), platform::identifyFile(folder / "file"));
    ::close(opened);
    EXPECT_FALSE(platform::identifyDescriptor(opened));
}
