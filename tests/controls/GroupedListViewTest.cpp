#include "controls/GroupedListView.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>
#include <numeric>
#include <set>

#include "controls/GroupedListDelegate.h"
#include "controls/TableModel.h"

namespace controls {

using Layout = GroupedListView::Layout;

namespace {

struct LayoutCase {
    const char* name;
    Layout layout;
    int rows;
    int groups;
    std::vector<int> collapsed;
    bool checkBoxes;
    int scrolledBy;
};

void PrintTo(const LayoutCase& one, std::ostream* out) {
    *out << one.name;
}

class GroupedListLayouts : public testing::TestWithParam<LayoutCase> {};

class GroupedList : public testing::Test {
 protected:
    GroupedList() { view.resize(600, 400); }

    void show(int rows, int groups = 0) {
        model.rows = TableModel::makeRows(rows, qMax(groups, 1));
        view.setModel(&model);
        view.setGroups(makeGroups(groups));
        view.setGroupsEnabled(groups > 0);
        view.show();
        settle();
    }

    void settle() { QCoreApplication::processEvents(); }

    TableModel model;
    GroupedListView view;
};

}  // namespace

TEST_P(GroupedListLayouts, WhatIsSeenAtAPlaceIsTheCellWhoseRectangleItIs) {
    const LayoutCase& one = GetParam();
    TableModel model;
    model.rows = TableModel::makeRows(one.rows, qMax(one.groups, 1));
    GroupedListView view;
    view.resize(600, 400);
    view.setViewLayout(one.layout);
    view.setPictureSide(64);
    view.setCheckBoxes(one.checkBoxes);
    view.setModel(&model);
    view.setGroups(makeGroups(one.groups));
    view.setGroupsEnabled(one.groups > 0);
    for (const int group : one.collapsed) view.setGroupCollapsed(group, true);
    view.show();
    QCoreApplication::processEvents();
    view.verticalScrollBar()->setValue(one.scrolledBy);
    ASSERT_EQ(view.verticalScrollBar()->value(), one.scrolledBy);

    int found = 0;
    for (int row = 0; row < one.rows; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QModelIndex index = model.index(row, column);
            const QRect rect = view.visualRect(index);
            const bool hidden = std::ranges::count(one.collapsed, model.rows[size_t(row)].group) > 0;
            const bool shown = !hidden && (one.layout == Layout::Details || column == 0);
            ASSERT_EQ(!rect.isEmpty(), shown) << row << "/" << column;
            if (!shown) continue;
            EXPECT_EQ(view.indexAt(rect.center()), index);
            EXPECT_EQ(view.indexAt(rect.topLeft() + QPoint(3, 3)), index);
            EXPECT_EQ(view.indexAt(rect.bottomRight() - QPoint(3, 3)), index);
            found += rect.intersects(view.viewport()->rect()) ? 1 : 0;
        }
    }
    const int columns = one.layout == Layout::Details ? 3 : 1;
    EXPECT_EQ(found, static_cast<int>(view.visibleRows().size()) * columns);
    for (const int group : view.shownGroups()) {
        const QRect rect = view.groupHeaderRect(group);
        EXPECT_EQ(rect.height(), 28);
        EXPECT_FALSE(view.indexAt(rect.center()).isValid());
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, GroupedListLayouts,
    testing::Values(LayoutCase{"details", Layout::Details, 60, 0, {}, false, 0},
                    LayoutCase{"details scrolled", Layout::Details, 60, 0, {}, true, 333},
                    LayoutCase{"details grouped", Layout::Details, 60, 7, {}, false, 100},
                    LayoutCase{"details collapsed", Layout::Details, 60, 7, {0, 3}, true, 100},
                    LayoutCase{"tiles", Layout::Tiles, 60, 0, {}, false, 217},
                    LayoutCase{"tiles grouped", Layout::Tiles, 60, 7, {6}, true, 217},
                    LayoutCase{"icons", Layout::Icons, 60, 0, {}, true, 51},
                    LayoutCase{"icons collapsed", Layout::Icons, 60, 7, {1, 2}, false, 51},
                    LayoutCase{"all collapsed", Layout::Details, 20, 2, {0, 1}, false, 0}),
    [](const auto& one) {
        std::string name = one.param.name;
        std::ranges::replace(name, ' ', '_');
        return name;
    });

TEST_F(GroupedList, MeasuresAreThoseOfTheDesign) {
    show(10, 2);
    EXPECT_EQ(view.header()->height(), 26);
    EXPECT_EQ(view.visualRect(model.index(0, 0)).height(), 24);
    EXPECT_EQ(view.groupHeaderRect(0), QRect(0, 0, view.viewport()->width(), 28));
}

TEST_F(GroupedList, GroupsStandInTheirOrderAndOnlyThoseWithRows) {
    show(0, 0);
    model.reset({{"a", 7}, {"b", 3}, {"c", 7}, {"stray", 99}, {"d", 3}});
    view.setGroups({{1, "one", {}, true}, {7, "seven", {}, true}, {3, "three", {}, true}});
    view.setGroupsEnabled(true);
    EXPECT_EQ(view.shownGroups(), (std::vector<int>{7, 3}));
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{0, 2, 1, 4}));
    EXPECT_TRUE(view.visualRect(model.index(3, 0)).isEmpty());
    EXPECT_TRUE(view.groupHeaderRect(1).isEmpty());

    model.rows[0].group = 1;
    model.change(0);
    EXPECT_EQ(view.shownGroups(), (std::vector<int>{1, 7, 3}));
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{0, 2, 1, 4}));

    view.setGroupsEnabled(false);
    EXPECT_EQ(view.shownGroups(), std::vector<int>{});
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{0, 1, 2, 3, 4}));
}

