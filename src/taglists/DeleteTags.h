#pragma once

#include "jobs/Job.h"
#include "jobs/OperationParts.h"
#include "taglists/RemovalLines.h"
#include "tags/OutputParser.h"

#include <filesystem>
#include <vector>

/// Deleting one tag or one group of the shown file, from the rows of the metadata panel.
namespace taglists {

/// Under which names the rows are deleted, each once. The designed form takes all rows as they are shown, the
/// corrected one those that can be written, under the names that ExifTool knows them by.
std::vector<TagAddress> addressesOf(const jobs::OperationParts& parts, app::CommandForm form,
                                    const std::vector<tags::MetadataRow>& rows);

/// The same for one row alone, whose text in other languages stays.
std::vector<TagAddress> addressOfEntry(const jobs::OperationParts& parts, app::CommandForm form,
                                       const tags::MetadataRow& row);

/// One run after a safety copy. Without an address the corrected form has nothing to do: a job without files.
jobs::Job deleteTagsJob(app::CommandForm form, const QString& title, const std::vector<TagAddress>& tags,
                        const std::filesystem::path& file);

}  // namespace taglists
