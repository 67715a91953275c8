#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <numeric>

#include "controls/GroupedListView.h"
#include "controls/TableModel.h"

namespace controls {

using Layout = GroupedListView::Layout;
using Rows = std::vector<int>;

namespace {

Rows fromTo(int first, int last) {
    Rows rows(static_cast<size_t>(last - first + 1));
    std::iota(rows.begin(), rows.end(), first);
    return rows;
}

class GroupedListInput : public testing::Test {
 protected:
    GroupedListInput() {
        view.resize(600, 400);
        view.header()->setDefaultSectionSize(150);
    }

    void show(int rows, int groups = 0) {
        model.rows = TableModel::makeRows(rows, qMax(groups, 1));
        view.setModel(&model);
        view.setGroups(makeGroups(groups));
        view.setGroupsEnabled(groups > 0);
        view.show();
        QCoreApplication::processEvents();
    }

    QPoint place(int row, int column = 0) { return view.visualRect(model.index(row, column)).center(); }

    void click(int row, Qt::KeyboardModifiers modifiers = {}, int column = 0,
               Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view.viewport(), button, modifiers, place(row, column));
    }

    void moveMouse(QPoint to, Qt::MouseButtons buttons = {}) {
        QMouseEvent event(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    }

    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&view, static_cast<Qt::Key>(code), modifiers);
    }

    int current() const { return view.currentIndex().row(); }

    TableModel model;
    GroupedListView view;
};

struct KeyCase {
    const char* name;
    int start;
    std::vector<std::pair<int, Qt::KeyboardModifiers>> keys;
    int current;
    Rows selected;
};

class GroupedListKeys : public GroupedListInput, public testing::WithParamInterface<KeyCase> {};

}  // namespace

// Twelve rows in three groups: from top to bottom 0 3 6 9, 1 4 7 10 (collapsed), 2 5 8 11.
TEST_P(GroupedListKeys, MoveAndSelectInTheOrderThatIsSeen) {
    show(12, 3);
    view.setGroupCollapsed(1, true);
    QCoreApplication::processEvents();
    click(GetParam().start);
    for (const auto& [code, modifiers] : GetParam().keys) key(code, modifiers);
    EXPECT_EQ(current(), GetParam().current);
    EXPECT_EQ(selectedRows(view), GetParam().selected);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, GroupedListKeys,
    testing::Values(
        KeyCase{"down", 0, {{Qt::Key_Down, {}}}, 3, {3}},
        KeyCase{"up_at_the_top", 0, {{Qt::Key_Up, {}}}, 0, {0}},
        KeyCase{"down_over_the_collapsed_group", 9, {{Qt::Key_Down, {}}}, 2, {2}},
        KeyCase{"up_over_the_collapsed_group", 2, {{Qt::Key_Up, {}}}, 9, {9}},
        KeyCase{"end", 0, {{Qt::Key_End, {}}}, 11, {11}}, KeyCase{"home", 5, {{Qt::Key_Home, {}}}, 0, {0}},
        KeyCase{"page_down", 0, {{Qt::Key_PageDown, {}}}, 11, {11}},
        KeyCase{"page_up", 11, {{Qt::Key_PageUp, {}}}, 0, {0}},
        KeyCase{
            "shift_leaves_hidden_rows_out", 6, {{Qt::Key_End, Qt::ShiftModifier}}, 11, {2, 5, 6, 8, 9, 11}},
        KeyCase{"shift_forth_and_back",
                3,
                {{Qt::Key_Down, Qt::ShiftModifier},
                 {Qt::Key_Down, Qt::ShiftModifier},
                 {Qt::Key_Up, Qt::ShiftModifier}},
                6,
                {3, 6}},
        KeyCase{"control_moves_only", 0, {{Qt::Key_Down, Qt::ControlModifier}}, 3, {0}},
        KeyCase{"control_space_adds",
                0,
                {{Qt::Key_Down, Qt::ControlModifier},
                 {Qt::Key_Down, Qt::ControlModifier},
                 {Qt::Key_Space, Qt::ControlModifier}},
                6,
                {0, 6}},
        KeyCase{"control_space_takes_away", 0, {{Qt::Key_Space, Qt::ControlModifier}}, 0, {}},
        KeyCase{"space_selects", 0, {{Qt::Key_Down, Qt::ControlModifier}, {Qt::Key_Space, {}}}, 3, {3}}),
    [](const auto& one) { return std::string(one.param.name); });

