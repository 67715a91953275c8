#include "LoopWatch.h"

#include "PlainProcess.h"

#include <algorithm>
#include <chrono>

namespace bench {

LoopWatch::LoopWatch() : asker_([this] { ask(); }) {}

LoopWatch::~LoopWatch() {
    ended_ = true;
    asker_.join();
}

void LoopWatch::ask() {
    while (!ended_) {
        if (!waiting_.exchange(true)) {
            const double asked = monotonicSeconds();
            QMetaObject::invokeMethod(
                this, [this, asked] { answer(asked); }, Qt::QueuedConnection);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void LoopWatch::answer(double asked) {
    longest_ = std::max(longest_, monotonicSeconds() - asked);
    waiting_ = false;
}

}  // namespace bench
