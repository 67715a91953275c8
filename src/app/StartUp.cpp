#include "app/StartUp.h"

#include "app/SettingsStore.h"
#include "app/ToolPlaces.h"
#include "platform/IniFile.h"
#include "platform/Text.h"

#include <QString>
#include <vector>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTempFolder = "Temp";

}  // namespace

void derivePaths(AppContext& context, const fs::path& executable) {
    context.installPath = executable.parent_path();
    context.cachePath = context.installPath / "cache";
    context.iniPath = context.cachePath / "Tagwright.ini";
    loadLanguage(context);
}

SettingsFaults preparePaths(AppContext& context, const QDate& today) {
    context.reportFile = context.installPath / "cache" / "reports" / reportName(today);
    context.tempRoot = context.installPath / kTempFolder;
    context.reportsPath = context.installPath / "cache" / "reports";
    context.savePath = context.installPath / "cache" / "sav";
    // Asked first, since saving moves a file aside that is far too big.
    SettingsFaults faults;
    faults.notRead = platform::wide(platform::IniFile(context.iniPath).loadReason());
    faults.notSaved = writePathSetting("PATHS", "InstallPath", context.iniPath, context.installPath);
    LoadEarlySettings(context);
    context.columnsHeaderPath = context.cachePath / "ColumnsHeader.ini";
    context.exifToolPath = context.installPath / kExifToolProgram;
    context.ffmpegPath = context.installPath / kFfmpegProgram;
    return faults;
}

std::string reportName(const QDate& day, int process) {
    QString name = QString::asprintf("%02d-%02d-%04d-BatchReport", day.month(), day.day(), day.year());
    if (process > 1) name += QStringLiteral("-%1").arg(process);
    return name.toStdString() + ".txt";
}

void resolveTools(AppContext& context) {
    for (const ToolPlace& tool : toolPlaces()) {
        const fs::path named = namedTool(context, tool);
        context.*tool.path = named.empty() ? discoverTool(context, tool.program) : named;
    }
    clearMissingTools(context);
    takeAsLoaded(context, "PATHS");
}

bool FindExifTool(AppContext& context) {
    std::error_code error;
    if (!context.exifToolPath.empty() && fs::is_regular_file(context.exifToolPath, error)) return true;
    context.exifToolPath.clear();
    return false;
}

QString chooseExifTool(AppContext& context, const fs::path& exifTool) {
    context.exifToolPath = exifTool;
    return saveToolPath(context, "ExifToolPath", exifTool);
}

void clearMissingTools(AppContext& context) {
    std::error_code error;
    for (fs::path* tool : {&context.ffmpegPath, &context.imageMagickPath}) {
        if (!fs::exists(*tool, error)) tool->clear();
    }
}

bool startsMaximised(const Settings::WindowPosition& position) {
    const bool placed = position.right != 0 && position.bottom != 0 && position.left >= 0;
    return !placed || position.top < 0;
}

OpenedTempFolder openTempFolder(AppContext& context, const QDate& today) {
    platform::ClaimedFolder claimed = platform::ProcessFolder::claim(context.tempRoot);
    if (!claimed.folder) return {std::nullopt, platform::wide(claimed.reason)};
    context.tempPath = claimed.folder->path();
    context.reportFile = context.reportsPath / reportName(today, claimed.folder->number());
    const std::error_code left = platform::ProcessFolder::clearAbandoned(context.tempRoot);
    return {std::move(claimed.folder), left ? platform::wide(left.message()) : QString()};
}

namespace {

bool isOwnTempRoot(const AppContext& context) {
    std::error_code error;
    if (!context.installPath.is_absolute() || context.tempRoot != context.installPath / kTempFolder)
        return false;
    const fs::file_type type = fs::symlink_status(context.tempRoot, error).type();
    return type == fs::file_type::directory || type == fs::file_type::not_found;
}

/// What no process has put there: the folder is emptied at the end of the program, as it was when there was
/// one only.
std::error_code removeStrangers(const fs::path& root) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(root, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    std::error_code first = error == std::errc::no_such_file_or_directory ? std::error_code() : error;
    for (const fs::path& entry : entries) {
        if (platform::ProcessFolder::isProcessName(entry.filename().native())) continue;
        fs::remove_all(entry, error);  // takes a link away, not what it points to
        if (error && !first) first = error;
    }
    return first;
}

}  // namespace

QString closeTempFolder(const AppContext& context, platform::ProcessFolder& folder) {
    if (!isOwnTempRoot(context))
        return platform::wide(std::make_error_code(std::errc::operation_not_permitted).message());
    std::error_code first = folder.remove();
    const std::error_code strangers = removeStrangers(context.tempRoot);
    if (!first) first = strangers;
    std::error_code error;
    fs::create_directories(context.tempRoot, error);
    if (!first) first = error;
    return first ? platform::wide(first.message()) : QString();
}

}  // namespace app
