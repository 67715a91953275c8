#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace taglists {

/// The group that a command offers tags of.
struct AddTagsGroup {
    int commandId;           ///< 0 for the one that every other command takes
    std::string_view group;  ///< what the designed commands put in front of the tags
    std::uint32_t categoryId;
};

/// The groups that are named by a command, by ascending command.
std::span<const AddTagsGroup> addTagsGroups();

/// The group of the command; IFD0 for every other number, 23 among them.
const AddTagsGroup& addTagsGroupOf(int commandId);

}  // namespace taglists
