#include "payload/ThumbnailWrite.h"

#include "exiftool/LineParts.h"
#include "exiftool/ReportFile.h"
#include "payload/Payload.h"
#include "payload/PayloadCommandText.h"
#include "platform/FileCopy.h"
#include "platform/MappedFile.h"
#include "platform/Text.h"

#include <sys/stat.h>

#include <fstream>

namespace payload {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPlainName = "NewThumbnail.jpg";
constexpr std::size_t kMostShown = 4096;

/// ExifTool writes a new file and renames it, which changes the number of the file's entry.
bool isSameFile(const struct stat& before, const struct stat& after) {
    return before.st_ino == after.st_ino && before.st_dev == after.st_dev &&
           before.st_size == after.st_size && before.st_ctim.tv_sec == after.st_ctim.tv_sec &&
           before.st_ctim.tv_nsec == after.st_ctim.tv_nsec;
}

QString reportBehind(const app::AppContext& context, std::uintmax_t offset) {
    std::ifstream stream(context.reportFile, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(offset));
    std::string text(kMostShown, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return platform::wide(text);
}

}  // namespace

fs::path usablePicture(const app::AppContext& context, const fs::path& picture) {
    if (!context.settings.exifTool.correctedCommands || !isNamePattern(exiftool::fileWord(picture)))
        return picture;
    const fs::path copy = context.tempPath / kPlainName;
    return platform::copyFile(picture, copy) == 0 ? copy : fs::path();
}

bool isJpegFile(const fs::path& file) {
    const auto mapped = platform::MappedFile::Open(file);
    return mapped != nullptr && kindOfPayload(mapped->bytes()) == PayloadKind::Jpeg;
}

ThumbnailWritten writeThumbnail(const app::AppContext& context, exiftool::ToolRunner& runner,
                                const fs::path& file, const platform::CommandText& command) {
    ThumbnailWritten written;
    runner.copyForSafety(file);
    struct stat before {};
    struct stat after {};
    const bool wasThere = ::stat(file.c_str(), &before) == 0;
    const std::uintmax_t reported = exiftool::reportSize(context);
    written.wasRun = runner.runWriteLine({file}, command) != 0;
    written.hasChanged = wasThere && ::stat(file.c_str(), &after) == 0 && !isSameFile(before, after);
    if (context.settings.exifTool.correctedCommands) written.complaints = reportBehind(context, reported);
    return written;
}

void tellFilesLeft(const app::AppContext& context, std::size_t left) {
    if (left == 0) return;
    exiftool::appendToReport(context, "Warning: Stopped - " + std::to_string(left) +
                                          (left == 1 ? " file was" : " files were") + " not begun");
}

}  // namespace payload
