#include "dialogs/Waiting.h"

#include "dialogs/ProgressDialog.h"

#include <QLineEdit>
#include <QTest>
#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;

TEST(Waiting, TheWorkIsDoneElsewhereWhileTheWindowLives) {
    dialogs::ProgressDialog progress(9, {20ms, 60ms, 400ms});
    dialogs::Waiting waiting(progress);
    std::atomic<int> ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1ms);
    std::thread::id worker;
    bool wasWaiting = false;
    waiting.forWork([&] {
        worker = std::this_thread::get_id();
        wasWaiting = waiting.isWaiting();
        // Ends only when the event loop has gone on beside it.
        while (ticks < 20 && waiting.isWanted()) std::this_thread::yield();
    });
    EXPECT_GE(ticks, 20);
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_TRUE(wasWaiting);
    EXPECT_FALSE(waiting.isWaiting());
    EXPECT_FALSE(progress.isVisible());
}

TEST(Waiting, TheButtonEndsWhatWouldNotEndByItself) {
    dialogs::ProgressDialog progress(9, {20ms, 60ms, 100ms});
    dialogs::Waiting waiting(progress);
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        if (progress.canStop()) QTest::keyClick(&progress, Qt::Key_Escape);
    });
    press.start(5ms);
    waiting.forWork([&] {
        while (waiting.isWanted()) std::this_thread::yield();
    });
    EXPECT_FALSE(waiting.isWanted());
    waiting.forWork([] {});
    EXPECT_TRUE(waiting.isWanted()) << "the next wait starts afresh";
}

TEST(Waiting, AWaitWithinAWaitIsDoneOnTheSpot) {
    dialogs::ProgressDialog progress(9);
    dialogs::Waiting waiting(progress);
    std::thread::id outer;
    std::thread::id inner;
    waiting.forWork([&] {
        outer = std::this_thread::get_id();
        waiting.forWork([&] { inner = std::this_thread::get_id(); });
    });
    EXPECT_EQ(inner, outer);
}

}  // namespace
