#pragma once

#include "app/CommandTable.h"

namespace app {

/// Numbers that follow one another and differ by their number only.
struct CommandRange {
    CommandId first;
    CommandId last;
    const char* name;  ///< the number is put behind it
    bool toggle;
    int firstText;  ///< string number of the first; 0: none of them has a text
};

/// The commands that have a row of their own, by ascending id.
std::span<const Command> fixedCommands();

/// None of them has an icon.
std::span<const CommandRange> commandRanges();

}  // namespace app
