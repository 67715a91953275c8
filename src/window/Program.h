#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "app/SpokenText.h"
#include "app/StartUp.h"

#include <QIcon>
#include <QTranslator>
#include <filesystem>
#include <memory>
#include <optional>

class QApplication;

namespace dialogs {
class ProgressDialog;
}

namespace window {

class MainWindow;

/// The one running program, from the first path to the last setting: derives the paths, loads the settings,
/// finds the tools, builds the main window and keeps what it needs. Made and ended by main(); GUI thread.
class Program {
 public:
    /// executable: whose folder is the install folder; the settings, the language files and the temp folder
    /// stand in it.
    Program(QApplication& application, const std::filesystem::path& executable);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Opens the window. An exit status when the program cannot go on; the user has been told why.
    std::optional<int> start();

    MainWindow& window() { return *window_; }
    /// Whether the window stands, with all that is in it.
    bool hasWindow() const { return hasContents_; }
    /// Whether a tool is being waited for and the button that ends the wait is there.
    bool canStopWaiting() const;
    app::AppContext& context() { return context_; }

 private:
    /// The two answer whether the program can go on; the user has been told why when not.
    bool askForExifTool();
    bool takeTempFolder(const QDate& today);
    void tellFaults();
    void tellLanguageGaps();
    void applyLook();

    QApplication& application_;
    app::AppContext context_;
    app::SettingsFaults settingsFaults_;
    std::optional<platform::ProcessFolder> tempFolder_;
    QString tempFolderProblem_;
    std::unique_ptr<dialogs::ProgressDialog> progress_;
    std::unique_ptr<app::LanguageFile> language_;
    std::optional<app::SpokenLanguage> spoken_;
    std::unique_ptr<QTranslator> qtTexts_;
    std::unique_ptr<MainWindow> window_;
    bool hasContents_ = false;
};

}  // namespace window
