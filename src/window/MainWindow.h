#pragma once

#include "app/AppContext.h"
#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "exiftool/ExifToolSession.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/WarmStarter.h"
#include "jobs/OperationParts.h"
#include "tags/LabelLibrary.h"
#include "tags/OutputParser.h"
#include "tags/PropertyCatalogue.h"

#include <QWidget>
#include <boost/signals2/connection.hpp>
#include <filesystem>
#include <memory>
#include <vector>

class QLabel;

namespace batch {
struct BatchOperation;
struct BatchOptions;
}  // namespace batch

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
}

namespace exiftool {
struct TagWriteResult;
struct ValuesExport;
}  // namespace exiftool

namespace jobs {
class QuietSuccessNotice;
}

namespace panel {
class MetadataPanel;
}

namespace taglists {
struct FileRuns;
}

namespace window {

/// The one top-level window: ribbon, left holder, tabs with the file lists, one of four right holders, status
/// bar. It owns what the window works with (dictionary, parser, ExifTool) and is the place where all commands
/// end. The context, the language file and the progress dialog outlive it. GUI thread.
class MainWindow : public QWidget {
    Q_OBJECT

 public:
    MainWindow(app::AppContext& context, const app::LanguageFile& language,
               dialogs::ProgressDialog& progress);
    ~MainWindow() override;

    /// Starts the ExifTool that lives as long as the window. False when it cannot; the program then ends.
    bool startSession();
    /// Everything inside the window, and the start folder. False when the ribbon cannot be made: the language
    /// file is missing or damaged.
    bool buildContents();
    /// On the screen, where the settings tell; the focus on the file list.
    void Show();

    /// Where every command ends: ribbon, menus, keys and scripts. An id that is not built does nothing.
    void Dispatch(app::CommandId id);
    /// Whether Dispatch() has something to do for the number.
    static bool handles(app::CommandId id);

    void setRightHolderWidth(int pixels);
    void setLeftHolderWidth(int pixels);
    void relayout();
    void refreshStatusBar();
    void showStatus(const QString& text);
    void tellSettingsProblem(const QString& why);

    // --- what scripts look at
    QString statusText() const;
    QString selectionText() const;
    browser::ShellBrowser& activeBrowser();
    browser::TabContainer& tabs() { return *tabs_; }
    panel::MetadataPanel& metadataPanel() { return *metadataPanel_; }
    controls::Ribbon& ribbon() { return *ribbon_; }
    /// Opens the folder in the active tab, as an address typed in the bar does. False when it is no folder.
    bool openFolder(const std::filesystem::path& folder);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    class Feedback;
    using Handler = void (MainWindow::*)(app::CommandId);
    struct HandledCommand {
        app::CommandId first;
        app::CommandId last;  ///< the same as first for most
        Handler handler;
    };
    static const std::vector<HandledCommand>& handledCommands();

    bool createRibbon();
    void createStatusBar();
    void startWarmStarter();
    void createHolders();
    void createBrowser();
    void createShortcuts();
    void connectBrowser();
    void openStartFolder();
    void loadColumns();

    void updateToggles();
    void updateTitle();
    void tabSelected();
    void navigationCompleted();
    void fileClicked(const std::filesystem::path& file);
    void openPath(const std::filesystem::path& path);
    void focusFileList();
    void setRightPanel(bool app::Settings::Lists::*flag, bool shown);
    std::filesystem::path selectedFile();
    /// The first file among what is selected; where there is none, a message says so.
    std::filesystem::path selectedRegularFile();
    bool clearTheWay(const std::filesystem::path& target);
    /// Both give the reason for people when nothing has been written, else an empty text.
    QString exportStraight(const std::filesystem::path& file, const std::filesystem::path& target,
                           const exiftool::ValuesExport& format);
    QString exportByWayOfTemp(const std::filesystem::path& file, const std::filesystem::path& target,
                              const exiftool::ValuesExport& format);
    jobs::OperationParts editParts();

