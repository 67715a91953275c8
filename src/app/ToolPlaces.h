#pragma once

#include "app/AppContext.h"

#include <filesystem>
#include <span>

namespace app {

inline constexpr const char* kExifToolProgram = "exiftool";
inline constexpr const char* kFfmpegProgram = "ffmpeg";
inline constexpr const char* kConvertProgram = "convert";

/// One of the programs that do the work: its key in section PATHS, its program name, and its path in the
/// context.
struct ToolPlace {
    const char* key;
    const char* program;
    std::filesystem::path AppContext::*path;
};

std::span<const ToolPlace> toolPlaces();

/// The path that the settings file names for the tool, as it stands there; empty when it names none.
std::filesystem::path namedTool(const AppContext& context, const ToolPlace& tool);

/// Where a tool is found without any setting: in the install folder, then on PATH; empty when in neither.
std::filesystem::path discoverTool(const AppContext& context, const char* program);

}  // namespace app
