#pragma once

#include "app/AppContext.h"

#include <QString>
#include <filesystem>
#include <string_view>

/// Loading and saving of the settings file, context.iniPath. Settings are read at start, in three steps, and
/// written at exit; what the file holds beyond the known keys stays in it. A key that was not changed here
/// since it was loaded is not written over what another running program has put there meanwhile; the keys of
/// the window's position, of its sizes and of the right panels count as one each, since half of the one and
/// half of the other would be neither. A missing or unreadable file gives the defaults. GUI thread only. A
/// save answers an empty text, or why the file could not be written, for the user.
namespace app {

/// Only the number of the language file, which the first texts on the screen need.
void loadLanguage(AppContext& context);

/// Sections Dark, Colors and WINDOWS_SIZES, with the corrections of the pane sizes.
void LoadEarlySettings(AppContext& context);

/// Section MainWindow-Position.
void loadWindowPosition(AppContext& context);

/// Everything else but the start folder. Throws InvalidEnumeration at a SortMode or a ViewMode, in this
/// order, that is none of the enumeration's numbers: "SortMode::_from_integral: invalid argument" or
/// "ViewMode::_from_integral: invalid argument". A missing ViewMode is such a number (0). The settings behind
/// the faulty key keep their defaults then.
void LoadSettings(AppContext& context);

/// LoadSettings for a program that goes on with a damaged file: a SortMode or ViewMode without meaning
/// becomes Name or Details, and all other settings are loaded. Gives the text of the first fault, for people,
/// or an empty one; a missing key is no fault.
[[nodiscard]] QString loadSettingsOrDefaults(AppContext& context);

/// Section Nodes, the folder shown last, however long.
void loadStartFolder(AppContext& context);

/// A folder as the settings hold it: its path, or a file address with percent bytes where a line of text
/// could not hold that (bytes that are no UTF-8, control characters, blanks or quotes at an end). And back.
QString startFolderText(const std::filesystem::path& folder);
std::filesystem::path startFolderOf(const QString& text);

/// What the program itself has made of the section's values since they were loaded (a tool that was looked
/// for, a window that was laid out) is no change of the user's.
void takeAsLoaded(AppContext& context, std::string_view section);

/// Each writes its section from the values given and takes them into the context.
[[nodiscard]] QString SaveWindowPosition(AppContext& context, const Settings::WindowPosition& position);
[[nodiscard]] QString SaveWindowSizes(AppContext& context, const Settings::WindowSizes& sizes);

/// All other sections, with the folder shown last, context.settings.startFolder. A tool that no key names and
/// that was merely found in its usual place is not written, so that the next start looks for it again.
[[nodiscard]] QString SaveSettings(AppContext& context);

/// One number, in decimal; the file's other keys stay as they are.
[[nodiscard]] QString WriteIntSetting(std::string_view section, std::string_view key,
                                      const std::filesystem::path& iniPath, int value);
/// The tool's path as the user has chosen it, written at once.
[[nodiscard]] QString saveToolPath(AppContext& context, std::string_view key,
                                   const std::filesystem::path& tool);
/// The same for a path, whose bytes are written as they are.
[[nodiscard]] QString writePathSetting(std::string_view section, std::string_view key,
                                       const std::filesystem::path& iniPath,
                                       const std::filesystem::path& value);

}  // namespace app