TEST_F(GroupedListInput, ClicksSelectAsInAFileManager) {
    show(20);
    click(3);
    EXPECT_EQ(selectedRows(view), Rows{3});
    click(6, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(view), (Rows{3, 6}));
    click(3, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(view), Rows{6});
    click(9, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), fromTo(3, 9)) << "from the row clicked last";
    click(12, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), fromTo(3, 12));
    click(14, Qt::ControlModifier);
    click(14 + 1, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view).size(), 12U);
    click(5);
    EXPECT_EQ(selectedRows(view), Rows{5}) << "a click on one of several leaves that one";
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1) << "whole rows";
}

TEST_F(GroupedListInput, SingleSelectionHoldsOneRow) {
    show(20);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    click(3);
    click(6, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(view), Rows{6});
    click(9, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), Rows{9});
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), Rows{10});
    view.selectAll();
    EXPECT_EQ(selectedRows(view), Rows{10});
}

TEST_F(GroupedListInput, ARightClickKeepsASelectionItIsPartOf) {
    show(20);
    click(3);
    click(6, Qt::ControlModifier);
    QSignalSpy menus(&view, &GroupedListView::CellMenuRequested);
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    click(3, {}, 1, Qt::RightButton);
    EXPECT_EQ(selectedRows(view), (Rows{3, 6}));
    ASSERT_EQ(menus.count(), 1);
    EXPECT_EQ(menus[0][0].toModelIndex(), model.index(3, 1));
    EXPECT_EQ(menus[0][1].toPoint(), view.viewport()->mapToGlobal(place(3, 1)));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][1].value<Qt::MouseButton>(), Qt::RightButton);
    click(9, {}, 0, Qt::RightButton);
    EXPECT_EQ(selectedRows(view), Rows{9});
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, {550, 50});
    EXPECT_EQ(selectedRows(view), Rows{});
    ASSERT_EQ(menus.count(), 3);
    EXPECT_FALSE(menus[2][0].toModelIndex().isValid());
}

TEST_F(GroupedListInput, TheMenuKeysAskForTheMenuOfTheCurrentCellOnce) {
    show(20);
    click(3, {}, 2);
    QSignalSpy menus(&view, &GroupedListView::CellMenuRequested);
    key(Qt::Key_Menu);
    key(Qt::Key_F10, Qt::ShiftModifier);
    QContextMenuEvent sent(QContextMenuEvent::Keyboard, {5, 5}, view.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(view.viewport(), &sent);
    ASSERT_EQ(menus.count(), 2);
    EXPECT_EQ(menus[0][0].toModelIndex(), model.index(3, 2));
}

TEST_F(GroupedListInput, AClickIsToldAfterTheSelectionHasChanged) {
    show(20);
    Rows seen;
    QObject::connect(&view, &GroupedListView::CellClicked, &view, [&] { seen = selectedRows(view); });
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    click(4, Qt::ControlModifier, 1);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toModelIndex(), model.index(4, 1));
    EXPECT_EQ(clicks[0][1].value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(clicks[0][2].value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    EXPECT_EQ(seen, Rows{4});
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, place(5));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, place(8));
    EXPECT_EQ(clicks.count(), 1) << "released elsewhere";
}

