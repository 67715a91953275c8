#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "app/ViewMode.h"
#include "browser/CellLoader.h"
#include "browser/FileInView.h"
#include "browser/FileListModel.h"
#include "browser/FileListView.h"
#include "browser/ItemSorter.h"
#include "browser/ShellNavigationController.h"
#include "platform/FolderWatch.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <atomic>
#include <memory>
#include <optional>
#include <set>

namespace browser {

class ShellBrowser;

/// What all tabs share; owned by the TabContainer, or by a test. All of it outlives the browsers.
struct BrowserParts {
    app::AppContext& context;
    tags::PropertyCatalogue& catalogue;
    FileIcons& icons;
    const app::LanguageFile& language;
    ShellBrowser* active = nullptr;  ///< the browser of the selected tab
    bool showHidden = false;         ///< command 40106; not kept in the settings
};

/// The file list of one tab: shows a folder, sorts it, fills its columns in the background, keeps the
/// selection's counters and the tab's history. It reads no metadata: a click on a file is told upward. An
/// item id is good for one navigation, a row until the next sort, a task id for ever. GUI thread.
class ShellBrowser final : public QObject, public NavigatorInterface {
    Q_OBJECT

 public:
    /// holder is the list's parent widget; it deletes the list if the browser has not.
    ShellBrowser(BrowserParts& parts, QWidget* holder);
    ~ShellBrowser() override;

    // --- navigation
    /// Shows the folder; always 0. A folder that is ready soon is there on return, a slow one follows later;
    /// in both cases NavigationCompleted tells. A folder that cannot be read completes too, with a text in
    /// the empty list.
    long BrowseFolder(const std::filesystem::path& folder, bool addHistoryEntry) override;
    boost::signals2::connection addNavigationCompletedObserver(
        const NavigationCompletedSignal::slot_type& slot) override;
    ShellNavigationController& navigationController() { return navigationController_; }
    const ShellNavigationController& navigationController() const { return navigationController_; }
    /// Reads the folder anew; what is then there of these paths gets selected, and the list stays where it
    /// is.
    void readAgain(std::vector<std::filesystem::path> selected);
    /// The user wants to see what is there now. In the corrected form the selection stays.
    void refresh();
    /// The parent folder, where the folder that was left gets selected.
    void GoUp();
    void goToRoot();
    const std::filesystem::path& currentFolder() const { return model_.list().folder(); }
    /// False before the first navigation has completed.
    bool isFolderLoaded() const { return folderLoaded_; }
    bool isLoading() const { return loader_.isLoading(); }
    unsigned folderGeneration() const { return folderGeneration_; }
    /// Where the folder stands: readable, empty, or why nothing is shown.
    FolderState folderState() const { return model_.list().state(); }
    /// The number of the system's error that ended the reading of the folder early; 0 when all is listed.
    int listingError() const { return listingError_; }

    // --- items
    FileListView& view() { return *view_; }
    const FileListView& view() const { return *view_; }
    const FileListModel& model() const { return model_; }
    ItemSnapshot GetItem(int row) const;
    /// From top to bottom.
    std::vector<std::filesystem::path> GetSelectedFiles() const;
    FileInView fileInView(const std::filesystem::path& shown) const {
        return browser::fileInView(model_.list(), view_->currentIndex().row(), shown);
    }
    const ItemList::Totals& totals() const { return model_.list().totals(); }
    /// An entry of the folder that has come into being, by its name's bytes.
    void AddItem(std::string_view name);
    void RemoveItem(std::int32_t itemId);
    /// Selects that entry alone, makes it current and scrolls to it. False when the list has it not.
    bool selectItem(std::string_view name);

    // --- view, columns, order
    app::ViewMode viewMode() const { return viewMode_; }
    /// Details is what there is so far; the others change nothing.
    void SetViewMode(app::ViewMode mode);
    /// Stores the mode and moves the header's arrow. The list keeps its old order until the new one has been
    /// made in the background; the last call counts.
    void SetSortMode(app::SortMode mode);
    /// The same by what that column of the view shows.
    void sortByColumn(int section, bool ascending);
    /// Whether the order is still to come.
    bool isSorting() const { return sorter_.isSorting(); }
    /// After the settings that decide names, order or look of the list have changed.
    void applySettings();
    void SaveColumnWidths();
    /// After the visible set of the catalogue has changed.
    void RebuildColumns();
    /// Queues the text of one cell; the name column does nothing.
    void QueueColumnTask(std::int32_t itemId, std::uint32_t columnType);
    /// Whether texts of cells are still to come.
    bool hasWaitingCells() const { return columnLoader_.isLoading() || folderSizes_.isLoading(); }

