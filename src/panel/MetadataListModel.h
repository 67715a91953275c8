#pragma once

#include "tags/OutputParser.h"
#include "tags/RowAppearance.h"

#include <QAbstractTableModel>
#include <optional>
#include <vector>

namespace panel {

/// The rows of the metadata panel; they have no other copy. Rows are collected during a load and shown at its
/// end, at once. GUI thread.
class MetadataListModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    explicit MetadataListModel(const app::Settings& settings, QObject* parent = nullptr);

    void clear();
    /// Takes its place at itemIndex within its group. Not shown before Commit.
    void InsertMetadataRow(tags::MetadataRow&& row);
    void Commit();

    const tags::MetadataRow& row(int position) const { return rows_[static_cast<std::size_t>(position)]; }

    /// What was written in place of the row's value: text, or stars where the row shows stars.
    void SetValue(int position, const QString& value);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The text over the value column.
    void setValueTitle(const QString& title) { valueTitle_ = title; }

 private:
    QVariant textOf(const tags::MetadataRow& row, tags::PanelColumn column) const;
    QVariant alignmentOf(tags::PanelColumn column) const;

    const app::Settings& settings_;
    std::vector<tags::MetadataRow> rows_;
    std::vector<tags::MetadataRow> loading_;
    QString valueTitle_;
};

}  // namespace panel
