#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace browser {

/// Names a task for those who wait for it; wide enough never to come round.
using TaskId = std::int64_t;

/// One worker thread that runs tasks strictly in the order in which they were queued. Waiting tasks can be
/// dropped; a running one cannot be stopped, its owner must ignore its result. The destructor drops what
/// waits and joins the thread. The thread is started with the first task.
class TaskQueue {
 public:
    TaskQueue() = default;
    ~TaskQueue();
    TaskQueue(const TaskQueue&) = delete;
    TaskQueue& operator=(const TaskQueue&) = delete;

    void push(TaskId taskId, std::function<void()> task);

    /// Drops all tasks that have not begun and gives their ids.
    std::vector<TaskId> clear();

    std::size_t waiting() const;

 private:
    struct Task {
        TaskId id;
        std::function<void()> run;
    };

    void work(const std::stop_token& stop);

    mutable std::mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<Task> tasks_;
    std::jthread thread_;  // last: joined before the rest goes
};

}  // namespace browser
