#include "exiftool/LineParts.h"
#include "exiftool/WriteCommands.h"

#include <algorithm>
#include <array>

namespace exiftool {

namespace fs = std::filesystem;
using app::CommandForm;
using platform::CommandText;

namespace {

struct FamilyRemoval {
    int commandId;
    std::string_view arguments;
};

constexpr std::array<FamilyRemoval, 7> kFamilyRemovals{{
    {10066, "-exif= -Adobe:All= "},
    {10067, "-iptc= "},
    {10068, "-xmp= "},
    {10069, "-icc_profile= "},
    {10071, "-geotag= -gps*= "},
    {10072, "-all= -Adobe:All= -Quicktime:All= "},
    {10044, "-all= -Adobe:All= -Quicktime:All= "},
}};

/// Stored as escape sequences of a character set standard, which people write with "ESC" for the first byte;
/// a value that begins with "U" is ExifTool's own word for one, "UTF8".
constexpr int kCodedCharacterSet = 853;

bool isEscapeSequence(int tagId, const CommandText& value) {
    return tagId == kCodedCharacterSet && !value.text().starts_with('U');
}

struct FamilyTerms {
    std::string_view exif;
    std::string_view iptc;
    std::string_view xmp;
};

/// A bare family is its block of bytes.
constexpr FamilyTerms kBlocks{"-EXIF ", "-IPTC ", "-XMP "};
constexpr FamilyTerms kAllTags{"-EXIF:All ", "-IPTC:All ", "-XMP:All "};

CommandText chosenTerms(CopiedFamilies families, const FamilyTerms& terms) {
    CommandText chosen;
    if (families.exif) chosen.literal(terms.exif);
    if (families.iptc) chosen.literal(terms.iptc);
    if (families.xmp) chosen.literal(terms.xmp);
    return chosen;
}

CommandText designedCopy(const app::AppContext& context, CopiedFamilies families, const fs::path& source,
                         const fs::path& target) {
    CommandText command = toolStart(context).append(chosenTerms(families, kBlocks));
    command.literal("-tagsfromfile \"").outside(fileWord(source)).literal("\" ");
    return command.literal("\"").outside(fileWord(target)).literal("\"");
}

/// Only what stands behind the source is chosen from it.
CommandText correctedCopy(const app::AppContext& context, CopiedFamilies families, const fs::path& source,
                          const fs::path& target) {
    CommandText command = toolStart(context).literal("-tagsfromfile \"").outside(fileWord(source));
    command.literal("\" ").append(chosenTerms(families, kAllTags));
    command.literal(fragments::kOverwriteOriginal).literal(fragments::kFileNameCharset);
    command.literal("\"").outside(fileWord(target)).literal("\"");
    return command.append(reportBehind(context));
}

}  // namespace

CommandText removeFamilyArguments(const app::AppContext& context, CommandForm form, int commandId) {
    const app::Settings::ExifTool& settings = context.settings.exifTool;
    CommandText arguments(fragments::kIgnoreMinorErrors);
    const auto* const row =
        std::find_if(kFamilyRemovals.begin(), kFamilyRemovals.end(),
                     [&](const FamilyRemoval& removal) { return removal.commandId == commandId; });
    if (row != kFamilyRemovals.end()) arguments.literal(row->arguments);
    if (settings.preserveDateTime) arguments.literal(fragments::kPreserveDateTime);
    if (settings.ignoreXml) arguments.literal(fragments::kWithoutXml);
    if (settings.ignoreFile) arguments.literal(fragments::kWithoutFile);
    // The safety copy has been made; a second one beside the file would only have to be cleared away.
    if (form == CommandForm::Corrected) arguments.literal(fragments::kOverwriteOriginal);
    return arguments;
}

CommandText copyTagsCommand(const app::AppContext& context, CommandForm form, CopiedFamilies families,
                            const fs::path& source, const fs::path& target) {
    return form == CommandForm::Corrected ? correctedCopy(context, families, source, target)
                                          : designedCopy(context, families, source, target);
}

CommandText singleValueCommand(const app::AppContext& context, const fs::path& file, int tagId,
                               std::string_view tagName, const CommandText& value) {
    CommandText command = toolStart(context).literal("-");
    command.outside(tagName).literal("=").literal(isEscapeSequence(tagId, value) ? "\"ESC " : "\"");
    command.append(value).literal("\" ").literal(fragments::kOverwriteOriginal);
    command.literal(fragments::kFileNameCharset).literal("\"").outside(fileWord(file)).literal("\"");
    return command;
}

}  // namespace exiftool
