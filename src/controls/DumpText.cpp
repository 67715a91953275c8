#include "controls/DumpText.h"

#include <algorithm>

namespace controls {

namespace {

constexpr std::size_t kOffsetColumns = 11;  // "%08X   "
constexpr std::size_t kByteColumns = 3;     // "%02X "
constexpr std::size_t kHalf = 8;
constexpr std::size_t kGapColumns = 2;
constexpr std::size_t kTextGapColumns = 3;
constexpr const char* kDigits = "0123456789ABCDEF";

void appendBlanks(QString& line, std::size_t count) {
    line.append(QString(static_cast<qsizetype>(count), u' '));
}

}  // namespace

std::size_t dumpColumnOfByte(std::size_t indexInLine) {
    return kOffsetColumns + indexInLine * kByteColumns + (indexInLine >= kHalf ? kGapColumns : 0);
}

std::size_t dumpColumnOfText(std::size_t bytesInLine, ShortLineFill fill) {
    if (fill == ShortLineFill::Aligned) bytesInLine = kBytesPerDumpLine;
    const std::size_t missing = kBytesPerDumpLine - bytesInLine;
    return dumpColumnOfByte(bytesInLine) + missing * (kByteColumns + 1) + kTextGapColumns;
}

QString dumpLine(Bytes bytes, std::size_t offset, ShortLineFill fill) {
    QString line = QString::asprintf("%08zX   ", offset);
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        line += QLatin1Char(kDigits[bytes[index] >> 4U]);
        line += QLatin1Char(kDigits[bytes[index] & 0xFU]);
        line += u' ';
        if (index + 1 == kHalf) appendBlanks(line, kGapColumns);
    }
    appendBlanks(line, dumpColumnOfText(bytes.size(), fill) - static_cast<std::size_t>(line.size()));
    for (const unsigned char byte : bytes)
        line += byte >= 0x20 && byte < 0x7F ? QChar(static_cast<char16_t>(byte)) : QChar(u'.');
    return line;
}

QString dumpEnd(std::size_t size) {
    return QString::asprintf("(%ld bytes)", static_cast<long>(size));
}

QString dumpLines(Bytes bytes, std::size_t firstLine, std::size_t endLine, ShortLineFill fill) {
    QString text;
    endLine = std::min(endLine, dumpLineCount(bytes.size()));
    for (std::size_t line = firstLine; line < endLine; ++line) {
        const std::size_t offset = line * kBytesPerDumpLine;
        const std::size_t length = std::min(kBytesPerDumpLine, bytes.size() - offset);
        text += dumpLine(bytes.subspan(offset, length), offset, fill) + QStringLiteral("\r\n");
    }
    return text;
}

std::size_t dumpLineCount(std::size_t size) {
    return size / kBytesPerDumpLine + (size % kBytesPerDumpLine != 0 ? 1 : 0);
}

}  // namespace controls
