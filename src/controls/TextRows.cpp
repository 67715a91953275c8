#include "controls/TextRows.h"

#include <algorithm>
#include <cstring>

namespace controls {

namespace {

constexpr std::size_t kRowsPerMark = 64;
constexpr unsigned char kLineFeed = '\n';

bool continuesCharacter(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

}  // namespace

TextRows::TextRows(Bytes bytes) : bytes_(bytes) {
    for (std::size_t begin = 0; begin < bytes_.size(); begin = next(begin)) {
        if (rowCount_ % kRowsPerMark == 0) marks_.push_back(begin);
        ++rowCount_;
    }
}

std::size_t TextRows::next(std::size_t begin) const {
    const std::size_t most = std::min(kLongestRow, bytes_.size() - begin);
    const void* found = std::memchr(bytes_.data() + begin, kLineFeed, most);
    if (found != nullptr)
        return static_cast<std::size_t>(static_cast<const unsigned char*>(found) - bytes_.data()) + 1;
    std::size_t end = begin + most;
    // No character is cut in two; four bytes are the longest there is.
    for (int back = 0; back < 3 && end < bytes_.size() && continuesCharacter(bytes_[end]); ++back) --end;
    return end;
}

std::size_t TextRows::beginOf(std::size_t row) const {
    std::size_t begin = marks_[row / kRowsPerMark];
    for (std::size_t step = row % kRowsPerMark; step > 0; --step) begin = next(begin);
    return begin;
}

std::size_t TextRows::rowOf(std::size_t offset) const {
    if (marks_.empty()) return 0;
    const auto mark = std::upper_bound(marks_.begin(), marks_.end(), offset) - marks_.begin() - 1;
    std::size_t row = static_cast<std::size_t>(mark) * kRowsPerMark;
    std::size_t begin = marks_[static_cast<std::size_t>(mark)];
    while (row + 1 < rowCount_ && next(begin) <= offset) {
        begin = next(begin);
        ++row;
    }
    return row;
}

QString TextRows::textOf(std::size_t row) const {
    const std::size_t begin = beginOf(row);
    std::size_t end = next(begin);
    if (end > begin && bytes_[end - 1] == kLineFeed) --end;
    if (end > begin && bytes_[end - 1] == '\r') --end;
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(bytes_.data()) + begin,
                                     static_cast<qsizetype>(end - begin));
    for (QChar& character : text) {
        if (character == u'\t')
            character = u' ';
        else if (character.unicode() < 0x20 || character.unicode() == 0x7F)
            character = u'.';
    }
    return text;
}

}  // namespace controls
