#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// Writes a small valid JPEG (a coloured square of 32 by 24 pixels) without metadata.
void writeJpeg(const std::filesystem::path& file);

/// Runs the installed exiftool on the file with these arguments, for preparing and judging test files. Gives
/// its standard output; a test failure when it cannot be run.
std::string ExifTool(const std::vector<std::string>& arguments);

/// Names that a careless program would stumble over: blanks, quotes, $(), backticks, %, &, ;, |, *, a line
/// feed, a leading hyphen, other scripts, emoji, and bytes that are no UTF-8. All end in ".jpg".
const std::vector<std::string>& hostileNames();

}  // namespace support
