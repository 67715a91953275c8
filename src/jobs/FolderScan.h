#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace jobs {

struct FolderScan {
    std::vector<std::filesystem::path> files;  ///< in order of their paths
    std::vector<std::string> unreadable;       ///< "<folder>: <reason>", one for each that could not be read
};

/// Called now and then during a scan, so that a window can be repainted.
using ScanPulse = std::function<void()>;

/// The files of a folder. Without subfolders those whose extension stands in the ExtensionTable; with them
/// every file below, whatever its extension. A link to a file counts as a file; a link to a folder is not
/// followed below the folder itself, so that no loop can hold the scan up. What is neither (a pipe, a device)
/// is left out, since reading it might never end. A folder that cannot be read does not end the scan.
FolderScan scanFolder(const std::filesystem::path& folder, bool withSubfolders, const ScanPulse& pulse = {});

/// The files of a selection, in its order: without folders, and without what is no file; the latter are told
/// in refused. What is not there any more stays, since ExifTool has something to say about it.
struct SelectionFiles {
    std::vector<std::filesystem::path> files;
    std::vector<std::filesystem::path> refused;
};
SelectionFiles filesOfSelection(const std::vector<std::filesystem::path>& selection);

}  // namespace jobs
