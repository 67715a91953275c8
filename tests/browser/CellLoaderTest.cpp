#include "browser/CellLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <future>

namespace {

using browser::CellLoader;
using browser::TaskId;
using testing::ElementsAre;

constexpr int kLimit = 20000;

/// A worker that is busy until it is let go.
class Gate {
 public:
    void pass() {
        begun_.set_value();
        open_.get_future().wait();
    }
    void waitUntilBegun() { begun_.get_future().wait(); }
    void open() { open_.set_value(); }

 private:
    std::promise<void> begun_;
    std::promise<void> open_;
};

/// What a cell may be filled with: a text, and what stands for a picture, which nobody copies.
struct Picture {
    std::unique_ptr<std::string> pixels;
};

template <typename Result>
Result resultOf(const std::string& text) {
    if constexpr (std::is_same_v<Result, Picture>)
        return {std::make_unique<std::string>(text)};
    else
        return text;
}

std::string textOf(const Picture& picture) {
    return *picture.pixels;
}
std::string textOf(const std::string& text) {
    return text;
}

template <typename Result>
class CellLoaderTest : public testing::Test {
 protected:
    std::optional<TaskId> request(int cell, const std::string& text, Gate* gate = nullptr) {
        return loader.request(cell, [text, gate] {
            if (gate != nullptr) gate->pass();
            return resultOf<Result>(text);
        });
    }
    bool waitForAll() {
        return QTest::qWaitFor([&] { return !loader.isLoading(); }, kLimit);
    }

    std::vector<std::pair<int, std::string>> loaded;
    CellLoader<int, Result> loader{
        [this](int cell, const Result& result) { loaded.emplace_back(cell, textOf(result)); }};
};

using Results = testing::Types<std::string, Picture>;
TYPED_TEST_SUITE(CellLoaderTest, Results);

TYPED_TEST(CellLoaderTest, TellsEachResultOnceInTheOrderAsked) {
    this->request(1, "one");
    this->request(2, "two");
    ASSERT_TRUE(this->waitForAll());
    EXPECT_THAT(this->loaded, ElementsAre(std::pair(1, "one"), std::pair(2, "two")));
}

TYPED_TEST(CellLoaderTest, ACellThatIsWaitedForIsNotAskedForAgain) {
    Gate gate;
    EXPECT_TRUE(this->request(1, "one", &gate));
    gate.waitUntilBegun();
    EXPECT_FALSE(this->request(1, "again"));
    gate.open();
    ASSERT_TRUE(this->waitForAll());
    EXPECT_TRUE(this->request(1, "later"));
    ASSERT_TRUE(this->waitForAll());
    EXPECT_THAT(this->loaded, ElementsAre(std::pair(1, "one"), std::pair(1, "later")));
}

TYPED_TEST(CellLoaderTest, ALateResultIsDroppedThoughItsCellIsAskedForAnew) {
    Gate gate;
    const auto early = this->request(1, "of the folder that was left", &gate);
    gate.waitUntilBegun();
    this->request(2, "never begun");
    this->loader.clear();
    EXPECT_FALSE(this->loader.isLoading());
    const auto late = this->request(1, "of the folder shown");
    EXPECT_NE(early, late);
    gate.open();
    ASSERT_TRUE(this->waitForAll());
    EXPECT_THAT(this->loaded, ElementsAre(std::pair(1, "of the folder shown")));
}

TYPED_TEST(CellLoaderTest, AResultThatIsUnderWayIsDroppedWhenForgotten) {
    this->request(1, "one");
    std::promise<void> done;
    this->loader.request(2, [&done] {
        done.set_value();
        return resultOf<TypeParam>("two");
    });
    done.get_future().wait();
    this->loader.clear();
    QCoreApplication::processEvents();
    EXPECT_TRUE(this->loaded.empty());
}

TYPED_TEST(CellLoaderTest, WhatIsInSightComesBeforeWhatHasGone) {
    Gate gate;
    this->request(0, "begun", &gate);
    gate.waitUntilBegun();
    for (int cell = 1; cell < 100; ++cell) this->request(cell, "out of sight");
    this->loader.dropWaiting();
    this->request(50, "in sight");
    gate.open();
    ASSERT_TRUE(this->waitForAll());
    EXPECT_THAT(this->loaded, ElementsAre(std::pair(0, "begun"), std::pair(50, "in sight")));
}

TYPED_TEST(CellLoaderTest, NoIdIsEverGivenTwice) {
    std::set<TaskId> ids;
    int given = 0;
    for (int folder = 0; folder < 20; ++folder) {
        for (int cell = 0; cell < 10; ++cell)
            if (const auto id = this->request(cell, "text")) {
                ids.insert(*id);
                ++given;
            }
        switch (folder % 3) {
            case 0:
                this->loader.clear();
                break;
            case 1:
                this->loader.dropWaiting();
                break;
            default:
                ASSERT_TRUE(this->waitForAll());
        }
    }
    EXPECT_GE(given, 100);
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(given));
}

TYPED_TEST(CellLoaderTest, AResultMayAskForOthersAndForgetTheRest) {
    CellLoader<int, TypeParam>* asked = nullptr;
    std::vector<int> cells;
    CellLoader<int, TypeParam> loader([&](int cell, const TypeParam&) {
        cells.push_back(cell);
        if (cell != 1) return;
        asked->clear();
        asked->request(3, [] { return resultOf<TypeParam>("three"); });
    });
    asked = &loader;
    std::promise<void> done;
    loader.request(1, [] { return resultOf<TypeParam>("one"); });
    loader.request(2, [&done] {
        done.set_value();
        return resultOf<TypeParam>("two");
    });
    done.get_future().wait();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !loader.isLoading(); }, kLimit));
    EXPECT_THAT(cells, ElementsAre(1, 3));
}

TEST(CellLoader, EndsWithTasksThatWaitAndOneThatRuns) {
    int told = 0;
    Gate gate;
    bool ran = false;
    {
        CellLoader<int, int> loader([&](int, int) { ++told; });
        static_cast<void>(loader.request(1, [&] {
            gate.pass();
            return 1;
        }));
        gate.waitUntilBegun();
        static_cast<void>(loader.request(2, [&] {
            ran = true;
            return 2;
        }));
        loader.clear();
        gate.open();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(ran);
}

}  // namespace
