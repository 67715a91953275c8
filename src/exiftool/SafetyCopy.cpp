#include "exiftool/SafetyCopy.h"

#include "platform/FileCopy.h"
#include "platform/PrivateFolders.h"
#include "platform/Text.h"

#include <QLocale>
#include <algorithm>
#include <cstdint>
#include <system_error>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

/// In bytes, as the file systems of this platform have it.
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestExtension = 32;

/// A path in three pieces of bytes, whose joining gives it back.
struct SplitPath {
    std::string folder;  ///< with its separator
    std::string base;
    std::string extension;  ///< from the last dot on
};

SplitPath split(const fs::path& file) {
    const std::string& whole = file.native();
    const std::size_t name = whole.rfind('/') + 1;  // 0 without one
    const std::size_t dot = whole.rfind('.');
    const std::size_t extension = dot == std::string::npos || dot < name ? whole.size() : dot;
    return {whole.substr(0, name), whole.substr(name, extension - name), whole.substr(extension)};
}

std::string targetFolder(const SplitPath& parts, const fs::path& cachePath, const SafetyCopies& settings) {
    switch (settings.SafetyCopyFolderMode) {
        case 0:
            return parts.folder + "/sav";
        case 1:
            return cachePath.native() + "/sav" + parts.folder;
        default:
            return settings.SafetyCopyFolder.native();
    }
}

/// Makes the folder of the copy. What permissions the copy may have there.
fs::perms makeTargetFolder(const fs::path& file, const fs::path& cachePath, const SafetyCopies& settings) {
    using platform::Privacy;
    const SplitPath parts = split(file);
    const fs::path target = targetFolder(parts, cachePath, settings);
    Privacy privacy = Privacy::Kept;
    std::error_code error;
    switch (settings.SafetyCopyFolderMode) {
        case 0:
            privacy = platform::makeFolderLike(target, parts.folder);
            break;
        case 1:
            privacy = platform::repeatFolders(cachePath / "sav", parts.folder);
            break;
        default:
            // Files of many folders come together in one.
            fs::create_directories(target, error);
            return platform::permissionsInReach(file);
    }
    return privacy == Privacy::Kept ? fs::perms::mask : fs::perms::owner_all;
}

std::string dateText(const QDateTime& now) {
    QString date = QLocale().toString(now.date(), QLocale::ShortFormat);
    date.replace(u'/', u'-').replace(u':', u'-');
    return (date + now.time().toString(QStringLiteral("  hh-mm-ss"))).toStdString();
}

/// The beginning of a name that leaves no room for the mark, with a number in the place of the rest, by which
/// files whose names begin alike have copies of their own. before: bytes of the name that stand there
/// already.
std::string shortName(const SplitPath& parts, const std::string& mark, std::size_t before) {
    std::uint32_t number = 2166136261U;  // FNV-1a
    for (const char byte : parts.base + parts.extension)
        number = (number ^ static_cast<unsigned char>(byte)) * 16777619U;
    const bool hasExtension = parts.extension.size() <= kLongestExtension;
    const std::string end = '~' + std::to_string(number) + '-' + mark + (hasExtension ? parts.extension : "");
    const std::string start = hasExtension ? parts.base : parts.base + parts.extension;
    std::size_t length = kLongestName - std::min(kLongestName, before + end.size());
    // No letter is cut in two.
    while (length > 0 && length < start.size() && (static_cast<unsigned char>(start[length]) & 0xC0) == 0x80)
        --length;
    return start.substr(0, length) + end;
}

}  // namespace

fs::path safetyCopyPath(const fs::path& file, const fs::path& cachePath, const SafetyCopies& settings,
                        const QDateTime& now) {
    const SplitPath parts = split(file);
    const std::string mark = settings.SafetyCopyDated != 0 ? dateText(now) : "sav";
    const std::string folder = targetFolder(parts, cachePath, settings);
    const std::size_t before = folder.size() - (folder.rfind('/') + 1);
    const std::string name = parts.base + '-' + mark + parts.extension;
    return folder + (before + name.size() <= kLongestName ? name : shortName(parts, mark, before));
}

QString MakeSafetyCopy(const fs::path& file, const fs::path& cachePath, const SafetyCopies& settings) {
    std::error_code error;
    const fs::path whole = file.is_absolute() ? file : fs::absolute(file, error);
    // Without the folder the copy fails and says why.
    const fs::perms atMost = makeTargetFolder(whole, cachePath, settings);
    const int failure = platform::copyFile(
        whole, safetyCopyPath(whole, cachePath, settings, QDateTime::currentDateTime()), atMost);
    if (failure == 0) return {};
    return QStringLiteral("CopyFile failed with error %1: %2")
        .arg(QString::number(failure), platform::wide(std::system_category().message(failure)));
}

}  // namespace exiftool
