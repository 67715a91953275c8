#pragma once

#include "app/Settings.h"

#include <QString>
#include <filesystem>

namespace app {

/// The last tag the user looked at or edited.
struct CurrentEdit {
    int tagId = -1;
    int groupId = 0;
    int valueKind = 2;
    bool writable = false;
    int categoryId = 0;
    int listRow = -1;
    QString name;
    QString value;
    QString group;
};

/// State of the one running program: where things are and what the user has set. Owned by the program's entry
/// and passed by reference; changed on the GUI thread only. The paths are set before any other thread starts,
/// and only the tool paths change later. A narrow (UTF-8) form of a path is a function of it:
/// platform::narrow().
struct AppContext {
    std::filesystem::path installPath;  ///< folder of the executable
    std::filesystem::path cachePath;
    std::filesystem::path reportsPath;
    std::filesystem::path reportFile;  ///< the batch report of the day on which the program was started
    std::filesystem::path savePath;    ///< safety copies
    std::filesystem::path tempPath;
    std::filesystem::path iniPath;
    std::filesystem::path columnsHeaderPath;
    std::filesystem::path exifToolPath;     ///< empty when not found
    std::filesystem::path ffmpegPath;       ///< empty when absent
    std::filesystem::path imageMagickPath;  ///< empty when absent

    Settings settings;
    CurrentEdit currentEdit;
    std::filesystem::path currentFile;  ///< the file that was clicked last
};

}  // namespace app
