#pragma once

#include <QObject>

namespace bench {

/// The longest time that the event loop of this thread was away from listening: from waking up, or from
/// start() itself, until it looks for new events again. An upper bound of what a user feels as a block, since
/// several events may be handled in one such stretch.
class LoopWatch : public QObject {
    Q_OBJECT

 public:
    LoopWatch();

    /// Begins anew with a stretch that starts now.
    void start();
    double longestBlock() const { return longest_; }  ///< seconds

 private:
    void goesToSleep();

    double awakeSince_ = 0;
    double longest_ = 0;
};

}  // namespace bench
