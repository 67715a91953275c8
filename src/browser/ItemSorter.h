#pragma once

#include "browser/CellLoader.h"
#include "browser/FolderLoader.h"

namespace browser {

/// Sorts the items of one list on a thread of its own, since a folder may hold hundreds of thousands and an
/// order may ask the system about each. The list stays as it is meanwhile. An order that is no longer wanted
/// is never told, and who ends the sorter does not wait for it. GUI thread.
class ItemSorter {
 public:
    /// What a sort needs, as copies, so that the list may change meanwhile.
    struct Items {
        std::filesystem::path folder;
        ItemStore items;
        std::vector<std::int32_t> order;  ///< item ids; those that compare equal keep their places in it
    };
    /// Asked once a sort, just before it begins.
    using TakeItems = std::function<Items()>;
    /// The ids that were taken, in order. Items may have come and gone since.
    using Sorted = std::function<void(const std::vector<std::int32_t>& order)>;

    ItemSorter(TakeItems takeItems, Sorted sorted);
    ~ItemSorter();

    /// Begins at the next turn of the event loop, so that many items that come at once cost one sort. A sort
    /// by other settings is given up. One by the same settings goes on, and is followed by another one: it
    /// may not know the newest items, but given up each time it might never end.
    void sort(const SortSettings& settings);
    /// Gives all up, without waiting.
    void cancel();
    bool isSorting() const { return state_ != State::Idle; }

 private:
    enum class State { Idle, Wanted, Running };

    void beginSoon();
    void begin();
    void end(const std::vector<std::int32_t>& order);

    TakeItems takeItems_;
    Sorted sorted_;
    State state_ = State::Idle;
    SortSettings settings_;
    bool again_ = false;
    unsigned generation_ = 0;  // of the last sort that was wanted
    std::shared_ptr<std::atomic_bool> cancelled_;
    QObject receiver_;
    CellLoader<unsigned, std::vector<std::int32_t>> loader_;
};

}  // namespace browser
