#pragma once

#include "exiftool/MetadataLoad.h"
#include "exiftool/ReadCommands.h"

#include <QWidget>
#include <filesystem>

namespace dialogs {
class ProgressDialog;
}

namespace window {

class StatusBar;

/// What reads and loads say in the main window: wait cursor, status bar, progress dialog, messages. GUI
/// thread.
class WindowFeedback : public exiftool::ReadFeedback, public exiftool::LoadFeedback {
 public:
    /// All outlive it.
    WindowFeedback(QWidget& window, dialogs::ProgressDialog& progress, StatusBar& statusBar);

    // --- exiftool::ReadFeedback, and of both
    void showStatus(const QString& text) override;
    void beginWait() override;
    void endWait() override;

    // --- exiftool::LoadFeedback
    void showReading(const std::filesystem::path& file) override;
    void showSorting() override;
    void hideProgress() override;
    void showError(const QString& text) override;

 private:
    QWidget& window_;
    dialogs::ProgressDialog& progress_;
    StatusBar& statusBar_;
    int waits_ = 0;                  ///< of reads within one another
    bool hasSaidSomething_ = false;  ///< the read that is waited for has; its words end with it
};

}  // namespace window