TEST_F(GroupedListInput, AListenerMayTakeTheClickedRowAway) {
    show(20);
    QObject::connect(&view, &GroupedListView::CellClicked, &view, [&] { model.reset({}); });
    QSignalSpy clicked(&view, &QAbstractItemView::clicked);
    click(4);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(GroupedListInput, AListenerMayEndTheView) {
    model.rows = TableModel::makeRows(5);
    QPointer<GroupedListView> mortal = new GroupedListView;
    mortal->resize(600, 400);
    mortal->setModel(&model);
    mortal->show();
    QCoreApplication::processEvents();
    QObject::connect(mortal, &GroupedListView::CellClicked, [&] { mortal->deleteLater(); });
    QTest::mouseClick(mortal->viewport(), Qt::LeftButton, {}, mortal->visualRect(model.index(2, 0)).center());
    QCoreApplication::sendPostedEvents(mortal, QEvent::DeferredDelete);
    EXPECT_TRUE(mortal.isNull());
}

TEST_F(GroupedListInput, ADragTakesAllThatIsSelectedAlong) {
    class Dragging : public GroupedListView {
     public:
        Rows dragged;

     protected:
        void startDrag(Qt::DropActions) override { dragged = selectedRows(*this); }
    };
    Dragging list;
    list.setDragEnabled(true);
    list.resize(600, 400);
    model.rows = TableModel::makeRows(9);
    list.setModel(&model);
    list.show();
    QCoreApplication::processEvents();
    QSignalSpy clicks(&list, &GroupedListView::CellClicked);
    const auto drag = [&](int row) {
        const QPoint from = list.visualRect(model.index(row, 0)).center();
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, from);
        const QPoint to = from + QPoint(0, 50);
        QMouseEvent event(QEvent::MouseMove, to, list.viewport()->mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &event);
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, to);
    };
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(model.index(1, 0)).center());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      list.visualRect(model.index(3, 0)).center());
    drag(2);
    EXPECT_EQ(list.dragged, fromTo(1, 3));
    EXPECT_EQ(selectedRows(list), fromTo(1, 3));
    drag(6);
    EXPECT_EQ(list.dragged, Rows{6});
    EXPECT_EQ(clicks.count(), 2) << "a drag is no click";
}

TEST_F(GroupedListInput, DoubleClickAndEnterActivate) {
    show(20);
    QSignalSpy activated(&view, &QAbstractItemView::activated);
    QSignalSpy doubled(&view, &QAbstractItemView::doubleClicked);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place(2));
    EXPECT_EQ(doubled.count(), 1);
    EXPECT_EQ(activated.count(), 1);
    click(7);
    key(Qt::Key_Return);
    key(Qt::Key_Enter, Qt::KeypadModifier);
    ASSERT_EQ(activated.count(), 3);
    EXPECT_EQ(activated[2][0].toModelIndex().row(), 7);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, {550, 50});
    EXPECT_EQ(doubled.count(), 1);
}

TEST_F(GroupedListInput, TheFreeAreaClearsAndTells) {
    show(3);
    QSignalSpy freeClicks(&view, &GroupedListView::FreeAreaClicked);
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    click(1);
    for (const QPoint free : {QPoint(550, 10), QPoint(20, 300)}) {
        click(1);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, free);
        EXPECT_EQ(selectedRows(view), Rows{});
    }
    EXPECT_EQ(freeClicks.count(), 2);
    EXPECT_EQ(clicks.count(), 3);
    click(1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, {550, 10});
    EXPECT_EQ(selectedRows(view), Rows{1}) << "Ctrl keeps the selection";
}

TEST_F(GroupedListInput, ARubberBandSelectsWhatItTouches) {
    show(10);
    QSignalSpy freeClicks(&view, &GroupedListView::FreeAreaClicked);
    const auto band = [&](QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, modifiers, from);
        moveMouse((from + to) / 2, Qt::LeftButton);
        moveMouse(to, Qt::LeftButton);
        const Rows during = selectedRows(view);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, modifiers, to);
        EXPECT_EQ(selectedRows(view), during);
    };
    band({500, place(2).y()}, {300, place(5).y()});
    EXPECT_EQ(selectedRows(view), fromTo(2, 5));
    band({500, place(4).y()}, {300, place(7).y()}, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(view), (Rows{2, 3, 6, 7}));
    band({500, place(0).y()}, {300, place(1).y()}, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), (Rows{0, 1, 2, 3, 6, 7}));
    band({550, 60}, {500, 20});
    EXPECT_EQ(selectedRows(view), Rows{}) << "beside all columns";
    EXPECT_EQ(freeClicks.count(), 0);

    view.setViewLayout(Layout::Icons);
    QCoreApplication::processEvents();
    const QRect first = view.visualRect(model.index(0, 0));
    band({first.right() * 2, view.viewport()->height() - 5}, {first.right() + 10, 10});
    EXPECT_GE(selectedRows(view).size(), 2U);
    EXPECT_EQ(selectedRows(view)[0], 1);
}

