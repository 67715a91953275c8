#include "app/ColumnsHeader.h"

#include "platform/AtomicFile.h"
#include "platform/IniFile.h"

#include <QString>
#include <algorithm>
#include <charconv>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr int kNameColumnType = 1;
constexpr int kDefaultWidth = 150;
constexpr int kNameWidth = 250;
constexpr int kLineCapacity = 80;  // its terminator included
constexpr int kSmallestOwnWidth = 51;
constexpr int kSmallestChosenWidth = 1;

// Blanks, a sign, digits; whatever follows is passed over, and no number at all is 0.
int leadingNumber(const QString& text) {
    const std::string digits = text.trimmed().toStdString();
    const char* begin = digits.data();
    const char* end = begin + digits.size();
    if (begin != end && *begin == '+') ++begin;
    int number = 0;
    const auto result = std::from_chars(begin, end, number);
    return result.ec == std::errc() ? number : 0;
}

ColumnState* columnOfType(std::span<ColumnState> columns, int columnType) {
    if (columnType == kNameColumnType) return &columns.front();
    for (ColumnState& column : columns.subspan(1)) {
        if (column.columnType == columnType) return &column;
    }
    return nullptr;
}

std::vector<ColumnLine> linesOf(const platform::IniFile& ini) {
    std::vector<ColumnLine> lines;
    for (int number = 0;; ++number) {
        const QString line = ini.text("SYSTEM", std::to_string(number), {}, kLineCapacity);
        if (line.isEmpty()) return lines;
        const qsizetype comma = line.indexOf(u',');
        if (comma >= 0)
            lines.push_back({leadingNumber(line.left(comma)), leadingNumber(line.mid(comma + 1))});
    }
}

std::vector<ColumnLine> load(const fs::path& file, std::span<ColumnState> columns, int smallestWidth) {
    if (columns.empty()) return {};
    std::vector<ColumnLine> lines = linesOf(platform::IniFile(file));
    for (const ColumnLine& line : lines) {
        ColumnState* column = columnOfType(columns, line.columnType);
        if (column == nullptr) continue;
        column->width = line.width < smallestWidth ? kDefaultWidth : line.width;
        column->visible = true;
    }
    columns.front().visible = true;
    columns.front().width = kNameWidth;
    return lines;
}

/// The last of the type counts; nothing when there is none.
std::optional<ColumnLine> lineOf(const std::vector<ColumnLine>& lines, int columnType) {
    const auto found = std::find_if(lines.rbegin(), lines.rend(),
                                    [&](const ColumnLine& line) { return line.columnType == columnType; });
    return found == lines.rend() ? std::nullopt : std::optional(*found);
}

const ColumnState* stateOf(const std::vector<ColumnState>& states, int columnType) {
    const auto found = std::find_if(states.begin(), states.end(),
                                    [&](const ColumnState& state) { return state.columnType == columnType; });
    return found == states.end() ? nullptr : &*found;
}

/// What is changed here beside what the file says of the columns that are not.
void takeChangesOfOthers(const std::vector<ColumnLine>& now, const LoadedColumns& loaded,
                         std::vector<ColumnState>& columns) {
    for (ColumnState& column : columns) {
        const ColumnState* before = stateOf(loaded.states, column.columnType);
        if (before == nullptr || before->visible != column.visible || before->width != column.width) continue;
        const std::optional<ColumnLine> line = lineOf(now, column.columnType);
        if (line == lineOf(loaded.inFile, column.columnType)) continue;
        column.visible = line.has_value();
        if (line) column.width = line->width;
    }
}

}  // namespace

LoadedColumns LoadColumns(const fs::path& columnsHeaderPath, std::span<ColumnState> columns) {
    std::vector<ColumnLine> lines = load(columnsHeaderPath, columns, kSmallestOwnWidth);
    return {{columns.begin(), columns.end()}, std::move(lines)};
}

void LoadColumnsFrom(const fs::path& file, std::span<ColumnState> columns) {
    load(file, columns, kSmallestChosenWidth);
}

void SaveColumns(std::ostream& stream, std::span<ColumnState> columns, const WidthOfColumn& widthOfColumn) {
    if (!columns.empty() && !columns.front().visible) columns.front().visible = true;
    if (!columns.empty() && columns.front().width < 1) columns.front().width = kDefaultWidth;
    stream << "[SYSTEM]\r\n";
    int running = 0;
    for (const ColumnState& column : columns) {
        if (!column.visible) continue;
        const int width = widthOfColumn ? widthOfColumn(running) : column.width;
        stream << QString::asprintf("%d=%d,%d\r\n", running, column.columnType, width).toStdString();
        ++running;
    }
    stream << "\r\n";
}

std::error_code writeColumnsFile(const fs::path& columnsHeaderPath, std::span<const ColumnState> columns,
                                 const LoadedColumns& loaded) {
    platform::FileReplacement replacement(columnsHeaderPath);
    std::vector<ColumnState> merged(columns.begin(), columns.end());
    const platform::IniFile now(columnsHeaderPath);
    // What cannot be read may hold what somebody wants back.
    if (now.loadStatus() == platform::IniFile::LoadStatus::Unreadable)
        return std::make_error_code(fs::is_directory(columnsHeaderPath) ? std::errc::is_a_directory
                                                                        : std::errc::io_error);
    // A file that is gone says nothing about any column.
    if (now.loadStatus() == platform::IniFile::LoadStatus::Loaded)
        takeChangesOfOthers(linesOf(now), loaded, merged);
    std::ostringstream bytes;
    SaveColumns(bytes, merged);
    return {replacement.commit(bytes.str()), std::system_category()};
}

}  // namespace app
