#pragma once

#include "app/AppContext.h"
#include "app/CommandTable.h"
#include "app/LanguageFile.h"
#include "edit/EditParts.h"
#include "exiftool/ExifToolSession.h"
#include "exiftool/MetadataLoad.h"
#include "exiftool/WarmStarter.h"
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
class QuietSuccessNotice;
}  // namespace batch

namespace browser {
class AddressBar;
class PlacesPanel;
class ShellBrowser;
class Tab;
class TabContainer;
}  // namespace browser

namespace edit {
struct FileRuns;
struct TagWriteResult;
}  // namespace edit

namespace controls {
class PaneHandle;
class Ribbon;
}  // namespace controls

namespace exiftool {
struct ValuesExport;
}

namespace tags {
class MetadataPanel;
}

namespace app {

class ProgressDialog;

/// The one top-level window: ribbon, left holder, tabs with the file lists, one of four right holders, status
/// bar. It owns what the window works with (dictionary, parser, ExifTool) and is the place where all commands
/// end. The context, the language file and the progress dialog outlive it. GUI thread.
class MainWindow : public QWidget {
    Q_OBJECT

 public:
    MainWindow(AppContext& context, const LanguageFile& language, ProgressDialog& progress);
    ~MainWindow() override;

    /// Starts the ExifTool that lives as long as the window. False when it cannot; the program then ends.
    bool StartSession();
    /// Everything inside the window, and the start folder. False when the ribbon cannot be made: the language
    /// file is missing or damaged.
    bool BuildContents();
    /// On the screen, where the settings tell; the focus on the file list.
    void Show();

    /// Where every command ends: ribbon, menus, keys and scripts. An id that is not built does nothing.
    void Dispatch(CommandId id);
    /// Whether Dispatch() has something to do for the number.
    static bool Handles(CommandId id);

    void SetRightHolderWidth(int pixels);
    void SetLeftHolderWidth(int pixels);
    void Relayout();
    void RefreshStatusBar();
    void ShowStatus(const QString& text);
    void TellSettingsProblem(const QString& why);

    // --- what scripts look at
    QString StatusText() const;
    QString SelectionText() const;
    browser::ShellBrowser& activeBrowser();
    browser::TabContainer& tabs() { return *tabs_; }
    tags::MetadataPanel& metadataPanel() { return *metadataPanel_; }
    controls::Ribbon& ribbon() { return *ribbon_; }
    /// Opens the folder in the active tab, as an address typed in the bar does. False when it is no folder.
    bool OpenFolder(const std::filesystem::path& folder);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    class Feedback;
    using Handler = void (MainWindow::*)(CommandId);
    struct HandledCommand {
        CommandId first;
        CommandId last;  ///< the same as first for most
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
    void setRightPanel(bool Settings::Lists::*flag, bool shown);
    std::filesystem::path selectedFile();
    /// The first file among what is selected; where there is none, a message says so.
    std::filesystem::path selectedRegularFile();
    bool clearTheWay(const std::filesystem::path& target);
    /// Both give the reason for people when nothing has been written, else an empty text.
    QString exportStraight(const std::filesystem::path& file, const std::filesystem::path& target,
                           const exiftool::ValuesExport& format);
    QString exportByWayOfTemp(const std::filesystem::path& file, const std::filesystem::path& target,
                              const exiftool::ValuesExport& format);
    edit::EditParts editParts();

    // Operations over several files.
    /// The files that a command over several files works on: those of the selection, or else of a folder that
    /// the user is asked for. Ends the last operation's report. None when there is nothing to work on.
    std::vector<std::filesystem::path> GatherSelection();
    /// At the end of such a command: the report, or a quiet word when there is none.
    void ShowBatchReport();
    std::vector<std::filesystem::path> gatherFolder();
    void runBatch(CommandId id);
    /// The dialog of an operation that asks for something: 1 when it ran, 0 when it was cancelled.
    int openBatchDialog(const batch::BatchOperation& operation, const batch::BatchOptions& options);
    void exportPayloads(CommandId id);
    void showReportBeginning();
    /// The end of a dialog that wrote tags: what it changed is read again, and the report follows.
    void tagsWereWritten(const edit::FileRuns& runs);
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
    void writeEdit(const std::filesystem::path& file, const CurrentEdit& edit);
    /// Tells what became of a write. False when nothing was written.
    bool tellWrite(const edit::TagWriteResult& result, const QString& done);
    void readPanelAgainSoon();
    void deleteTag(CommandId id);
    void deleteGroup(CommandId id);
    void readFileAgain(CommandId id);

    // Removing and copying tags.
    /// Shows what has changed, and the report.
    void endRemoval(bool hasRun);
    void deleteAll(CommandId id);
    void removeTags(CommandId id);
    void removeGroupTypes(CommandId id);
    void removeFamily(CommandId id);
    void copyTags(CommandId id);
    /// Of the group of the panel's current row; without one, of all groups.
    void removeTagsFromShownFile(CommandId id);

    // Commands.
    void toggleFolders(CommandId id);
    void toggleStatusBar(CommandId id);
    void setView(CommandId id);
    void toggleMetadataPanel(CommandId id);
    void openSelected(CommandId id);
    void clearSelection(CommandId id);
    void selectAll(CommandId id);
    void invertSelection(CommandId id);
    void focusList(CommandId id);
    void refresh(CommandId id);
    void goBack(CommandId id);
    void goForward(CommandId id);
    void goUp(CommandId id);
    void toggleCheckBoxes(CommandId id);
    void toggleHidden(CommandId id);
    void sortBy(CommandId id);
    void sortDirection(CommandId id);
    void clearMetadata(CommandId id);
    void readSelection(CommandId id);
    void refreshPanel(CommandId id);
    void dumpFile(CommandId id);
    void showExportMenu(CommandId id);
    void exportValues(CommandId id);
    void openAddress(CommandId id);
    void applyItemStates(CommandId id);
    void modifyTags(CommandId id);
    void addTags(CommandId id);
    void addTagsToShownFile(CommandId id);
    void showAbout(CommandId id);
    void closeWindow(CommandId id);
    void restart(CommandId id);

    // Stopping.
    void saveEverything();
    void writeColumns();

    AppContext& context_;
    const LanguageFile& language_;
    ProgressDialog& progress_;

    tags::TagDictionary dictionary_;
    tags::LabelLibrary labels_;
    tags::PropertyCatalogue properties_;
    tags::RatingMemory ratingMemory_;
    tags::RatingLog ratingLog_;
    tags::OutputParser parser_;
    exiftool::WarmStarter warmStarter_;
    exiftool::ToolRunner runner_;
    std::unique_ptr<Feedback> feedback_;
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
    tags::MetadataPanel* metadataPanel_ = nullptr;
    std::vector<QWidget*> emptyHolders_;
    batch::QuietSuccessNotice* successNotice_ = nullptr;
    QWidget* statusBar_ = nullptr;
    QLabel* statusText_ = nullptr;
    QLabel* selectionText_ = nullptr;
    std::vector<boost::signals2::scoped_connection> connections_;
};

}  // namespace app
