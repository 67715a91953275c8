#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <functional>
#include <vector>

#include "controls/GroupedListView.h"

namespace controls {

/// A flat model for the tests of the list: a name, a group and two made-up columns a row.
class TableModel : public QAbstractTableModel {
 public:
    struct Row {
        QString name;
        int group = 0;
        bool ghost = false;
    };

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns; }

    QVariant data(const QModelIndex& index, int role) const override {
        ++asked;
        const Row& row = rows[static_cast<size_t>(index.row())];
        if (role == Qt::DisplayRole)
            return index.column() == 0 ? row.name
                                       : QStringLiteral("%1 of %2").arg(index.column()).arg(row.name);
        if (role == GroupedListView::GroupIdRole) return row.group;
        if (role == GroupedListView::GhostRole) return row.ghost;
        if (role == Qt::TextAlignmentRole && index.column() == 2)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }

    QVariant headerData(int section, Qt::Orientation, int role) const override {
        return role == Qt::DisplayRole ? QStringLiteral("Column %1").arg(section) : QVariant();
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
    }

    void insert(int at, std::vector<Row> added) {
        beginInsertRows({}, at, at + static_cast<int>(added.size()) - 1);
        rows.insert(rows.begin() + at, added.begin(), added.end());
        endInsertRows();
    }

    void remove(int at, int count) {
        beginRemoveRows({}, at, at + count - 1);
        rows.erase(rows.begin() + at, rows.begin() + at + count);
        endRemoveRows();
    }

    /// Turns the order of the rows round, as a sort would.
    void reverse() {
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        for (const QModelIndex& index : before)
            after.append(this->index(rowCount() - 1 - index.row(), index.column()));
        std::reverse(rows.begin(), rows.end());
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }

    void reset(std::vector<Row> all) {
        beginResetModel();
        rows = std::move(all);
        endResetModel();
    }

    void change(int row, const QList<int>& roles = {}) {
        Q_EMIT dataChanged(index(row, 0), index(row, columns - 1), roles);
    }

    /// Names "row 0", "row 1", ...; groups in turn.
    static std::vector<Row> makeRows(int count, int groups = 1) {
        std::vector<Row> made;
        made.reserve(static_cast<size_t>(count));
        for (int row = 0; row < count; ++row)
            made.push_back({QStringLiteral("row %1").arg(row), row % groups, false});
        return made;
    }

    std::vector<Row> rows;
    int columns = 3;
    mutable long asked = 0;
};

inline std::vector<GroupedListView::Group> makeGroups(int count) {
    std::vector<GroupedListView::Group> groups;
    for (int id = 0; id < count; ++id) groups.push_back({id, QStringLiteral("Group %1").arg(id), {}, true});
    return groups;
}

/// The rows whose first cell is selected, in model order.
inline std::vector<int> selectedRows(const GroupedListView& view) {
    std::vector<int> rows;
    for (int row = 0; row < view.model()->rowCount(); ++row)
        if (view.selectionModel()->isSelected(view.model()->index(row, 0))) rows.push_back(row);
    return rows;
}

}  // namespace controls
