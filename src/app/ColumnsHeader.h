#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <span>
#include <system_error>
#include <vector>

/// The file that keeps the columns of the file list: 8-bit text, a section SYSTEM with a line
/// "number=columnType,width" for each visible column, CRLF line ends.
namespace app {

/// What is kept of a column. A span of them stands in catalogue order; the first is the name column, of
/// type 1.
struct ColumnState {
    int columnType;
    int width;  ///< pixels
    bool visible;
};

/// A line of the file.
struct ColumnLine {
    int columnType;
    int width;  ///< as it stands
    bool operator==(const ColumnLine&) const = default;
};

/// What was loaded, for the writing: what is the same then was not changed here.
struct LoadedColumns {
    std::vector<ColumnState> states;
    std::vector<ColumnLine> inFile;
};

/// Marks the columns that the file lists visible, with their widths; one below 51 pixels becomes 150. Columns
/// that it does not list stay as they are, and the first is always visible, 250 wide. A missing file lists
/// none. Gives what was loaded.
LoadedColumns LoadColumns(const std::filesystem::path& columnsHeaderPath, std::span<ColumnState> columns);

/// The same from a file that the user chose, in which only widths below 1 become 150.
void LoadColumnsFrom(const std::filesystem::path& file, std::span<ColumnState> columns);

/// The width in pixels of the running column as the list shows it.
using WidthOfColumn = std::function<int(int runningIndex)>;

/// Writes the visible columns, in catalogue order. Makes the first column visible, and 150 wide when it has
/// no width, before that. Without widthOfColumn the widths of the states are written.
void SaveColumns(std::ostream& stream, std::span<ColumnState> columns,
                 const WidthOfColumn& widthOfColumn = {});

/// Puts a new file in the old one's place; the error when that fails or the old one cannot be read, and it
/// stays. A column that
/// has not changed here since it was loaded is written as the file has it now, so that what another running
/// program has changed stays.
[[nodiscard]] std::error_code writeColumnsFile(const std::filesystem::path& columnsHeaderPath,
                                               std::span<const ColumnState> columns,
                                               const LoadedColumns& loaded);

}  // namespace app
