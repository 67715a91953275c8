#pragma once

#include <QString>
#include <Qt>
#include <span>

namespace app {

/// The number of a command, as ribbon, menus, context menus and shortcuts send it to the one dispatch.
using CommandId = int;

namespace command {
inline constexpr CommandId kHelp = 6;
inline constexpr CommandId kShowFolders = 8;
inline constexpr CommandId kShowStatusBar = 9;
inline constexpr CommandId kShowQuickView = 10;
inline constexpr CommandId kViewDetails = 12;
inline constexpr CommandId kViewTiles = 13;
inline constexpr CommandId kViewThumbnails = 14;
inline constexpr CommandId kViewJumbo = 15;
inline constexpr CommandId kMetadataPanel = 17;
inline constexpr CommandId kGpsPanel = 18;
inline constexpr CommandId kHexaDumpPanel = 19;
inline constexpr CommandId kHelpPanel = 20;
inline constexpr CommandId kModifyExif = 22;
inline constexpr CommandId kFirstAddTags = 23;
inline constexpr CommandId kModifyIptc = 31;
inline constexpr CommandId kModifyXmp = 35;
inline constexpr CommandId kLastAddTags = 142;
inline constexpr CommandId kFirstBatch = 146;
inline constexpr CommandId kFileDateFromPhoto = 157;
inline constexpr CommandId kRate = 169;
inline constexpr CommandId kRenameByShutterCount = 172;
inline constexpr CommandId kRenameByDateAndMake = 173;
inline constexpr CommandId kRenameByDateAndModel = 174;
inline constexpr CommandId kDeleteAll = 176;
inline constexpr CommandId kRemoveTags = 177;
inline constexpr CommandId kRemoveGroupTypes = 178;
inline constexpr CommandId kValidate = 180;
inline constexpr CommandId kValidateFully = 181;
inline constexpr CommandId kEmbedThumbnail = 183;
inline constexpr CommandId kRemoveThumbnail = 185;
inline constexpr CommandId kFindAnyTag = 191;
inline constexpr CommandId kFindOtherTag = 202;
inline constexpr CommandId kFindText = 203;
inline constexpr CommandId kSearchWithoutKeywords = 204;
inline constexpr CommandId kExportAll = 206;
inline constexpr CommandId kExportThumbnail = 216;
inline constexpr CommandId kExportIccProfile = 217;
inline constexpr CommandId kLastBatch = 228;
inline constexpr CommandId kOpenSelectedFolder = 245;
inline constexpr CommandId kDeselectAll = 246;
inline constexpr CommandId kFocusList = 247;
inline constexpr CommandId kRefresh = 248;
inline constexpr CommandId kFirstHighlight = 250;
inline constexpr CommandId kLastHighlight = 278;
inline constexpr CommandId kAbout = 284;
inline constexpr CommandId kViewThumbnailsShortcut = 361;
inline constexpr CommandId kRemoveTagsFromFile = 1819;
inline constexpr CommandId kBeginRun = 1820;
inline constexpr CommandId kRemoveGroupFromFile = 1821;
inline constexpr CommandId kEndRun = 1822;
inline constexpr CommandId kAddTagsToFile = 1824;
inline constexpr CommandId kBack = 5033;
inline constexpr CommandId kForward = 5034;
inline constexpr CommandId kUp = 5035;
inline constexpr CommandId kApplyItemStates = 5036;
inline constexpr CommandId kClearSelection = 5037;
inline constexpr CommandId kCheckBoxes = 5040;
inline constexpr CommandId kSelectedFilesList = 5041;
inline constexpr CommandId kInvertSelectionOfRibbon = 5052;
inline constexpr CommandId kClearMetadata = 8003;
inline constexpr CommandId kRefreshPanel = 8056;
inline constexpr CommandId kHtmlDump = 10004;
inline constexpr CommandId kVerboseDump = 10007;
inline constexpr CommandId kExportMenu = 10033;
inline constexpr CommandId kFirstExport = 10034;
inline constexpr CommandId kLastExport = 10041;
inline constexpr CommandId kPrintMetadata = 10042;
inline constexpr CommandId kRemoveEverything = 10044;
inline constexpr CommandId kCopyTagsFromFile = 10062;
inline constexpr CommandId kCopyTags = 10065;
inline constexpr CommandId kRemoveExif = 10066;
inline constexpr CommandId kRemoveIptc = 10067;
inline constexpr CommandId kRemoveXmp = 10068;
inline constexpr CommandId kRemoveIccProfile = 10069;
inline constexpr CommandId kRemoveGps = 10071;
inline constexpr CommandId kRemoveAllMetadata = 10072;
inline constexpr CommandId kDeleteTag = 10075;
inline constexpr CommandId kDeleteGroup = 10077;
inline constexpr CommandId kWebSite = 30001;
inline constexpr CommandId kOpenUrl = 40011;
inline constexpr CommandId kOpenFile = 40012;
inline constexpr CommandId kProperties = 40065;
inline constexpr CommandId kSelectAll = 40074;
inline constexpr CommandId kInvertSelection = 40075;
inline constexpr CommandId kSelectNone = 40076;
inline constexpr CommandId kSortAscending = 40089;
inline constexpr CommandId kSortDescending = 40090;
inline constexpr CommandId kClose = 40092;
inline constexpr CommandId kReadFileAgain = 40100;
inline constexpr CommandId kShowHidden = 40106;
inline constexpr CommandId kRefreshOfMenu = 40107;
inline constexpr CommandId kReadSelection = 40108;
inline constexpr CommandId kRestart = 40110;
inline constexpr CommandId kBackOfMenu = 40115;
inline constexpr CommandId kForwardOfMenu = 40116;
inline constexpr CommandId kUpOfMenu = 40117;
inline constexpr CommandId kPropertiesOfMenu = 40173;
inline constexpr CommandId kSortBy = 50000;   ///< plus the number of a SortMode
inline constexpr CommandId kGroupBy = 50100;  ///< plus the number of a SortMode
}  // namespace command

/// What the frame knows of a command. Whether the program has it, and what it does, say the subjects of the
/// window, which register their handlers; a command without one is shown nowhere.
struct Command {
    CommandId id;
    const char* name;      ///< for tests and scripts; never shown
    bool toggle;           ///< has a checked state
    bool needsSelection;   ///< the common selection check comes before it
    int textNumber;        ///< string of the language file; 0 when the command stands in no menu
    const char* iconName;  ///< of the icon theme; empty: none
};

/// All commands, by ascending id.
std::span<const Command> commandTable();

/// Null when the id is in no table.
const Command* findCommand(CommandId id);

/// A key of the main window. The effect is told by the key, not by the id.
struct HotKey {
    CommandId id;
    Qt::KeyboardModifiers modifiers;
    Qt::Key key;
    CommandId command;  ///< what the key sends; 0: the key is taken and does nothing
    int viewMode;       ///< the view that the key sets before, or 0
};

/// The eight keys of the frame, in the order in which they are registered.
std::span<const HotKey> hotKeys();

/// The keys of commands that the lists and menus take besides: reload, history and the like.
struct Shortcut {
    CommandId command;
    const char* keys;  ///< portable text, as QKeySequence reads it
};
std::span<const Shortcut> shortcuts();

}  // namespace app
