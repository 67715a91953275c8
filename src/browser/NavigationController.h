#pragma once

#include <memory>
#include <vector>

namespace browser {

/// A list of entries and a place in it, with the moves of a back and a forward button. It loads nothing
/// itself. How an entry is shown, and what becomes of a place that does not exist, the descendant says.
template <class Entry, class Result>
class NavigationController {
 public:
    virtual ~NavigationController() = default;

    /// -1 is back, +1 is forward. The place has moved even if showing it fails then.
    Result GoToOffset(int offset) {
        const int index = currentIndex_ + offset;
        if (index < 0 || index >= entryCount()) return handleInvalidIndex();
        currentIndex_ = index;
        Entry* entry = currentEntry();
        return entry != nullptr ? Navigate(*entry, false) : handleInvalidIndex();
    }

    bool canGoToOffset(int offset) const {
        const int index = currentIndex_ + offset;
        return index >= 0 && index < entryCount();
    }

    int entryCount() const { return static_cast<int>(entries_.size()); }
    /// -1 while there are no entries.
    int currentIndex() const { return currentIndex_; }
    /// Null outside of the entries.
    Entry* currentEntry() const { return entryAt(currentIndex_); }
    Entry* entryAt(int index) const {
        return index >= 0 && index < entryCount() ? entries_[static_cast<std::size_t>(index)].get() : nullptr;
    }
    /// For those who keep an entry longer than the history does.
    std::shared_ptr<Entry> currentEntryShared() const {
        return currentEntry() != nullptr ? entries_[static_cast<std::size_t>(currentIndex_)] : nullptr;
    }

 protected:
    virtual Result Navigate(const Entry& entry, bool addHistoryEntry) = 0;
    virtual Result handleInvalidIndex() = 0;

    /// Puts the entry behind the current one, cuts off all that followed, and goes there. Gives the new
    /// place.
    int addEntry(std::shared_ptr<Entry> entry) {
        ++currentIndex_;
        entries_.resize(static_cast<std::size_t>(currentIndex_));
        entries_.push_back(std::move(entry));
        return currentIndex_;
    }

 private:
    std::vector<std::shared_ptr<Entry>> entries_;
    int currentIndex_ = -1;
};

}  // namespace browser
