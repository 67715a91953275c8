#pragma once

#include "app/AppContext.h"
#include "exiftool/ToolRunner.h"
#include "platform/CommandText.h"

#include <QString>
#include <filesystem>

namespace payload {

/// The picture under a name that ExifTool takes as it is: in the corrected form a copy in the temp folder,
/// when the picture's own name may be read as a pattern. Empty when the copy cannot be made.
std::filesystem::path usablePicture(const app::AppContext& context, const std::filesystem::path& picture);

/// Whether the file begins like a JPEG.
bool isJpegFile(const std::filesystem::path& file);

struct ThumbnailWritten {
    bool wasRun = false;
    bool hasChanged = false;  ///< another file stands in the old one's place
    QString complaints;       ///< what ExifTool said in the report, in the corrected form
};

/// Runs a line that writes the file's thumbnail, a safety copy first when they are on.
ThumbnailWritten writeThumbnail(const app::AppContext& context, exiftool::ToolRunner& runner,
                                const std::filesystem::path& file, const platform::CommandText& command);

/// Says in the report how many files an operation that the user stopped has not begun.
void tellFilesLeft(const app::AppContext& context, std::size_t left);

}  // namespace payload
