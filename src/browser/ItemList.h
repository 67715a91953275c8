#pragma once

#include "browser/FolderLoader.h"

namespace browser {

/// What the list of a folder holds: its items, their rows, what waits to be inserted or is kept out, the
/// counters and sums. An item id is good for one folder; a row changes with every sort. Knows nothing of
/// widgets. GUI thread.
class ItemList {
 public:
    struct Totals {
        std::uint64_t folderSize = 0;  ///< bytes of the items in the list
        std::uint64_t selectedSize = 0;
        std::uint32_t selectedFiles = 0;
        std::uint32_t selectedFolders = 0;
    };

    /// Forgets everything; ids start again at 0.
    void reset(std::filesystem::path folder);

    /// Takes over a loaded folder; its items wait to be inserted, in the order given.
    void take(LoadedFolder loaded);

    const std::filesystem::path& folder() const { return folder_; }
    FolderState state() const { return state_; }
    const ItemStore& items() const { return items_; }

    int rowCount() const { return static_cast<int>(order_.size()); }
    std::int32_t itemIdAt(int row) const { return order_.at(static_cast<std::size_t>(row)); }
    const ListItem& itemAt(int row) const { return items_.item(itemIdAt(row)); }
    /// -1 when the item is not in the list.
    int rowOf(std::int32_t itemId) const;
    /// By the entry's bytes; -1 when there is none.
    std::int32_t findItem(std::string_view name) const;
    std::filesystem::path pathAt(int row) const { return items_.path(folder_, itemIdAt(row)); }
    const std::vector<std::int32_t>& order() const { return order_; }
    /// The ids of the list in the order given: those that it does not name follow in their present order, and
    /// those of it that have left the list are passed over.
    std::vector<std::int32_t> orderAfter(const std::vector<std::int32_t>& sorted) const;
    /// The same ids in another order.
    void setOrder(std::vector<std::int32_t> order);

    /// Adds a record for an entry of the folder and lets it wait. Gives its id, -1 when there is no such
    /// entry.
    std::int32_t addItem(std::string_view name, std::uint32_t position);
    const std::vector<PendingInsert>& pendingInserts() const { return pending_; }
    const std::vector<std::int32_t>& filteredItems() const { return filtered_; }
    /// Items in the list and items that wait.
    std::size_t itemCount() const { return order_.size() + pending_.size(); }

    /// Puts the waiting items into the list, each at its position; those with the system attribute are kept
    /// out if so wished, their records stay.
    /// beforeRow is told each row just before an item goes there, afterRow just after; both may be empty.
    void InsertPendingItems(bool hideSystemFiles, const std::function<void(int)>& beforeRow = {},
                            const std::function<void()>& afterRow = {});

    /// An id that is not there does nothing.
    void RemoveItem(std::int32_t itemId);

    /// Notes the item's selected state; gives whether it changed.
    bool setSelected(int row, bool selected);
    const Totals& totals() const { return totals_; }

 private:
    void numberRows(std::size_t from);

    std::filesystem::path folder_;
    FolderState state_ = FolderState::Empty;
    ItemStore items_;
    std::vector<std::int32_t> order_;  // by row
    std::vector<std::int32_t> rows_;   // by item id
    std::vector<PendingInsert> pending_;
    std::vector<std::int32_t> filtered_;
    Totals totals_;
};

}  // namespace browser
