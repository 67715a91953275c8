#include "window/WindowFeedback.h"

#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "exiftool/ReportFile.h"
#include "platform/Text.h"
#include "window/StatusBar.h"

#include <QApplication>
#include <QTimer>

namespace window {

namespace {

constexpr std::chrono::milliseconds kUntilIdle{50};

}  // namespace

WindowFeedback::WindowFeedback(QWidget& window, const app::AppContext& context,
                               dialogs::ProgressDialog& progress, StatusBar& statusBar,
                               std::function<void()> focusFileList)
    : window_(window),
      context_(context),
      progress_(progress),
      statusBar_(statusBar),
      focusFileList_(std::move(focusFileList)) {
    progress_.setClosableWindow(&window);
}

void WindowFeedback::showStatus(const QString& text) {
    isReadingShown_ = text.startsWith(QLatin1StringView("Reading "));
    statusBar_.showStatus(text);
}

void WindowFeedback::beginWait() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void WindowFeedback::endWait() {
    QGuiApplication::restoreOverrideCursor();
}

void WindowFeedback::showReading(const std::filesystem::path& file) {
    isLoading_ = true;
    if (depth_ == 0) progress_.showReading(platform::display(file.filename()));
}

void WindowFeedback::showSorting() {
    if (depth_ == 0) progress_.handleCommand(static_cast<int>(app::ProgressStep::Sorting));
}

void WindowFeedback::hideProgress() {
    isLoading_ = false;
    if (depth_ == 0) progress_.finish();
}

void WindowFeedback::showError(const QString& text) {
    dialogs::showMessage(&window_, {text, dialogs::MessageIcon::Stop});
}

void WindowFeedback::focusFileList() {
    focusFileList_();
}

void WindowFeedback::runEnded() {
    if (depth_ > 0 || isLoading_) return;
    progress_.finish();
    if (isReadingShown_) showStatus(QStringLiteral("Ready"));
}

void WindowFeedback::begin(const QString& title, std::size_t count) {
    if (depth_++ > 0) return;
    count_ = count;
    begun_ = 0;
    currentFile_.clear();
    isClosing_ = false;
    hasShownCopyFailure_ = false;
    beginWait();
    progress_.beginFiles(title, count);
}

bool WindowFeedback::showFile(const std::filesystem::path& file, std::size_t number) {
    if (depth_ == 1 && !isClosing_) {
        currentFile_ = file;
        progress_.showFile(platform::display(file.filename()), number);
        // Asked after the repaint, in which the window may have been told to close.
        if (!isClosing_) begun_ = number;
    }
    return !isClosing_;
}

void WindowFeedback::End() {
    if (--depth_ > 0) return;
    progress_.finish();
    endWait();
    currentFile_.clear();
    if (!isClosing_) return;
    tellFilesLeft();
    closeWhenIdle();
}

bool WindowFeedback::closeAfterThisFile() {
    if (depth_ == 0) return false;
    isClosing_ = true;
    progress_.showClosing();
    return true;
}

void WindowFeedback::tellFilesLeft() {
    if (begun_ >= count_) return;
    const std::size_t left = count_ - begun_;
    exiftool::appendToReport(context_, "Warning: The window was closed - " + std::to_string(left) +
                                           (left == 1 ? " file was" : " files were") + " not begun");
}

// What began the operation still has to end, and its report is read before the window goes.
void WindowFeedback::closeWhenIdle() {
    QTimer::singleShot(kUntilIdle, &window_, [this] {
        if (QApplication::activeModalWidget() != nullptr || progress_.isWaiting())
            closeWhenIdle();
        else
            window_.close();
    });
}

void WindowFeedback::SafetyCopyFailed(const QString& message) {
    if (depth_ > 0 && std::exchange(hasShownCopyFailure_, true)) {
        exiftool::appendToReport(
            context_, "Warning: " + message.toStdString() + " - " + platform::narrow(currentFile_));
        return;
    }
    dialogs::showMessage(&window_, {message, dialogs::MessageIcon::Stop, QStringLiteral("Error")});
}

}  // namespace window
