#include "browser/ItemList.h"

namespace browser {

void ItemList::reset(std::filesystem::path folder) {
    *this = ItemList();
    folder_ = std::move(folder);
}

void ItemList::take(LoadedFolder loaded) {
    reset(std::move(loaded.listing.folder));
    items_ = std::move(loaded.listing.items);
    state_ = loaded.listing.state;
    rows_.assign(static_cast<std::size_t>(items_.nextItemId()), -1);
    pending_.reserve(loaded.order.size());
    for (const std::int32_t id : loaded.order)
        pending_.push_back({static_cast<std::uint32_t>(pending_.size()), id});
}

int ItemList::rowOf(std::int32_t itemId) const {
    return itemId >= 0 && itemId < static_cast<std::int32_t>(rows_.size())
               ? rows_[static_cast<std::size_t>(itemId)]
               : -1;
}

std::int32_t ItemList::findItem(std::string_view name) const {
    for (const std::int32_t id : order_)
        if (items_.name(id) == name) return id;
    return -1;
}

void ItemList::numberRows(std::size_t from) {
    for (std::size_t row = from; row < order_.size(); ++row)
        rows_[static_cast<std::size_t>(order_[row])] = static_cast<std::int32_t>(row);
}

std::vector<std::int32_t> ItemList::orderAfter(const std::vector<std::int32_t>& sorted) const {
    std::vector<std::int32_t> order;
    order.reserve(order_.size());
    std::vector<bool> placed(rows_.size());
    for (const std::int32_t id : sorted) {
        if (rowOf(id) < 0) continue;
        order.push_back(id);
        placed[static_cast<std::size_t>(id)] = true;
    }
    for (const std::int32_t id : order_)
        if (!placed[static_cast<std::size_t>(id)]) order.push_back(id);
    return order;
}

void ItemList::setOrder(std::vector<std::int32_t> order) {
    order_ = std::move(order);
    numberRows(0);
}

std::int32_t ItemList::addItem(std::string_view name, std::uint32_t position) {
    ListItem item;
    if (!readItem(folder_ / std::filesystem::path(name), item)) return -1;
    const std::int32_t id = items_.add(name, item);
    rows_.push_back(-1);
    pending_.push_back({position, id});
    return id;
}

void ItemList::InsertPendingItems(bool hideSystemFiles, const std::function<void(int)>& beforeRow,
                                  const std::function<void()>& afterRow) {
    order_.reserve(order_.size() + pending_.size());
    std::size_t firstMoved = order_.size();
    for (const PendingInsert& pending : pending_) {
        const ListItem& item = items_.item(pending.itemId);
        if (hideSystemFiles && (item.attributes & attribute::kSystem) != 0) {
            filtered_.push_back(pending.itemId);
            continue;
        }
        const std::size_t row = std::min<std::size_t>(pending.position, order_.size());
        if (beforeRow) beforeRow(static_cast<int>(row));
        order_.insert(order_.begin() + static_cast<std::ptrdiff_t>(row), pending.itemId);
        firstMoved = std::min(firstMoved, row);
        totals_.folderSize += item.findData.size;
        if (afterRow) afterRow();
    }
    pending_ = {};
    numberRows(firstMoved);
    if (!order_.empty()) state_ = FolderState::Readable;
}

void ItemList::RemoveItem(std::int32_t itemId) {
    if (!items_.contains(itemId)) return;
    const int row = rowOf(itemId);
    if (row >= 0) {
        setSelected(row, false);
        totals_.folderSize -= items_.item(itemId).findData.size;
        order_.erase(order_.begin() + row);
        rows_[static_cast<std::size_t>(itemId)] = -1;
        numberRows(static_cast<std::size_t>(row));
    }
    std::erase(filtered_, itemId);
    std::erase_if(pending_, [&](const PendingInsert& pending) { return pending.itemId == itemId; });
    items_.remove(itemId);
    if (itemCount() == 0) state_ = FolderState::Empty;
}

bool ItemList::setSelected(int row, bool selected) {
    ListItem& item = items_.item(itemIdAt(row));
    if (item.selected == selected) return false;
    item.selected = selected;
    std::uint32_t& counter = item.isFolder() ? totals_.selectedFolders : totals_.selectedFiles;
    if (selected) {
        ++counter;
        totals_.selectedSize += item.findData.size;
    } else {
        --counter;
        totals_.selectedSize -= item.findData.size;
    }
    return true;
}

}  // namespace browser
