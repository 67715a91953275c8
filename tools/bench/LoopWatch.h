#pragma once

#include <QObject>
#include <atomic>
#include <thread>

namespace bench {

/// The longest time that an event had to wait for this thread's event loop, which is how long the user's
/// click would have waited. A thread of its own asks the loop every millisecond for a sign of life. Made and
/// read on the GUI thread.
class LoopWatch : public QObject {
    Q_OBJECT

 public:
    LoopWatch();
    ~LoopWatch() override;

    double longestWait() const { return longest_; }  ///< seconds

 private:
    void ask();
    void answer(double asked);

    double longest_ = 0;
    std::atomic_bool waiting_ = false;
    std::atomic_bool ended_ = false;
    std::thread asker_;
};

}  // namespace bench
