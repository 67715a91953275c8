#pragma once

#include "exiftool/WriteCommands.h"
#include "jobs/Job.h"
#include "jobs/OperationParts.h"
#include "taglists/HeldTags.h"
#include "taglists/RemovalLines.h"

#include <QString>
#include <filesystem>
#include <vector>

/// What the removal dialogs leave to be done, and the commands that remove or copy without asking for
/// details. The files come in the order in which they were gathered. GUI thread.
namespace taglists {

/// "<file path> cannot be modified"
QString cannotBeModified(const std::filesystem::path& file);

/// Leaves out of the job the files whose extension is unknown, each with that reason.
void leaveOutUnknownFiles(jobs::Job& job);

/// Removes the tags file after file, each with its safety copy. A job without files when no tag is given.
jobs::Job removeTagsJob(const QString& title, const std::vector<TagAddress>& tags,
                        const std::vector<std::filesystem::path>& files);

/// The same for the shown file, by the line of command 1819.
jobs::Job removeTagsFromShownFileJob(const QString& title, const std::vector<TagAddress>& tags,
                                     const std::filesystem::path& file);

/// Removes the groups from all files in one run.
jobs::Job removeTypesJob(const QString& title, const std::vector<std::string>& groups,
                         const std::vector<std::filesystem::path>& files);

jobs::Job removeFamilyJob(const QString& title, int commandId,
                          const std::vector<std::filesystem::path>& files);

/// What the reads of held tags came to.
struct HeldTagsRead {
    std::vector<HeldTag> tags;
    QString fault;  ///< why not all could be read, for people; empty when all was
};

/// The writable tags that the files hold, in one ExifTool run and without safety copies.
[[nodiscard]] HeldTagsRead readHeldTags(const jobs::OperationParts& parts, app::CommandForm form,
                                        const std::vector<std::filesystem::path>& files);

/// The writable tags of one group that the file holds. group is in the catalogue's spelling, which ExifTool
/// does not know of every group: the designed form reads by it and then finds nothing, the corrected one
/// reads all and takes those of the group.
[[nodiscard]] HeldTagsRead readHeldTagsOfGroup(const jobs::OperationParts& parts, app::CommandForm form,
                                               const std::filesystem::path& file, const std::string& group);

}  // namespace taglists
