#pragma once

#include "controls/DumpText.h"

#include <QString>
#include <vector>

namespace controls {

/// Bytes as rows of text: a row ends at a line feed, or after kLongestRow bytes where none comes. Only every
/// so many rows' beginning is kept, so that even a hundred million rows cost little; the rest is found from
/// there. The bytes outlive it.
class TextRows {
 public:
    static constexpr std::size_t kLongestRow = 512;

    TextRows() = default;
    /// Looks through all bytes once.
    explicit TextRows(Bytes bytes);

    std::size_t rowCount() const { return rowCount_; }
    /// The row's first byte, and one past its last one, its line end included.
    std::size_t beginOf(std::size_t row) const;
    std::size_t endOf(std::size_t row) const { return next(beginOf(row)); }
    /// The row that the byte stands in; the last one for an offset past the end.
    std::size_t rowOf(std::size_t offset) const;
    /// UTF-8 without the line end; a blank for a tab, a full stop for another control character.
    QString textOf(std::size_t row) const;

 private:
    std::size_t next(std::size_t begin) const;

    Bytes bytes_;
    std::size_t rowCount_ = 0;
    std::vector<std::size_t> marks_;  ///< where every kRowsPerMark-th row begins
};

}  // namespace controls
