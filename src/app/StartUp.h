#pragma once

#include "app/AppContext.h"
#include "platform/ProcessFolder.h"

#include <QDate>
#include <filesystem>
#include <optional>
#include <string>

/// What the program does before its window exists and after it has gone, apart from anything that shows. GUI
/// thread.
namespace app {

/// First steps: the install folder is the executable's, the settings file stands in its cache folder, and the
/// language is read from there, since the first dialog speaks it.
void derivePaths(AppContext& context, const std::filesystem::path& executable);

/// What is wrong with the settings file, for people; each is empty when all is well.
struct SettingsFaults {
    QString notRead;   ///< the defaults stand for what it holds
    QString notSaved;  ///< it is as it was
};

/// The steps after the first dialog is shown: the report of the day of the start, the other paths,
/// InstallPath into the settings file, the early settings, and the default places of the tools.
[[nodiscard]] SettingsFaults preparePaths(AppContext& context, const QDate& today);

/// "MM-DD-YYYY-BatchReport.txt"; from the second process on with its number, "MM-DD-YYYY-BatchReport-2.txt".
std::string reportName(const QDate& day, int process = 1);

struct OpenedTempFolder {
    /// Context's tempPath, as long as this lives. Nothing: the program cannot work, and problem says why.
    std::optional<platform::ProcessFolder> folder;
    QString problem;  ///< with a folder: what dead processes have left could not be cleared, and why
};

/// Takes a folder of tempRoot for this process alone, makes it tempPath, and gives reportFile the process's
/// number, so that programs that run at the same time neither read each other's values nor put away each
/// other's reports. Clears the folders of dead processes.
[[nodiscard]] OpenedTempFolder openTempFolder(AppContext& context, const QDate& today);

/// For the normal end: removes the process's folder, and from tempRoot what belongs to no process, and makes
/// tempRoot when it is missing. Links go, what they point to stays. Refuses, and touches nothing, when
/// tempRoot is not the folder Temp of the install folder or is itself a link. Empty, or for people what could
/// not be removed.
[[nodiscard]] QString closeTempFolder(const AppContext& context, platform::ProcessFolder& folder);

/// Gives every tool the place that the settings name; where they name none, the install folder's, then the
/// one on PATH. FFmpeg and Convert are cleared when they are not there.
void resolveTools(AppContext& context);

/// True when exifToolPath names an existing file. If not, the path is cleared.
bool FindExifTool(AppContext& context);

/// Takes what the user chose, and writes it to the settings at once, since the settings are read again later
/// in the start and would bring back the path that was missing. Empty, or why it could not be written.
[[nodiscard]] QString chooseExifTool(AppContext& context, const std::filesystem::path& exifTool);

/// Clears the paths of FFmpeg and Convert that name nothing.
void clearMissingTools(AppContext& context);

/// Whether the window starts maximised: unless the stored rectangle has both far edges and starts on the
/// screen.
bool startsMaximised(const Settings::WindowPosition& position);

/// The stored top edge of a window that is maximised and whose own rectangle begins at that line, and the
/// other way round.
constexpr int maximisedTop(int top) {
    return -1 - top;
}

}  // namespace app
