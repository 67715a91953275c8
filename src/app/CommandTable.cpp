#include "app/CommandTable.h"

#include <algorithm>
#include <array>

namespace app {

namespace {

// id, name, toggle, needs a selection, built, string number, icon. A string has its command's number unless
// that number means another text; 70000 is added then.
// clang-format off
constexpr auto kCommands = std::to_array<Command>({
    {6,     "HelpMain",               false, false, false, 6,     "help-contents"},
    {8,     "ShowFolders",            true,  false, true,  8,     "view-sidetree"},
    {9,     "ShowStatusBar",          true,  false, true,  9,     "kt-show-statusbar"},
    {10,    "ShowQuickView",          true,  false, false, 10,    "quickview"},
    {12,    "ViewDetails",            true,  false, true,  12,    "view-list-details"},
    {13,    "ViewTiles",              true,  false, false, 13,    "view-list-icons"},
    {14,    "ViewThumbnails",         true,  false, false, 14,    "view-preview"},
    {15,    "ViewJumbo",              true,  false, false, 15,    "view-grid"},
    {17,    "ShowMetadataWindow",     true,  false, true,  17,    "tag"},
    {18,    "ShowGpsWindow",          true,  false, false, 18,    "map-globe"},
    {19,    "ShowHexaDumpWindow",     true,  false, false, 19,    "text-x-hex"},
    {20,    "ShowHelpWindow",         true,  false, false, 20,    "help-hint"},
    {234,   "GoToDesktop",            false, false, false, 70234, "user-desktop"},
    {235,   "GoToDocuments",          false, false, false, 235,   "folder-documents"},
    {236,   "GoToDownloads",          false, false, false, 236,   "folder-downloads"},
    {237,   "GoToMusic",              false, false, false, 237,   "folder-music"},
    {238,   "GoToPictures",           false, false, false, 238,   "folder-pictures"},
    {239,   "GoToVideos",             false, false, false, 239,   "folder-videos"},
    {240,   "GoToHome",               false, false, false, 240,   "user-home"},
    {241,   "GoToComputer",           false, false, false, 241,   "computer"},
    {242,   "GoToTrash",              false, false, false, 242,   "user-trash"},
    {245,   "OpenSelectedFolder",     false, true,  true,  245,   "document-open-folder"},
    {246,   "DeselectAll",            false, false, true,  246,   "edit-select-none"},
    {247,   "FocusList",              false, false, false, 247,   ""},
    {248,   "Refresh",                false, false, true,  248,   "view-refresh"},
    {279,   "Columns",                false, false, false, 279,   "view-file-columns"},
    {284,   "About",                  false, false, true,  284,   "help-about"},
    {298,   "Tiles",                  false, false, false, 298,   "view-list-icons"},
    {299,   "GpsSetup",               false, false, false, 299,   "mark-location"},
    {302,   "MetadataListSetup",      false, false, false, 302,   "configure"},
    {304,   "ExifToolSetup",          false, false, false, 70304, "configure"},
    {305,   "FfmpegSetup",            false, false, false, 70305, "configure"},
    {306,   "ImageMagickSetup",       false, false, false, 70306, "configure"},
    {307,   "DarkModeSetup",          false, false, false, 70307, "preferences-desktop-theme"},
    {361,   "ViewThumbnailsByKey",    false, false, false, 14,    "view-preview"},
    {5033,  "Back",                   false, false, true,  5033,  "go-previous"},
    {5034,  "Forward",                false, false, true,  5034,  "go-next"},
    {5035,  "Up",                     false, false, true,  5035,  "go-up"},
    {5037,  "ClearSelection",         false, false, true,  5037,  "edit-select-none"},
    {5040,  "CheckBoxes",             true,  false, true,  5040,  "checkbox"},
    {5050,  "SmartDetails",           true,  false, false, 5050,  "documentinfo"},
    {5052,  "InvertSelectionRibbon",  false, false, true,  5052,  "edit-select-invert"},
    {8003,  "ClearMetadata",          false, false, true,  8003,  "edit-clear"},
    {8056,  "RefreshPanel",           false, false, true,  8056,  "view-refresh"},
    {10004, "HtmlDump",               false, true,  false, 10004, "text-x-hex"},
    {10007, "VerboseDump",            false, true,  false, 10007, "code-context"},
    {40011, "OpenUrl",                false, false, true,  40012, "globe"},
    {40012, "OpenFile",               false, true,  true,  40012, "document-open"},
    {40074, "SelectAll",              false, false, true,  40074, "edit-select-all"},
    {40075, "InvertSelection",        false, false, true,  40075, "edit-select-invert"},
    {40076, "SelectNone",             false, false, true,  40076, "edit-select-none"},
    {40089, "SortAscending",          false, false, true,  40089, "view-sort-ascending"},
    {40090, "SortDescending",         false, false, true,  40090, "view-sort-descending"},
    {40092, "Close",                  false, false, true,  40092, "application-exit"},
    {40106, "ShowHidden",             true,  false, true,  40106, "view-hidden"},
    {40107, "RefreshMenu",            false, false, true,  40107, "view-refresh"},
    {40108, "ReadSelection",          false, false, true,  0,     ""},
    {40110, "Restart",                false, false, true,  40110, "system-reboot"},
    {40115, "BackMenu",               false, false, true,  40115, "go-previous"},
    {40116, "ForwardMenu",            false, false, true,  40116, "go-next"},
    {40117, "UpMenu",                 false, false, true,  40117, "go-up"},
    {50001, "SortByName",             true,  false, true,  50001, "view-sort"},
    {50002, "SortByDateModified",     true,  false, true,  50002, "view-sort"},
    {50003, "SortBySize",             true,  false, true,  50003, "view-sort"},
    {50004, "SortByType",             true,  false, true,  50004, "view-sort"},
    {50101, "GroupByName",            true,  false, false, 50101, "view-list-tree"},
    {50102, "GroupByDateModified",    true,  false, false, 50102, "view-list-tree"},
    {50103, "GroupBySize",            true,  false, false, 50103, "view-list-tree"},
    {50104, "GroupByType",            true,  false, false, 50104, "view-list-tree"},
});
// clang-format on
static_assert(std::ranges::is_sorted(kCommands, {}, &Command::id));

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
    {command::kBack, "Alt+Left"},
    {command::kForward, "Alt+Right"},
    {command::kUp, "Alt+Up"},
    {command::kSelectAll, "Ctrl+A"},
    {command::kInvertSelection, "Ctrl+I"},
    {command::kShowHidden, "Ctrl+H"},
    {command::kClose, "Ctrl+Q"},
});

}  // namespace

std::span<const Command> CommandTable() {
    return kCommands;
}

const Command* FindCommand(CommandId id) {
    const auto* found = std::ranges::lower_bound(kCommands, id, {}, &Command::id);
    return found != kCommands.end() && found->id == id ? found : nullptr;
}

bool IsBuilt(CommandId id) {
    const Command* command = FindCommand(id);
    return command != nullptr && command->built;
}

std::span<const HotKey> HotKeys() {
    return kHotKeys;
}

std::span<const Shortcut> Shortcuts() {
    return kShortcuts;
}

}  // namespace app
