#pragma once

#include "app/CommandForm.h"
#include "app/Settings.h"
#include "platform/PointInTime.h"

#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace app {

/// A text in another language: "Title-deu-DE" and what it says.
struct Translation {
    QString name;
    QString value;
};

/// The last edit of a tag, as the write gets it: by copy. A new one stands for "nothing edited yet".
struct CurrentEdit {
    int id = -1;          ///< TagRecord::id, or PropertyRecord::propertyId in a group of properties
    int groupIndex = -1;  ///< GroupId
    QString name;         ///< of the tag, as ExifTool takes it
    QString value;        ///< the new text; empty deletes the tag
    QString comboCode;    ///< code that belongs to the value chosen from a list
    QString group;        ///< TagRecord::group
    platform::PointInTime fileTime;  ///< the moment chosen for a date
    int valueKind = -1;
    bool writable = false;
    int selection = -1;
    int rowIndex = -1;
    QString language;  ///< of a tag kept in several: the one entry that is written
    /// Of a tag whose other languages ExifTool deletes with its plain entry: what is written again.
    std::vector<Translation> translations;
    QString valueBefore;         ///< text on entry; what of it stands in value was not typed by the user
    bool severalValues = false;  ///< value holds one entry a line, as tags::joinEntries makes it
};

/// A key of the settings file when it was loaded: what the program took it for, and what the file held
/// (nothing: no such key). What is the same at the end was not changed here.
struct LoadedSetting {
    std::string value;
    std::optional<std::string> inFile;
};

/// State of the one running program: where things are and what the user has set. Owned by the program's entry
/// and passed by reference; changed on the GUI thread only. The paths are set before any other thread starts,
/// and only the tool paths change later. A narrow (UTF-8) form of a path is a function of it:
/// platform::narrow().
struct AppContext {
    std::filesystem::path installPath;  ///< folder of the executable
    std::filesystem::path cachePath;
    std::filesystem::path reportsPath;
    /// The batch report of the day on which the program was started. Several processes of one install folder
    /// have different ones.
    std::filesystem::path reportFile;
    std::filesystem::path savePath;  ///< safety copies
    std::filesystem::path tempRoot;  ///< the folder Temp, which all processes of the install folder share
    std::filesystem::path tempPath;  ///< this process's own folder in it; empty before openTempFolder()
    std::filesystem::path iniPath;
    std::filesystem::path columnsHeaderPath;
    std::filesystem::path exifToolPath;     ///< empty when not found
    std::filesystem::path ffmpegPath;       ///< empty when absent
    std::filesystem::path imageMagickPath;  ///< empty when absent

    Settings settings;
    std::vector<std::optional<LoadedSetting>> loadedSettings;  ///< one a row of settingsTable(), or none
    CurrentEdit currentEdit;
    std::filesystem::path currentFile;  ///< the file that was clicked last
};

/// What the settings say now. For the beginning of an operation; what composes its lines gets the answer.
inline CommandForm commandFormOf(const AppContext& context) {
    return context.settings.exifTool.correctedCommands ? CommandForm::Corrected : CommandForm::Designed;
}

}  // namespace app
