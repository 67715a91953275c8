#pragma once

#include "tags/LabelLibrary.h"
#include "tags/OutputParser.h"
#include "tags/RowAppearance.h"

#include <QAbstractTableModel>
#include <optional>
#include <span>
#include <vector>

namespace panel {

/// The rows of the metadata panel. Rows are collected during a load and shown at its
/// end, at once. GUI thread.
class MetadataListModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    explicit MetadataListModel(const app::Settings& settings, QObject* parent = nullptr);

    void clear();
    /// Takes its place at itemIndex within its group. Not shown before Commit.
    void InsertMetadataRow(tags::MetadataRow&& row);
    void Commit();

    /// Shows only the rows that match (tags/FilterWords.h) by tag, group, value or label; all of them under
    /// an empty filter. It stays for the rows of the next file.
    void setFilter(const QString& filter);
    const QString& filter() const { return filter_; }
    /// The text that a row is found by beside its own; null: none.
    void setLabels(const tags::LabelLibrary* labels) { labels_ = labels; }
    /// Those that the filter hides included.
    std::span<const tags::MetadataRow> allRows() const { return all_; }

    const tags::MetadataRow& row(int position) const { return rows_[static_cast<std::size_t>(position)]; }

    std::span<const tags::MetadataRow> rows() const { return rows_; }

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
    void filterRows();

    std::vector<tags::MetadataRow> all_;
    std::vector<tags::MetadataRow> rows_;  ///< those that are shown
    std::vector<std::size_t> places_;      ///< of them among all
    QString filter_;
    const tags::LabelLibrary* labels_ = nullptr;
    std::vector<tags::MetadataRow> loading_;
    QString valueTitle_;
};

}  // namespace panel
