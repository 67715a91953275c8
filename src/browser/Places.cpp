#include "browser/Places.h"

#include "browser/HistoryEntry.h"
#include "platform/Text.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>

namespace browser {
namespace {

struct KnownFolder {
    QStandardPaths::StandardLocation location;
    const char* name;
    const char* iconName;
};

constexpr std::array kKnownFolders{
    KnownFolder{QStandardPaths::HomeLocation, "Home", "user-home"},
    KnownFolder{QStandardPaths::PicturesLocation, "Pictures", "folder-pictures"},
    KnownFolder{QStandardPaths::DesktopLocation, "Desktop", "user-desktop"},
    KnownFolder{QStandardPaths::DocumentsLocation, "Documents", "folder-documents"},
    KnownFolder{QStandardPaths::DownloadLocation, "Downloads", "folder-download"},
    KnownFolder{QStandardPaths::MusicLocation, "Music", "folder-music"},
    KnownFolder{QStandardPaths::MoviesLocation, "Videos", "folder-videos"},
};

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

QString volumeIcon(std::string_view mountPoint, std::string_view device, bool network) {
    if (network) return QStringLiteral("folder-remote");
    if (device.starts_with("/dev/mmcblk")) return QStringLiteral("media-flash-sd-mmc");
    if (device.starts_with("/dev/sr")) return QStringLiteral("media-optical");
    return isRemovable(mountPoint) ? QStringLiteral("drive-removable-media")
                                   : QStringLiteral("drive-harddisk");
}

}  // namespace

std::vector<Place> knownFolders() {
    std::vector<Place> places;
    const QString home = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    for (const KnownFolder& folder : kKnownFolders) {
        const QString text = QStandardPaths::writableLocation(folder.location);
        if (text.isEmpty() || (text == home && folder.location != QStandardPaths::HomeLocation)) continue;
        const std::filesystem::path path = platform::pathFromText(text);
        std::error_code failure;
        if (std::filesystem::is_directory(path, failure))
            places.push_back({QString::fromLatin1(folder.name), path, QString::fromLatin1(folder.iconName)});
    }
    return places;
}

std::vector<Place> volumesOfMountTable(std::string_view table) {
    std::vector<Place> volumes{{QStringLiteral("File system"), "/", QStringLiteral("drive-harddisk-root")}};
    while (!table.empty()) {
        std::string_view line = table.substr(0, table.find('\n'));
        table.remove_prefix(std::min(table.size(), line.size() + 1));
        const std::string device = nextWord(line);
        const std::string mountPoint = nextWord(line);
        const std::string type = nextWord(line);
        const bool network = std::ranges::find(kNetworkTypes, type) != kNetworkTypes.end();
        const bool disk = device.starts_with("/dev/") && !device.starts_with("/dev/loop");
        const bool ofSystem = std::ranges::any_of(
            kSystemFolders, [&](std::string_view folder) { return isBelow(mountPoint, folder); });
        const bool known =
            std::ranges::any_of(volumes, [&](const Place& place) { return place.path == mountPoint; });
        if (mountPoint.empty() || known || (ofSystem && !isRemovable(mountPoint)) || !(network || disk))
            continue;
        const std::filesystem::path path(mountPoint);
        volumes.push_back({folderDisplayName(path), path, volumeIcon(mountPoint, device, network)});
    }
    return volumes;
}

std::vector<Place> mountedVolumes() {
    QFile table(QStringLiteral("/proc/self/mounts"));
    if (!table.open(QIODevice::ReadOnly)) return volumesOfMountTable({});
    const QByteArray text = table.readAll();
    return volumesOfMountTable({text.constData(), static_cast<std::size_t>(text.size())});
}

}  // namespace browser
