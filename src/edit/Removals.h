#pragma once

#include "edit/EditParts.h"
#include "edit/HeldTags.h"
#include "edit/RemovalLines.h"
#include "exiftool/WriteCommands.h"

#include <QString>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

/// What the removal dialogs do at OK, and the commands that remove or copy without asking for details. Each
/// call blocks until the last file is done; the files come in the order in which they were gathered. What
/// ExifTool complains of stands in the report. GUI thread.
namespace edit {

/// How a run over files went.
struct FileRuns {
    std::size_t begun = 0;    ///< files whose run was begun
    bool lastWasRun = false;  ///< the last one happened
    bool wasStopped = false;  ///< not all were begun, or one was cut
};

/// Gets the message that a file is left out, for a box with the information icon.
using TellLeftOut = std::function<void(const QString& message)>;

/// "<file path> cannot be modified"
QString CannotBeModified(const std::filesystem::path& file);

/// Removes the tags file after file, each with its safety copy. A file whose extension is unknown is told and
/// left out. Nothing is run when no tag is given.
FileRuns RemoveTagsFromFiles(const EditParts& parts, const QString& title,
                             const std::vector<TagAddress>& tags,
                             const std::vector<std::filesystem::path>& files, const TellLeftOut& tell);

/// The same for the shown file, by the line of command 1819.
FileRuns RemoveTagsFromShownFile(const EditParts& parts, const QString& title,
                                 const std::vector<TagAddress>& tags, const std::filesystem::path& file,
                                 const TellLeftOut& tell);

/// Removes the groups from all files in one run. 1 when it happened, else 0: no files.tmp, no tool, stopped.
int RemoveTypes(const EditParts& parts, const QString& title, const std::vector<std::string>& groups,
                const std::vector<std::filesystem::path>& files);

/// makeSafetyCopies false leaves out the copies of this run; true leaves it to the safety settings.
FileRuns DeleteAllTags(const EditParts& parts, const QString& title, const DeleteAllChoice& choice,
                       bool makeSafetyCopies, const std::vector<std::filesystem::path>& files);

FileRuns RemoveFamily(const EditParts& parts, const QString& title, int commandId,
                      const std::vector<std::filesystem::path>& files);

/// Nothing is run when no family is chosen.
FileRuns CopyTags(const EditParts& parts, const QString& title, exiftool::CopiedFamilies families,
                  const std::filesystem::path& source, const std::vector<std::filesystem::path>& files);

/// The writable tags that the files hold, in one ExifTool run and without safety copies. Empty also when it
/// could not be run.
std::vector<HeldTag> ReadHeldTags(const EditParts& parts, const std::vector<std::filesystem::path>& files);

/// The writable tags of one group that the file holds. group is in the catalogue's spelling, which ExifTool
/// does not know of every group: the designed form reads by it and then finds nothing, the corrected one
/// reads all and takes those of the group.
std::vector<HeldTag> ReadHeldTagsOfGroup(const EditParts& parts, const std::filesystem::path& file,
                                         const std::string& group);

}  // namespace edit
