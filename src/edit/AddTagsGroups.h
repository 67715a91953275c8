#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace edit {

/// The group that a command offers tags of.
struct AddTagsGroup {
    int commandId;           ///< 0 for the one that every other command takes
    std::string_view group;  ///< what the designed commands put in front of the tags
    std::uint32_t categoryId;
};

/// The groups that are named by a command, by ascending command.
std::span<const AddTagsGroup> AddTagsGroups();

/// The group of the command; IFD0 for every other number, 23 among them.
const AddTagsGroup& AddTagsGroupOf(int commandId);

}  // namespace edit
