#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <span>
#include <system_error>

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

/// Marks the columns that the file lists visible, with their widths; one below 51 pixels becomes 150. Columns
/// that it does not list stay as they are, and the first is always visible, 250 wide. A missing file lists
/// none.
void LoadColumns(const std::filesystem::path& columnsHeaderPath, std::span<ColumnState> columns);

/// The same from a file that the user chose, in which only widths below 1 become 150.
void LoadColumnsFrom(const std::filesystem::path& file, std::span<ColumnState> columns);

/// The width in pixels of the running column as the list shows it.
using WidthOfColumn = std::function<int(int runningIndex)>;

/// Writes the visible columns, in catalogue order. Makes the first column visible, and 150 wide when it has
/// no width, before that. Without widthOfColumn the widths of the states are written.
void SaveColumns(std::ostream& stream, std::span<ColumnState> columns,
                 const WidthOfColumn& widthOfColumn = {});

/// Deletes the file and writes it anew; the error when that fails.
std::error_code writeColumnsFile(const std::filesystem::path& columnsHeaderPath,
                                 std::span<ColumnState> columns, const WidthOfColumn& widthOfColumn = {});

}  // namespace app
