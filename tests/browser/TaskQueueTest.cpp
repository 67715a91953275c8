#include "browser/TaskQueue.h"

#include <gtest/gtest.h>

#include <future>

namespace {

TEST(TaskQueue, RunsInOrderOnOneThreadAndDropsWhatWaits) {
    std::promise<void> begun;
    std::promise<void> goOn;
    std::promise<void> ended;
    std::vector<int> ran;
    browser::TaskQueue queue;
    queue.push(1, [&] {
        begun.set_value();
        goOn.get_future().wait();
        ran.push_back(1);
    });
    begun.get_future().wait();
    queue.push(2, [&] { ran.push_back(2); });
    queue.push(3, [&] { ran.push_back(3); });
    EXPECT_EQ(queue.waiting(), 2U);
    EXPECT_EQ(queue.clear(), (std::vector<browser::TaskId>{2, 3}));
    queue.push(4, [&] { ran.push_back(4); });
    queue.push(5, [&] {
        ran.push_back(5);
        ended.set_value();
    });
    goOn.set_value();
    ended.get_future().wait();
    EXPECT_EQ(ran, (std::vector<int>{1, 4, 5}));
}

TEST(TaskQueue, EndsWithTasksStillWaiting) {
    bool ran = false;
    std::promise<void> goOn;
    {
        browser::TaskQueue queue;
        std::promise<void> begun;
        queue.push(1, [&] {
            begun.set_value();
            goOn.get_future().wait();
        });
        begun.get_future().wait();
        queue.push(2, [&] { ran = true; });
        queue.clear();
        goOn.set_value();
    }
    EXPECT_FALSE(ran);
}

}  // namespace
