#include "panel/MetadataListModel.h"

#include "app/SpokenText.h"
#include "controls/GroupedListView.h"
#include "panel/PanelTexts.h"
#include "platform/Text.h"
#include "tags/FilterWords.h"

#include <algorithm>

namespace panel {

MetadataListModel::MetadataListModel(const app::Settings& settings, QObject* parent)
    : QAbstractTableModel(parent), settings_(settings) {}

void MetadataListModel::clear() {
    loading_.clear();
    if (all_.empty()) return;
    beginResetModel();
    all_.clear();
    filterRows();
    endResetModel();
}

void MetadataListModel::InsertMetadataRow(tags::MetadataRow&& row) {
    // Lines of a group come together and nearly all take the next index; only the groups whose counter stands
    // still insert in front of their own rows.
    const auto inSameGroup = [&](const tags::MetadataRow& other) { return other.groupId == row.groupId; };
    if (row.itemIndex == 0 && !loading_.empty()) {
        const auto first = std::find_if(loading_.begin(), loading_.end(), inSameGroup);
        if (first != loading_.end()) {
            loading_.insert(first, std::move(row));
            return;
        }
    }
    loading_.push_back(std::move(row));
}

void MetadataListModel::Commit() {
    beginResetModel();
    all_ = std::move(loading_);
    loading_.clear();
    filterRows();
    endResetModel();
}

void MetadataListModel::setFilter(const QString& filter) {
    if (filter == filter_) return;
    beginResetModel();
    filter_ = filter;
    filterRows();
    endResetModel();
}

void MetadataListModel::filterRows() {
    rows_.clear();
    places_.clear();
    const bool isFiltering = !filter_.trimmed().isEmpty();
    for (std::size_t place = 0; place < all_.size(); ++place) {
        const tags::MetadataRow& row = all_[place];
        // Labels are texts to put together, which without a filter nobody asks for.
        const QString label = isFiltering && labels_ != nullptr ? labels_->label(row.tagId) : QString();
        if (isFiltering && !tags::matchesWords(filter_, {row.tag, row.group, row.value, label})) continue;
        rows_.push_back(row);
        places_.push_back(place);
    }
}

void MetadataListModel::SetValue(int position, const QString& value) {
    tags::MetadataRow& changed = rows_[static_cast<std::size_t>(position)];
    if (changed.stars)
        changed.stars = tags::leadingInteger(value);
    else
        changed.value = value;
    all_[places_[static_cast<std::size_t>(position)]] = changed;
    const int column = static_cast<int>(tags::PanelColumn::Value);
    Q_EMIT dataChanged(index(position, column), index(position, column));
}

int MetadataListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int MetadataListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : tags::kPanelColumnCount;
}

QVariant MetadataListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const tags::MetadataRow& shown = row(index.row());
    const auto column = static_cast<tags::PanelColumn>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return textOf(shown, column);
        case Qt::TextAlignmentRole:
            return alignmentOf(column);
        case controls::GroupedListView::GroupIdRole:
            return static_cast<int>(shown.groupId);
        default:
            return {};
    }
}

QVariant MetadataListModel::textOf(const tags::MetadataRow& row, tags::PanelColumn column) const {
    switch (column) {
        case tags::PanelColumn::Item:  // too narrow to be seen; what is typed ahead is sought here
        case tags::PanelColumn::Tag:
            return row.tag;
        case tags::PanelColumn::Id:
            return row.id;
        case tags::PanelColumn::Kind:
            return {};
        case tags::PanelColumn::Value:
            return row.value;
    }
    return {};
}

QVariant MetadataListModel::alignmentOf(tags::PanelColumn column) const {
    switch (column) {
        case tags::PanelColumn::Tag:
            return QVariant::fromValue(
                Qt::Alignment((settings_.listViewMetadata.rightAligned ? Qt::AlignRight : Qt::AlignLeft) |
                              Qt::AlignVCenter));
        case tags::PanelColumn::Id:
        case tags::PanelColumn::Kind:
            return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
        default:
            return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    }
}

QVariant MetadataListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const auto column = static_cast<tags::PanelColumn>(section);
    if (role == Qt::TextAlignmentRole) return alignmentOf(column);
    if (role != Qt::DisplayRole) return {};
    switch (column) {
        case tags::PanelColumn::Tag:
            return platform::wide(app::spokenText(text::kTagTitle));
        case tags::PanelColumn::Id:
            return platform::wide(app::spokenText(text::kIdTitle));
        case tags::PanelColumn::Value:
            return valueTitle_;
        default:
            return QString();
    }
}

}  // namespace panel
