#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <vector>

namespace inspect {

/// Where the rows of a file come from.
enum class RowsFrom {
    MediaFile,   ///< read through ExifTool, as the panel does
    SavedOutput  ///< a text file with what ExifTool once printed
};

struct RowsRequest {
    RowsFrom from = RowsFrom::MediaFile;
    std::optional<std::filesystem::path> settingsFile;  ///< gives the MetadataList and ExifTool keys
    std::vector<std::filesystem::path> files;
    std::filesystem::path installPath;  ///< where tools are looked for first
};

/// Prints the rows and counts of each file as JSON lines. A file that cannot be read is named on `errors` and
/// the next one follows. True when every file was read.
bool reportRows(const RowsRequest& request, std::ostream& output, std::ostream& errors);

}  // namespace inspect
