#pragma once

#include "app/AppContext.h"

#include <filesystem>

namespace support {

/// What a program has at hand that writes with the installed tool in the corrected form. Makes the folders
/// that it needs inside `folder`, and `photos` for the files to be written.
inline app::AppContext editingContext(const std::filesystem::path& folder) {
    for (const char* name : {"Temp", "photos", "cache"}) std::filesystem::create_directory(folder / name);
    app::AppContext context;
    context.tempPath = folder / "Temp";
    context.cachePath = folder / "cache";
    context.reportFile = folder / "cache/report.txt";
    context.exifToolPath = "/usr/bin/exiftool";
    context.settings.exifTool.correctedCommands = true;
    return context;
}

}  // namespace support
