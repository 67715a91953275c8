#pragma once

#include "app/AppContext.h"
#include "exiftool/LineParts.h"
#include "exiftool/ToolRunner.h"
#include "platform/CommandText.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace exiftool {

/// Options that lines are joined of. The blanks matter: whoever joins them adds none.
namespace fragments {

inline constexpr std::string_view kOverwriteOriginal = "-overwrite_original ";
/// A line of the session's argument file.
inline constexpr std::string_view kOverwriteOriginalInPlaceLine = "-overwrite_original_in_place\n";
inline constexpr std::string_view kOverwriteOriginalBehind = " -overwrite_original";
inline constexpr std::string_view kQuietOverwriteOriginal = "-q -overwrite_original ";
inline constexpr std::string_view kPreserveDateTime = "-P ";
inline constexpr std::string_view kIgnoreMinorErrors = "-m ";
using exiftool::kFileNameCharset;
inline constexpr std::string_view kFileNameCharsetAndQuote = " -charset filename=UTF8 \"";
inline constexpr std::string_view kWithoutXml = "-x XML:All ";
inline constexpr std::string_view kWithoutFile = "-x FILE:All ";

}  // namespace fragments

/// What removes the family that the command of this number names, with the fragments that the settings ask
/// for. A number without a family gives the fragments alone, which remove nothing.
platform::CommandText removeFamilyArguments(const app::AppContext& context, app::CommandForm form,
                                            int commandId);

struct CopiedFamilies {
    bool exif = false;
    bool iptc = false;
    bool xmp = false;
};

platform::CommandText copyTagsCommand(const app::AppContext& context, app::CommandForm form,
                                      CopiedFamilies families, const std::filesystem::path& source,
                                      const std::filesystem::path& target);

/// An edit in a list column. tagName is ExifTool's, without its hyphen; an empty value deletes the tag. The
/// value's pieces keep the origin that the caller gives them.
platform::CommandText singleValueCommand(const app::AppContext& context, const std::filesystem::path& file,
                                         int tagId, std::string_view tagName,
                                         const platform::CommandText& value);

/// Writes that more than one place of the program asks for. Each call blocks, file after file, until the tool
/// has ended or the runner's wait was stopped, after which no further file is begun.
class WriteCommands {
 public:
    WriteCommands(const app::AppContext& context, ToolRunner& runner);

    [[nodiscard]] Outcomes RemoveFamilyFromSelection(app::CommandForm form, int commandId,
                                                     const std::vector<std::filesystem::path>& files);

    /// Neither safety copy nor report.
    Outcome WriteSingleValue(const std::filesystem::path& file, int tagId, std::string_view tagName,
                             const platform::CommandText& value);

 private:
    const app::AppContext& context_;
    ToolRunner& runner_;
};

}  // namespace exiftool
