#pragma once

#include "app/MainWindow.h"
#include "exiftool/FileProgress.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/ReadCommands.h"

namespace app {

/// What reads and loads say in the main window: wait cursor, status bar, progress dialog, messages.
class MainWindow::Feedback : public exiftool::ReadFeedback,
                             public exiftool::LoadFeedback,
                             public exiftool::FileProgress {
 public:
    Feedback(MainWindow& window, ProgressDialog& progress) : window_(window), progress_(progress) {}

    void ShowStatus(const QString& text) override;
    void BeginWait() override;
    void EndWait() override;
    void ShowReading(const std::filesystem::path& file) override;
    void ShowSorting() override;
    void HideProgress() override;
    void ShowError(const QString& text) override;
    void FocusFileList() override;

 private:
    MainWindow& window_;
    ProgressDialog& progress_;
};

}  // namespace app
