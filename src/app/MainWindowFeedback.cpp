#include "app/MainWindowFeedback.h"

#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "exiftool/ReportFile.h"
#include "platform/Text.h"

#include <QApplication>
#include <QTimer>

namespace app {

namespace {

constexpr std::chrono::milliseconds kUntilIdle{50};

}  // namespace

MainWindow::Feedback::Feedback(MainWindow& window, ProgressDialog& progress)
    : window_(window), progress_(progress) {
    progress_.setClosableWindow(&window);
}

void MainWindow::Feedback::ShowStatus(const QString& text) {
    isReadingShown_ = text.startsWith(QLatin1StringView("Reading "));
    window_.ShowStatus(text);
}

void MainWindow::Feedback::BeginWait() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void MainWindow::Feedback::EndWait() {
    QGuiApplication::restoreOverrideCursor();
}

void MainWindow::Feedback::ShowReading(const std::filesystem::path& file) {
    isLoading_ = true;
    if (depth_ == 0) progress_.showReading(platform::display(file.filename()));
}

void MainWindow::Feedback::ShowSorting() {
    if (depth_ == 0) progress_.HandleCommand(static_cast<int>(ProgressStep::Sorting));
}

void MainWindow::Feedback::HideProgress() {
    isLoading_ = false;
    if (depth_ == 0) progress_.finish();
}

void MainWindow::Feedback::ShowError(const QString& text) {
    ShowMessage(&window_, {text, MessageIcon::Stop});
}

void MainWindow::Feedback::FocusFileList() {
    window_.focusFileList();
}

void MainWindow::Feedback::RunEnded() {
    if (depth_ > 0 || isLoading_) return;
    progress_.finish();
    if (isReadingShown_) ShowStatus(QStringLiteral("Ready"));
}

void MainWindow::Feedback::Begin(const QString& title, std::size_t count) {
    if (depth_++ > 0) return;
    count_ = count;
    begun_ = 0;
    currentFile_.clear();
    isClosing_ = false;
    hasShownCopyFailure_ = false;
    BeginWait();
    progress_.beginFiles(title, count);
}

bool MainWindow::Feedback::ShowFile(const std::filesystem::path& file, std::size_t number) {
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
    EndWait();
    currentFile_.clear();
    if (!isClosing_) return;
    tellFilesLeft();
    closeWhenIdle();
}

bool MainWindow::Feedback::CloseAfterThisFile() {
    if (depth_ == 0) return false;
    isClosing_ = true;
    progress_.showClosing();
    return true;
}

void MainWindow::Feedback::tellFilesLeft() {
    if (begun_ >= count_) return;
    const std::size_t left = count_ - begun_;
    exiftool::AppendToReport(window_.context_, "Warning: The window was closed - " + std::to_string(left) +
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
        exiftool::AppendToReport(
            window_.context_, "Warning: " + message.toStdString() + " - " + platform::narrow(currentFile_));
        return;
    }
    ShowMessage(&window_, {message, MessageIcon::Stop, QStringLiteral("Error")});
}

}  // namespace app
