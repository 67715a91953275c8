#pragma once

#include "app/LanguageFile.h"
#include "app/Settings.h"
#include "taglists/TagListRows.h"
#include "tags/LabelLibrary.h"

#include <QAbstractTableModel>
#include <vector>

namespace taglists {

enum class TagColumn { Name, Group, Kind, Value };

/// The rows of a list of tags for a view: those that the filter lets through, in the order of the rows. It
/// owns the rows; a row is named by its place among all of them. Rows have a check box in column 0 when the
/// list ticks. GUI thread.
class TagListModel : public QAbstractTableModel {
    Q_OBJECT

 public:
    struct Look {
        std::vector<TagColumn> columns;
        bool ticks = false;  ///< check boxes in column 0
    };
    /// What the model needs of others; all outlive it.
    struct Parts {
        const app::LanguageFile& language;
        const tags::LabelLibrary& labels;
        const app::Settings& settings;
    };

    TagListModel(const Parts& parts, Look look, QObject* parent = nullptr);

    void setRows(TagRows rows);
    const TagRows& rows() const { return rows_; }

    /// Shows the rows that match; all of them under an empty filter.
    void setFilter(const QString& filter);
    /// Shows only rows with a value, or what the user has done something with.
    void setOnlyFilled(bool onlyFilled);
    void sort(TagSort column, bool ascending);

    // --- one row, by its place among all rows
    void setValue(std::size_t row, const NewValue& value);
    void empty(std::size_t row, bool severalFiles);
    void undo(std::size_t row);
    void setTicked(std::size_t row, bool ticked);
    /// Any change of several rows.
    template <typename Call>
    void changeRows(Call&& change) {
        beginResetModel();
        change(rows_);
        filterRows();
        endResetModel();
        Q_EMIT RowsChanged();
    }
    /// Of the rows that the filter lets through.
    void setAllShownTicked(bool ticked);

    const Look& look() const { return look_; }
    /// The place among all rows of a row of the view.
    std::size_t rowAt(int shownRow) const { return shown_[static_cast<std::size_t>(shownRow)]; }
    /// The row of the view, or -1 when the filter hides it.
    int shownRowOf(std::size_t row) const;
    int columnOf(TagColumn column) const;  ///< -1 when the list lacks it

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 Q_SIGNALS:
    /// Values, ticks, the rows themselves, or which of them are shown.
    void RowsChanged();

 private:
    void filterRows();
    void rowChanged(std::size_t row);
    QVariant textOf(const TagRow& row, TagColumn column) const;
    QVariant iconOf(const TagRow& row, TagColumn column) const;
    QVariant toolTipOf(const TagRow& row, TagColumn column) const;

    Parts parts_;
    Look look_;
    TagRows rows_;
    std::vector<std::size_t> shown_;
    QString filter_;
    bool onlyFilled_ = false;
};

}  // namespace taglists
