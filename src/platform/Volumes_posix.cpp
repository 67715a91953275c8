#include "platform/MountTable.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string>

namespace platform {
namespace {

constexpr const char* kMountTable = "/proc/self/mounts";

constexpr std::array<std::string_view, 9> kNetworkTypes{
    "nfs", "nfs4", "cifs", "smb3", "davfs", "fuse.sshfs", "fuse.rclone", "9p", "virtiofs"};
// Where a system keeps parts of itself on volumes of their own.
constexpr std::array<std::string_view, 9> kSystemFolders{"/boot", "/snap", "/var", "/usr", "/etc",
                                                         "/proc", "/sys",  "/dev", "/nix"};

bool isBelow(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool isRemovable(std::string_view mountPoint) {
    return isBelow(mountPoint, "/media") || isBelow(mountPoint, "/run/media");
}

/// The next blank-separated word of the line; blanks in names stand there as \040 and so on.
std::string nextWord(std::string_view& line) {
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(line.size(), word.size() + 1));
    std::string text;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const auto octal = [&](std::size_t at) { return word[at] >= '0' && word[at] <= '7'; };
        if (word[i] == '\\' && i + 3 < word.size() && octal(i + 1) && octal(i + 2) && octal(i + 3)) {
            text +=
                static_cast<char>((word[i + 1] - '0') * 64 + (word[i + 2] - '0') * 8 + (word[i + 3] - '0'));
            i += 3;
        } else {
            text += word[i];
        }
    }
    return text;
}

VolumeKind kindOf(std::string_view mountPoint, std::string_view device, bool isNetwork) {
    if (isNetwork) return VolumeKind::Network;
    if (device.starts_with("/dev/mmcblk")) return VolumeKind::MemoryCard;
    if (device.starts_with("/dev/sr")) return VolumeKind::Optical;
    return isRemovable(mountPoint) ? VolumeKind::Removable : VolumeKind::Disk;
}

}  // namespace

std::vector<Volume> volumesOfMountTable(std::string_view table) {
    std::vector<Volume> volumes{{"/", VolumeKind::Root}};
    while (!table.empty()) {
        std::string_view line = table.substr(0, table.find('\n'));
        table.remove_prefix(std::min(table.size(), line.size() + 1));
        const std::string device = nextWord(line);
        const std::string mountPoint = nextWord(line);
        const std::string type = nextWord(line);
        const bool isNetwork = std::ranges::find(kNetworkTypes, type) != kNetworkTypes.end();
        const bool isDisk = device.starts_with("/dev/") && !device.starts_with("/dev/loop");
        const bool isOfSystem = std::ranges::any_of(
            kSystemFolders, [&](std::string_view folder) { return isBelow(mountPoint, folder); });
        const bool isKnown =
            std::ranges::any_of(volumes, [&](const Volume& volume) { return volume.folder == mountPoint; });
        if (mountPoint.empty() || isKnown || (isOfSystem && !isRemovable(mountPoint)) ||
            !(isNetwork || isDisk))
            continue;
        volumes.push_back({mountPoint, kindOf(mountPoint, device, isNetwork)});
    }
    return volumes;
}

std::vector<Volume> mountedVolumes() {
    std::ifstream table(kMountTable, std::ios::binary);
    return volumesOfMountTable(
        std::string(std::istreambuf_iterator<char>(table), std::istreambuf_iterator<char>()));
}

std::uint64_t clusterBytes(const std::filesystem::path& folder) {
    struct statvfs volume;
    return ::statvfs(folder.c_str(), &volume) == 0 ? volume.f_frsize : 0;
}

}  // namespace platform
