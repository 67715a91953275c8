#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tags {

/// How a tag's value is edited. The numbers are stored; 5 is not used.
enum class ValueKind : std::uint32_t {
    Date = 0,
    Integer = 1,
    Text = 2,
    Rating = 3,
    List = 4,
    Binary = 6,
    Rational = 7,
};

/// One tag that the program knows, in one group. The texts stand in static storage and live as long as the
/// process.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): the order is that of the columns of the table
struct TagRecord {
    std::uint32_t id;           ///< program-wide number of the tag; some stand on more than one row
    std::u16string_view name;   ///< as ExifTool prints it with -S
    std::uint32_t tableId;      ///< source table in the dictionary's own build
    std::u16string_view group;  ///< as the dictionary spells it, for the user and for ExifTool's arguments
    std::uint32_t groupIndex;   ///< GroupId
    ValueKind valueKind;
    bool writable;
    std::uint32_t categoryId;
    bool selected = false;  ///< run-time mark: picked for the export set being edited
};

constexpr std::size_t kTagCount = 13741;

/// The run-time copy of the constant table, in table order. Every look-up takes the first row in that order.
/// Made once by the main window (or the tool) that owns it; GUI thread only.
class TagDictionary {
 public:
    TagDictionary();

    /// A copy of the first row with that id; nothing when there is none. Cost: constant.
    std::optional<TagRecord> FindTagById(std::uint32_t id) const;

    /// The id of the first row of the group whose name matches, or -1. The first two characters must be equal
    /// to the letter, the lengths equal, the rest equal without case. Cost: an index over the groups, same
    /// answers as the plain scan.
    int FindTagId(std::uint32_t groupIndex, QStringView name) const;

    /// The plain scan over the whole table that FindTagId must agree with; for tests and benchmarks.
    int findTagIdByScan(std::uint32_t groupIndex, QStringView name) const;

    /// The rows that an add-tag picker offers: writable, not binary, of that category; in table order.
    std::vector<const TagRecord*> TagsOfCategory(std::uint32_t categoryId) const;

    std::span<const TagRecord> records() const { return records_; }
    std::span<TagRecord> records() { return records_; }

 private:
    std::vector<TagRecord> records_;
    // Grouped by groupIndex, in table order within a group: row numbers, and what the first tests of a name
    // look at.
    std::vector<std::uint32_t> rowsByGroup_;
    std::vector<std::uint64_t> nameKeys_;
    std::vector<std::uint32_t> groupStart_;   ///< first entry of each group, one more at the end
    std::vector<std::int32_t> firstRowOfId_;  ///< -1 where an id is not used
};

}  // namespace tags
