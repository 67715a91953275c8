#pragma once

#include "platform/Volumes.h"

#include <QString>
#include <filesystem>
#include <span>
#include <vector>

namespace browser {

/// A folder that the left pane offers.
struct Place {
    QString name;  ///< the folder's own; empty where a text of the language file names it
    std::filesystem::path path;
    QString iconName;    ///< in the icon theme
    int textNumber = 0;  ///< 0 where it has a name of its own
};

/// Home, Pictures, Desktop, Documents, Downloads, Music and Videos, as far as they exist and differ from
/// home.
std::vector<Place> knownFolders();

/// The root of the file system and the volumes a person would look for: disks, cards, network shares. Nothing
/// is asked of the volumes themselves, so that one that does not answer holds up nobody.
std::vector<Place> mountedVolumes();

/// The same for given volumes.
std::vector<Place> placesOf(std::span<const platform::Volume> volumes);

}  // namespace browser