TEST_F(GroupedList, TitlesChangeInPlaceAndCollapsingSurvivesNewGroups) {
    show(30, 3);
    view.setGroupTitle(1, "Group 1 (10)");
    EXPECT_EQ(view.groupTitle(1), "Group 1 (10)");
    EXPECT_EQ(view.groupTitle(42), "");
    view.setGroupCollapsed(0, true);
    view.setGroups(makeGroups(3));
    EXPECT_TRUE(view.isGroupCollapsed(0));
    EXPECT_EQ(view.groupHeaderRect(1).top(), 28);
    EXPECT_EQ(view.rowsInViewOrder().size(), 30U);
}

TEST_F(GroupedList, ModelChangesMoveRowsAndGroups) {
    show(6, 2);  // groups 0 1 0 1 0 1
    model.insert(1, {{"new", 1}, {"new too", 0}});
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{0, 2, 4, 6, 1, 3, 5, 7}));
    model.remove(0, 3);
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{1, 3, 0, 2, 4}));
    model.reverse();
    EXPECT_EQ(view.rowsInViewOrder(), (std::vector<int>{1, 3, 0, 2, 4}));
    model.reset({{"only", 1}});
    EXPECT_EQ(view.rowsInViewOrder(), std::vector<int>{0});
    EXPECT_EQ(view.shownGroups(), std::vector<int>{1});
    view.setModel(nullptr);
    EXPECT_EQ(view.rowsInViewOrder(), std::vector<int>{});
    settle();
}

TEST_F(GroupedList, AModelThatDiesLeavesAnEmptyList) {
    auto mortal = std::make_unique<TableModel>();
    mortal->rows = TableModel::makeRows(50, 2);
    view.setModel(mortal.get());
    view.setGroups(makeGroups(2));
    view.setGroupsEnabled(true);
    view.show();
    settle();
    mortal.reset();
    settle();
    EXPECT_EQ(view.rowsInViewOrder(), std::vector<int>{});
    view.grab();
}

