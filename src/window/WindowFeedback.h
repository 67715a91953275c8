#pragma once

#include "app/AppContext.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/ReadCommands.h"
#include "jobs/FileProgress.h"

#include <QWidget>
#include <filesystem>
#include <functional>

namespace dialogs {
class ProgressDialog;
}

namespace window {

class StatusBar;

/// What reads, loads and operations over several files say in the main window: wait cursor, status bar,
/// progress dialog, messages.
class WindowFeedback : public exiftool::ReadFeedback,
                       public exiftool::LoadFeedback,
                       public jobs::FileProgress {
 public:
    /// All outlive it. focusFileList is called when a load is over.
    WindowFeedback(QWidget& window, const app::AppContext& context, dialogs::ProgressDialog& progress,
                   StatusBar& statusBar, std::function<void()> focusFileList);

    void showStatus(const QString& text) override;
    void beginWait() override;
    void endWait() override;
    void showReading(const std::filesystem::path& file) override;
    void showSorting() override;
    void hideProgress() override;
    void showError(const QString& text) override;
    void focusFileList() override;

    /// An operation within another counts as part of the outer one.
    void begin(const QString& title, std::size_t count) override;
    bool showFile(const std::filesystem::path& file, std::size_t number) override;
    void End() override;

    /// A tool has ended. A load and an operation over files end their wait themselves; of any other run this
    /// is all.
    void runEnded();

    /// The window is to close: true when an operation over files runs, which then begins no other file, and
    /// after which the window closes itself.
    bool closeAfterThisFile();

    /// A safety copy has failed: a box, and for the further ones of one operation a line of the report, since
    /// a box for each of a thousand files could not be got rid of.
    void SafetyCopyFailed(const QString& message);

 private:
    void tellFilesLeft();
    void closeWhenIdle();

    QWidget& window_;
    const app::AppContext& context_;
    dialogs::ProgressDialog& progress_;
    StatusBar& statusBar_;
    std::function<void()> focusFileList_;
    bool isLoading_ = false;
    bool isReadingShown_ = false;
    int depth_ = 0;  ///< of operations within one another
    std::size_t count_ = 0;
    std::size_t begun_ = 0;
    std::filesystem::path currentFile_;
    bool isClosing_ = false;
    bool hasShownCopyFailure_ = false;
};

}  // namespace window
