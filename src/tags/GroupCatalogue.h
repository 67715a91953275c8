#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace app {
struct Settings;
}

namespace tags {

constexpr int kGroupCount = 330;

/// Which family's picture a group's title bears.
enum class GroupImage { Exif = 0, Iptc, File, Maker, Composite, Media, Other, Icc, Gps };

/// Which show setting hides a group.
enum class GroupGate { None, Exif, Iptc, Xmp, Icc, MakerNotes, Gps, Composite };

/// One row of the catalogue. Its position in the table is the list group that shows it.
struct GroupEntry {
    std::u16string_view key;  ///< with its brackets: "[IFD0]"
    std::uint32_t groupId;  ///< equal to the position, but for SR2DataIFD12 and SR2DataIFD, which are crossed
};

/// The 330 rows in table order.
std::span<const GroupEntry> groupTable();

/// The GroupId of a bracketed token such as "[IFD0]", blind to case; the first row in table order that
/// matches. Nothing when the catalogue lacks it. Cost: a hash look-up.
std::optional<std::uint32_t> FindGroup(QStringView bracketedToken);

/// The name of the row at that position, without brackets.
QString groupName(std::uint32_t position);

GroupImage GroupIconClass(std::uint32_t position);

/// The gate of a GroupId.
GroupGate groupGateOf(std::uint32_t groupId);

/// False for the GroupIds whose rows are dropped whatever the settings.
bool groupHasRows(std::uint32_t groupId);

/// Whether the show settings let rows of the GroupId through.
bool GroupIsShown(std::uint32_t groupId, const app::Settings& settings);

/// Whether the header of the group shows how many rows it has.
bool groupShowsCount(std::uint32_t groupId);

}  // namespace tags
