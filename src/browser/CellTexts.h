#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <optional>

namespace browser {

/// The texts of the cells that were shown lately. Texts are not kept for long: when there are many, the older
/// half goes, and a cell that is scrolled in again asks anew.
class CellTexts {
 public:
    struct Cell {
        QString text;
        bool borrowed = false;  ///< written by another list; shown until the cell's own text comes
    };

    const Cell* find(std::int32_t itemId, std::uint32_t columnType);
    void set(std::int32_t itemId, std::uint32_t columnType, const Cell& cell);
    void clear();
    qsizetype count() const { return recent_.size() + older_.size(); }

 private:
    static std::uint64_t keyOf(std::int32_t itemId, std::uint32_t columnType) {
        return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(itemId)) << 32) | columnType;
    }

    QHash<std::uint64_t, Cell> recent_;
    QHash<std::uint64_t, Cell> older_;
};

}  // namespace browser
