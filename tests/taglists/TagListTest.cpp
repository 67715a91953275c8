#include "taglists/TagList.h"

#include "support/EditedFile.h"

#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace taglists;
using tags::ValueKind;

namespace {

class TagListTest : public EditedFile {
 protected:
    void make(bool ticks, bool severalFiles = false) {
        list = std::make_unique<TagList>(
            parts,
            TagList::Wishes{
                .listControl = 1328,
                .look = {.columns = {TagColumn::Name, TagColumn::Group, TagColumn::Kind, TagColumn::Value},
                         .ticks = ticks},
                .severalFiles = severalFiles},
            nullptr);
        list->resize(600, 400);
        list->setColumnWidths({200, 90, 16});
        QObject::connect(list.get(), &TagList::EditRequested,
                         [this](std::size_t row) { edited.push_back(row); });
        list->show();
        list->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(list.get()));
    }
    void fill() { list->model().setRows(rowsOfGroup({"Make", "Artist", "Orientation"})); }
    TagRows rowsOfGroup(std::initializer_list<const char*> names) {
        TagRows rows;
        for (const char* name : names) rows.push_back(rowOf(record(u"IFD0", QString(name))));
        return rows;
    }
    QPoint centre(int row, int column) {
        return list->view().visualRect(list->model().index(row, column)).center();
    }
    void click(int row, int column) {
        QTest::mouseClick(list->view().viewport(), Qt::LeftButton, {}, centre(row, column));
    }
    std::string shown() {
        QStringList names;
        for (int row = 0; row < list->model().rowCount(); ++row)
            names << list->model().index(row, 0).data().toString();
        return names.join(' ').toStdString();
    }
    std::string count() { return list->findChild<QLabel*>()->text().toStdString(); }

    std::unique_ptr<TagList> list;
    std::vector<std::size_t> edited;
};

}  // namespace

TEST_F(TagListTest, AClickOnAValueOrEnterOnARowAsksForTheEditor) {
    make(false);
    fill();
    click(1, 3);
    EXPECT_EQ(edited, std::vector<std::size_t>{1});
    click(2, 0);
    click(2, 1);
    click(2, 2);
    EXPECT_EQ(edited.size(), 1U);
    QTest::keyClick(&list->view(), Qt::Key_Return);
    EXPECT_EQ(edited, (std::vector<std::size_t>{1, 2}));
}

TEST_F(TagListTest, TheFilterNarrowsByTagGroupAndLabel) {
    make(false);
    fill();
    QTest::keyClicks(&list->filter(), "orient");
    EXPECT_EQ(shown(), "Orientation");
    EXPECT_EQ(count(), "1 of 3 tags, 0 changed");
    click(0, 3);
    EXPECT_EQ(edited, std::vector<std::size_t>{2}) << "the row among all, not among those shown";
    QTest::keyClick(&list->filter(), Qt::Key_Escape);
    EXPECT_EQ(shown(), "Make Artist Orientation");
    EXPECT_TRUE(list->filter().text().isEmpty());
    const QString label = labels.label(list->rows()[0].tagId);
    ASSERT_FALSE(label.isEmpty());
    list->filter().setText(label);
    EXPECT_NE(shown().find("Make"), std::string::npos);
    list->filter().setText("ifd0 nothing like this");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(list->view().emptyText(), "No tag matches the filter");
}

TEST_F(TagListTest, EnterInTheFilterGoesToTheList) {
    make(false);
    fill();
    list->filter().setFocus();
    QTest::keyClick(&list->filter(), Qt::Key_Return);
    EXPECT_TRUE(list->view().hasFocus());
    EXPECT_EQ(list->view().currentIndex().row(), 0);
    EXPECT_TRUE(edited.empty());
}

TEST_F(TagListTest, DeleteEmptiesAndUndoBringsBack) {
    make(false);
    TagRows rows = rowsOfGroup({"Make", "Artist"});
    rows[0].value = rows[0].fileValue = "Acme";
    list->model().setRows(rows);
    list->view().setCurrentIndex(list->model().index(0, 0));
    QTest::keyClick(&list->view(), Qt::Key_Delete);
    EXPECT_TRUE(list->rows()[0].isRemoval());
    EXPECT_EQ(list->model().index(0, 3).data().toString(), "will be removed");
    EXPECT_EQ(count(), "2 of 2 tags, 1 changed");
    QTest::keyClick(&list->view(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(list->model().index(0, 3).data().toString(), "Acme");
    EXPECT_EQ(count(), "2 of 2 tags, 0 changed");
}

TEST_F(TagListTest, AHeaderSortsAndItsFirstClickTurnsTheDirection) {
    make(false);
    fill();
    QHeaderView& header = *list->view().header();
    const auto clickHeader = [&](int section) {
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(section) + 10, header.height() / 2});
    };
    clickHeader(0);
    EXPECT_EQ(shown(), "Orientation Make Artist");
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
    clickHeader(0);
    EXPECT_EQ(shown(), "Artist Make Orientation");
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
    clickHeader(3);
    EXPECT_EQ(shown(), "Artist Make Orientation");
    EXPECT_EQ(header.sortIndicatorSection(), 0);
}

TEST_F(TagListTest, TicksAreSetByTheBoxTheSpaceBarAndScripts) {
    make(true);
    fill();
    const auto ticked = [&] {
        QStringList names;
        for (const TagRow& row : list->tickedRows()) names << row.name;
        return names.join(' ').toStdString();
    };
    QTest::mouseClick(list->view().viewport(), Qt::LeftButton, {},
                      list->view().tickRect(list->model().index(1, 0)).center());
    EXPECT_EQ(ticked(), "Artist");
    click(2, 0);
    EXPECT_EQ(ticked(), "Artist");
    QTest::keyClick(&list->view(), Qt::Key_Space);
    EXPECT_EQ(ticked(), "Artist Orientation");
    EXPECT_TRUE(list->model().setData(list->model().index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(ticked(), "Orientation");
    list->filter().setText("make");
    list->model().setAllShownTicked(true);
    EXPECT_EQ(ticked(), "Make Orientation") << "what the filter hides keeps its tick";
    EXPECT_NE(count().find("2 ticked"), std::string::npos);
}

TEST_F(TagListTest, ARowIsCopiedWithItsValue) {
    make(false);
    fill();
    list->model().setValue(0, {.value = "Acme"});
    list->view().setCurrentIndex(list->model().index(0, 0));
    QTest::keyClick(&list->view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Make\tIFD0\tAcme");
}

TEST_F(TagListTest, AHelpMarkFollowsTheSetting) {
    make(false);
    fill();
    const QModelIndex name = list->model().index(0, 0);
    EXPECT_FALSE(name.data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_NE(name.data(Qt::ToolTipRole).toString(), "");
    context.settings.listViewMetadata.libelleHelp = false;
    EXPECT_TRUE(name.data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(name.data(Qt::ToolTipRole).toString(), "");
    for (int row = 0; row < 3; ++row)
        EXPECT_FALSE(list->model().index(row, 2).data(Qt::DecorationRole).value<QIcon>().isNull());
}
