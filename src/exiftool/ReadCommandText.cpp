#include "exiftool/CategorySelectors.h"
#include "exiftool/LineParts.h"
#include "exiftool/ReadCommands.h"
#include "platform/Text.h"

namespace exiftool {

namespace fs = std::filesystem;
using app::CommandForm;
using platform::CommandText;

namespace {

/// With this off a group is read without tags that stand twice in the file, though in another group. Nothing
/// sets it.
constexpr bool kReadAllDuplicates = false;

/// Without "-a" a tag of the thumbnail's IFD that the main image has too is left out.
bool readsDuplicates(CommandForm form) {
    return kReadAllDuplicates || form == CommandForm::Corrected;
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

void appendCategory(CommandText& command, int categoryId, CommandForm form) {
    if (categoryId == kCategoryOfEverything) return;
    const auto* const row = std::lower_bound(
        kCategorySelectors.begin(), kCategorySelectors.end(), categoryId,
        [](const CategorySelector& selector, int wanted) { return selector.categoryId < wanted; });
    if (row == kCategorySelectors.end() || row->categoryId != categoryId) {
        command.literal(kOtherCategorySelector);
    } else if (form == CommandForm::Designed || row->designed.ends_with(' ')) {
        command.literal(row->designed);
    } else if (!row->corrected.empty()) {
        command.literal(row->corrected);
    } else {
        command.literal(row->designed).literal(":All ");
    }
}

}  // namespace

CommandText panelReadCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                             const fs::path& output) {
    CommandText command = toolStartWithLanguage(context, form).literal(" -a -u");
    appendExclusions(command, context.settings.exifTool);
    command.literal(" -sort -S -G1 -H --ExifToolVersion -x System:all ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText groupAllCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                            const fs::path& output, std::string_view groupName) {
    CommandText command = toolStartWithLanguage(context, form);
    if (readsDuplicates(form)) command.literal(" -a");
    if (form == CommandForm::Corrected) command.literal(kExactly);
    command.literal(" -sort -S -G1 --ExifToolVersion -");
    command.outside(groupName).literal(":All ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText categoryCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                            const fs::path& output, int categoryId) {
    CommandText command = toolStartWithLanguage(context, form);
    if (readsDuplicates(form)) command.literal(" -a");
    if (form == CommandForm::Corrected) command.literal(kExactly);
    appendExclusions(command, context.settings.exifTool);
    if (context.settings.exifTool.ignoreComposite) command.literal(" -e");
    command.literal(" -sort -S -G1 --ExifToolVersion ");
    appendCategory(command, categoryId, form);
    if (form == CommandForm::Corrected) command.literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText oneValueCommand(const app::AppContext& context, CommandForm form, const fs::path& file,
                            const fs::path& output, std::string_view tagName, bool numeric) {
    CommandText command = toolStartWithLanguage(context, form);
    // -echo4 takes the -S behind it as the text to print.
    command.literal(form == CommandForm::Corrected ? " -q -e -fast2 -q -S " : " -q -e -fast2 -q -echo4 -S ");
    if (numeric) command.literal("-n ");
    command.literal("-").outside(tagName).literal(" ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText gpsPositionCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command =
        toolStart(context).literal("-S -n -GPSLatitude -GPSLatitudeRef -GPSLongitude -GPSLongitudeRef -q ");
    command.literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText dumpHtmlCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command = toolStart(context).literal("-htmldump ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText dumpVerboseCommand(const app::AppContext& context, const fs::path& file, const fs::path& output) {
    CommandText command = toolStart(context).literal("-v3 ").literal(kFileNameCharset);
    return appendFile(command, file, output);
}

CommandText exportValuesCommand(const app::AppContext& context, CommandForm form,
                                const CommandText& fileArgument, const CommandText& output,
                                const CommandText& extraArguments) {
    CommandText command =
        toolStartWithLanguage(context, form).literal(" -sort --ExifToolVersion -x System:all ");
    // -f takes no argument: "File:All" is then looked for as a file.
    if (context.settings.exifTool.ignoreFile)
        command.literal(form == CommandForm::Corrected ? "-x File:All " : "-f File:All ");
    return command.append(extraArguments).append(fileArgument).literal(" >").append(output);
}

}  // namespace exiftool
