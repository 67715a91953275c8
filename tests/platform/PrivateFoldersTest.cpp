#include "platform/PrivateFolders.h"

#include "platform/FileCopy.h"
#include "support/TemporaryFolder.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using platform::Privacy;

constexpr gid_t kStrangeGroup = 54321;

unsigned modeOf(const fs::path& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts.st_mode & 07777U;
}

class PrivateFoldersTest : public ::testing::Test {
 protected:
    /// A folder of photos; the folders above it let everybody through.
    fs::path photos(const std::string& name, unsigned mode) {
        fs::path folder = folder_ / name;
        fs::create_directories(folder);
        EXPECT_EQ(chmod(folder_.path().c_str(), 0755), 0);
        EXPECT_EQ(chmod(folder.c_str(), mode), 0);
        return folder;
    }
    fs::path placeOf(const fs::path& folder) const { return root_.native() + folder.native(); }

    support::TemporaryFolder folder_;
    fs::path root_ = folder_ / "cache/sav";
};

TEST_F(PrivateFoldersTest, EachFolderHasThePermissionsOfTheOneItRepeats) {
    const struct {
        unsigned original;
        unsigned repeated;
    } cases[] = {{0700, 0700},   {0750, 0750}, {0711, 0711}, {0755, 0755},
                 {01777, 01777}, {0555, 0755}, {0500, 0700}, {02770, 0770}};
    for (const auto& [original, repeated] : cases) {
        const fs::path folder = photos("mode" + std::to_string(original), original);
        EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
        EXPECT_EQ(modeOf(placeOf(folder)), repeated) << std::oct << original;
        EXPECT_EQ(modeOf(placeOf(folder_.path())), 0755u);
    }
}

TEST_F(PrivateFoldersTest, AFolderThatBecamePrivateMakesTheOneThatRepeatsItPrivate) {
    const fs::path folder = photos("photos", 0755);
    ASSERT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
    ASSERT_EQ(modeOf(placeOf(folder)), 0755u);
    photos("photos", 0700);
    EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
    EXPECT_EQ(modeOf(placeOf(folder)), 0700u);
    photos("photos", 0777);
    EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
    EXPECT_EQ(modeOf(placeOf(folder)), 0700u) << "nothing is ever widened";
}

TEST_F(PrivateFoldersTest, APathThroughALinkIsAsPrivateAsWhereItLeads) {
    const fs::path hidden = photos("hidden", 0755);
    fs::create_directories(hidden / "photos");
    ASSERT_EQ(chmod((hidden / "photos").c_str(), 0755), 0);
    fs::create_directory_symlink(hidden / "photos", folder_ / "short");
    photos("hidden", 0700);
    EXPECT_EQ(platform::repeatFolders(root_, folder_ / "short"), Privacy::Kept);
    EXPECT_EQ(modeOf(placeOf(folder_ / "short")), 0700u);
}

TEST_F(PrivateFoldersTest, APlaceThatIsALinkIsLeftAloneAndTold) {
    const fs::path folder = photos("photos", 0700);
    const fs::path precious = photos("precious", 0755);
    fs::create_directories(placeOf(folder_.path()));
    fs::create_directory_symlink(precious, placeOf(folder));
    EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Lost);
    EXPECT_EQ(modeOf(precious), 0755u);
}

TEST_F(PrivateFoldersTest, TheReachOfAFileEndsWhereAFolderLetsNobodyThrough) {
    const struct {
        unsigned folder;
        fs::perms reach;
    } cases[] = {{0755, fs::perms::all},
                 {0700, fs::perms::owner_all},
                 {0750, fs::perms::owner_all | fs::perms::group_all},
                 {0705, fs::perms::owner_all | fs::perms::others_all},
                 {0744, fs::perms::owner_all}};
    for (const auto& [mode, reach] : cases) {
        const fs::path folder = photos("photos", 0755);
        support::writeBytes(folder / "a.jpg", "x");
        photos("photos", mode);
        EXPECT_EQ(platform::permissionsInReach(folder / "a.jpg"), reach) << std::oct << mode;
    }
    EXPECT_EQ(platform::permissionsInReach(folder_ / "missing"), fs::perms::owner_all);
}

TEST_F(PrivateFoldersTest, AnotherGroupGetsNoMoreThanBothHad) {
    if (geteuid() != 0) GTEST_SKIP() << "only the administrator can give files to any group";
    const fs::path folder = photos("photos", 0755);
    fs::create_directories(placeOf(folder));
    ASSERT_EQ(chown(folder.c_str(), static_cast<uid_t>(-1), kStrangeGroup), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0750), 0);
    EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
    EXPECT_EQ(modeOf(placeOf(folder)), 0700u) << "it was there with our own group";

    fs::remove(placeOf(folder));
    EXPECT_EQ(platform::repeatFolders(root_, folder), Privacy::Kept);
    struct stat facts {};
    ASSERT_EQ(stat(placeOf(folder).c_str(), &facts), 0);
    EXPECT_EQ(facts.st_gid, kStrangeGroup);
    EXPECT_EQ(modeOf(placeOf(folder)), 0750u);
}

TEST_F(PrivateFoldersTest, ACopyHasTheFilesPermissionsOrFewer) {
    const fs::path file = folder_ / "a.jpg";
    support::writeBytes(file, "x");
    for (const unsigned mode : {0600U, 0640U, 0644U, 0444U, 0666U}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        fs::remove(folder_ / "copy.jpg");
        ASSERT_EQ(platform::copyFile(file, folder_ / "copy.jpg"), 0);
        EXPECT_EQ(modeOf(folder_ / "copy.jpg"), mode);
        ASSERT_EQ(platform::copyFile(file, folder_ / "copy.jpg", fs::perms::owner_all), 0);
        EXPECT_EQ(modeOf(folder_ / "copy.jpg"), mode & 0700U) << "also in the place of a wider one";
    }
}

}  // namespace
