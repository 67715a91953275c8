#pragma once

#include <QString>
#include <filesystem>
#include <string_view>
#include <vector>

namespace browser {

/// A folder that the left pane offers.
struct Place {
    QString name;
    std::filesystem::path path;
    QString iconName;  ///< in the icon theme
};

/// Home, Pictures, Desktop, Documents, Downloads, Music and Videos, as far as they exist and differ from
/// home.
std::vector<Place> knownFolders();

/// The root of the file system and the volumes a person would look for: disks, cards, network shares. Nothing
/// is asked of the volumes themselves, so that one that does not answer holds up nobody.
std::vector<Place> mountedVolumes();

/// The same from the text of a mount table (/proc/self/mounts).
std::vector<Place> volumesOfMountTable(std::string_view table);

}  // namespace browser
