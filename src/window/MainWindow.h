#pragma once

#include "app/AppContext.h"
#include "app/ColumnsHeader.h"
#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "exiftool/ExifToolSession.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/WarmStarter.h"
#include "jobs/JobRunner.h"
#include "jobs/OperationParts.h"
#include "platform/ProcessFolder.h"
#include "tags/LabelLibrary.h"
#include "tags/OutputParser.h"
#include "tags/PropertyCatalogue.h"

#include <QWidget>
#include <boost/signals2/connection.hpp>
#include <filesystem>
#include <memory>
#include <vector>

class QLabel;

namespace browser {
class AddressBar;
class PlacesPanel;
class ShellBrowser;
class Tab;
class TabContainer;
}  // namespace browser

namespace controls {
class PaneHandle;
class Ribbon;
}  // namespace controls

namespace dialogs {
class ProgressDialog;
class Waiting;
}  // namespace dialogs

namespace jobs {
class JobRunner;
}

namespace panel {
class MetadataPanel;
}

namespace window {

class CommandMap;
class ContextMenus;
class StatusBar;
class SubjectCommands;
class WindowFeedback;
struct WindowParts;

/// The one top-level window: ribbon, left holder, tabs with the file lists, one of four right holders, status
/// bar. It owns what the window works with (dictionary, parser, ExifTool) and is the place where all commands
/// end. The context, the language file, the progress dialog and the temp folder, which is emptied when the
/// window closes, outlive it. GUI thread.
class MainWindow : public QWidget {
    Q_OBJECT

 public:
    MainWindow(app::AppContext& context, const app::LanguageFile& language, dialogs::ProgressDialog& progress,
               platform::ProcessFolder& tempFolder);
    ~MainWindow() override;

    /// Starts the ExifTool that lives as long as the window; one that cannot be started is told, and another
    /// one asked for. False when there is none; the program then ends.
    bool startSession();
    /// Everything inside the window, and the start folder. False when the ribbon cannot be made: the language
    /// file is missing or damaged.
    bool buildContents();
    /// On the screen, where the settings tell; the focus on the file list.
    void Show();

    /// Where every command ends: ribbon, menus, keys and scripts. An id that is not built does nothing; one
    /// that cannot run now tells why.
    void Dispatch(app::CommandId id);
    /// After buildContents().
    const CommandMap& commands() const;

    void setRightHolderWidth(int pixels);
    void setLeftHolderWidth(int pixels);
    void relayout();
    void refreshStatusBar();
    void showStatus(const QString& text);
    /// A message with the text of that number.
    void tellFault(int text, std::initializer_list<QString> values);
    /// Stays in the status bar until something else happens than that the first folder is read.
    void tellAtStart(const QString& text);

    // --- what scripts look at
    QString statusText() const;
    QString selectionText() const;
    browser::ShellBrowser& activeBrowser();
    browser::TabContainer& tabs() { return *tabs_; }
    panel::MetadataPanel& metadataPanel() { return *metadataPanel_; }
    controls::Ribbon& ribbon() { return *ribbon_; }
    /// The panel reads a file, an operation runs, something is waited for.
    enum Doing : unsigned { kReads = 1, kOperates = 2, kWaits = 4 };
    /// What the program is busy with, a sum of these.
    unsigned doings() const;
    bool isBusy() const { return doings() != 0; }
    /// Whether the user can end what is waited for: the button is there.
    bool canStopWaiting() const;
    /// As the buttons of the progress dialogs do.
    void stopWaiting();
    /// Opens the folder in the active tab, as an address typed in the bar does. False when it is no folder.
    bool openFolder(const std::filesystem::path& folder);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool fillRibbon();
    void connectProgress();
    void showCopyFailure(const QString& message);
    jobs::JobRunner::Answer askWhetherToWrite(const QString& question);
    void startWarmStarter();
    void lookAfterSession();
    void createHolders();
    void createBrowser();
    void createCommands();
    void createShortcuts();
    void connectBrowser();
    void openStartFolder();
    void loadColumns();

    void refreshCommands();
    void tellListingCut();
    void updateTitle();
    void tabSelected();
    void navigationCompleted();
    void focusFileList();
    void goToNextPane(bool backwards);

    // Stopping.
    void waitHasEnded();
    void saveEverything();
    app::Settings::WindowPosition currentPosition() const;
    app::Settings::WindowSizes currentSizes() const;
    void takeLayoutAsLoaded();
    void removeTempFolder();
    void writeColumns();

    app::AppContext& context_;
    platform::ProcessFolder& tempFolder_;
    const app::LanguageFile& language_;
    dialogs::ProgressDialog& progress_;

    tags::TagDictionary dictionary_;
    tags::LabelLibrary labels_;
    tags::PropertyCatalogue properties_;
    tags::RatingMemory ratingMemory_;
    tags::RatingLog ratingLog_;
    tags::OutputParser parser_;
    exiftool::WarmStarter warmStarter_;
    exiftool::ToolRunner runner_;
    StatusBar* statusBar_;
    std::unique_ptr<WindowFeedback> feedback_;
    std::unique_ptr<dialogs::Waiting> waiting_;
    std::unique_ptr<dialogs::ProgressDialog>
        jobProgress_;  ///< of the operation that runs beside everything else
    std::unique_ptr<jobs::JobRunner> jobs_;
    std::unique_ptr<jobs::ValueEditing> values_;
    exiftool::ReadCommands readCommands_;
    exiftool::MetadataLoad load_;
    exiftool::MetadataReader reader_;
    exiftool::ExifToolSession session_;

    bool ready_ = false;
    bool keepsStatus_ = false;
    bool hasPainted_ = false;
    bool closed_ = false;
    bool closesAfterWait_ = false;
    bool hasShownCopyFailure_ = false;  ///< of the running operation
    app::LoadedColumns loadedColumns_;
    controls::Ribbon* ribbon_ = nullptr;
    QWidget* client_ = nullptr;
    QLabel* leftTitle_ = nullptr;
    QWidget* leftHolder_ = nullptr;
    browser::PlacesPanel* places_ = nullptr;
    controls::PaneHandle* leftHandle_ = nullptr;
    QWidget* middle_ = nullptr;
    browser::TabContainer* tabs_ = nullptr;
    browser::AddressBar* addressBar_ = nullptr;
    controls::PaneHandle* rightHandle_ = nullptr;
    panel::MetadataPanel* metadataPanel_ = nullptr;
    std::vector<QWidget*> emptyHolders_;
    std::unique_ptr<WindowParts> parts_;
    std::unique_ptr<SubjectCommands> commands_;
    std::unique_ptr<ContextMenus> menus_;
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace window
