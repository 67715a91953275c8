#pragma once

#include "app/ProgressTexts.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QPointer>
#include <chrono>

class QLabel;
class QProgressBar;
class QPushButton;

namespace dialogs {

/// Tells what the program is busy with. Made once at start, modeless and without a parent, from a form of the
/// executable's own; shown when a wait has lasted 200 ms and hidden at its end. While the GUI thread waits
/// for a tool it is the dialog that keeps the screen painted: user input stays queued, and from the tenth
/// second on only the dialog gets any, with a button that ends the wait. Posted events and timers are
/// delivered meanwhile, so that whatever they call must not start another wait: isWaiting() tells. While an
/// operation over several files runs, it is one wait for all of them: input for the other windows is dropped,
/// since it was meant for what stood there before, but for the closing of the main window. GUI thread only.
class ProgressDialog : public QDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 171;
    static constexpr int kTextControl = 17101;
    static constexpr int kBarControl = 17102;
    static constexpr int kStopControl = 17103;
    static constexpr std::chrono::milliseconds kShowAfter{200};
    static constexpr std::chrono::milliseconds kStopAfter{10'000};

    /// Speaks the language of a language file's number.
    explicit ProgressDialog(int language);

    /// The language when the settings have been read anew.
    void setLanguage(int language);

    /// Takes a step by its number (1154 Initializing, 1155 Reading, 1153 thumbnail, 1152 sorting); other
    /// numbers do nothing. Nothing is shown by this alone.
    void handleCommand(int number, const QString& fileName = {});

    /// Step 1155 with the file's name and extension.
    void showReading(const QString& fileName) {
        handleCommand(static_cast<int>(app::ProgressStep::Reading), fileName);
    }

    /// Begins an operation over so many files, which becomes the dialog's title; finish() ends it.
    void beginFiles(const QString& title, std::size_t count);
    /// The file that is worked on, its number counted from 1; the bar moves, and the windows are repainted.
    void showFile(const QString& fileName, std::size_t number);
    /// True from beginFiles() to finish().
    bool isShowingFiles() const { return isShowingFiles_; }
    /// Says that the window closes once the running file is done.
    void showClosing();
    /// The window whose closing gets through while files are worked on; null for none.
    void setClosableWindow(QWidget* window) { closableWindow_ = window; }

    /// To be called now and then in work that takes long without a tool: shows the dialog when 200 ms have
    /// passed since the first step, and repaints.
    void pulse();

    /// Fits exiftool::KeepWaiting: repaints, and is false once the user has pressed the button.
    bool keepWaiting(std::chrono::milliseconds sinceStart);

    /// Ends the wait: the dialog is hidden, the next step begins a new one.
    void finish();

    /// Whether the button that ends the wait is there.
    bool canStop() const;

    /// True from a step until finish().
    bool isWaiting() const { return waiting_; }

    QString text() const;
    bool eventFilter(QObject* receiver, QEvent* event) override;

 public Q_SLOTS:
    void reject() override;

 Q_SIGNALS:
    /// The user does not want to wait any longer.
    void StopWaitingChosen();

 private:
    void stopWaiting();
    void showNow();
    void paintWaitingWindows(bool ownInput);
    void say(const QString& text);
    bool isOwn(QObject* receiver) const;
    bool isClosing(QObject* receiver, QEvent::Type type) const;

    int language_;
    QLabel* text_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* stop_ = nullptr;
    QPointer<QWidget> closableWindow_;
    QElapsedTimer sinceFirstStep_;
    bool waiting_ = false;
    bool stopped_ = false;
    bool painting_ = false;
    bool isShowingFiles_ = false;
    std::size_t count_ = 0;
};

}  // namespace dialogs
