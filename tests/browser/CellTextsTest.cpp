#include "browser/CellTexts.h"

#include <gtest/gtest.h>

namespace {

TEST(CellTexts, KeepsWhatIsLookedAtAndForgetsTheRest) {
    browser::CellTexts cells;
    for (std::int32_t id = 0; id < 100000; ++id) {
        cells.set(id, 6, {QString::number(id), false});
        ASSERT_NE(cells.find(0, 6), nullptr) << id;
    }
    EXPECT_EQ(cells.find(0, 6)->text, "0");
    EXPECT_EQ(cells.find(1, 6), nullptr);
    EXPECT_LT(cells.count(), 20000);
}

TEST(CellTexts, CellsOfOneItemAreDifferentOnes) {
    browser::CellTexts cells;
    cells.set(1, 6, {"date", false});
    cells.set(1, 9, {"size", true});
    EXPECT_EQ(cells.find(1, 6)->text, "date");
    EXPECT_TRUE(cells.find(1, 9)->borrowed);
    EXPECT_EQ(cells.find(6, 1), nullptr);
    cells.clear();
    EXPECT_EQ(cells.find(1, 6), nullptr);
}

}  // namespace
