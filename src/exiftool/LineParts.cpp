#include "exiftool/LineParts.h"

#include "platform/Text.h"

#include <array>

namespace exiftool {

namespace fs = std::filesystem;
using app::CommandForm;
using platform::CommandText;

namespace {

constexpr auto kLanguageCodes = std::to_array<std::string_view>(
    {"ce", "de", "en", "es", "fi", "fr", "it", "ja", "ko", "nl", "pl", "ru", "sv", "tr", "zh-cn", "zh-tw"});
constexpr std::size_t kEnglish = 2;

}  // namespace

std::string_view languageCode(int dataLanguage) {
    const auto index = static_cast<std::size_t>(dataLanguage);
    return kLanguageCodes[index < kLanguageCodes.size() ? index : kEnglish];
}

bool canStandOnLine(std::string_view text) {
    return !text.empty() && text.find_first_of(std::string_view("\n\0", 2)) == std::string_view::npos &&
           !text.ends_with('\r');
}

CommandText toolStart(const app::AppContext& context) {
    CommandText command;
    return command.literal("\"").outside(platform::narrow(context.exifToolPath)).literal("\" ");
}

CommandText toolStartWithLanguage(const app::AppContext& context, CommandForm form) {
    const std::string_view code = languageCode(context.settings.exifTool.dataLanguage);
    // ExifTool refuses to work in the language "ce"; Czech is "cs".
    return toolStart(context).literal("-lang ").literal(
        form == CommandForm::Corrected && code == "ce" ? "cs" : code);
}

std::string fileWord(const fs::path& file) {
    std::error_code error;
    const fs::path whole = file.is_absolute() ? file : fs::absolute(file, error);
    return platform::narrow(error ? file : whole);
}

CommandText quotedValue(CommandForm form, QStringView value) {
    const std::string bytes = platform::exactBytes(value);
    CommandText word("\"");
    if (form == CommandForm::Corrected)
        word.outside(bytes);
    else
        word.typed(bytes);
    return word.literal("\"");
}

CommandText lineOnFile(const app::AppContext& context, CommandForm form, const CommandText& arguments,
                       const std::filesystem::path& file) {
    CommandText line = toolStartWithLanguage(context, form).literal(" ").append(arguments).literal(" \"");
    line.outside(fileWord(file)).literal("\" 2>>\"").outside(platform::narrow(context.reportFile));
    return line.literal("\"");
}

CommandText reportBehind(const app::AppContext& context) {
    return CommandText(" 2>>\"").outside(platform::narrow(context.reportFile)).literal("\"");
}

CommandText reportBehind(const app::AppContext& context, CommandForm form) {
    return form == CommandForm::Corrected ? reportBehind(context) : CommandText();
}

}  // namespace exiftool
