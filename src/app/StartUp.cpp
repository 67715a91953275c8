#include "app/StartUp.h"

#include "app/SettingsStore.h"
#include "app/ToolPlaces.h"

#include <QString>

namespace app {

namespace fs = std::filesystem;

void derivePaths(AppContext& context, const fs::path& executable) {
    context.installPath = executable.parent_path();
    context.cachePath = context.installPath / "cache";
    context.iniPath = context.cachePath / "Tagwright.ini";
    loadLanguage(context);
}

QString preparePaths(AppContext& context, const QDate& today) {
    context.reportFile = context.installPath / "cache" / "reports" / reportName(today);
    context.tempPath = context.installPath / "Temp";
    context.reportsPath = context.installPath / "cache" / "reports";
    context.savePath = context.installPath / "cache" / "sav";
    QString problem = writePathSetting("PATHS", "InstallPath", context.iniPath, context.installPath);
    LoadEarlySettings(context);
    context.columnsHeaderPath = context.cachePath / "ColumnsHeader.ini";
    context.exifToolPath = context.installPath / kExifToolProgram;
    context.ffmpegPath = context.installPath / kFfmpegProgram;
    return problem;
}

std::string reportName(const QDate& day) {
    return QString::asprintf("%02d-%02d-%04d-BatchReport.txt", day.month(), day.day(), day.year())
        .toStdString();
}

void resolveTools(AppContext& context) {
    for (const ToolPlace& tool : toolPlaces()) {
        const fs::path named = namedTool(context, tool);
        context.*tool.path = named.empty() ? discoverTool(context, tool.program) : named;
    }
    clearMissingTools(context);
}

bool FindExifTool(AppContext& context) {
    std::error_code error;
    if (!context.exifToolPath.empty() && fs::is_regular_file(context.exifToolPath, error)) return true;
    context.exifToolPath.clear();
    return false;
}

QString chooseExifTool(AppContext& context, const fs::path& exifTool) {
    context.exifToolPath = exifTool;
    return writePathSetting("PATHS", "ExifToolPath", context.iniPath, exifTool);
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

namespace {

bool isOwnTempFolder(const AppContext& context) {
    std::error_code error;
    if (!context.installPath.is_absolute() || context.tempPath != context.installPath / "Temp") return false;
    const fs::file_type type = fs::symlink_status(context.tempPath, error).type();
    return type == fs::file_type::directory || type == fs::file_type::not_found;
}

}  // namespace

std::error_code emptyTempFolder(const AppContext& context) {
    if (!isOwnTempFolder(context)) return std::make_error_code(std::errc::operation_not_permitted);
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(context.tempPath, error), end; !error && entry != end;
         entry.increment(error))
        entries.push_back(entry->path());
    std::error_code first;
    for (const fs::path& entry : entries) {
        fs::remove_all(entry, error);  // takes a link away, not what it points to
        if (error && !first) first = error;
    }
    fs::create_directories(context.tempPath, error);
    return first ? first : error;
}

}  // namespace app
