#include "exiftool/SafetyCopy.h"

#include "platform/FileCopy.h"
#include "platform/PrivateFolders.h"
#include "platform/Text.h"

#include <QLocale>
#include <system_error>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

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

}  // namespace

fs::path safetyCopyPath(const fs::path& file, const fs::path& cachePath, const SafetyCopies& settings,
                        const QDateTime& now) {
    const SplitPath parts = split(file);
    const std::string mark = settings.SafetyCopyDated != 0 ? dateText(now) : "sav";
    return targetFolder(parts, cachePath, settings) + parts.base + '-' + mark + parts.extension;
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
