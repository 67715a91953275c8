#include "app/CommandTable.h"

#include "app/CommandRows.h"
#include "app/SortMode.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace app {

namespace {

constexpr auto kHotKeys = std::to_array<HotKey>({
    {8, Qt::ControlModifier, Qt::Key_F2, command::kShowFolders, 0},
    {9, Qt::ControlModifier, Qt::Key_F3, command::kShowStatusBar, 0},
    {17, Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_F4, command::kMetadataPanel, 0},
    {12, Qt::ControlModifier, Qt::Key_D, command::kViewDetails, 1},
    {13, Qt::ControlModifier, Qt::Key_L, command::kViewTiles, 2},
    {361, Qt::ControlModifier, Qt::Key_T, command::kViewThumbnailsShortcut, 3},
    {15, Qt::ControlModifier, Qt::Key_J, command::kViewJumbo, 4},
    {248, Qt::ControlModifier, Qt::Key_F5, 0, 0},
});

constexpr auto kShortcuts = std::to_array<Shortcut>({
    {command::kRefresh, "F5"},
    {command::kReadSelection, "Ctrl+R"},
    {command::kBack, "Alt+Left"},
    {command::kForward, "Alt+Right"},
    {command::kUp, "Alt+Up"},
    {command::kSelectAll, "Ctrl+A"},
    {command::kInvertSelection, "Ctrl+I"},
    {command::kShowHidden, "Ctrl+H"},
    {command::kClose, "Ctrl+Q"},
});

/// All commands with the names of those that are made from tables.
class AllCommands {
 public:
    AllCommands() {
        const std::span<const Command> fixed = fixedCommands();
        commands_.assign(fixed.begin(), fixed.end());
        std::size_t made = 2 * sortModes().size();
        for (const CommandRange& range : commandRanges())
            made += static_cast<std::size_t>(range.last - range.first + 1);
        names_.reserve(made);  // the commands point into it
        for (const CommandRange& range : commandRanges()) add(range);
        for (const NumberedName& mode : sortModes()) {
            add(command::kSortBy + mode.number, "SortBy", mode);
            add(command::kGroupBy + mode.number, "GroupBy", mode);
        }
        std::ranges::sort(commands_, {}, &Command::id);
    }
    std::span<const Command> commands() const { return commands_; }

 private:
    void add(const CommandRange& range) {
        for (CommandId id = range.first; id <= range.last; ++id)
            commands_.push_back({.id = id,
                                 .name = kept(range.name + std::to_string(id)),
                                 .toggle = range.toggle,
                                 .needsSelection = false,
                                 .textNumber = range.firstText == 0 ? 0 : range.firstText + id - range.first,
                                 .iconName = ""});
    }
    void add(CommandId id, const std::string& verb, const NumberedName& mode) {
        commands_.push_back({.id = id,
                             .name = kept(verb + mode.name.data()),
                             .toggle = true,
                             .needsSelection = false,
                             .textNumber = id,
                             .iconName = ""});
    }
    const char* kept(std::string name) { return names_.emplace_back(std::move(name)).c_str(); }

    std::vector<std::string> names_;
    std::vector<Command> commands_;
};

}  // namespace

std::span<const Command> commandTable() {
    static const AllCommands all;
    return all.commands();
}

const Command* findCommand(CommandId id) {
    const std::span<const Command> commands = commandTable();
    const auto found = std::ranges::lower_bound(commands, id, {}, &Command::id);
    return found != commands.end() && found->id == id ? &*found : nullptr;
}

std::span<const HotKey> hotKeys() {
    return kHotKeys;
}

std::span<const Shortcut> shortcuts() {
    return kShortcuts;
}

}  // namespace app
