#pragma once

#include "app/AppContext.h"
#include "jobs/OperationParts.h"
#include "platform/CommandText.h"
#include "taglists/TagListRows.h"

#include <QStringView>
#include <filesystem>
#include <vector>

/// The lines that write what stands in a list of tags. The designed ones empty a whole group and write back
/// every row that has a value; the corrected one, which all dialogs share, writes and deletes what the user
/// changed.
namespace taglists {

/// `"TOOL" -m -GROUP= -charset filename=UTF8 "FILE"`, with the group of the first row; ExifTool leaves its
/// own copy beside the file.
platform::CommandText emptyGroupOfFirstRowCommand(const app::AppContext& context, const TagRows& rows,
                                                  const std::filesystem::path& file);

/// `"TOOL" -GROUP:NAME="VALUE"... -n -z -overwrite_original -charset filename=UTF8 "FILE"`, for the rows with
/// a value.
platform::CommandText writeRowsCommand(const app::AppContext& context, const TagRows& rows,
                                       const std::filesystem::path& file);

/// `"TOOL" -m -GPS:NAME=VALUE ... -overwrite_original "FILE"`, for all rows, and without quotes.
platform::CommandText writeGpsRowsCommand(const app::AppContext& context, const TagRows& rows,
                                          const std::filesystem::path& file);

/// `"TOOL" -GROUP= -charset filename=UTF8 "FILE"`.
platform::CommandText emptyGroupCommand(const app::AppContext& context, QStringView group,
                                        const std::filesystem::path& file);

/// `"TOOL" -GROUP:NAME="VALUE"... -overwrite_original -charset filename=UTF8 "FILE" 2>"REPORT"`, for the rows
/// with a value.
platform::CommandText addRowsCommand(const app::AppContext& context, const TagRows& rows, QStringView group,
                                     const std::filesystem::path& file);

/// `"TOOL" -GROUP:NAME="VALUE" ... -overwrite_original -charset filename=UTF8 "FILE"`, for the rows with a
/// value.
platform::CommandText addRowsToOneFileCommand(const app::AppContext& context, const TagRows& rows,
                                              QStringView group, const std::filesystem::path& file);

/// What the write of a changed row gets: its value, or the code of the list entry that the value stands for,
/// also where it was not chosen from the list.
app::CurrentEdit editOfTagRow(const jobs::OperationParts& parts, const TagRow& row);

/// Of the changed rows, in their order.
std::vector<app::CurrentEdit> changedTags(const jobs::OperationParts& parts, const TagRows& rows);

/// `"TOOL" TERMS -overwrite_original -charset filename=UTF8 "FILE" 2>>"REPORT"`, with the terms of
/// WriteTag.h.
platform::CommandText writeChangedTagsCommand(const app::AppContext& context,
                                              const std::vector<app::CurrentEdit>& changed,
                                              const std::filesystem::path& file);

}  // namespace taglists
