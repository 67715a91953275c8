#include "edit/ThumbnailWrite.h"

#include "edit/Payload.h"
#include "edit/PayloadCommandText.h"
#include "edit/ReportTail.h"
#include "exiftool/LineParts.h"
#include "platform/FileCopy.h"
#include "platform/MappedFile.h"
#include "platform/Text.h"

#include <sys/stat.h>

namespace edit {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPlainName = "NewThumbnail.jpg";

/// ExifTool writes a new file and renames it, which changes the number of the file's entry.
bool isSameFile(const struct stat& before, const struct stat& after) {
    return before.st_ino == after.st_ino && before.st_dev == after.st_dev &&
           before.st_size == after.st_size && before.st_ctim.tv_sec == after.st_ctim.tv_sec &&
           before.st_ctim.tv_nsec == after.st_ctim.tv_nsec;
}

}  // namespace

fs::path UsablePicture(const app::AppContext& context, const fs::path& picture) {
    if (!context.settings.exifTool.correctedCommands || !IsNamePattern(exiftool::FileWord(picture)))
        return picture;
    const fs::path copy = context.tempPath / kPlainName;
    return platform::copyFile(picture, copy) == 0 ? copy : fs::path();
}

bool IsJpegFile(const fs::path& file) {
    const auto mapped = platform::MappedFile::Open(file);
    return mapped != nullptr && KindOfPayload(mapped->bytes()) == PayloadKind::Jpeg;
}

ThumbnailWritten WriteThumbnail(const app::AppContext& context, exiftool::ToolRunner& runner,
                                const fs::path& file, const platform::CommandText& command) {
    ThumbnailWritten written;
    runner.CopyForSafety(file);
    struct stat before {};
    struct stat after {};
    const bool wasThere = ::stat(file.c_str(), &before) == 0;
    const ReportTail report(context.reportFile);
    written.wasRun = runner.RunWriteLine({file}, command) != 0;
    written.hasChanged = wasThere && ::stat(file.c_str(), &after) == 0 && !isSameFile(before, after);
    if (context.settings.exifTool.correctedCommands) written.complaints = platform::wide(report.read());
    return written;
}

}  // namespace edit
