#include "browser/ShellBrowser.h"

#include "browser/BrowserTexts.h"
#include "browser/ColumnSort.h"
#include "browser/ColumnText.h"
#include "platform/Text.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTimer>

namespace browser {
namespace {

// What is ready in this time is there on return; meanwhile the window stands still.
constexpr std::chrono::milliseconds kPatience{15};
// Until then the list that was left stays on the screen, so that none that is empty flickers in between.
constexpr std::chrono::milliseconds kEmptyAfter{150};
constexpr int kLeastColumnWidth = 40;

}  // namespace

ShellBrowser::ShellBrowser(BrowserParts& parts, QWidget* holder)
    : parts_(parts),
      model_(parts.catalogue, parts.icons,
             [this](std::int32_t itemId, std::uint32_t columnType) { QueueColumnTask(itemId, columnType); }),
      view_(new FileListView(holder)),
      folderWatch_([this] { onFolderVanished(); }),
      navigationController_(*this, iconFetcher_),
      sorter_([this] { return itemsToSort(); },
              [this](const std::vector<std::int32_t>& order) {
                  model_.setOrder(model_.list().orderAfter(order));
              }),
      columnLoader_([this](const ColumnCell& cell, const QString& text) { OnColumnResult(cell, text); }),
      folderSizes_([this](const ColumnCell& cell, const std::optional<std::uint64_t>& bytes) {
          folderCounted(cell, bytes);
      }) {
    view_->setObjectName(QStringLiteral("FileList"));
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setModel(&model_);
    applySettings();
    showColumns();
    emptyAfter_.setSingleShot(true);
    connect(&emptyAfter_, &QTimer::timeout, this, [this] {
        view_->setEmptyText(parts_.language.text(text::kReadingFolder));
        showList();
    });
    connectView();
    connectHeader();
}

ShellBrowser::~ShellBrowser() {
    // The list goes first, then what could still have a result for it.
    delete view_.data();
    sorter_.cancel();
    dropTasks();
}

void ShellBrowser::connectView() {
    using controls::GroupedListView;
    FileListView* view = view_;
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ShellBrowser::onSelectionChanged);
    connect(view, &GroupedListView::CellClicked, this,
            [this](const QModelIndex& index, Qt::MouseButton button) { onCellClicked(index, button); });
    connect(view, &GroupedListView::FreeAreaClicked, this, [this] { MetadataOutdated(); });
    connect(view, &GroupedListView::CellMenuRequested, this,
            [this](const QModelIndex& index, const QPoint& position) {
                MenuRequested(index.isValid() ? index.row() : -1, position);
            });
    connect(view, &QAbstractItemView::activated, this, &ShellBrowser::onActivated);
    connect(view, &FileListView::UpWanted, this, &ShellBrowser::GoUp);
    connect(view, &FileListView::RootWanted, this, &ShellBrowser::goToRoot);
    connect(view, &FileListView::RefreshWanted, this, [this] { refresh(); });
    // The cells that come into sight must not wait for those that went.
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &ShellBrowser::dropTasksOutOfSight);
}

void ShellBrowser::connectHeader() {
    QHeaderView* header = view_->header();
    header->setObjectName(QStringLiteral("FileListHeader"));
    header->setSectionsClickable(true);
    header->setMinimumSectionSize(kLeastColumnWidth);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::sectionResized, this,
            [this](int section, int, int width) { columnResized(section, width); });
    view_->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::sectionClicked, this, &ShellBrowser::onHeaderClicked);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& position) { HeaderMenuRequested(header->mapToGlobal(position)); });
}

void ShellBrowser::applySettings() {
    const app::Settings& settings = parts_.context.settings;
    view_->setCheckBoxes(settings.listView.showCheckBox);
    view_->setGridLines(settings.listView.showGridlines);
    view_->setFullRowSelection(settings.listView.fullRow);
    model_.setNameSettings(nameSettingsOf(settings));
    model_.setFolderSizes(settings.main.showFoldersSizes);
    if (folderLoaded_) sort();
    view_->viewport()->update();
}

// --- navigation

boost::signals2::connection ShellBrowser::addNavigationCompletedObserver(
    const NavigationCompletedSignal::slot_type& slot) {
    return NavigationCompleted.connect(slot);
}

