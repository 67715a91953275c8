#pragma once

#include "taglists/RemovalLines.h"
#include "tags/TagDictionary.h"

#include <QString>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace taglists {

/// A tag that at least one of some files holds and that can be written.
struct HeldTag {
    TagAddress address;  ///< as ExifTool printed it
    int tagId = -1;      ///< of its record
    std::uint32_t groupId = 0;
    std::size_t files = 0;  ///< how many hold it
    QString value;          ///< that of the first one
};

/// Reads the lines `[Group] Tag: value` that ExifTool printed about one file, or about several with the line
/// `======== FILE` above each. Each writable tag of the dictionary comes once, in the order of its first
/// line; one that stands twice in a file counts once.
std::vector<HeldTag> heldTags(std::string_view output, const tags::TagDictionary& dictionary);

}  // namespace taglists
