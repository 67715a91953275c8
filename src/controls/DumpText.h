#pragma once

#include <QString>
#include <cstddef>
#include <span>

namespace controls {

using Bytes = std::span<const unsigned char>;

inline constexpr std::size_t kBytesPerDumpLine = 16;

/// What stands in a last, short line for each missing byte.
enum class ShortLineFill {
    FourBlanks,  ///< one more than a byte takes, so that the text stands further to the right
    Aligned,     ///< as much as a byte takes: the text stands under that of the other lines
};

/// Where things stand in a line of the dump, in characters.
std::size_t dumpColumnOfByte(std::size_t indexInLine);
std::size_t dumpColumnOfText(std::size_t bytesInLine, ShortLineFill fill);

/// One line without its end: the offset, up to sixteen bytes in hexadecimal digits with a gap after the
/// eighth, and the same bytes as text, a full stop for what is no printable ASCII. offset is that of the
/// line's first byte.
QString dumpLine(Bytes line, std::size_t offset, ShortLineFill fill);

/// What stands under the last line.
QString dumpEnd(std::size_t size);

/// The lines from one to before another, each with carriage return and line feed. Lines past the end are left
/// out.
QString dumpLines(Bytes bytes, std::size_t firstLine, std::size_t endLine, ShortLineFill fill);

/// Number of lines without the end.
std::size_t dumpLineCount(std::size_t size);

}  // namespace controls
