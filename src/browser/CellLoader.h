#pragma once

#include "browser/TaskQueue.h"

#include <QMetaObject>
#include <QObject>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace browser {

/// Computes what the cells of a list show, one after the other on a thread of its own: column texts, and
/// whatever else is too slow to be made while a list is painted. Key says which cell, Result what comes for
/// it; both are copied or moved, Key is ordered. A result is known by the id of its task and by nothing else:
/// whoever forgets the task, by clear(), need not fear its result, even though the same key may by then mean
/// another cell. All calls and all results on the thread that made the loader, which has an event loop.
template <typename Key, typename Result>
class CellLoader {
 public:
    /// Runs on the worker and so holds copies of all that it needs. It must not throw.
    using Work = std::function<Result()>;
    /// It may ask for further cells and forget others, but must not end the loader.
    using Loaded = std::function<void(const Key& key, Result result)>;

    explicit CellLoader(Loaded loaded) : loaded_(std::move(loaded)) {}
    CellLoader(const CellLoader&) = delete;
    CellLoader& operator=(const CellLoader&) = delete;

    /// Queues the work for a cell. Its task's id is none that this loader has given before; nothing for a
    /// cell whose result is still to come, since it would be the same.
    std::optional<TaskId> request(const Key& key, Work work) {
        if (!waitingKeys_.insert(key).second) return std::nullopt;
        const TaskId id = nextId_++;
        tasks_.emplace(id, key);
        queue_.push(id, [this, id, work = std::move(work)] { put(id, work()); });
        return id;
    }

    /// Forgets all tasks. One that has begun runs to its end, and its result is dropped.
    void clear() {
        queue_.clear();
        tasks_.clear();
        waitingKeys_.clear();
    }

    /// Forgets the tasks that have not begun, so that those asked for next come first: the cells in sight,
    /// after the list has been scrolled.
    void dropWaiting() {
        for (const TaskId id : queue_.clear()) forget(id);
    }

    /// Whether results are still to come.
    bool isLoading() const { return !tasks_.empty(); }

 private:
    struct Delivery {
        TaskId id;
        Result result;
    };

    /// On the worker.
    void put(TaskId id, Result result) {
        const std::lock_guard lock(mutex_);
        deliveries_.push_back({id, std::move(result)});
        // One event brings all that is there by the time it is handled.
        if (deliveries_.size() == 1)
            QMetaObject::invokeMethod(
                &receiver_, [this] { deliver(); }, Qt::QueuedConnection);
    }

    void deliver() {
        std::vector<Delivery> deliveries;
        {
            const std::lock_guard lock(mutex_);
            deliveries.swap(deliveries_);
        }
        for (Delivery& delivery : deliveries)
            if (const std::optional<Key> key = forget(delivery.id)) loaded_(*key, std::move(delivery.result));
    }

    std::optional<Key> forget(TaskId id) {
        auto task = tasks_.extract(id);
        if (task.empty()) return std::nullopt;
        waitingKeys_.erase(task.mapped());
        return std::move(task.mapped());
    }

    Loaded loaded_;
    TaskId nextId_ = 0;
    std::map<TaskId, Key> tasks_;
    std::set<Key> waitingKeys_;
    std::mutex mutex_;
    std::vector<Delivery> deliveries_;
    QObject receiver_;  // what is under way to it ends with it
    TaskQueue queue_;   // last: its thread ends first
};

}  // namespace browser
