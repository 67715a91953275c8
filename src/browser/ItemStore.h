#pragma once

#include "browser/ListItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace browser {

/// The items of one folder by item id. Ids are handed out from 0 upward and are never used twice; a removed
/// item leaves a gap. About 60 bytes an item beside its name. No locking: whoever fills it hands it over.
class ItemStore {
 public:
    /// Takes the next id. name is the entry's bytes, at most 65,535.
    std::int32_t add(std::string_view name, ListItem item);

    /// Throws std::out_of_range for an id that is not there: a live list never asks for one.
    const ListItem& item(std::int32_t itemId) const;
    ListItem& item(std::int32_t itemId);
    bool contains(std::int32_t itemId) const;
    void remove(std::int32_t itemId);

    /// The entry's bytes; good until the next add.
    std::string_view name(std::int32_t itemId) const { return name(item(itemId)); }
    std::string_view name(const ListItem& item) const {
        return {names_.data() + item.nameOffset, item.nameLength};
    }

    std::filesystem::path path(const std::filesystem::path& folder, std::int32_t itemId) const;
    ItemSnapshot snapshot(const std::filesystem::path& folder, std::int32_t itemId) const;

    /// One more than the highest id so far.
    std::int32_t nextItemId() const { return static_cast<std::int32_t>(items_.size()); }
    std::size_t count() const { return items_.size() - removed_; }

    void reserve(std::size_t items, std::size_t nameBytes);
    void clear();
    /// Bytes that the store holds.
    std::size_t memory() const;

 private:
    std::vector<ListItem> items_;
    std::vector<char> names_;
    std::size_t removed_ = 0;
};

}  // namespace browser
