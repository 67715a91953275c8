#pragma once

#include "edit/EditParts.h"
#include "edit/RemovalLines.h"
#include "edit/WriteTag.h"
#include "tags/OutputParser.h"

#include <filesystem>
#include <vector>

/// Deleting one tag or one group of the shown file, from the rows of the metadata panel.
namespace edit {

/// Under which names the rows are deleted, each once. The designed form takes all rows as they are shown, the
/// corrected one those that can be written, under the names that ExifTool knows them by.
std::vector<TagAddress> AddressesOf(const EditParts& parts, const std::vector<tags::MetadataRow>& rows);

/// One run after a safety copy. Without an address the corrected form runs nothing. Blocks until ExifTool has
/// ended.
TagWriteResult DeleteTags(const EditParts& parts, const std::vector<TagAddress>& tags,
                          const std::filesystem::path& file);

}  // namespace edit
