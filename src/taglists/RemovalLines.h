#pragma once

#include "app/AppContext.h"
#include "exiftool/LineParts.h"
#include "platform/CommandText.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace taglists {

/// One tag of one group, both as ExifTool prints them (family 1).
struct TagAddress {
    std::string group;
    std::string name;

    bool operator==(const TagAddress&) const = default;
};

/// Whether the text can only be a name: letters, digits, hyphen and underscore. A name with a wildcard would
/// delete more than was ticked, one with an equal sign would write.
bool isPlainName(std::string_view name);

/// What removes ticked tags of the shown file, command 1819: one term for each. Names that are not plain are
/// left out. The designed form says nothing of what went wrong; the corrected one fills the report.
platform::CommandText removeTagsOfFileCommand(const app::AppContext& context, app::CommandForm form,
                                              const std::vector<TagAddress>& tags,
                                              const std::filesystem::path& file);

/// The same for a file of a selection, command 177.
platform::CommandText removeTagsOfSelectionCommand(const app::AppContext& context, app::CommandForm form,
                                                   const std::vector<TagAddress>& tags,
                                                   const std::filesystem::path& file);

/// What removes whole groups from all files of the list, command 178. The designed form puts all terms inside
/// one pair of quotes, which ExifTool takes for the name of a file.
platform::CommandText removeTypesCommand(const app::AppContext& context, app::CommandForm form,
                                         const std::vector<std::string>& groups,
                                         const std::filesystem::path& fileList);

/// What the user chose to delete, command 176.
struct DeleteAllChoice {
    bool everything = true;  ///< else the families that follow
    bool exif = false;
    bool iptc = false;
    bool xmp = false;
    bool keepDate = false;      ///< of the file; the designed form has no place for it
    bool hasSafetyCopy = true;  ///< else the corrected form leaves ExifTool's own beside the file
};

/// For RunOnFile.
platform::CommandText deleteAllArguments(app::CommandForm form, const DeleteAllChoice& choice);

/// Reads what a selection holds into output, with the files of the list and, behind them, those whose names
/// cannot stand on a line of it. An empty list has no `-@`.
platform::CommandText heldTagsCommand(const app::AppContext& context, app::CommandForm form,
                                      const std::filesystem::path& fileList,
                                      const std::vector<std::filesystem::path>& otherFiles,
                                      const std::filesystem::path& output);

/// The groups that can be removed as a whole, under ExifTool's names, in the order in which they are offered.
std::span<const char* const> removableGroups();

}  // namespace taglists
