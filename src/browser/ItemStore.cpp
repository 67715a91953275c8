#include "browser/ItemStore.h"

#include "platform/Text.h"

#include <stdexcept>

namespace browser {

std::int32_t ItemStore::add(std::string_view name, ListItem item) {
    item.nameOffset = static_cast<std::uint32_t>(names_.size());
    item.nameLength = static_cast<std::uint16_t>(name.size());
    item.removed = false;
    names_.insert(names_.end(), name.begin(), name.end());
    items_.push_back(item);
    return nextItemId() - 1;
}

const ListItem& ItemStore::item(std::int32_t itemId) const {
    const ListItem& found = items_.at(static_cast<std::size_t>(itemId));
    if (found.removed) throw std::out_of_range("ItemStore: the item was removed");
    return found;
}

ListItem& ItemStore::item(std::int32_t itemId) {
    return const_cast<ListItem&>(std::as_const(*this).item(itemId));
}

bool ItemStore::contains(std::int32_t itemId) const {
    return itemId >= 0 && itemId < nextItemId() && !items_[static_cast<std::size_t>(itemId)].removed;
}

void ItemStore::remove(std::int32_t itemId) {
    if (!contains(itemId)) return;
    item(itemId).removed = true;
    ++removed_;
}

std::filesystem::path ItemStore::path(const std::filesystem::path& folder, std::int32_t itemId) const {
    return folder / std::filesystem::path(name(itemId));
}

ItemSnapshot ItemStore::snapshot(const std::filesystem::path& folder, std::int32_t itemId) const {
    const ListItem& found = item(itemId);
    ItemSnapshot copy;
    copy.itemId = itemId;
    copy.path = path(folder, itemId);
    copy.displayName = platform::wide(name(found));
    copy.findData = found.findData;
    copy.kind = found.kind;
    copy.attributes = found.attributes;
    copy.findDataValid = found.findDataValid;
    return copy;
}

void ItemStore::reserve(std::size_t items, std::size_t nameBytes) {
    items_.reserve(items);
    names_.reserve(nameBytes);
}

void ItemStore::clear() {
    *this = ItemStore();
}

std::size_t ItemStore::memory() const {
    return items_.capacity() * sizeof(ListItem) + names_.capacity();
}

}  // namespace browser
