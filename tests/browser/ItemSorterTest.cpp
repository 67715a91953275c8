#include "browser/ItemSorter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <future>
#include <optional>

namespace {

using browser::ItemSorter;
using browser::SortSettings;
using testing::ElementsAre;
using Order = std::vector<std::int32_t>;

constexpr int kLimit = 20000;

SortSettings sortBy(app::SortMode mode, bool ascending = true) {
    SortSettings settings;
    settings.mode = mode;
    settings.ascending = ascending;
    return settings;
}

class ItemSorterTest : public testing::Test {
 protected:
    void add(const std::string& name, std::uint64_t size) {
        browser::ListItem item;
        item.kind = browser::ItemKind::File;
        item.findData.size = size;
        item.findDataValid = true;
        order.push_back(items.add(name, item));
    }
    bool waitUntilTaken(int times) {
        return QTest::qWaitFor([&] { return taken == times; }, kLimit);
    }
    bool waitForOrder() {
        return QTest::qWaitFor([&] { return !sorter->isSorting(); }, kLimit);
    }

    browser::ItemStore items;
    Order order;
    int taken = 0;
    std::vector<Order> told;
    std::optional<ItemSorter> sorter{std::in_place,
                                     [this] {
                                         ++taken;
                                         return ItemSorter::Items{"/", items, order};
                                     },
                                     [this](const Order& sorted) { told.push_back(sorted); }};
};

TEST_F(ItemSorterTest, TellsTheOrderLaterAndFromTheEventLoop) {
    add("b", 1);
    add("a", 2);
    sorter->sort(sortBy(app::SortMode::Name));
    EXPECT_TRUE(sorter->isSorting());
    EXPECT_TRUE(told.empty());
    ASSERT_TRUE(waitForOrder());
    EXPECT_THAT(told, ElementsAre(Order{1, 0}));
}

TEST_F(ItemSorterTest, OtherSettingsPutAnEndToASortThatRuns) {
    add("b", 1);
    add("a", 2);
    sorter->sort(sortBy(app::SortMode::Name));
    ASSERT_TRUE(waitUntilTaken(1));
    sorter->sort(sortBy(app::SortMode::Size));
    ASSERT_TRUE(waitForOrder());
    EXPECT_THAT(told, ElementsAre(Order{0, 1}));
}

TEST_F(ItemSorterTest, AnItemThatComesDuringASortIsSortedByTheNext) {
    add("b", 1);
    sorter->sort(sortBy(app::SortMode::Name));
    ASSERT_TRUE(waitUntilTaken(1));
    add("a", 2);
    sorter->sort(sortBy(app::SortMode::Name));
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(taken, 2);
    EXPECT_THAT(told, ElementsAre(Order{0}, Order{1, 0}));
}

TEST_F(ItemSorterTest, ManyWishesOfOneTurnAreOneSort) {
    for (const char* name : {"c", "b", "a"}) {
        add(name, 1);
        sorter->sort(sortBy(app::SortMode::Name));
    }
    sorter->sort(sortBy(app::SortMode::Name, false));
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(taken, 1);
    EXPECT_THAT(told, ElementsAre(Order{0, 1, 2}));
}

TEST_F(ItemSorterTest, NothingIsToldAfterCancelling) {
    add("b", 1);
    add("a", 2);
    sorter->sort(sortBy(app::SortMode::Name));
    sorter->cancel();
    sorter->sort(sortBy(app::SortMode::Name));
    ASSERT_TRUE(waitUntilTaken(1));
    sorter->cancel();
    EXPECT_FALSE(sorter->isSorting());
    sorter->sort(sortBy(app::SortMode::Size));
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(taken, 2);
    EXPECT_THAT(told, ElementsAre(Order{0, 1}));
}

// Names beyond ASCII are compared by the collator, which takes seconds for so many.
TEST_F(ItemSorterTest, ASortIsLeftInItsMiddle) {
    for (int i = 0; i < 400000; ++i)
        add("\xC3\xA9t\xC3\xA9 " + std::to_string((i * 7919LL) % 400009) + ".jpg", 1);
    for (const app::SortMode mode : {app::SortMode::Name, app::SortMode::Extension, app::SortMode::Size}) {
        SortSettings settings = sortBy(mode);
        settings.natural = false;
        std::atomic_bool cancelled = false;
        std::promise<void> begun;
        std::thread other([&] {
            begun.get_future().wait();
            cancelled = true;
        });
        begun.set_value();
        EXPECT_TRUE(browser::sortItems("/", items, order, settings, &cancelled).empty())
            << static_cast<int>(mode);
        other.join();
    }
    sorter->sort(sortBy(app::SortMode::Name));
    ASSERT_TRUE(waitUntilTaken(1));
    sorter.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
}

}  // namespace
