#include "dialogs/Waiting.h"

#include "dialogs/ProgressDialog.h"

#include <QEventLoop>
#include <QMetaObject>
#include <QTimer>
#include <thread>

namespace dialogs {

Waiting::Waiting(ProgressDialog& progress) : progress_(progress) {
    QObject::connect(&progress_, &ProgressDialog::StopWaitingChosen, &receiver_, [this] {
        if (isWaiting_) isStopped_ = true;
    });
}

void Waiting::forWork(const std::function<void()>& work) {
    if (isWaiting_) {
        work();
        return;
    }
    isWaiting_ = true;
    isStopped_ = false;
    QEventLoop loop;
    bool isOver = false;
    std::thread thread([&] {
        work();
        QMetaObject::invokeMethod(
            &loop,
            [&] {
                isOver = true;
                loop.quit();
            },
            Qt::QueuedConnection);
    });
    // What is typed before anything is to be seen was meant for what comes, and stays in the queue.
    QTimer::singleShot(ProgressDialog::kShowAfter, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!isOver) {
        progress_.beginWait();
        while (!isOver) loop.exec();
        progress_.finish();
    }
    thread.join();
    isWaiting_ = false;
    if (ended_) ended_();
}

}  // namespace dialogs
