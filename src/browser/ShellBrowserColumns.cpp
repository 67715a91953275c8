// The columns of a ShellBrowser: what they show, how they are filled, and the order that a click on them
// gives.
#include "browser/ColumnSort.h"
#include "browser/ColumnText.h"
#include "browser/ShellBrowser.h"

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
    for (int section = 0; section < header->count(); ++section) {
        const std::uint32_t column = model_.columns()[static_cast<std::size_t>(section)];
        header->resizeSection(section, parts_.catalogue.findColumn(column)->width);
    }
    showSortArrow();
}

void ShellBrowser::SaveColumnWidths() {
    const QHeaderView* header = view_->header();
    for (int section = 0; section < header->count(); ++section)
        parts_.catalogue.setWidth(model_.columns()[static_cast<std::size_t>(section)],
                                  header->sectionSize(section));
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
    sortNow();
    showSortArrow();
}

void ShellBrowser::sortNow() {
    const ItemOrder order(sortSettings());
    model_.setOrder(order.sorted(model_.list().items(), model_.list().order()));
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

void ShellBrowser::onHeaderClicked(int section) {
    const std::uint32_t column = model_.columns().at(static_cast<std::size_t>(section));
    bool& ascending = parts_.context.settings.main.sortAscending;
    if (hasSortedColumn_ && column == sortedColumn_) ascending = !ascending;
    SetSortMode(ColumnToSortMode(column));
}

// --- texts of the cells

void ShellBrowser::QueueColumnTask(std::int32_t itemId, std::uint32_t columnType) {
    if (columnType == tags::PropertyCatalogue::kNameColumn) return;
    const std::uint64_t key = cellKey(itemId, columnType);
    if (waitingCells_.contains(key)) return;
    const int taskId = nextColumnTaskId_++;
    columnTasks_.emplace(taskId, ColumnTask{itemId, columnType});
    waitingCells_.insert(key);
    columnQueue_.push(taskId, [this, box = resultBox_, taskId, columnType,
                               path = model_.list().items().path(currentFolder(), itemId)] {
        QString text = GetColumnText(path, columnType);
        const std::lock_guard lock(box->mutex);
        box->results.push_back({taskId, std::move(text)});
        // One event brings all that is there by the time it is handled.
        if (box->results.size() == 1)
            QMetaObject::invokeMethod(
                this, [this] { onColumnResults(); }, Qt::QueuedConnection);
    });
}

void ShellBrowser::onColumnResults() {
    std::vector<ColumnResult> results;
    {
        const std::lock_guard lock(resultBox_->mutex);
        results.swap(resultBox_->results);
    }
    for (const ColumnResult& result : results) OnColumnResult(result);
}

void ShellBrowser::OnColumnResult(const ColumnResult& result) {
    const auto found = columnTasks_.find(result.taskId);
    // A task of the folder that was left: its id stands nowhere any more.
    if (found == columnTasks_.end()) return;
    const ColumnTask task = found->second;
    columnTasks_.erase(found);
    waitingCells_.erase(cellKey(task.itemId, task.columnType));
    if (viewMode_ != app::ViewMode::Details) return;
    const int row = model_.list().rowOf(task.itemId);
    const int section = model_.sectionOf(task.columnType);
    if (row < 0 || section < 0) return;
    ShellBrowser* active = parts_.active != nullptr ? parts_.active : this;
    if (active == this) {
        model_.setCellText(task.itemId, task.columnType, result.text);
        return;
    }
    // The text of a tab that was just left goes, by its place, to the list that is now on show. That list
    // asks for the cell's own text as soon as it paints it.
    FileListModel& other = active->model_;
    if (row >= other.rowCount() || section >= other.columnCount()) return;
    other.setCellText(other.list().itemIdAt(row), other.columns()[static_cast<std::size_t>(section)],
                      result.text, true);
}

}  // namespace browser
