#pragma once

#include "browser/ItemStore.h"

#include <QString>
#include <atomic>

namespace browser {

enum class FolderState { Readable, Empty, NotFound, NotAllowed, NotAFolder, Unreadable, Cancelled };

/// What an errno of opening or reading a folder means.
FolderState folderStateOf(int errorNumber);

/// The number of the text in the middle of a list without items; 0 for a readable folder that has some.
int emptyListText(FolderState state);

struct FolderListing {
    std::filesystem::path folder;
    ItemStore items;  ///< ids in the order in which the folder gave them
    FolderState state = FolderState::Empty;
    /// The number of the system's error, also of one that ended the reading behind the first items.
    int error = 0;
};

struct ReadFolderOptions {
    bool showHidden = false;
    /// Set by another thread to give up; may be null.
    const std::atomic_bool* cancelled = nullptr;
};

/// Lists a folder. Only names and file system data are read: nothing is opened, so that a pipe or a device
/// cannot hold it up. A link counts as what it points to, a link to nowhere is listed as such. An entry that
/// vanishes meanwhile is left out; one whose data cannot be had is listed with findDataValid false. Any
/// thread; large folders are read by several threads.
FolderListing readFolder(const std::filesystem::path& folder, const ReadFolderOptions& options = {});

/// One entry of a folder, for an item that is added later. False when there is no such entry.
bool readItem(const std::filesystem::path& path, ListItem& item);

}  // namespace browser
