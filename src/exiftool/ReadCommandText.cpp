#include "exiftool/CategorySelectors.h"
#include "exiftool/ReadCommands.h"
#include "platform/Text.h"

#include <array>

namespace exiftool {

namespace fs = std::filesystem;
using platform::CommandText;

namespace {

constexpr auto kLanguageCodes = std::to_array<std::string_view>(
    {"ce", "de", "en", "es", "fi", "fr", "it", "ja", "ko", "nl", "pl", "ru", "sv", "tr", "zh-cn", "zh-tw"});
constexpr std::size_t kEnglish = 2;
constexpr std::string_view kFileNameCharset = "-charset filename=UTF8 ";

/// With this off a category is read without tags that stand twice. Nothing sets it.
constexpr bool kReadAllDuplicates = false;

bool isCorrected(const app::AppContext& context) {
    return context.settings.exifTool.correctedCommands;
}

CommandText toolStart(const app::AppContext& context) {
    CommandText command;
    return command.literal("\"").outside(platform::narrow(context.exifToolPath)).literal("\" ");
}

/// ExifTool refuses to work in the language "ce"; Czech is "cs".
CommandText toolStartWithLanguage(const app::AppContext& context) {
    const std::string_view code = LanguageCode(context.settings.exifTool.dataLanguage);
    return toolStart(context).literal("-lang ").literal(isCorrected(context) && code == "ce" ? "cs" : code);
}

/// Always absolute: a relative name could begin with a hyphen and be taken for an option.
std::string fileWord(const fs::path& file) {
    std::error_code error;
    const fs::path whole = file.is_absolute() ? file : fs::absolute(file, error);
    return platform::narrow(error ? file : whole);
}

CommandText& appendFile(CommandText& command, const fs::path& file, const fs::path& output) {
    return command.literal("\"")
        .outside(fileWord(file))
        .literal("\" >\"")
        .outside(platform::narrow(output))
        .literal("\"");
}

void appendExclusions(CommandText& command, const app::Settings::ExifTool& settings) {
    if (settings.ignoreXml) command.literal(" -x XML:All");
    if (settings.ignoreFile) command.literal(" -x File:All");
}

void appendCategory(CommandText& command, int categoryId, bool corrected) {
    if (categoryId == kCategoryOfEverything) return;
    const auto* const row = std::lower_bound(
        kCategorySelectors.begin(), kCategorySelectors.end(), categoryId,
        [](const CategorySelector& selector, int wanted) { return selector.categoryId < wanted; });
    if (row == kCategorySelectors.end() || row->categoryId != categoryId) {
        command.literal(kOtherCategorySelector);
    } else if (!corrected || row->designed.ends_with(' ')) {
        command.literal(row->designed);
    } else if (!row->corrected.empty()) {
        command.literal(row->corrected);
    } else {
        command.literal(row->designed).literal(":All ");
    }
}

}  // namespace

std::string_view LanguageCode(int dataLanguage) {
    const auto index = static_cast<std::size_t>(dataLanguage);
    return kLanguageCodes[index < kLanguageCodes.size() ? index : kEnglish];
}

CommandText PanelReadCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command = toolStartWithLanguage(context).literal(" -a -u");
    appendExclusions(command, context.settings.exifTool);
    command.literal(" -sort -S -G1 -H --ExifToolVersion -x System:all ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText GroupAllCommand(const app::AppContext& context, const fs::path& file, const fs::path& output,
                            std::string_view groupName) {
    CommandText command = toolStartWithLanguage(context).literal(" -sort -S -G1 --ExifToolVersion -");
    command.outside(groupName).literal(":All ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText CategoryCommand(const app::AppContext& context, const fs::path& file, const fs::path& output,
                            int categoryId) {
    CommandText command = toolStartWithLanguage(context);
    if (kReadAllDuplicates) command.literal(" -a");
    appendExclusions(command, context.settings.exifTool);
    if (context.settings.exifTool.ignoreComposite) command.literal(" -e");
    command.literal(" -sort -S -G1 --ExifToolVersion ");
    appendCategory(command, categoryId, isCorrected(context));
    if (isCorrected(context)) command.literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText OneValueCommand(const app::AppContext& context, const fs::path& file, const fs::path& output,
                            std::string_view tagName, bool numeric) {
    CommandText command = toolStartWithLanguage(context);
    // -echo4 takes the -S behind it as the text to print.
    command.literal(isCorrected(context) ? " -q -e -fast2 -q -S " : " -q -e -fast2 -q -echo4 -S ");
    if (numeric) command.literal("-n ");
    command.literal("-").outside(tagName).literal(" ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText GpsPositionCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command =
        toolStart(context).literal("-S -n -GPSLatitude -GPSLatitudeRef -GPSLongitude -GPSLongitudeRef -q ");
    command.literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText DumpHtmlCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command = toolStart(context).literal("-htmldump ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText DumpVerboseCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command = toolStart(context).literal("-v3 ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText ExportValuesCommand(const app::AppContext& context, const CommandText& fileArgument,
                                const CommandText& output, const CommandText& extraArguments) {
    CommandText command = toolStartWithLanguage(context).literal(" -sort --ExifToolVersion -x System:all ");
    // -f takes no argument: "File:All" is then looked for as a file.
    if (context.settings.exifTool.ignoreFile)
        command.literal(isCorrected(context) ? "-x File:All " : "-f File:All ");
    return command.append(extraArguments).append(fileArgument).literal(" >").append(output);
}

}  // namespace exiftool
