#include "browser/Places.h"

#include "browser/BrowserTexts.h"
#include "platform/MountTable.h"

#include <gtest/gtest.h>

namespace {

TEST(Places, OffersTheVolumesOfAPerson) {
    const std::vector<browser::Place> volumes =
        browser::placesOf(platform::volumesOfMountTable("/dev/sda1 / ext4 rw 0 0\n"
                                                        "proc /proc proc rw 0 0\n"
                                                        "tmpfs /run tmpfs rw 0 0\n"
                                                        "/dev/sda2 /boot/efi vfat rw 0 0\n"
                                                        "/dev/sda3 /home ext4 rw 0 0\n"
                                                        "/dev/loop3 /snap/core squashfs ro 0 0\n"
                                                        "/dev/mmcblk0p1 /media/me/My\\040Card vfat rw 0 0\n"
                                                        "server:/pictures /mnt/pictures nfs4 rw 0 0\n"
                                                        "/dev/sda3 /home ext4 rw 0 0\n"
                                                        "short\n"));
    std::vector<std::pair<QString, std::string>> found;
    for (const browser::Place& place : volumes) found.emplace_back(place.name, place.path);
    const std::vector<std::pair<QString, std::string>> expected{
        {"", "/"}, {"home", "/home"}, {"My Card", "/media/me/My Card"}, {"pictures", "/mnt/pictures"}};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(volumes[0].textNumber, browser::text::kFileSystem);
    EXPECT_EQ(volumes[2].iconName, "media-flash-sd-mmc");
    EXPECT_EQ(volumes[3].iconName, "folder-remote");
}

TEST(Places, TheRootIsAlwaysThereAndKnownFoldersExist) {
    EXPECT_EQ(browser::placesOf(platform::volumesOfMountTable({})).size(), 1U);
    for (const browser::Place& place : browser::knownFolders())
        EXPECT_TRUE(std::filesystem::is_directory(place.path)) << place.path;
}

}  // namespace
