#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QSocketNotifier>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace drive {

/// What a command answers: {"ok":true,...} with these members, or {"ok":false,"error":...}.
struct Answer {
    QJsonObject members;
    QString error;  ///< empty: the command succeeded

    static Answer failed(const QString& why) { return {{}, why}; }
};

/// Reads commands from a descriptor, one a line, and answers each with one line of JSON as soon as its effect
/// has happened. A command that opens a modal dialog, a message box or a menu does not return before that is
/// closed; it is answered when the new window stands, and the commands that follow run in the window's own
/// event loop. The one that closes the window is answered when what the window was opened for has come to its
/// end, or to the next window. GUI thread.
class CommandServer : public QObject {
    Q_OBJECT

 public:
    using Execute = std::function<Answer(const QStringList& words)>;

    CommandServer(int inputDescriptor, int outputDescriptor, Execute execute, QObject* parent = nullptr);

    /// Tells whether a command waits for a tool and the user can end the wait: it is answered then, too.
    void setBlockedByProgress(std::function<bool()> blocked) { blockedByProgress_ = std::move(blocked); }

    /// Tells what the program is busy with, a bit for each kind; the next command is put off until it has
    /// ended, but for a stop. What a command began that does not wait is left out until it has ended.
    void setDoings(std::function<unsigned()> doings) { doings_ = std::move(doings); }
    /// Tells whether something stands open that can be answered, however busy the program is.
    void setAnswerable(std::function<bool()> answerable) { isAnswerable_ = std::move(answerable); }

 Q_SIGNALS:
    /// The input has ended and the last command was answered.
    void InputEnded();

 private:
    /// A command that is being executed, with what was on the screen when it began.
    struct Running {
        QPointer<QWidget> modal;
        QPointer<QWidget> popup;
        bool answered = false;
        QPointer<QWidget> heldUpBy;     ///< the window that kept it from returning, for which it was answered
        bool heldUpByProgress = false;  ///< a wait that the user can end did
        std::optional<Answer> inherited;  ///< of the command that closed that window
        bool waits = true;  ///< for what it leads to; so does what goes on when it closes a window
    };

    void readInput();
    void executeNext();
    bool isBusy();
    unsigned doings() const { return doings_ ? doings_() : 0; }
    /// `meanwhile` is called at every look.
    void waitWhileBusy(const std::function<void()>& meanwhile);
    void watchForNewWindow();
    void finish(const Answer& given);
    bool isFreed(const Running& running) const;
    void answer(const Answer& given);

    int output_;
    Execute execute_;
    std::function<bool()> blockedByProgress_;
    std::function<unsigned()> doings_;
    std::function<bool()> isAnswerable_;
    unsigned leftAlone_ = 0;  ///< of what the program is busy with: goes on beside the commands
    QSocketNotifier notifier_;
    QTimer next_;
    QTimer watch_;
    QByteArray buffer_;
    std::deque<QByteArray> lines_;
    std::vector<Running> running_;
    bool ended_ = false;
};

}  // namespace drive
