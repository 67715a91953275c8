// The columns of a ShellBrowser: what they show, how they are filled, and the order that a click on them
// gives.
#include "browser/ColumnSort.h"
#include "browser/ColumnSpread.h"
#include "browser/ColumnText.h"
#include "browser/FolderSize.h"
#include "browser/ShellBrowser.h"

#include <QEvent>
#include <QHeaderView>

namespace browser {
void ShellBrowser::SetViewMode(app::ViewMode mode) {
    if (mode == viewMode_ || mode != app::ViewMode::Details) return;
    viewMode_ = mode;
    parts_.context.settings.main.viewMode = static_cast<int>(mode);
    view_->setViewLayout(controls::GroupedListView::Layout::Details);
}

void ShellBrowser::showColumns() {
    QHeaderView* header = view_->header();
    isSpreading_ = true;
    for (int section = 0; section < header->count(); ++section) {
        const std::uint32_t column = model_.columns()[static_cast<std::size_t>(section)];
        header->resizeSection(section, parts_.catalogue.findColumn(column)->width);
    }
    isSpreading_ = false;
    spreadColumns();
    showSortArrow();
}

void ShellBrowser::columnResized(int section, int width) {
    if (isSpreading_ || section >= model_.columnCount()) return;
    const std::uint32_t column = model_.columns()[static_cast<std::size_t>(section)];
    setColumns_.insert(column);
    parts_.catalogue.setWidth(column, width);
    spreadColumns();
}

void ShellBrowser::spreadColumns() {
    QHeaderView* header = view_->header();
    std::vector<int> widths;
    for (const std::uint32_t column : model_.columns())
        widths.push_back(parts_.catalogue.findColumn(column)->width);
    if (widths.empty() || header->count() != static_cast<int>(widths.size())) return;
    const ColumnSpread spread =
        spreadOf(widths, view_->viewport()->width(), setColumns_.contains(model_.columns().front()),
                 setColumns_.contains(model_.columns().back()));
    isSpreading_ = true;
    const int last = static_cast<int>(widths.size()) - 1;
    header->resizeSection(0, widths.front() + spread.name);
    if (last > 0) header->resizeSection(last, widths.back() + spread.last);
    isSpreading_ = false;
}

bool ShellBrowser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) spreadColumns();
    return QObject::eventFilter(watched, event);
}

void ShellBrowser::SaveColumnWidths() {
    const QHeaderView* header = view_->header();
    const int last = header->count() - 1;
    for (int section = 0; section < header->count(); ++section) {
        const std::uint32_t column = model_.columns()[static_cast<std::size_t>(section)];
        // What the spreading has made of these two is none of their own.
        if ((section == 0 || section == last) && !setColumns_.contains(column)) continue;
        parts_.catalogue.setWidth(column, header->sectionSize(section));
    }
}

void ShellBrowser::RebuildColumns() {
    dropTasks();
    const QModelIndex current = view_->currentIndex();
    const int currentRow = current.isValid() ? current.row() : 0;
    model_.resetColumns();
    showColumns();
    restoreSelection(currentRow);
    ColumnsChanged();
}

/// The view forgets the selection when the columns change; the items remember it.
void ShellBrowser::restoreSelection(int currentRow) {
    QItemSelection selection;
    const int lastSection = model_.columnCount() - 1;
    for (int row = 0; row < model_.rowCount(); ++row) {
        const int first = row;
        while (row < model_.rowCount() && model_.list().itemAt(row).selected) ++row;
        if (row > first) selection.append({model_.index(first, 0), model_.index(row - 1, lastSection)});
    }
    view_->selectionModel()->select(selection, QItemSelectionModel::Select);
    view_->selectionModel()->setCurrentIndex(model_.index(currentRow, 0), QItemSelectionModel::NoUpdate);
}

// --- order

void ShellBrowser::SetSortMode(app::SortMode mode) {
    parts_.context.settings.main.sortMode = static_cast<int>(mode);
    sort();
    showSortArrow();
}

void ShellBrowser::sort() {
    // A folder that is still being read is sorted once it is there.
    if (!isLoading()) sorter_.sort(sortSettings());
}