TEST_F(GroupedList, AHundredThousandRowsCostOnlyWhatIsSeen) {
    show(100'000);
    model.asked = 0;
    view.verticalScrollBar()->setValue(1'200'000);
    view.grab();
    EXPECT_GT(model.asked, 0);
    EXPECT_LT(model.asked, 2'000);
    EXPECT_EQ(view.indexAt({5, 5}).row(), 50'000);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    EXPECT_EQ(view.visibleRows().back(), 99'999);
}

TEST_F(GroupedList, SingleInsertsAreLaidOutTogether) {
    show(0, 3);
    for (int row = 0; row < 20'000; ++row) model.insert(row, {{QString::number(row), row % 3}});
    // Each row's group is asked for once, however many inserts there are.
    EXPECT_LT(model.asked, 1'000);
    settle();
    EXPECT_LT(model.asked, 30'000);
    EXPECT_EQ(view.rowsInViewOrder().size(), 20'000U);
}

TEST_F(GroupedList, ARepaintOfACellOutOfSightIsNone) {
    show(1000);
    view.grab();
    settle();
    model.asked = 0;
    model.change(900);
    settle();
    EXPECT_EQ(model.asked, 0);
    model.change(2);
    settle();
    EXPECT_GT(model.asked, 0);
}

TEST_F(GroupedList, RowsKeepTheirPlaceWhileOthersArrive) {
    show(1000);
    view.verticalScrollBar()->setValue(5007);
    const QPersistentModelIndex watched = view.indexAt({5, 50});
    const QRect before = view.visualRect(watched);
    model.insert(1000, TableModel::makeRows(500));
    settle();
    EXPECT_EQ(view.visualRect(watched), before) << "below";
    model.insert(0, TableModel::makeRows(10));
    model.insert(3, TableModel::makeRows(1));
    settle();
    EXPECT_EQ(view.visualRect(watched), before) << "above";
    model.remove(5, 20);
    settle();
    EXPECT_EQ(view.visualRect(watched), before) << "removed above";
    view.verticalScrollBar()->setValue(0);
    model.insert(0, {{"first", 0}});
    settle();
    EXPECT_EQ(view.indexAt({5, 5}).row(), 0) << "the top stays the top";
}

TEST_F(GroupedList, ColumnsAreResizedInPlaceAndMovedWhereAllowed) {
    show(20);
    EXPECT_FALSE(view.header()->sectionsMovable());
    view.header()->resizeSection(0, 150);
    view.header()->resizeSection(1, 80);
    EXPECT_EQ(view.visualRect(model.index(4, 1)).left(), 150);
    EXPECT_EQ(view.indexAt({151, 5}).column(), 1);
    const int edge = view.header()->sectionViewportPosition(1) - 1;
    QWidget* area = view.header()->viewport();
    QTest::mousePress(area, Qt::LeftButton, {}, {edge, 10});
    QMouseEvent move(QEvent::MouseMove, QPointF(edge + 60, 10), area->mapToGlobal(QPointF(edge + 60, 10)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area, &move);
    EXPECT_EQ(view.visualRect(model.index(4, 1)).left(), 210) << "while the mouse is still down";
    QTest::mouseRelease(area, Qt::LeftButton, {}, {edge + 60, 10});
    view.header()->moveSection(0, 2);
    EXPECT_EQ(view.visualRect(model.index(4, 1)).left(), 0);
    EXPECT_EQ(view.indexAt({view.visualRect(model.index(4, 0)).center().x(), 5}).column(), 0);
    view.header()->setSectionHidden(2, true);
    EXPECT_TRUE(view.visualRect(model.index(4, 2)).isEmpty());
}

TEST_F(GroupedList, AHandleDoubleClickFitsTheColumnToItsTexts) {
    show(20);
    model.rows[3].name = "a name that is quite a bit longer than the others of the list";
    model.change(3);
    view.header()->resizeSection(0, 40);
    QTest::mouseDClick(view.header()->viewport(), Qt::LeftButton, {}, {39, 10});
    EXPECT_GT(view.header()->sectionSize(0), view.fontMetrics().horizontalAdvance(model.rows[3].name));
}

TEST_F(GroupedList, WideColumnsScrollWithTheirHeader) {
    show(20);
    view.header()->resizeSection(0, 500);
    view.header()->resizeSection(1, 500);
    settle();
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    view.horizontalScrollBar()->setValue(120);
    EXPECT_EQ(view.header()->offset(), 120);
    EXPECT_EQ(view.visualRect(model.index(0, 1)).left(), 380);
    EXPECT_EQ(view.header()->sectionViewportPosition(1), 380);
    view.setViewLayout(Layout::Icons);
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(view.header()->isHidden());
    view.setViewLayout(Layout::Details);
    EXPECT_FALSE(view.header()->isHidden());
}

TEST_F(GroupedList, ScrollingBringsRowsIntoSight) {
    show(1000, 4);
    const QModelIndex far = model.index(777, 0);
    for (const auto hint : {QAbstractItemView::EnsureVisible, QAbstractItemView::PositionAtTop,
                            QAbstractItemView::PositionAtCenter, QAbstractItemView::PositionAtBottom}) {
        view.verticalScrollBar()->setValue(0);
        view.scrollTo(far, hint);
        EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(far).topLeft())) << hint;
    }
    view.scrollTo(model.index(1, 0));
    EXPECT_GE(view.groupHeaderRect(1).top(), 0) << "the first row brings its header along";
    view.setGroupCollapsed(3, true);
    view.scrollTo(model.index(3, 0));
    EXPECT_TRUE(view.isGroupCollapsed(3));
}

TEST_F(GroupedList, ACutTextIsShownAsATipAsItStands) {
    show(5);
    model.rows[0].name = "<b>wide</b> & " + QString(200, 'w');
    model.change(0);
    const auto tipAt = [&](int row) {
        const QPoint place = view.visualRect(model.index(row, 0)).center();
        QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text();
    };
    EXPECT_TRUE(tipAt(0).contains("&lt;b&gt;wide&lt;/b&gt; &amp; www"));
    EXPECT_FALSE(tipAt(1).contains("row 1"));
}

TEST_F(GroupedList, GhostsAndSelectedRowsLookDifferent) {
    show(4);
    view.setAlternatingRowColors(false);
    const auto picture = [&] { return view.viewport()->grab(QRect(0, 0, 300, 24)).toImage(); };
    const QImage plain = picture();
    model.rows[0].ghost = true;
    EXPECT_NE(picture(), plain);
    model.rows[0].ghost = false;
    EXPECT_EQ(picture(), plain);
    view.selectionModel()->select(model.index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const QImage selected = picture();
    const QColor ground = selected.pixelColor(290, 12);
    const QColor base = view.palette().color(QPalette::Base);
    const QColor accent = view.palette().color(QPalette::Highlight);
    EXPECT_NEAR(ground.redF(), base.redF() * 0.86 + accent.redF() * 0.14, 0.01);
    EXPECT_NEAR(ground.blueF(), base.blueF() * 0.86 + accent.blueF() * 0.14, 0.01);
}

TEST_F(GroupedList, AnyDelegatePaintsTheCells) {
    class Counting : public QStyledItemDelegate {
     public:
        void paint(QPainter*, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
            painted.push_back(index);
            EXPECT_EQ(option.rect.height(), 24);
            EXPECT_EQ(option.palette.color(QPalette::Highlight).alpha(), 0);
        }
        mutable std::vector<QModelIndex> painted;
    };
    Counting delegate;
    view.setItemDelegate(&delegate);
    show(3);
    delegate.painted.clear();
    view.viewport()->grab();
    EXPECT_EQ(delegate.painted.size(), 9U);
    EXPECT_EQ(delegate.painted.front(), model.index(0, 0));
}

TEST_F(GroupedList, AnOwnHeaderPainterGetsEveryHeaderInSight) {
    class OwnHeaders : public GroupedListView {
     public:
        mutable std::vector<int> painted;

     protected:
        void paintGroupHeader(QPainter& painter, const QRect& rect, const Group& group, bool collapsed,
                              bool) const override {
            painted.push_back(collapsed ? -group.id : group.id);
            painter.fillRect(rect, Qt::darkGreen);
        }
    };
    OwnHeaders own;
    model.rows = TableModel::makeRows(6, 3);
    own.setModel(&model);
    own.setGroups(makeGroups(5));
    own.setGroupsEnabled(true);
    own.setGroupCollapsed(2, true);
    own.resize(400, 400);
    own.show();
    settle();
    own.painted.clear();
    const QImage image = own.viewport()->grab().toImage();
    EXPECT_EQ(own.painted, (std::vector<int>{0, 1, -2}));
    EXPECT_EQ(image.pixelColor(200, 5), QColor(Qt::darkGreen));
}

TEST_F(GroupedList, MovingTheCurrentRowRepaintsTwoRowsOnly) {
    class Recording : public GroupedListDelegate {
     public:
        void paint(QPainter*, const QStyleOptionViewItem&, const QModelIndex& index) const override {
            painted.insert(index.row());
        }
        mutable std::set<int> painted;
    };
    Recording delegate;
    view.setItemDelegate(&delegate);
    show(1000);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.selectionModel()->setCurrentIndex(model.index(2, 0), QItemSelectionModel::NoUpdate);
    settle();
    delegate.painted.clear();
    view.selectionModel()->setCurrentIndex(model.index(5, 0), QItemSelectionModel::NoUpdate);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !delegate.painted.empty(); }));
    settle();
    EXPECT_TRUE(delegate.painted.contains(2));
    EXPECT_TRUE(delegate.painted.contains(5));
    EXPECT_LE(delegate.painted.size(), 6U);
}

TEST_F(GroupedList, AnEmptyListSaysWhy) {
    show(0);
    const QImage silent = view.viewport()->grab().toImage();
    view.setEmptyText("This folder is empty");
    EXPECT_NE(view.viewport()->grab().toImage(), silent);
    model.insert(0, TableModel::makeRows(1));
    EXPECT_EQ(view.emptyText(), "This folder is empty");
}

TEST_F(GroupedList, AValueOfAMegabyteLooksLikeOneThatJustDoesNotFit) {
    show(40);
    view.header()->resizeSection(1, 300);
    const auto picture = [&](qsizetype length) {
        for (auto& row : model.rows) row.name = QString(length, 'i');
        return view.grab().toImage();
    };
    EXPECT_EQ(picture(1'000'000), picture(1'000));
    EXPECT_NE(picture(1'000'000), picture(10));
}

}  // namespace controls