TEST_F(GroupedListInput, CheckBoxesAndSelectionAreOneState) {
    show(20);
    view.setCheckBoxes(true);
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    QSignalSpy changes(view.selectionModel(), &QItemSelectionModel::selectionChanged);
    const auto tick = [&](int row) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.checkBoxRect(model.index(row, 0)).center());
    };
    tick(2);
    tick(5);
    tick(7);
    EXPECT_EQ(selectedRows(view), (Rows{2, 5, 7}));
    tick(5);
    EXPECT_EQ(selectedRows(view), (Rows{2, 7}));
    EXPECT_EQ(changes.count(), 4);
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(current(), 5);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.checkBoxRect(model.index(9, 0)).center());
    EXPECT_EQ(selectedRows(view), (Rows{2, 7})) << "a double click ticks and unticks";
    click(11);
    EXPECT_EQ(selectedRows(view), Rows{11}) << "beside the box all is as ever";
    EXPECT_EQ(clicks.count(), 1);
    key(Qt::Key_Down, Qt::ControlModifier);
    key(Qt::Key_Space);
    EXPECT_EQ(selectedRows(view), (Rows{11, 12})) << "the space bar ticks";
    view.setViewLayout(Layout::Icons);
    tick(0);
    EXPECT_EQ(selectedRows(view), (Rows{0, 11, 12}));
    view.setCheckBoxes(false);
    EXPECT_TRUE(view.checkBoxRect(model.index(0, 0)).isEmpty());
}

TEST_F(GroupedListInput, WithoutFullRowsOnlyTheFirstColumnSelects) {
    show(20);
    view.setFullRowSelection(false);
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    click(3);
    click(6, {}, 1);
    EXPECT_EQ(selectedRows(view), Rows{});
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(GroupedListInput, GroupsCollapseByMouseAndKey) {
    show(12, 3);
    QSignalSpy clicks(&view, &GroupedListView::CellClicked);
    QSignalSpy freeClicks(&view, &GroupedListView::FreeAreaClicked);
    const auto header = [&](int group) { return view.groupHeaderRect(group); };
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, header(1).topLeft() + QPoint(12, 14));
    EXPECT_TRUE(view.isGroupCollapsed(1));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, header(1).center());
    EXPECT_TRUE(view.isGroupCollapsed(1)) << "a click beside the chevron does nothing";
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, header(1).center());
    EXPECT_FALSE(view.isGroupCollapsed(1));
    EXPECT_EQ(clicks.count() + freeClicks.count(), 0);

    click(4);
    key(Qt::Key_Left);
    EXPECT_TRUE(view.isGroupCollapsed(1));
    EXPECT_EQ(current(), 4);
    EXPECT_EQ(selectedRows(view), Rows{4}) << "what is out of sight stays selected";
    key(Qt::Key_Right);
    EXPECT_FALSE(view.isGroupCollapsed(1));
    view.setGroups({{1, "fixed", {}, false}});
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, header(1).center());
    key(Qt::Key_Left);
    EXPECT_FALSE(view.isGroupCollapsed(1));
}

TEST_F(GroupedListInput, ARightClickOnAGroupHeaderAsksForItsMenu) {
    show(12, 3);
    QSignalSpy menus(&view, &GroupedListView::GroupHeaderMenuRequested);
    QSignalSpy cellMenus(&view, &GroupedListView::CellMenuRequested);
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, view.groupHeaderRect(2).center());
    ASSERT_EQ(menus.count(), 1);
    EXPECT_EQ(menus[0][0].toInt(), 2);
    EXPECT_EQ(cellMenus.count(), 0);
}

