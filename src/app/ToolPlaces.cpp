#include "app/ToolPlaces.h"

#include "platform/IniFile.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

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
    const char* variable = std::getenv("PATH");
    std::string_view rest = variable == nullptr ? std::string_view() : std::string_view(variable);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        fs::path candidate = fs::path(rest.substr(0, end)) / program;
        if (candidate.is_absolute() && fs::is_regular_file(candidate, error) &&
            access(candidate.c_str(), X_OK) == 0)
            return candidate;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

}  // namespace app
