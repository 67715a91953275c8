#pragma once

#include "jobs/OperationParts.h"
#include "taglists/Removals.h"
#include "taglists/TagListRows.h"

#include <QString>
#include <QStringView>
#include <filesystem>
#include <functional>
#include <vector>

/// What the dialogs with lists of values decide and do: which rows they have, what the rows hold, and the
/// writes at OK. Reads and writes block until the tool has ended. GUI thread.
namespace taglists {

// --- DialogModifMain

/// What the dialog is to list: 1 EXIF, 2 IPTC, 7 XMP. The designed form takes the command's own number, which
/// is none of these.
int modeOfCommand(app::CommandForm form, int commandId);

/// The writable tags of the mode's family; none for a number that is no mode.
TagRows rowsOfMode(const tags::TagDictionary& dictionary, int mode);

/// The category by which the values of the mode are read.
int readCategoryOfMode(app::CommandForm form, int mode);

/// "EXIF", "IPTC" or "XMP", also in the designed form.
QString familyNameOfCommand(int commandId);

/// How the files with values are named.
struct ValuesFileType {
    int preselected = 0;  ///< index into valuesFileTypes
    QString extension;    ///< without its dot; empty for a number that is no mode
};
QStringList valuesFileTypes(app::CommandForm form);
ValuesFileType valuesFileTypeOfMode(int mode);

/// Writes the rows to each file. Without a changed row the corrected form has nothing to do: a job without
/// files. Files whose extension is unknown are left out.
jobs::Job modifyFilesJob(const jobs::OperationParts& parts, app::CommandForm form, const QString& title,
                         int mode, const TagRows& rows, const std::vector<std::filesystem::path>& files);

// --- DialogAddTagsMain and DialogAddATag_ToOneFile

/// The writable tags of a group, by its name in the panel; those of a group without tags are none.
TagRows rowsOfGroup(const tags::TagDictionary& dictionary, const QString& group);

jobs::Job addTagsJob(const jobs::OperationParts& parts, app::CommandForm form, const QString& title,
                     const TagRows& rows, const QString& group,
                     const std::vector<std::filesystem::path>& files);
jobs::Job addATagJob(const jobs::OperationParts& parts, app::CommandForm form, const QString& title,
                     const TagRows& rows, const QString& group, const std::filesystem::path& file);

// --- all

/// Where the values of a file are read to: its name with ".txt" behind it, in the temp folder.
std::filesystem::path valuesOutput(const app::AppContext& context, const std::filesystem::path& file);

/// Reads what the file holds into the rows. False when it could not be read; the rows are then as before.
using ReadInto = std::function<int(const std::filesystem::path& output)>;
[[nodiscard]] bool readValues(const jobs::OperationParts& parts, app::CommandForm form, TagRows& rows,
                              const std::filesystem::path& output, const ReadInto& read);

/// Whether OK has anything to do. The designed form always has: it empties the group.
bool hasSomethingToWrite(app::CommandForm form, const TagRows& rows);

}  // namespace taglists