TEST_F(GroupedListInput, TypingFindsNamesWhateverBlanksLeadThem) {
    show(0);
    model.reset({{"   alpha"}, {"   Beta"}, {"   beach"}, {"gamma ray"}, {"gamma"}, {"   Äther"}});
    const auto type = [&](const char* text) {
        QTest::keyClicks(&view, text);
        return current();
    };
    // Long, so that a slow machine does not end the search; a click ends it.
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(60'000);
    const auto pause = [&] { click(current()); };
    EXPECT_EQ(type("be"), 1);
    EXPECT_EQ(type("a"), 2);
    EXPECT_EQ(selectedRows(view), Rows{2});
    pause();
    EXPECT_EQ(type("b"), 1) << "from the current row on, round the end";
    EXPECT_EQ(type("b"), 2) << "the same letter goes on";
    pause();
    EXPECT_EQ(type("gamma r"), 3) << "a blank within is part of the name";
    pause();
    view.keyboardSearch(QString::fromUtf8("ä"));
    EXPECT_EQ(current(), 5);
    pause();
    EXPECT_EQ(type("x"), 5) << "no such name: nothing moves";

    key(Qt::Key_Home);
    QApplication::setKeyboardInputInterval(1);
    type("g");
    EXPECT_TRUE(QTest::qWaitFor([&] { return type("a") == 0; })) << "after a while a new search begins";
    QApplication::setKeyboardInputInterval(interval);
}

TEST_F(GroupedListInput, KeysWithoutUseGoToTheParent) {
    QWidget parent;
    GroupedListView list(&parent);
    model.rows = TableModel::makeRows(5);
    list.setModel(&model);
    list.setCurrentIndex(model.index(0, 0));
    parent.resize(600, 400);
    list.resize(600, 400);
    parent.show();
    QCoreApplication::processEvents();
    const auto used = [&](int code, Qt::KeyboardModifiers modifiers, const char* text = "") {
        QKeyEvent event(QEvent::KeyPress, code, modifiers, text);
        QCoreApplication::sendEvent(&list, &event);
        return event.isAccepted();
    };
    const std::pair<int, Qt::KeyboardModifiers> unused[] = {
        {Qt::Key_A, Qt::ControlModifier}, {Qt::Key_I, Qt::ControlModifier},
        {Qt::Key_C, Qt::ControlModifier}, {Qt::Key_Backspace, Qt::NoModifier},
        {Qt::Key_Delete, Qt::NoModifier}, {Qt::Key_F5, Qt::NoModifier},
        {Qt::Key_Escape, Qt::NoModifier}, {Qt::Key_Left, Qt::AltModifier},
        {Qt::Key_F2, Qt::NoModifier},     {Qt::Key_Return, Qt::AltModifier},
        {Qt::Key_Left, Qt::NoModifier},
    };
    for (const auto& [code, modifiers] : unused) {
        EXPECT_FALSE(used(code, modifiers, code == Qt::Key_Delete ? "\x7f" : "")) << code;
    }
    EXPECT_EQ(selectedRows(list), Rows{0});
    EXPECT_TRUE(used(Qt::Key_Down, Qt::NoModifier));
    EXPECT_TRUE(used(Qt::Key_R, Qt::NoModifier, "r"));
}

TEST_F(GroupedListInput, TheCellUnderTheMouseIsToldOncePerCell) {
    show(20);
    QSignalSpy hovers(&view, &GroupedListView::CellHovered);
    moveMouse(place(2));
    moveMouse(place(2) + QPoint(2, 1));
    moveMouse(place(2, 1));
    moveMouse({550, 20});
    moveMouse({551, 22});
    ASSERT_EQ(hovers.count(), 3);
    EXPECT_EQ(hovers[0][0].toModelIndex(), model.index(2, 0));
    EXPECT_EQ(hovers[1][0].toModelIndex(), model.index(2, 1));
    EXPECT_FALSE(hovers[2][0].toModelIndex().isValid());
    moveMouse(place(2));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view.viewport(), &leave);
    ASSERT_EQ(hovers.count(), 5);
    EXPECT_FALSE(hovers[4][0].toModelIndex().isValid());
}

TEST_F(GroupedListInput, ASelectionSurvivesSorting) {
    show(100'000);
    view.selectAll();
    view.selectionModel()->select(model.index(7, 0),
                                  QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    model.reverse();
    EXPECT_EQ(view.selectionModel()->isSelected(model.index(99'992, 0)), false);
    EXPECT_EQ(selectedRows(view).size(), 99'999U);
    EXPECT_LE(view.selectionModel()->selection().size(), 3) << "as ranges";
    view.invertSelection();
    EXPECT_EQ(selectedRows(view), Rows{99'992});
}

TEST_F(GroupedListInput, ArrowsWalkThroughIconsInLines) {
    show(30);
    view.setViewLayout(Layout::Icons);
    QCoreApplication::processEvents();
    int perLine = 1;
    while (view.visualRect(model.index(perLine, 0)).top() == view.visualRect(model.index(0, 0)).top())
        ++perLine;
    ASSERT_GT(perLine, 2);
    click(1);
    key(Qt::Key_Down);
    EXPECT_EQ(current(), 1 + perLine);
    key(Qt::Key_Right);
    EXPECT_EQ(current(), 2 + perLine);
    key(Qt::Key_Up);
    EXPECT_EQ(current(), 2);
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(view), fromTo(2, 1 + perLine)) << "ranges run in reading order";
}

}  // namespace controls
