#include "browser/Places.h"

#include "browser/BrowserTexts.h"
#include "browser/HistoryEntry.h"
#include "platform/Text.h"

#include <QStandardPaths>
#include <array>

namespace browser {
namespace {

struct KnownFolder {
    QStandardPaths::StandardLocation location;
    int textNumber;
    const char* iconName;
};

constexpr std::array kKnownFolders{
    KnownFolder{QStandardPaths::HomeLocation, text::kHome, "user-home"},
    KnownFolder{QStandardPaths::PicturesLocation, text::kPictures, "folder-pictures"},
    KnownFolder{QStandardPaths::DesktopLocation, text::kDesktop, "user-desktop"},
    KnownFolder{QStandardPaths::DocumentsLocation, text::kDocuments, "folder-documents"},
    KnownFolder{QStandardPaths::DownloadLocation, text::kDownloads, "folder-download"},
    KnownFolder{QStandardPaths::MusicLocation, text::kMusic, "folder-music"},
    KnownFolder{QStandardPaths::MoviesLocation, text::kVideos, "folder-videos"},
};

QString volumeIcon(platform::VolumeKind kind) {
    using Kind = platform::VolumeKind;
    switch (kind) {
        case Kind::Root:
            return QStringLiteral("drive-harddisk-root");
        case Kind::Removable:
            return QStringLiteral("drive-removable-media");
        case Kind::MemoryCard:
            return QStringLiteral("media-flash-sd-mmc");
        case Kind::Optical:
            return QStringLiteral("media-optical");
        case Kind::Network:
            return QStringLiteral("folder-remote");
        case Kind::Disk:
            break;
    }
    return QStringLiteral("drive-harddisk");
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
            places.push_back({{}, path, QString::fromLatin1(folder.iconName), folder.textNumber});
    }
    return places;
}

std::vector<Place> placesOf(std::span<const platform::Volume> volumes) {
    std::vector<Place> places;
    for (const platform::Volume& volume : volumes) {
        const bool isRoot = volume.kind == platform::VolumeKind::Root;
        places.push_back({isRoot ? QString() : folderDisplayName(volume.folder), volume.folder,
                          volumeIcon(volume.kind), isRoot ? text::kFileSystem : 0});
    }
    return places;
}

std::vector<Place> mountedVolumes() {
    return placesOf(platform::mountedVolumes());
}

}  // namespace browser
