#include "browser/ColumnSpread.h"
#include "browser/FileInView.h"
#include "browser/ItemList.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using browser::ItemKind;
using browser::ItemList;

browser::LoadedFolder threeItems(std::uint8_t attributesOfLast = 0) {
    browser::LoadedFolder loaded;
    loaded.listing.folder = "/folder";
    loaded.listing.state = browser::FolderState::Readable;
    const auto add = [&](const char* name, ItemKind kind, std::uint64_t size, std::uint8_t attributes) {
        browser::ListItem item;
        item.kind = kind;
        item.findData.size = size;
        item.findDataValid = true;
        item.attributes = attributes;
        loaded.order.push_back(loaded.listing.items.add(name, item));
    };
    add("a", ItemKind::File, 10, 0);
    add("b", ItemKind::Folder, 0, 0);
    add("c", ItemKind::File, 300, attributesOfLast);
    return loaded;
}

ItemList filled(std::uint8_t attributesOfLast = 0, bool hideSystemFiles = true) {
    ItemList list;
    list.take(threeItems(attributesOfLast));
    list.InsertPendingItems(hideSystemFiles);
    return list;
}

TEST(ItemList, ItemsWaitUntilTheyAreInserted) {
    ItemList list;
    list.take(threeItems());
    EXPECT_EQ(list.rowCount(), 0);
    EXPECT_EQ(list.itemCount(), 3U);
    EXPECT_EQ(list.pendingInserts()[2].position, 2U);
    EXPECT_EQ(list.pendingInserts()[2].after, -2);
    list.InsertPendingItems(true);
    EXPECT_EQ(list.rowCount(), 3);
    EXPECT_EQ(list.itemCount(), 3U);
    EXPECT_EQ(list.totals().folderSize, 310U);
    EXPECT_EQ(list.pathAt(2), "/folder/c");
    EXPECT_EQ(list.findItem("c"), 2);
}

TEST(ItemList, KeepsSystemFilesOutOfListAndSizeButNotOutOfTheStore) {
    const ItemList hidden = filled(browser::attribute::kSystem);
    EXPECT_EQ(hidden.rowCount(), 2);
    EXPECT_EQ(hidden.totals().folderSize, 10U);
    EXPECT_EQ(hidden.filteredItems(), std::vector<std::int32_t>{2});
    EXPECT_TRUE(hidden.items().contains(2));
    EXPECT_EQ(hidden.rowOf(2), -1);
    EXPECT_EQ(filled(browser::attribute::kSystem, false).rowCount(), 3);
}

TEST(ItemList, CountsTheSelectionOnceForEachItem) {
    ItemList list = filled();
    EXPECT_TRUE(list.setSelected(0, true));
    EXPECT_FALSE(list.setSelected(0, true));
    list.setSelected(1, true);
    list.setSelected(2, true);
    EXPECT_EQ(list.totals().selectedFiles, 2U);
    EXPECT_EQ(list.totals().selectedFolders, 1U);
    EXPECT_EQ(list.totals().selectedSize, 310U);
    list.setSelected(2, false);
    EXPECT_EQ(list.totals().selectedFiles, 1U);
    EXPECT_EQ(list.totals().selectedSize, 10U);
}

TEST(ItemList, RemovingTakesAnItemOutOfEverything) {
    ItemList list = filled();
    list.setSelected(0, true);
    list.RemoveItem(0);
    EXPECT_EQ(list.rowCount(), 2);
    EXPECT_EQ(list.rowOf(2), 1);
    EXPECT_EQ(list.rowOf(0), -1);
    EXPECT_EQ(list.totals().folderSize, 300U);
    EXPECT_EQ(list.totals().selectedFiles, 0U);
    EXPECT_EQ(list.totals().selectedSize, 0U);
    EXPECT_THROW(list.items().item(0), std::out_of_range);
    list.RemoveItem(-1);
    list.RemoveItem(0);
    list.RemoveItem(99);
    EXPECT_EQ(list.itemCount(), 2U);
    list.RemoveItem(1);
    list.RemoveItem(2);
    EXPECT_EQ(list.state(), browser::FolderState::Empty);
}

TEST(ItemList, RowsFollowTheOrderAndIdsStay) {
    ItemList list = filled();
    list.setOrder({2, 0, 1});
    EXPECT_EQ(list.itemIdAt(0), 2);
    EXPECT_EQ(list.rowOf(1), 2);
    EXPECT_EQ(list.rowOf(77), -1);
}

TEST(ItemList, AddsAnEntryAtAPositionAndRejectsOneThatIsNotThere) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "new", "1234");
    ItemList list;
    list.reset(folder.path());
    EXPECT_EQ(list.addItem("absent", 0), -1);
    EXPECT_EQ(list.addItem("new", 0), 0);
    list.InsertPendingItems(true);
    EXPECT_EQ(list.rowCount(), 1);
    EXPECT_EQ(list.totals().folderSize, 4U);
    EXPECT_EQ(list.state(), browser::FolderState::Readable);
}

TEST(ItemList, IdsBeginAgainWithEachFolder) {
    ItemList list = filled();
    list.reset("/other");
    EXPECT_EQ(list.items().nextItemId(), 0);
    EXPECT_EQ(list.totals().folderSize, 0U);
    list.InsertPendingItems(true);
    EXPECT_EQ(list.itemCount(), 0U);
}

TEST(ItemList, OneOfTheSelectedFilesIsInView) {
    // a and c are files, b is a folder.
    const struct {
        const char* why;
        std::vector<int> selected;
        int current;
        const char* shown;
        int row, number, count;
    } cases[] = {
        {"nothing is selected", {}, 0, "/folder/a", -1, 0, 0},
        {"a folder alone", {1}, 1, "", -1, 0, 0},
        {"the current one", {0, 2}, 2, "/folder/a", 2, 2, 2},
        {"the shown one while the current one is not selected", {0, 2}, 1, "/folder/c", 2, 2, 2},
        {"the first when neither is", {0, 1, 2}, 1, "/folder/b", 0, 1, 2},
        {"the shown one is of another folder", {2}, -1, "/other/c", 2, 1, 1},
    };
    for (const auto& each : cases) {
        ItemList list = filled();
        for (const int row : each.selected) list.setSelected(row, true);
        const browser::FileInView view = browser::fileInView(list, each.current, each.shown);
        EXPECT_EQ(view.row, each.row) << each.why;
        EXPECT_EQ(view.number, each.number) << each.why;
        EXPECT_EQ(view.count, each.count) << each.why;
    }
}

TEST(ItemList, ItsColumnsFillTheListUntilTheUserSetsThem) {
    const int widths[] = {250, 100, 70};
    const struct {
        int room;
        bool isNameSet, isLastSet;
        int name, last;
    } cases[] = {{1000, false, false, 580, 0}, {1000, false, true, 580, 0}, {1000, true, false, 0, 580},
                 {1000, true, true, 0, 0},     {300, false, false, 0, 0},   {420, false, false, 0, 0}};
    for (const auto& each : cases) {
        const browser::ColumnSpread spread =
            browser::spreadOf(widths, each.room, each.isNameSet, each.isLastSet);
        EXPECT_EQ(spread.name, each.name) << each.room;
        EXPECT_EQ(spread.last, each.last) << each.room;
    }
}

}  // namespace