    // Operations over several files.
    /// The files that a command over several files works on: those of the selection, or else of a folder that
    /// the user is asked for. Ends the last operation's report. None when there is nothing to work on.
    std::vector<std::filesystem::path> GatherSelection();
    /// At the end of such a command: the report, or a quiet word when there is none.
    void ShowBatchReport();
    std::vector<std::filesystem::path> gatherFolder();
    void runBatch(app::CommandId id);
    /// The dialog of an operation that asks for something: 1 when it ran, 0 when it was cancelled.
    int openBatchDialog(const batch::BatchOperation& operation, const batch::BatchOptions& options);
    void exportPayloads(app::CommandId id);
    void showReportBeginning();
    /// The end of a dialog that wrote tags: what it changed is read again, and the report follows.
    void tagsWereWritten(const taglists::FileRuns& runs);
    /// After files were changed or renamed: the list and the panel are read again.
    void showWhatChanged();
    void selectAgain();

    // Editing the shown file.
    /// A click on a value of the panel, or Enter on its row: the dialog that fits the tag, and the write.
    void EditTagFromPanel(int rowIndex, bool altHeld);
    /// False, with the reason told, when the shown file is gone or no longer the one that was read.
    bool isPanelUpToDate();
    void viewRow(const tags::MetadataRow& row, int templateNumber);
    void editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record);
    bool mayWriteAfterAll(const std::filesystem::path& file);
    void writeEdit(const std::filesystem::path& file, const app::CurrentEdit& edit);
    /// Tells what became of a write. False when nothing was written.
    bool tellWrite(const exiftool::TagWriteResult& result, const QString& done);
    void readPanelAgainSoon();
    void deleteTag(app::CommandId id);
    void deleteGroup(app::CommandId id);
    void readFileAgain(app::CommandId id);

    // Removing and copying tags.
    /// Shows what has changed, and the report.
    void endRemoval(bool hasRun);
    void deleteAll(app::CommandId id);
    void removeTags(app::CommandId id);
    void removeGroupTypes(app::CommandId id);
    void removeFamily(app::CommandId id);
    void copyTags(app::CommandId id);
    /// Of the group of the panel's current row; without one, of all groups.
    void removeTagsFromShownFile(app::CommandId id);

    // Commands.
    void toggleFolders(app::CommandId id);
    void toggleStatusBar(app::CommandId id);
    void setView(app::CommandId id);
    void toggleMetadataPanel(app::CommandId id);
    void openSelected(app::CommandId id);
    void clearSelection(app::CommandId id);
    void selectAll(app::CommandId id);
    void invertSelection(app::CommandId id);
    void focusList(app::CommandId id);
    void refresh(app::CommandId id);
    void goBack(app::CommandId id);
    void goForward(app::CommandId id);
    void goUp(app::CommandId id);
    void toggleCheckBoxes(app::CommandId id);
    void toggleHidden(app::CommandId id);
    void sortBy(app::CommandId id);
    void sortDirection(app::CommandId id);
    void clearMetadata(app::CommandId id);
    void readSelection(app::CommandId id);
    void refreshPanel(app::CommandId id);
    void dumpFile(app::CommandId id);
    void showExportMenu(app::CommandId id);
    void exportValues(app::CommandId id);
    void openAddress(app::CommandId id);
    void applyItemStates(app::CommandId id);
    void modifyTags(app::CommandId id);
    void addTags(app::CommandId id);
    void addTagsToShownFile(app::CommandId id);
    void showAbout(app::CommandId id);
    void closeWindow(app::CommandId id);
    void restart(app::CommandId id);

    // Stopping.
    void saveEverything();
    void writeColumns();

    app::AppContext& context_;
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
    std::unique_ptr<Feedback> feedback_;
    std::unique_ptr<jobs::ValueEditing> values_;
    exiftool::ReadCommands readCommands_;
    exiftool::MetadataLoad load_;
    exiftool::ExifToolSession session_;

    bool ready_ = false;
    bool hasPainted_ = false;
    std::vector<std::filesystem::path> selectedAgain_;  ///< once the list has been read again
    bool keepsStatus_ = false;  ///< the next reading of the list leaves the status as it is
    bool closed_ = false;
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
    jobs::QuietSuccessNotice* successNotice_ = nullptr;
    QWidget* statusBar_ = nullptr;
    QLabel* statusText_ = nullptr;
    QLabel* selectionText_ = nullptr;
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace window
