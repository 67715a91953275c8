#include "browser/TaskQueue.h"

namespace browser {

TaskQueue::~TaskQueue() {
    clear();
}

void TaskQueue::push(TaskId taskId, std::function<void()> task) {
    {
        const std::lock_guard lock(mutex_);
        tasks_.push_back({taskId, std::move(task)});
        if (!thread_.joinable()) thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
    }
    changed_.notify_one();
}

std::vector<TaskId> TaskQueue::clear() {
    const std::lock_guard lock(mutex_);
    std::vector<TaskId> dropped;
    dropped.reserve(tasks_.size());
    for (const Task& task : tasks_) dropped.push_back(task.id);
    tasks_.clear();
    return dropped;
}

std::size_t TaskQueue::waiting() const {
    const std::lock_guard lock(mutex_);
    return tasks_.size();
}

void TaskQueue::work(const std::stop_token& stop) {
    for (;;) {
        std::function<void()> next;
        {
            std::unique_lock lock(mutex_);
            if (!changed_.wait(lock, stop, [this] { return !tasks_.empty(); }) || stop.stop_requested())
                return;
            next = std::move(tasks_.front().run);
            tasks_.pop_front();
        }
        next();
    }
}

}  // namespace browser
