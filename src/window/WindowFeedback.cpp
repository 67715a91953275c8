#include "window/WindowFeedback.h"

#include "app/SpokenText.h"
#include "app/TextNumbers.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"
#include "platform/Text.h"
#include "window/StatusBar.h"

#include <QGuiApplication>
#include <utility>

namespace window {

WindowFeedback::WindowFeedback(QWidget& window, dialogs::ProgressDialog& progress, StatusBar& statusBar)
    : window_(window), progress_(progress), statusBar_(statusBar) {}

void WindowFeedback::showStatus(const QString& text) {
    if (waits_ > 0) hasSaidSomething_ = true;
    statusBar_.showStatus(text);
}

void WindowFeedback::beginWait() {
    ++waits_;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void WindowFeedback::endWait() {
    QGuiApplication::restoreOverrideCursor();
    if (--waits_ == 0 && std::exchange(hasSaidSomething_, false))
        statusBar_.showStatus(platform::wide(app::spokenText(app::text::kReady)));
}

void WindowFeedback::showReading(const std::filesystem::path& file) {
    statusBar_.showStatus(
        platform::wide(app::spokenText(app::text::kReadingFile, {platform::display(file)})));
    progress_.showReading(platform::display(file.filename()));
}

void WindowFeedback::showSorting() {
    progress_.handleCommand(static_cast<int>(app::ProgressStep::Sorting));
}

void WindowFeedback::hideProgress() {
    progress_.finish();
}

void WindowFeedback::showError(const QString& text) {
    dialogs::showMessage(&window_, {text, dialogs::MessageIcon::Stop});
}

}  // namespace window
