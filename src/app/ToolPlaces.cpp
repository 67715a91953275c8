#include "app/ToolPlaces.h"

#include "platform/IniFile.h"
#include "platform/ProgramSearch.h"

#include <array>
#include <string>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr auto kToolPlaces = std::to_array<ToolPlace>({
    {"ExifToolPath", kExifToolProgram, &AppContext::exifToolPath},
    {"FFMpegPath", kFfmpegProgram, &AppContext::ffmpegPath},
    {"ImageMagickPath", kConvertProgram, &AppContext::imageMagickPath},
});

}  // namespace

std::span<const ToolPlace> toolPlaces() {
    return kToolPlaces;
}

fs::path namedTool(const AppContext& context, const ToolPlace& tool) {
    const platform::IniFile ini(context.iniPath);
    return fs::path(ini.find("PATHS", tool.key).value_or(std::string()));
}

fs::path discoverTool(const AppContext& context, const char* program) {
    std::error_code error;
    fs::path beside = context.installPath / program;
    if (fs::is_regular_file(beside, error)) return beside;
    return platform::findProgram(program);
}

}  // namespace app
