#include "app/ColumnsHeader.h"

#include "platform/IniFile.h"

#include <QString>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <ostream>
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

void load(const fs::path& file, std::span<ColumnState> columns, int smallestWidth) {
    if (columns.empty()) return;
    const platform::IniFile ini(file);
    for (int number = 0;; ++number) {
        const QString line = ini.text("SYSTEM", std::to_string(number), {}, kLineCapacity);
        if (line.isEmpty()) break;
        const qsizetype comma = line.indexOf(u',');
        if (comma < 0) continue;
        ColumnState* column = columnOfType(columns, leadingNumber(line.left(comma)));
        if (column == nullptr) continue;
        const int width = leadingNumber(line.mid(comma + 1));
        column->width = width < smallestWidth ? kDefaultWidth : width;
        column->visible = true;
    }
    columns.front().visible = true;
    columns.front().width = kNameWidth;
}

std::error_code lastError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

}  // namespace

void LoadColumns(const fs::path& columnsHeaderPath, std::span<ColumnState> columns) {
    load(columnsHeaderPath, columns, kSmallestOwnWidth);
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

std::error_code writeColumnsFile(const fs::path& columnsHeaderPath, std::span<ColumnState> columns,
                                 const WidthOfColumn& widthOfColumn) {
    std::error_code ignored;
    fs::remove(columnsHeaderPath, ignored);
    errno = 0;
    std::ofstream stream(columnsHeaderPath, std::ios::binary | std::ios::trunc);
    if (!stream) return lastError();
    SaveColumns(stream, columns, widthOfColumn);
    stream.close();
    return stream ? std::error_code() : lastError();
}

}  // namespace app
