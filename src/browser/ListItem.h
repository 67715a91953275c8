#pragma once

#include "platform/FileFacts.h"

#include <QString>
#include <cstdint>
#include <filesystem>

namespace browser {

using ItemKind = platform::FileKind;

/// Attribute bits of an item; the numbers are those of the attribute column.
namespace attribute {
inline constexpr std::uint8_t kReadOnly = 1;
inline constexpr std::uint8_t kHidden = 2;  ///< the name begins with a dot
inline constexpr std::uint8_t kSystem = 4;  ///< never set by this platform's folders
inline constexpr std::uint8_t kLink = 8;
}  // namespace attribute

/// What the file system tells of an item. Times are nanoseconds since 1970 in UTC.
struct FindData {
    std::uint64_t size = 0;  ///< bytes; 0 for folders
    std::int64_t modified = 0;
    std::int64_t accessed = 0;
    std::int64_t created = 0;  ///< the last status change where the file system keeps no birth time
};

/// The record of one item, kept small because a folder may hold hundreds of thousands. The name's bytes lie
/// in the store. GUI thread only, once the folder has been read.
struct ListItem {
    FindData findData;
    std::uint32_t owner = 0;  ///< user number
    std::uint32_t nameOffset = 0;
    std::uint16_t nameLength = 0;
    ItemKind kind = ItemKind::Unknown;
    std::uint8_t attributes = 0;
    bool findDataValid = false;
    bool selected = false;
    bool removed = false;

    bool isFolder() const { return kind == ItemKind::Folder; }
    bool isHidden() const { return (attributes & attribute::kHidden) != 0; }
};

/// A copy of an item that another thread may keep.
struct ItemSnapshot {
    std::int32_t itemId = -1;
    std::filesystem::path path;
    QString displayName;
    FindData findData;
    ItemKind kind = ItemKind::Unknown;
    std::uint8_t attributes = 0;
    bool findDataValid = false;
    bool isRoot = false;
};

/// An item that waits to be put into the list.
struct PendingInsert {
    std::uint32_t position = 0;
    std::int32_t itemId = -1;
    bool usePosition = false;
    std::int32_t after = -2;  ///< list position that the item goes after, -2 when none is given
};

}  // namespace browser
