#include "LoopWatch.h"

#include "PlainProcess.h"

#include <QAbstractEventDispatcher>

#include <algorithm>

namespace bench {

LoopWatch::LoopWatch() {
    const QAbstractEventDispatcher* dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { awakeSince_ = monotonicSeconds(); });
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &LoopWatch::goesToSleep);
}

void LoopWatch::start() {
    awakeSince_ = monotonicSeconds();
    longest_ = 0;
}

void LoopWatch::goesToSleep() {
    if (awakeSince_ > 0) longest_ = std::max(longest_, monotonicSeconds() - awakeSince_);
    awakeSince_ = 0;
}

}  // namespace bench
