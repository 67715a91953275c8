#pragma once

#include "jobs/Job.h"
#include "taglists/RemovalLines.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// Whether a removal has removed what was asked for. ExifTool leaves in some files what it was told to
/// remove, such as IFD0 in TIFF and raw files, and says nothing of it where small complaints are turned off.
/// So the files are read afterwards. On a job's thread.
namespace taglists {

/// What a removal is asked for: groups by ExifTool's names, whole families or parts of them.
struct AskedGroups {
    std::vector<std::string> groups = {};
    bool everything = false;
};

/// Of a command that removes a family; nothing for another.
AskedGroups askedByCommand(int commandId);
AskedGroups askedByChoice(const DeleteAllChoice& choice);

/// Reads what is left of it in the files, those that were not written among them, and tells it in their
/// outcomes: one that is done has a warning, and one in which there was nothing to change, although there
/// was, has failed. Of a PDF also that what was removed can be recovered.
void tellWhatIsLeft(jobs::JobWork& work, const AskedGroups& asked, std::span<exiftool::Outcome> outcomes);

/// Those of the groups that none of the files holds. Empty, too, when they cannot be read.
std::vector<std::string> groupsOfNone(jobs::JobWork& work, const std::vector<std::string>& groups,
                                      const std::vector<std::filesystem::path>& files);

}  // namespace taglists
