#include "taglists/TagListModel.h"

#include "controls/Icons.h"
#include "taglists/TagListTexts.h"
#include "tags/RowAppearance.h"

#include <algorithm>

namespace taglists {

TagListModel::TagListModel(const Parts& parts, Look look, QObject* parent)
    : QAbstractTableModel(parent), parts_(parts), look_(std::move(look)) {}

void TagListModel::setRows(TagRows rows) {
    beginResetModel();
    rows_ = std::move(rows);
    filterRows();
    endResetModel();
    Q_EMIT RowsChanged();
}

void TagListModel::setFilter(const QString& filter) {
    if (filter == filter_) return;
    beginResetModel();
    filter_ = filter;
    filterRows();
    endResetModel();
    Q_EMIT RowsChanged();
}

void TagListModel::setOnlyFilled(bool onlyFilled) {
    if (onlyFilled == onlyFilled_) return;
    beginResetModel();
    onlyFilled_ = onlyFilled;
    filterRows();
    endResetModel();
    Q_EMIT RowsChanged();
}

void TagListModel::filterRows() {
    shown_.clear();
    const bool all = filter_.trimmed().isEmpty();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (onlyFilled_ && !isFilled(rows_[row])) continue;
        // Labels are many texts to put together; without a filter nobody asks for them.
        if (all || matchesFilter(rows_[row], parts_.labels.label(rows_[row].tagId), filter_))
            shown_.push_back(row);
    }
}

void TagListModel::sort(TagSort column, bool ascending) {
    beginResetModel();
    sortRows(rows_, column, ascending);
    filterRows();
    endResetModel();
}

void TagListModel::setValue(std::size_t row, const NewValue& value) {
    setRowValue(rows_[row], value);
    rowChanged(row);
}

void TagListModel::empty(std::size_t row, bool severalFiles) {
    emptyRow(rows_[row], severalFiles);
    rowChanged(row);
}

void TagListModel::undo(std::size_t row) {
    undoRow(rows_[row]);
    rowChanged(row);
}

void TagListModel::setTicked(std::size_t row, bool ticked) {
    if (rows_[row].ticked == ticked) return;
    rows_[row].ticked = ticked;
    rowChanged(row);
}

void TagListModel::setAllShownTicked(bool ticked) {
    if (shown_.empty()) return;
    for (const std::size_t row : shown_) rows_[row].ticked = ticked;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT RowsChanged();
}

void TagListModel::rowChanged(std::size_t row) {
    const int shown = shownRowOf(row);
    if (shown >= 0) Q_EMIT dataChanged(index(shown, 0), index(shown, columnCount() - 1));
    Q_EMIT RowsChanged();
}

int TagListModel::shownRowOf(std::size_t row) const {
    const auto found = std::ranges::lower_bound(shown_, row);
    return found == shown_.end() || *found != row ? -1 : static_cast<int>(found - shown_.begin());
}

int TagListModel::columnOf(TagColumn column) const {
    const auto found = std::ranges::find(look_.columns, column);
    return found == look_.columns.end() ? -1 : static_cast<int>(found - look_.columns.begin());
}

int TagListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int TagListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(look_.columns.size());
}

QVariant TagListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const TagRow& row = rows_[rowAt(index.row())];
    const TagColumn column = look_.columns[static_cast<std::size_t>(index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return textOf(row, column);
        case Qt::EditRole:
            return column == TagColumn::Value ? QVariant(shownValue(row)) : textOf(row, column);
        case Qt::DecorationRole:
            return iconOf(row, column);
        case Qt::ToolTipRole:
            return toolTipOf(row, column);
        case Qt::TextAlignmentRole:
            return column == TagColumn::Kind ? QVariant::fromValue(Qt::Alignment(Qt::AlignCenter))
                                             : QVariant();
        case Qt::CheckStateRole:
            if (look_.ticks && index.column() == 0) return row.ticked ? Qt::Checked : Qt::Unchecked;
            return {};
        default:
            return {};
    }
}

QVariant TagListModel::textOf(const TagRow& row, TagColumn column) const {
    switch (column) {
        case TagColumn::Name:
            return row.name;
        case TagColumn::Group:
            return row.group;
        case TagColumn::Kind:
            break;
        case TagColumn::Value:
            return row.isRemoval() ? parts_.language.text(text::kWillBeRemoved) : shownValue(row);
    }
    return {};
}

QVariant TagListModel::iconOf(const TagRow& row, TagColumn column) const {
    if (column == TagColumn::Kind && row.kind) return controls::icon(tags::kindIconName(*row.kind));
    const bool help = column == TagColumn::Name && parts_.settings.listViewMetadata.libelleHelp &&
                      parts_.labels.CM_xxHasALibelle(row.tagId);
    return help ? QVariant(controls::icon(QStringLiteral("help-mark"))) : QVariant();
}

QVariant TagListModel::toolTipOf(const TagRow& row, TagColumn column) const {
    if (column != TagColumn::Name || !parts_.settings.listViewMetadata.libelleHelp) return {};
    QString help;
    if (!parts_.labels.GetHelpFromLibelle(row.tagId, help)) return {};
    return QStringLiteral("<div style=\"white-space:pre-wrap\">%1</div>").arg(help.toHtmlEscaped());
}

bool TagListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!look_.ticks || !index.isValid() || index.column() != 0 || role != Qt::CheckStateRole) return false;
    setTicked(rowAt(index.row()), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags TagListModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (look_.ticks && index.column() == 0) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant TagListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (look_.columns[static_cast<std::size_t>(section)]) {
        case TagColumn::Name:
            return parts_.language.text(text::kTagColumn);
        case TagColumn::Group:
            return parts_.language.text(text::kGroupColumn);
        case TagColumn::Kind:
            return QString();
        case TagColumn::Value:
            return parts_.language.text(text::kTagValueColumn);
    }
    return {};
}

}  // namespace taglists
