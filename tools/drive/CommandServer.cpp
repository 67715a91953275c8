#include "drive/CommandServer.h"

#include "drive/CommandLineWords.h"

#include "dialogs/ProgressDialog.h"
#include "platform/AtomicFile.h"
#include "platform/Pipe.h"

#include <QApplication>
#include <QEventLoop>
#include <QJsonDocument>
#include <QMenu>
#include <utility>

namespace drive {

namespace {

constexpr int kWatchMilliseconds = 5;

}  // namespace

CommandServer::CommandServer(int inputDescriptor, int outputDescriptor, Execute execute, QObject* parent)
    : QObject(parent),
      output_(outputDescriptor),
      execute_(std::move(execute)),
      notifier_(inputDescriptor, QSocketNotifier::Read) {
    next_.setSingleShot(true);
    connect(&notifier_, &QSocketNotifier::activated, this, &CommandServer::readInput);
    connect(&next_, &QTimer::timeout, this, &CommandServer::executeNext);
    connect(&watch_, &QTimer::timeout, this, &CommandServer::watchForNewWindow);
}

void CommandServer::readInput() {
    char block[65536];
    const platform::ReadResult got = platform::readSome(static_cast<int>(notifier_.socket()), block);
    if (got.size == 0) {
        notifier_.setEnabled(false);
        ended_ = true;
        if (!buffer_.isEmpty()) lines_.push_back(buffer_);
        buffer_.clear();
    } else {
        buffer_.append(block, static_cast<qsizetype>(got.size));
    }
    for (qsizetype feed = 0; (feed = buffer_.indexOf('\n')) >= 0;) {
        lines_.push_back(buffer_.left(feed));
        buffer_.remove(0, feed + 1);
    }
    next_.start(0);
}

void CommandServer::executeNext() {
    // The command before has to be answered first; its answer starts the next one.
    if (!running_.empty() && !running_.back().answered) return;
    // Only a stop makes sense while everybody waits.
    const bool isStop = !lines_.empty() && lines_.front().trimmed() == "stop";
    // These two wait for what the others leave alone.
    if (isStop || (!lines_.empty() && lines_.front().trimmed() == "await")) leftAlone_ = 0;
    if (!isStop && isBusy()) {
        next_.start(kWatchMilliseconds);
        return;
    }
    if (lines_.empty()) {
        if (ended_) Q_EMIT InputEnded();
        return;
    }
    const QByteArray line = lines_.front();
    lines_.pop_front();
    if (line.trimmed().isEmpty()) {
        next_.start(0);
        return;
    }
    Running begun;
    begun.modal = QApplication::activeModalWidget();
    begun.popup = QApplication::activePopupWidget();
    running_.push_back(begun);
    watch_.start(kWatchMilliseconds);
    std::optional<QStringList> words = splitWords(line);
    // What the command leads to goes on beside it, unless somebody wants to see it go on.
    const bool waits = !words || words->value(0) != QLatin1String("nowait");
    if (!waits) words->removeFirst();
    running_.back().waits = waits;
    const Answer given = !words || words->isEmpty() ? Answer::failed(QStringLiteral("the line is no command"))
                                                    : execute_(*words);
    if (!running_.back().waits)
        leftAlone_ |= doings();
    else if (isStop)
        waitWhileBusy([&] { static_cast<void>(execute_(*words)); });
    else
        waitWhileBusy({});
    finish(given);
    if (running_.empty()) watch_.stop();
    next_.start(0);
}

bool CommandServer::isBusy() {
    const unsigned doings = this->doings();
    // What ends and begins again is another one.
    leftAlone_ &= doings;
    return (doings & ~leftAlone_) != 0 && !(isAnswerable_ && isAnswerable_());
}

void CommandServer::waitWhileBusy(const std::function<void()>& meanwhile) {
    if (!isBusy()) return;
    QEventLoop loop;
    QTimer look;
    connect(&look, &QTimer::timeout, &loop, [&] {
        if (!isBusy()) return loop.quit();
        if (meanwhile) meanwhile();
    });
    look.start(kWatchMilliseconds);
    loop.exec();
}

/// The window is gone that an earlier command waits for.
bool CommandServer::isFreed(const Running& running) const {
    if (!running.answered || !running.waits) return false;
    if (running.heldUpByProgress) return !blockedByProgress_ || !blockedByProgress_();
    return running.heldUpBy == nullptr || !running.heldUpBy->isVisible();
}

void CommandServer::finish(const Answer& given) {
    Running& ended = running_.back();
    const bool owesAnswer = !ended.answered;
    const Answer owed = ended.inherited.value_or(given);
    if (owesAnswer && running_.size() > 1 && isFreed(running_[running_.size() - 2])) {
        // What was begun before now goes on; its end, or the next window, is what this command leads to.
        const bool waits = ended.waits;
        running_.pop_back();
        Running& freed = running_.back();
        freed = Running{QApplication::activeModalWidget(),
                        QApplication::activePopupWidget(),
                        false,
                        nullptr,
                        false,
                        owed,
                        waits};
        if (!waits) answer(owed);
        return;
    }
    if (owesAnswer) answer(owed);
    running_.pop_back();
}

void CommandServer::watchForNewWindow() {
    if (running_.empty() || running_.back().answered) return;
    Running& current = running_.back();
    QWidget* modal = QApplication::activeModalWidget();
    // The dialog that tells of a wait keeps no command from returning either, unless the wait can be ended.
    if (qobject_cast<dialogs::ProgressDialog*>(modal) != nullptr) modal = nullptr;
    // A list of offers below an edit keeps no command from returning.
    QWidget* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    const bool newModal = modal != nullptr && modal != current.modal && modal->isVisible();
    const bool newPopup = popup != nullptr && popup != current.popup && popup->isVisible();
    const bool blocked = blockedByProgress_ && blockedByProgress_();
    if (!newModal && !newPopup && !blocked) return;
    current.heldUpBy = newPopup ? popup : modal;
    current.heldUpByProgress = !newModal && !newPopup;
    answer(current.inherited.value_or(Answer{}));
}

void CommandServer::answer(const Answer& given) {
    QJsonObject object = given.members;
    object.insert(QStringLiteral("ok"), given.error.isEmpty());
    if (!given.error.isEmpty()) object.insert(QStringLiteral("error"), given.error);
    running_.back().answered = true;
    const QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    // Nobody is left to be told when the one who reads the answers has gone.
    static_cast<void>(platform::writeAll(output_, {line.constData(), static_cast<std::size_t>(line.size())}));
    next_.start(0);
}

}  // namespace drive