    // --- told upward
    boost::signals2::signal<void(const std::filesystem::path&)> NavigationStarted;
    NavigationCompletedSignal NavigationCompleted;
    boost::signals2::signal<void()> ListSelectionChanged;
    boost::signals2::signal<void()> ColumnsChanged;
    /// The tags shown are out of date: a click on any item or on the free area (command 8003).
    boost::signals2::signal<void()> MetadataOutdated;
    /// A click on a file: what makes its metadata be read. Selecting by the keyboard is told as such alone.
    boost::signals2::signal<void(const std::filesystem::path&, std::int32_t itemId)> FileClicked;
    /// Enter or a double click on a file; folders are opened here.
    boost::signals2::signal<void(const std::filesystem::path&)> FileActivated;
    /// The size of the one folder that is selected, for people.
    boost::signals2::signal<void(const QString&)> FolderSizeCounted;
    /// The context menu is asked for: on a row or, with -1, on the free area; at a global position.
    boost::signals2::signal<void(int, const QPoint&)> MenuRequested;
    boost::signals2::signal<void(const QPoint&)> HeaderMenuRequested;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    struct ColumnCell {
        std::int32_t itemId = -1;
        std::uint32_t columnType = 0;

        auto operator<=>(const ColumnCell&) const = default;
    };

    void connectView();
    void connectHeader();
    void dropTasks();
    void dropTasksOutOfSight();
    void showColumns();
    void columnResized(int section, int width);
    /// The list is filled to its edge.
    void spreadColumns();
    void restoreSelection(int currentRow);
    void showSortArrow();
    FolderRequest requestFor(const std::filesystem::path& folder);
    void finishNavigation(LoadedFolder loaded, const SortSettings& sorted, bool addHistoryEntry);
    void sort();
    ItemSorter::Items itemsToSort() const;
    /// Paints it again after a change of the folder.
    void showList();
    void selectAwaited();
    void selectPaths(std::vector<std::filesystem::path> wanted);
    void OnColumnResult(const ColumnCell& cell, const QString& text);
    void countFolder(std::int32_t itemId);
    void folderCounted(const ColumnCell& cell, const std::optional<std::uint64_t>& bytes);
    void tellFolderSize();
    std::int32_t onlySelectedFolder() const;
    void onSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    bool noteSelection(const QItemSelection& selection, bool selected);
    void onCellClicked(const QModelIndex& index, Qt::MouseButton button);
    void onActivated(const QModelIndex& index);
    void onHeaderClicked(int section);
    void onFolderVanished();
    SortSettings sortSettings() const { return sortSettingsOf(parts_.context.settings); }

    BrowserParts& parts_;
    FileListModel model_;
    QPointer<FileListView> view_;
    app::ViewMode viewMode_ = app::ViewMode::Details;
    bool folderLoaded_ = false;
    int listingError_ = 0;
    unsigned folderGeneration_ = 0;
    std::filesystem::path awaitedItem_;  // to be selected once its folder is there
    // Once the folder has been read:
    std::vector<std::filesystem::path> selectedAgain_;
    std::filesystem::path currentAgain_;
    int scrolledAgain_ = 0;
    std::set<std::uint32_t> setColumns_;  // the user has given them a width
    bool isSpreading_ = false;
    std::uint32_t sortedColumn_ = 0;
    bool hasSortedColumn_ = false;
    platform::FolderWatch folderWatch_;
    ThemeIconFetcher iconFetcher_;
    ShellNavigationController navigationController_;
    FolderLoader loader_;
    QTimer emptyAfter_;
    ItemSorter sorter_;
    CellLoader<ColumnCell, QString> columnLoader_;
    std::shared_ptr<std::atomic_bool> stopsCounting_ = std::make_shared<std::atomic_bool>(false);
    CellLoader<ColumnCell, std::optional<std::uint64_t>> folderSizes_;
};

}  // namespace browser
