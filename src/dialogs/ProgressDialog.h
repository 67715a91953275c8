#pragma once

#include "app/ProgressTexts.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>
#include <chrono>

class QLabel;
class QProgressBar;
class QPushButton;

namespace dialogs {

/// Tells what the program is busy with. Made once at start, from a form of the executable's own; shown when a
/// wait has lasted a while and hidden at its end. It does no waiting itself: the work is on another thread,
/// and the event loop goes on. It takes no input away from the other windows, but for a wait in front of a
/// dialog (beginWait), over which it stands modally. GUI thread only.
class ProgressDialog : public QDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 171;
    static constexpr int kTextControl = 17101;
    static constexpr int kBarControl = 17102;
    static constexpr int kStopControl = 17103;
    static constexpr std::chrono::milliseconds kShowAfter{200};

    /// From the beginning of a wait.
    struct Delays {
        std::chrono::milliseconds show = kShowAfter;
        /// A read beside which everything else goes on is worth a window only when it takes long.
        std::chrono::milliseconds showReading{1000};
        /// Until the button that ends the wait comes; for an operation over files it is there at once.
        std::chrono::milliseconds offerStop{10'000};
    };

    /// Speaks the language of a language file's number.
    explicit ProgressDialog(int language, QWidget* parent = nullptr);
    ProgressDialog(int language, const Delays& delays, QWidget* parent = nullptr);

    /// The language when the settings have been read anew.
    void setLanguage(int language);

    /// Takes a step by its number (1154 Initializing, 1155 Reading, 1153 thumbnail, 1152 sorting); other
    /// numbers do nothing. The first step begins a wait.
    void handleCommand(int number, const QString& fileName = {});

    /// Step 1155 with the file's name and extension.
    void showReading(const QString& fileName) {
        handleCommand(static_cast<int>(app::ProgressStep::Reading), fileName);
    }

    /// Begins a wait that nothing but this dialog may interrupt, and shows it; finish() ends it.
    void beginWait();

    /// Begins an operation over so many files, which becomes the dialog's title; finish() ends it. Its dialog
    /// takes the keyboard, and Esc stops. Without
    /// counting, the bar only moves.
    void beginFiles(const QString& title, std::size_t count, bool countsFiles = true);
    /// The file that is worked on, its number counted from 1; the bar moves.
    void showFile(const QString& fileName, std::size_t number);
    /// True from beginFiles() to finish().
    bool isShowingFiles() const { return isShowingFiles_; }
    /// Says that the window closes once the running file is done.
    void showClosing();

    /// For work at the start, before there is an event loop: shows the dialog when 200 ms have passed since
    /// the first step, and paints it.
    void pulse();

    /// Ends the wait: the dialog is hidden, the next step begins a new one.
    void finish();

    /// Whether the button that ends the wait is there.
    bool canStop() const;

    /// True from a step until finish().
    bool isWaiting() const { return waiting_; }

    QString text() const;

 public Q_SLOTS:
    void reject() override;

 Q_SIGNALS:
    /// The user does not want to wait any longer.
    void StopWaitingChosen();

 private:
    void begin(std::chrono::milliseconds showAfter);
    void stopWaiting();
    void showNow();
    void say(const QString& text);

    int language_;
    Delays delays_;
    QLabel* text_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* stop_ = nullptr;
    QTimer show_;
    QTimer offerStop_;
    QElapsedTimer sinceFirstStep_;
    bool waiting_ = false;
    bool isModalWait_ = false;
    bool isShowingFiles_ = false;
    std::size_t count_ = 0;
};

}  // namespace dialogs
