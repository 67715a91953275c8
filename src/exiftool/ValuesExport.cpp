#include "exiftool/ValuesExport.h"

#include "exiftool/LineParts.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace exiftool {

namespace fs = std::filesystem;
using platform::CommandText;

namespace {

// clang-format off
constexpr auto kExports = std::to_array<ValuesExport>({
    {10034, ".txt",  ""},
    {10040, ".txt",  "-s -G1 "},
    {10041, ".txt",  "-n "},
    {10035, ".csv",  "-csv "},
    {10036, ".html", "-h "},
    {10039, ".html", "-h -g1 "},
    {10037, ".xml",  "-X "},
    {10038, ".mie",  "-o -.mie "},
});
// clang-format on

}  // namespace

std::span<const ValuesExport> valuesExports() {
    return kExports;
}

const ValuesExport* findValuesExport(app::CommandId command) {
    const auto* found = std::ranges::find(kExports, command, &ValuesExport::command);
    return found == kExports.end() ? nullptr : found;
}

fs::path exportTarget(const fs::path& file, const ValuesExport& format) {
    fs::path target = file;
    target.replace_extension(format.extension);
    std::error_code error;
    if (target != file && !fs::equivalent(target, file, error)) return target;
    target = file;
    target += format.extension;
    return target;
}

CommandText exportFileWord(const fs::path& file) {
    return CommandText("\"").outside(fileWord(file)).literal("\"");
}

CommandText exportOutputWord(const app::AppContext& context, app::CommandForm form, const fs::path& output) {
    CommandText word("\"");
    return word.outside(platform::narrow(output)).literal("\"").append(reportBehind(context, form));
}

}  // namespace exiftool