void ShellBrowser::dropTasks() {
    columnLoader_.clear();
    *stopsCounting_ = true;
    stopsCounting_ = std::make_shared<std::atomic_bool>(false);
    folderSizes_.clear();
}

void ShellBrowser::dropTasksOutOfSight() {
    columnLoader_.dropWaiting();
    folderSizes_.dropWaiting();
    // Cells still in sight ask again when they are painted.
    view_->viewport()->update();
}

/// What to load. A mode that no column of the catalogue leads to gives way to that of the first visible one.
FolderRequest ShellBrowser::requestFor(const std::filesystem::path& folder) {
    const auto& records = parts_.catalogue.records();
    int& mode = parts_.context.settings.main.sortMode;
    const bool reachable = std::ranges::any_of(records, [&](const tags::PropertyRecord& record) {
        return static_cast<int>(ColumnToSortMode(record.columnType)) == mode;
    });
    if (!reachable) mode = static_cast<int>(ColumnToSortMode(model_.columns().front()));
    return {folder, parts_.showHidden, sortSettings()};
}

long ShellBrowser::BrowseFolder(const std::filesystem::path& folder, bool addHistoryEntry) {
    // From here on the request's own path counts: the caller's may be the current folder's, which goes now.
    const FolderRequest request = requestFor(folder);
    if (folderLoaded_ && viewMode_ == app::ViewMode::Details) SaveColumnWidths();
    dropTasks();
    sorter_.cancel();
    iconFetcher_.clearQueue();
    NavigationStarted(request.folder);
    view_->setUpdatesEnabled(false);
    view_->setEmptyText({});
    model_.clear(request.folder);
    folderWatch_.watch(request.folder);
    std::optional<LoadedFolder> loaded = loader_.start(
        request, kPatience, this, [this, sort = request.sort, addHistoryEntry](LoadedFolder late) {
            finishNavigation(std::move(late), sort, addHistoryEntry);
        });
    if (loaded)
        finishNavigation(std::move(*loaded), request.sort, addHistoryEntry);
    else
        emptyAfter_.start(kEmptyAfter - kPatience);
    return kNavigationOk;
}

void ShellBrowser::showList() {
    emptyAfter_.stop();
    view_->setUpdatesEnabled(true);
}

void ShellBrowser::finishNavigation(LoadedFolder loaded, const SortSettings& sorted, bool addHistoryEntry) {
    const std::filesystem::path folder = loaded.listing.folder;
    listingError_ = loaded.listing.error;
    model_.take(std::move(loaded), parts_.context.settings.listView.hideSystemFiles);
    view_->setEmptyText(parts_.language.text(emptyListText(folderState())));
    if (sortSettings() != sorted) sort();
    showSortArrow();
    if (model_.rowCount() > 0)
        view_->selectionModel()->setCurrentIndex(model_.index(0, 0), QItemSelectionModel::NoUpdate);
    selectAwaited();
    folderLoaded_ = true;
    ++folderGeneration_;
    showList();
    NavigationCompleted(folder, addHistoryEntry);
}

void ShellBrowser::selectAwaited() {
    const std::filesystem::path awaited = std::exchange(awaitedItem_, {});
    if (!awaited.empty() && awaited.parent_path() == currentFolder()) selectItem(awaited.filename().native());
    std::vector<std::filesystem::path> wanted = std::exchange(selectedAgain_, {});
    if (!wanted.empty()) selectPaths(std::move(wanted));
}

void ShellBrowser::selectPaths(std::vector<std::filesystem::path> wanted) {
    std::ranges::sort(wanted);
    QItemSelection selection;
    for (int row = 0; row < model_.rowCount(); ++row) {
        if (!std::ranges::binary_search(wanted, model_.list().pathAt(row))) continue;
        const QModelIndex index = model_.index(row, 0);
        selection.select(index, index);
    }
    if (selection.isEmpty()) return;
    QItemSelectionModel& selected = *view_->selectionModel();
    selected.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const int before = model_.list().rowOf(model_.list().findItem(currentAgain_.filename().native()));
    const QModelIndex current = before >= 0 ? model_.index(before, 0) : QModelIndex();
    selected.setCurrentIndex(selection.contains(current) ? current : QModelIndex(selection.first().topLeft()),
                             QItemSelectionModel::NoUpdate);
    view_->doItemsLayout();
    view_->verticalScrollBar()->setValue(scrolledAgain_);
}

