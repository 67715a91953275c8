#pragma once

#include <QAbstractItemView>
#include <QIcon>
#include <QString>
#include <memory>
#include <vector>

class QHeaderView;
class QHelpEvent;

namespace controls {

/// The one list of the program: the file list and the metadata panel are both made of it. It stands on an
/// ordinary flat item model (rows and columns, no children) and shows it as details with a header, as tiles
/// or as icons, with or without collapsible group headers. Virtual: only what is visible is asked for and
/// painted; 100,000 rows are laid out at once. It knows nothing of files or metadata. GUI thread.
class GroupedListView : public QAbstractItemView {
    Q_OBJECT

 public:
    enum class Layout { Details, Tiles, Icons };

    /// What a model may answer beside Qt's own roles.
    enum Role {
        /// In column 0: int, the id of the group that shows the row; without groups not asked for.
        GroupIdRole = Qt::UserRole + 100,
        /// In column 0: bool, the row is shown as a ghost (a hidden file).
        GhostRole,
        /// In column 0: QStringList, the lines under the name of a tile. Where the model answers nothing, the
        /// texts
        /// of the next columns stand there.
        TileLinesRole,
    };

    struct Group {
        int id = 0;
        QString title;
        QIcon image;
        bool collapsible = true;
    };

    explicit GroupedListView(QWidget* parent = nullptr);
    ~GroupedListView() override;

    /// Owned by the view. A right click on it is told by its customContextMenuRequested(); columns are
    /// clicked (sectionClicked), and moved when setSectionsMovable() is set.
    QHeaderView* header() const;

    void setViewLayout(Layout layout);
    Layout viewLayout() const;

    /// Tiles and icons: the picture's side in pixels.
    void setPictureSide(int pixels);
    int pictureSide() const;

    // --- groups
    /// Replaces all groups; they are shown in this order, those without rows not at all. Rows keep the
    /// model's order within their group. Rows of an id that is not among them are shown nowhere.
    void setGroups(std::vector<Group> groups);
    void setGroupsEnabled(bool enabled);
    bool groupsEnabled() const;
    void setGroupTitle(int groupId, const QString& title);
    QString groupTitle(int groupId) const;
    void setGroupCollapsed(int groupId, bool collapsed);
    bool isGroupCollapsed(int groupId) const;
    /// Ids of the groups that are on show, from top to bottom.
    std::vector<int> shownGroups() const;
    QRect groupHeaderRect(int groupId) const;  ///< in viewport coordinates; empty when not shown

    // --- look and habits
    /// Check boxes at the left of column 0 that show and change the selection: one state.
    void setCheckBoxes(bool shown);
    bool checkBoxes() const;
    void setGridLines(bool shown);
    void setFullRowSelection(bool enabled);
    void setRowHeight(int pixels);
    /// Texts shown in the middle of an empty list.
    void setEmptyText(const QString& text);
    QString emptyText() const;
    /// The column whose display texts typing looks through; 0 at first.
    void setSearchColumn(int column);

    /// Rows in the order in which they are shown, top to bottom; rows of collapsed groups included.
    std::vector<int> rowsInViewOrder() const;
    /// The rows that are at least partly in the viewport, top to bottom.
    std::vector<int> visibleRows() const;
    /// Where the check box of a row stands, in viewport coordinates; empty when there is none.
    QRect checkBoxRect(const QModelIndex& index) const;
    /// Selects what is not selected and the other way round; rows that no group shows are left out.
    void invertSelection();

    // --- QAbstractItemView
    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void setModel(QAbstractItemModel* model) override;
    void reset() override;
    void keyboardSearch(const QString& text) override;
    void selectAll() override;
    /// From the rows in sight and some around them only.
    int sizeHintForColumn(int column) const override;

 Q_SIGNALS:
    /// A click on a cell (released where it was pressed), after the selection has changed. A click on a check
    /// box or on a group header is none.
    void CellClicked(const QModelIndex& index, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    /// A left click on the free area.
    void FreeAreaClicked();
    /// The context menu is asked for, on a cell (by mouse or key) or, with an invalid index, on the free
    /// area.
    void CellMenuRequested(const QModelIndex& index, const QPoint& globalPosition);
    void GroupHeaderMenuRequested(int groupId, const QPoint& globalPosition);
    /// Invalid when the mouse is on no cell.
    void CellHovered(const QModelIndex& index);

 protected:
    /// Paints a whole group header. The default: title in bold, image, a line; a descendant may paint its
    /// own.
    virtual void paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group, bool collapsed,
                                  bool hovered) const;
    /// Where the chevron of a group header is painted and clicked.
    virtual QRect groupChevronRect(const QRect& headerRect) const;
    /// The chevron itself, for descendants that paint their own headers.
    void paintGroupChevron(QPainter& painter, const QRect& headerRect, bool collapsed,
                           const QColor& color) const;

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags flags) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles = QList<int>()) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void showToolTip(QHelpEvent& event);

    class Contents;
    class Painting;
    class Input;
    std::unique_ptr<Contents> contents_;
    std::unique_ptr<Painting> painting_;
    std::unique_ptr<Input> input_;
};

}  // namespace controls
