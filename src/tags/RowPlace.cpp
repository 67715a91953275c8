#include "tags/RowPlace.h"

#include <algorithm>

namespace tags {

namespace {

bool isSameGroup(const MetadataRow& row, const QString& group) {
    // By name: a group that the catalogue lacks has another number in each file.
    return row.group.compare(group, Qt::CaseInsensitive) == 0;
}

/// Of another group: the first row of the next one, else the last row of the one before.
int besideGroup(std::span<const MetadataRow> rows, std::uint32_t groupId) {
    int next = -1;
    int before = -1;
    for (int at = 0; at < static_cast<int>(rows.size()); ++at) {
        const std::uint32_t id = rows[static_cast<std::size_t>(at)].groupId;
        const auto idAt = [&](int position) { return rows[static_cast<std::size_t>(position)].groupId; };
        if (id > groupId && (next < 0 || id < idAt(next))) next = at;
        if (id <= groupId && (before < 0 || id >= idAt(before))) before = at;
    }
    return next >= 0 ? next : before;
}

}  // namespace

RowPlace placeOf(std::span<const MetadataRow> rows, int position) {
    const MetadataRow& row = rows[static_cast<std::size_t>(position)];
    RowPlace place{row.groupId, row.group, row.tag};
    for (const MetadataRow& other : rows.first(static_cast<std::size_t>(position))) {
        if (!isSameGroup(other, row.group)) continue;
        ++place.inGroup;
        if (other.tag == row.tag) ++place.twin;
    }
    return place;
}

FoundRow findPlace(std::span<const MetadataRow> rows, const RowPlace& place) {
    int same = -1;
    int twins = 0;
    int ofGroup = -1;
    int inGroup = 0;
    for (int at = 0; at < static_cast<int>(rows.size()); ++at) {
        const MetadataRow& row = rows[static_cast<std::size_t>(at)];
        if (!isSameGroup(row, place.group)) continue;
        if (inGroup++ <= place.inGroup) ofGroup = at;
        if (row.tag == place.tag && twins++ <= place.twin) same = at;
    }
    if (same >= 0) return {same, true};
    return {ofGroup >= 0 ? ofGroup : besideGroup(rows, place.groupId), false};
}

}  // namespace tags