void ShellBrowser::readAgain(std::vector<std::filesystem::path> selected) {
    selectedAgain_ = std::move(selected);
    const QModelIndex current = view_->currentIndex();
    currentAgain_ = current.isValid() ? model_.list().pathAt(current.row()) : std::filesystem::path();
    scrolledAgain_ = view_->verticalScrollBar()->value();
    navigationController_.Refresh();
}

void ShellBrowser::refresh() {
    const bool keeps = app::commandFormOf(parts_.context) == app::CommandForm::Corrected;
    readAgain(keeps ? GetSelectedFiles() : std::vector<std::filesystem::path>());
}

void ShellBrowser::GoUp() {
    if (!navigationController_.canGoUp()) return;
    awaitedItem_ = currentFolder();
    navigationController_.GoUp();
}

void ShellBrowser::goToRoot() {
    if (currentFolder().has_relative_path()) BrowseFolder(currentFolder().root_path(), true);
}

void ShellBrowser::onFolderVanished() {
    dropTasks();
    sorter_.cancel();
    loader_.cancel();
    model_.lose(FolderState::NotFound);
    view_->setEmptyText(parts_.language.text(emptyListText(FolderState::NotFound)));
    showList();
    ListSelectionChanged();
}

// --- items

ItemSnapshot ShellBrowser::GetItem(int row) const {
    const ItemList& list = model_.list();
    return list.items().snapshot(list.folder(), list.itemIdAt(row));
}

std::vector<std::filesystem::path> ShellBrowser::GetSelectedFiles() const {
    std::vector<std::filesystem::path> files;
    const ItemList& list = model_.list();
    for (int row = 0; row < list.rowCount(); ++row)
        if (list.itemAt(row).selected) files.push_back(list.pathAt(row));
    return files;
}

void ShellBrowser::AddItem(std::string_view name) {
    const auto end = static_cast<std::uint32_t>(model_.list().itemCount());
    const std::int32_t itemId = model_.addItem(name, end);
    if (itemId < 0) return;
    model_.InsertPendingItems(parts_.context.settings.listView.hideSystemFiles);
    if (parts_.context.settings.listView.insertSorted) sort();
}

void ShellBrowser::RemoveItem(std::int32_t itemId) {
    model_.RemoveItem(itemId);
    view_->setEmptyText(parts_.language.text(emptyListText(folderState())));
}

bool ShellBrowser::selectItem(std::string_view name) {
    const int row = model_.list().rowOf(model_.list().findItem(name));
    if (row < 0) return false;
    const QModelIndex index = model_.index(row, 0);
    view_->selectionModel()->setCurrentIndex(index,
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    view_->scrollTo(index, QAbstractItemView::PositionAtCenter);
    return true;
}

bool ShellBrowser::noteSelection(const QItemSelection& selection, bool selected) {
    bool changed = false;
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            changed = model_.setSelected(row, selected) || changed;
    return changed;
}

void ShellBrowser::onSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    const bool less = noteSelection(deselected, false);
    const bool more = noteSelection(selected, true);
    if (!less && !more) return;
    ListSelectionChanged();
    tellFolderSize();
}

void ShellBrowser::onCellClicked(const QModelIndex& index, Qt::MouseButton button) {
    if (button != Qt::LeftButton) return;
    const bool smart = parts_.context.settings.main.showSmartDetails;
    if (!smart || index.column() == 0) MetadataOutdated();
    if (model_.list().itemAt(index.row()).isFolder()) return;
    // A click on another column is for the editing of cells then.
    if (smart && index.column() != 0) return;
    FileClicked(model_.list().pathAt(index.row()), model_.list().itemIdAt(index.row()));
}

void ShellBrowser::onActivated(const QModelIndex& index) {
    const std::filesystem::path path = model_.list().pathAt(index.row());
    if (!model_.list().itemAt(index.row()).isFolder()) {
        FileActivated(path);
        return;
    }
    BrowseFolder(path, true);
}

}  // namespace browser
