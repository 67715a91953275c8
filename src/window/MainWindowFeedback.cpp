#include "window/MainWindowFeedback.h"

#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "exiftool/ReportFile.h"
#include "platform/Text.h"

#include <QApplication>
#include <QTimer>

namespace window {

namespace {

constexpr std::chrono::milliseconds kUntilIdle{50};

}  // namespace

MainWindow::Feedback::Feedback(MainWindow& window, dialogs::ProgressDialog& progress)
    : window_(window), progress_(progress) {
    progress_.setClosableWindow(&window);
}

void MainWindow::Feedback::showStatus(const QString& text) {
    isReadingShown_ = text.startsWith(QLatin1StringView("Reading "));
    window_.showStatus(text);
}

void MainWindow::Feedback::beginWait() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void MainWindow::Feedback::endWait() {
    QGuiApplication::restoreOverrideCursor();
}

void MainWindow::Feedback::showReading(const std::filesystem::path& file) {
    isLoading_ = true;
    if (depth_ == 0) progress_.showReading(platform::display(file.filename()));
}

void MainWindow::Feedback::showSorting() {
    if (depth_ == 0) progress_.handleCommand(static_cast<int>(app::ProgressStep::Sorting));
}

void MainWindow::Feedback::hideProgress() {
    isLoading_ = false;
    if (depth_ == 0) progress_.finish();
}

void MainWindow::Feedback::showError(const QString& text) {
    dialogs::showMessage(&window_, {text, dialogs::MessageIcon::Stop});
}

void MainWindow::Feedback::focusFileList() {
    window_.focusFileList();
}

void MainWindow::Feedback::runEnded() {
    if (depth_ > 0 || isLoading_) return;
    progress_.finish();
    if (isReadingShown_) showStatus(QStringLiteral("Ready"));
}

void MainWindow::Feedback::begin(const QString& title, std::size_t count) {
    if (depth_++ > 0) return;
    count_ = count;
    begun_ = 0;
    currentFile_.clear();
    isClosing_ = false;
    hasShownCopyFailure_ = false;
    beginWait();
    progress_.beginFiles(title, count);
}

bool MainWindow::Feedback::showFile(const std::filesystem::path& file, std::size_t number) {
    if (depth_ == 1 && !isClosing_) {
        currentFile_ = file;
        progress_.showFile(platform::display(file.filename()), number);
        // Asked after the repaint, in which the window may have been told to close.
        if (!isClosing_) begun_ = number;
    }
    return !isClosing_;
}

void MainWindow::Feedback::End() {
    if (--depth_ > 0) return;
    progress_.finish();
    endWait();
    currentFile_.clear();
    if (!isClosing_) return;
    tellFilesLeft();
    closeWhenIdle();
}

bool MainWindow::Feedback::closeAfterThisFile() {
    if (depth_ == 0) return false;
    isClosing_ = true;
    progress_.showClosing();
    return true;
}

void MainWindow::Feedback::tellFilesLeft() {
    if (begun_ >= count_) return;
    const std::size_t left = count_ - begun_;
    exiftool::appendToReport(window_.context_, "Warning: The window was closed - " + std::to_string(left) +
                                                   (left == 1 ? " file was" : " files were") + " not begun");
}

// What began the operation still has to end, and its report is read before the window goes.
void MainWindow::Feedback::closeWhenIdle() {
    QTimer::singleShot(kUntilIdle, &window_, [this] {
        if (QApplication::activeModalWidget() != nullptr || progress_.isWaiting())
            closeWhenIdle();
        else
            window_.close();
    });
}

void MainWindow::Feedback::SafetyCopyFailed(const QString& message) {
    if (depth_ > 0 && std::exchange(hasShownCopyFailure_, true)) {
        exiftool::appendToReport(
            window_.context_, "Warning: " + message.toStdString() + " - " + platform::narrow(currentFile_));
        return;
    }
    dialogs::showMessage(&window_, {message, dialogs::MessageIcon::Stop, QStringLiteral("Error")});
}

}  // namespace window
