#pragma once

#include "tags/OutputParser.h"

#include <QString>
#include <span>

namespace tags {

/// Where somebody is in the rows of a file, told by what stands there and not by a number, so that the place
/// is found again when the file has been written, and in another file.
struct RowPlace {
    std::uint32_t groupId = 0;
    QString group;
    QString tag;
    int twin = 0;     ///< how many rows of the same group and tag stand before it
    int inGroup = 0;  ///< how many rows of its group do
};

/// position must be one of the rows.
RowPlace placeOf(std::span<const MetadataRow> rows, int position);

struct FoundRow {
    int position = -1;    ///< -1: there are no rows
    bool isSame = false;  ///< the same tag of the same group; else what now stands where it would
};

/// The row of that group and tag; of fewer twins the last one. Without one the row that has taken its number
/// in the group, and without the group the row next to it in the order of the groups.
FoundRow findPlace(std::span<const MetadataRow> rows, const RowPlace& place);

}  // namespace tags
