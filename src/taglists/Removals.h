#pragma once

#include "exiftool/WriteCommands.h"
#include "jobs/OperationParts.h"
#include "taglists/HeldTags.h"
#include "taglists/RemovalLines.h"

#include <QString>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

/// What the removal dialogs do at OK, and the commands that remove or copy without asking for details. Each
/// call blocks until the last file is done; the files come in the order in which they were gathered. What
/// ExifTool complains of stands in the report. GUI thread.
namespace taglists {

/// How a run over files went.
struct FileRuns {
    std::size_t begun = 0;    ///< files whose run was begun
    bool lastWasRun = false;  ///< the last one happened
    bool wasStopped = false;  ///< not all were begun, or one was cut
};

/// Gets the message that a file is left out, for a box with the information icon.
using TellLeftOut = std::function<void(const QString& message)>;

/// "<file path> cannot be modified"
QString cannotBeModified(const std::filesystem::path& file);

/// Removes the tags file after file, each with its safety copy. A file whose extension is unknown is told and
/// left out. Nothing is run when no tag is given.
FileRuns removeTagsFromFiles(const jobs::OperationParts& parts, const QString& title,
                             const std::vector<TagAddress>& tags,
                             const std::vector<std::filesystem::path>& files, const TellLeftOut& tell);

/// The same for the shown file, by the line of command 1819.
FileRuns removeTagsFromShownFile(const jobs::OperationParts& parts, const QString& title,
                                 const std::vector<TagAddress>& tags, const std::filesystem::path& file,
                                 const TellLeftOut& tell);

/// Removes the groups from all files in one run. 1 when it happened, else 0: no files.tmp, no tool, stopped.
int removeTypes(const jobs::OperationParts& parts, const QString& title,
                const std::vector<std::string>& groups, const std::vector<std::filesystem::path>& files);

/// makeSafetyCopies false leaves out the copies of this run; true leaves it to the safety settings.
FileRuns deleteAllTags(const jobs::OperationParts& parts, const QString& title, const DeleteAllChoice& choice,
                       bool makeSafetyCopies, const std::vector<std::filesystem::path>& files);

FileRuns removeFamily(const jobs::OperationParts& parts, const QString& title, int commandId,
                      const std::vector<std::filesystem::path>& files);

/// Nothing is run when no family is chosen.
FileRuns copyTags(const jobs::OperationParts& parts, const QString& title, exiftool::CopiedFamilies families,
                  const std::filesystem::path& source, const std::vector<std::filesystem::path>& files);

/// The writable tags that the files hold, in one ExifTool run and without safety copies. Empty also when it
/// could not be run.
std::vector<HeldTag> readHeldTags(const jobs::OperationParts& parts,
                                  const std::vector<std::filesystem::path>& files);

/// The writable tags of one group that the file holds. group is in the catalogue's spelling, which ExifTool
/// does not know of every group: the designed form reads by it and then finds nothing, the corrected one
/// reads all and takes those of the group.
std::vector<HeldTag> readHeldTagsOfGroup(const jobs::OperationParts& parts, const std::filesystem::path& file,
                                         const std::string& group);

}  // namespace taglists
