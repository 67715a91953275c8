#pragma once

#include "controls/GroupedListView.h"
#include "jobs/OperationParts.h"
#include "taglists/TagListModel.h"
#include "taglists/TagListTexts.h"

#include <QWidget>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace taglists {

/// The view of a TagList: ticks are set by a click on the box, by a double click on a row and by the space
/// bar.
class TagListView : public controls::GroupedListView {
    Q_OBJECT

 public:
    TagListView(TagListModel& model, QWidget* parent);

    /// Where the box of a row stands, in viewport coordinates; empty in a list without ticks.
    QRect tickRect(const QModelIndex& index) const;

 Q_SIGNALS:
    void EmptyRequested(const QModelIndex& index);
    void UndoRequested(const QModelIndex& index);
    void CopyRequested(const QModelIndex& index);

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void toggleSelected();

    TagListModel& tagModel_;
};

/// A list of tags as the dialogs show it: a filter field above, which narrows by name, group or label, the
/// list, and below it how many rows there are and how many are changed or ticked. In a list with values a
/// click on the value column, or Enter on a row, asks for the editor. A click on a header of name or group
/// sorts. GUI thread; belongs to its parent.
class TagList : public QWidget {
    Q_OBJECT

 public:
    /// The controls' numbers beside the list's own.
    static constexpr int kFilterControl = 80520;
    static constexpr int kCountControl = 80521;
    static constexpr int kOnlyFilledControl = 80525;

    struct Wishes {
        int listControl = 0;  ///< the number by which scripts and dialogs find the list
        TagListModel::Look look;
        bool severalFiles = false;  ///< the rows' values are for several files, whose own are not known
        int filterHint = text::kFilterHint;  ///< numbers of the language file's strings
        int countOfRows = text::kCountOfRows;
        bool tellsFilled = false;  ///< counts the rows with a value, and shows these alone on wish
    };

    /// parts outlive the list.
    TagList(const jobs::OperationParts& parts, Wishes wishes, QWidget* parent);

    /// Lays a new list into the widget, which a form has kept free for it.
    static TagList* placeIn(QWidget& place, const jobs::OperationParts& parts, Wishes wishes);

    TagListModel& model() { return *model_; }
    const TagRows& rows() const { return model_->rows(); }
    TagListView& view() { return *view_; }
    QLineEdit& filter() { return *filter_; }
    bool severalFiles() const { return wishes_.severalFiles; }

    /// Shown where the list has no rows at all; a filter without match speaks for itself.
    void setEmptyText(const QString& text);
    /// Pixels, by column; the last one takes the rest.
    void setColumnWidths(const std::vector<int>& widths);
    /// The ticked rows, in the order of the list, those that the filter hides included.
    TagRows tickedRows() const;

 Q_SIGNALS:
    /// The user wants to edit the value of this row, by its place among all rows.
    void EditRequested(std::size_t row);
    /// Enter in a list that ticks.
    void ConfirmRequested();
    void RowsChanged();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void createView();
    void goToList();
    void setFilter(const QString& filter);
    /// Does what changes the rows that are shown; the current one stays in sight where it still is.
    template <typename Change>
    void keepingCurrent(Change&& change);
    void clicked(const QModelIndex& index, Qt::MouseButton button);
    void requestEdit(const QModelIndex& index);
    void empty(const QModelIndex& index);
    void undo(const QModelIndex& index);
    void copy(const QModelIndex& index) const;
    void showMenu(const QModelIndex& index, const QPoint& position);
    void sortBy(int section);
    void goTo(const TagRow& wanted);
    void updateCount();
    /// In a list that ticks, values are only shown.
    bool hasValues() const { return !wishes_.look.ticks && model_->columnOf(TagColumn::Value) >= 0; }

    const jobs::OperationParts parts_;
    Wishes wishes_;
    TagListModel* model_;
    QLineEdit* filter_;
    QCheckBox* onlyFilled_;
    TagListView* view_;
    QLabel* count_;
    QString emptyText_;
    bool ascending_ = true;  ///< the first click on a header turns it
    int sortedSection_ = -1;
};

}  // namespace taglists
