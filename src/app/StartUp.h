#pragma once

#include "app/AppContext.h"

#include <QDate>
#include <filesystem>
#include <system_error>

/// What the program does before its window exists and after it has gone, apart from anything that shows. GUI
/// thread.
namespace app {

/// First steps: the install folder is the executable's, the settings file stands in its cache folder, and the
/// language is read from there, since the first dialog speaks it.
void derivePaths(AppContext& context, const std::filesystem::path& executable);

/// The steps after the first dialog is shown: the report of the day of the start, the other paths,
/// InstallPath into the settings file, the early settings, and the default places of the tools. Empty, or why
/// the settings file could not be written.
QString preparePaths(AppContext& context, const QDate& today);

/// "MM-DD-YYYY-BatchReport.txt".
std::string reportName(const QDate& day);

/// Gives every tool the place that the settings name; where they name none, the install folder's, then the
/// one on PATH. FFmpeg and Convert are cleared when they are not there.
void resolveTools(AppContext& context);

/// True when exifToolPath names an existing file. If not, the path is cleared.
bool FindExifTool(AppContext& context);

/// Takes what the user chose, and writes it to the settings at once, since the settings are read again later
/// in the start and would bring back the path that was missing. Empty, or why it could not be written.
QString chooseExifTool(AppContext& context, const std::filesystem::path& exifTool);

/// Clears the paths of FFmpeg and Convert that name nothing.
void clearMissingTools(AppContext& context);

/// Whether the window starts maximised: unless the stored rectangle has both far edges and starts on the
/// screen.
bool startsMaximised(const Settings::WindowPosition& position);

/// Empties the temp folder and makes it again. Links in it go, what they point to stays. Refuses, and touches
/// nothing, when tempPath is not the folder Temp of the install folder or is itself a link. Only for a normal
/// exit: after a crash its contents are wanted.
std::error_code emptyTempFolder(const AppContext& context);

}  // namespace app
