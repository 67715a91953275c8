#include "batch/BatchLines.h"

#include "exiftool/LineParts.h"
#include "exiftool/WriteCommands.h"

namespace batch {

namespace fs = std::filesystem;
using app::CommandForm;
using exiftool::fileWord;
using exiftool::reportBehind;
using exiftool::toolStart;
using platform::CommandText;
namespace fragments = exiftool::fragments;

namespace {

// A count is digits. A name put together from the text of a tag must not lead to another folder, hide the
// file or take apart the pattern (%d is a folder); and one of nothing is no name: "undefined" makes ExifTool
// leave the file as it is and say so.
constexpr std::string_view kCountPart = "${ShutterCount;tr/0-9//cd;$_=undef if !length}";
constexpr std::string_view kTextPartEnd =
    R"(;tr!/\\?*:|<>\x22\x25\x00-\x1f\x7f!!d;s/^\s+|\s+$//g;$_=undef if !length})";

}  // namespace

CommandText fileDateLine(const app::AppContext& context, CommandForm form, const fs::path& file) {
    CommandText line = toolStart(context);
    line.literal("-overwrite_original -FileModifyDate<DateTimeOriginal ");
    if (form == CommandForm::Corrected) line.literal(fragments::kFileNameCharset);
    line.literal("\"").outside(fileWord(file)).literal("\"");
    return line.append(reportBehind(context, form));
}

CommandText shutterCountLine(const app::AppContext& context, CommandForm form, const fs::path& file) {
    CommandText line = toolStart(context);
    if (form == CommandForm::Corrected)
        line.literal(fragments::kFileNameCharset)
            .literal("\"-FileName<")
            .literal(kCountPart)
            .literal("%-c.%e\" ");
    else
        line.literal("\"-FileName <${ShutterCount;}.%e\" ");
    return line.literal("\"").outside(fileWord(file)).literal("\"").append(reportBehind(context));
}

CommandText dateAndCameraArguments(CommandForm form, CameraPart part, Naming naming) {
    const std::string_view tag = part == CameraPart::Make ? "Make" : "Model";
    CommandText arguments("-d \"%%Y-%%m-%%d %%H-%%M-%%S\" ");
    if (form == CommandForm::Designed)
        return arguments.literal("\"-FileName<${FileCreateDate;} - ${").literal(tag).literal(";}-%%f.%%e\" ");
    arguments.literal(naming == Naming::Given ? "\"-FileName" : "\"-TestName");
    arguments.literal("<${DateTimeOriginal;} - ${").literal(tag).literal(kTextPartEnd);
    return arguments.literal("-%%f%%-c.%%e\" ").literal(fragments::kFileNameCharset);
}

CommandText toldNamesLine(const app::AppContext& context, CameraPart part, std::span<const fs::path> files) {
    CommandText line = toolStart(context);
    line.append(dateAndCameraArguments(CommandForm::Corrected, part, Naming::Told));
    for (const fs::path& file : files) line.literal("\"").outside(fileWord(file)).literal("\" ");
    return line;
}

std::vector<ToldName> toldNames(std::string_view printed) {
    constexpr std::string_view kBetween = "' --> '";
    const auto nameOf = [](std::string_view path) { return std::string(path.substr(path.rfind('/') + 1)); };
    std::vector<ToldName> names;
    while (!printed.empty()) {
        const std::size_t end = printed.find('\n');
        const std::string_view line = printed.substr(0, end);
        printed.remove_prefix(end == std::string_view::npos ? printed.size() : end + 1);
        const std::size_t between = line.find(kBetween);
        if (between == std::string_view::npos || !line.starts_with('\'') || !line.ends_with('\'')) continue;
        std::string_view after = line.substr(between + kBetween.size());
        after.remove_suffix(1);
        names.push_back({nameOf(line.substr(1, between - 1)), nameOf(after)});
    }
    return names;
}

CommandText thumbnailArguments(CommandForm form, const std::vector<fs::path>& filesSoFar) {
    CommandText arguments;
    if (form == CommandForm::Corrected)
        return arguments.literal("-ThumbnailImage= ")
            .literal(fragments::kOverwriteOriginal)
            .literal(fragments::kFileNameCharset);
    for (const fs::path& file : filesSoFar)
        arguments.literal("-ThumbnailImage=\"").outside(fileWord(file)).literal("\"");
    return arguments;
}

}  // namespace batch
