#include "app/MainWindowFeedback.h"

#include "app/Messages.h"
#include "app/ProgressDialog.h"
#include "platform/Text.h"

#include <QGuiApplication>

namespace app {

void MainWindow::Feedback::ShowStatus(const QString& text) {
    window_.ShowStatus(text);
}

void MainWindow::Feedback::BeginWait() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void MainWindow::Feedback::EndWait() {
    QGuiApplication::restoreOverrideCursor();
}

void MainWindow::Feedback::ShowReading(const std::filesystem::path& file) {
    progress_.showReading(platform::display(file.filename()));
}

void MainWindow::Feedback::ShowSorting() {
    progress_.HandleCommand(static_cast<int>(ProgressStep::Sorting));
}

void MainWindow::Feedback::HideProgress() {
    progress_.finish();
}

void MainWindow::Feedback::ShowError(const QString& text) {
    ShowMessage(&window_, {text, MessageIcon::Stop});
}

void MainWindow::Feedback::FocusFileList() {
    window_.focusFileList();
}

}  // namespace app