ItemSorter::Items ShellBrowser::itemsToSort() const {
    const ItemList& list = model_.list();
    return {list.folder(), list.items(), list.order()};
}

/// The first visible column that leads to the mode bears the arrow; without one there is none.
void ShellBrowser::showSortArrow() {
    const app::Settings::Main& settings = parts_.context.settings.main;
    const auto& columns = model_.columns();
    const auto found = std::ranges::find_if(columns, [&](std::uint32_t column) {
        return static_cast<int>(ColumnToSortMode(column)) == settings.sortMode;
    });
    QHeaderView* header = view_->header();
    header->setSortIndicatorShown(found != columns.end());
    if (found == columns.end()) return;
    sortedColumn_ = *found;
    hasSortedColumn_ = true;
    header->setSortIndicator(static_cast<int>(found - columns.begin()),
                             settings.sortAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void ShellBrowser::sortByColumn(int section, bool ascending) {
    parts_.context.settings.main.sortAscending = ascending;
    SetSortMode(ColumnToSortMode(model_.columns().at(static_cast<std::size_t>(section))));
}

void ShellBrowser::onHeaderClicked(int section) {
    const std::uint32_t column = model_.columns().at(static_cast<std::size_t>(section));
    bool& ascending = parts_.context.settings.main.sortAscending;
    if (hasSortedColumn_ && column == sortedColumn_) ascending = !ascending;
    SetSortMode(ColumnToSortMode(column));
}

// --- texts of the cells

void ShellBrowser::QueueColumnTask(std::int32_t itemId, std::uint32_t columnType) {
    if (columnType == tags::PropertyCatalogue::kNameColumn) return;
    if (model_.list().items().item(itemId).isFolder()) return countFolder(itemId);
    static_cast<void>(columnLoader_.request(
        {itemId, columnType}, [path = model_.list().items().path(currentFolder(), itemId), columnType] {
            return GetColumnText(path, columnType);
        }));
}

void ShellBrowser::countFolder(std::int32_t itemId) {
    static_cast<void>(folderSizes_.request({itemId, kSizeColumn},
                                           [path = model_.list().items().path(currentFolder(), itemId),
                                            stops = stopsCounting_] { return folderSize(path, *stops); }));
}

void ShellBrowser::folderCounted(const ColumnCell& cell, const std::optional<std::uint64_t>& bytes) {
    if (!bytes) return;
    const QString text = sizeText(*bytes);
    model_.setCellText(cell.itemId, cell.columnType, text);
    if (onlySelectedFolder() == cell.itemId) FolderSizeCounted(text);
}

/// -1 when something else is selected, or more.
std::int32_t ShellBrowser::onlySelectedFolder() const {
    const ItemList& list = model_.list();
    if (list.totals().selectedFolders != 1 || list.totals().selectedFiles != 0) return -1;
    for (int row = 0; row < list.rowCount(); ++row)
        if (list.itemAt(row).selected) return list.itemIdAt(row);
    return -1;
}

void ShellBrowser::tellFolderSize() {
    const std::int32_t folder = onlySelectedFolder();
    if (folder < 0 || !parts_.context.settings.main.showFoldersSizes) return;
    if (const std::optional<QString> text = model_.knownCellText(folder, kSizeColumn))
        FolderSizeCounted(*text);
    else
        countFolder(folder);
}

void ShellBrowser::OnColumnResult(const ColumnCell& cell, const QString& text) {
    if (viewMode_ != app::ViewMode::Details) return;
    const int row = model_.list().rowOf(cell.itemId);
    const int section = model_.sectionOf(cell.columnType);
    if (row < 0 || section < 0) return;
    ShellBrowser* active = parts_.active != nullptr ? parts_.active : this;
    if (active == this) {
        model_.setCellText(cell.itemId, cell.columnType, text);
        return;
    }
    // The text of a tab that was just left goes, by its place, to the list that is now on show. That list
    // asks for the cell's own text as soon as it paints it.
    FileListModel& other = active->model_;
    if (row >= other.rowCount() || section >= other.columnCount()) return;
    other.setCellText(other.list().itemIdAt(row), other.columns()[static_cast<std::size_t>(section)], text,
                      true);
}

}  // namespace browser
