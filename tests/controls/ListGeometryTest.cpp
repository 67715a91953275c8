#include "controls/ListGeometry.h"

#include <gtest/gtest.h>

#include <random>

using controls::ListGeometry;

namespace {

struct Case {
    const char* name;
    int rows;
    int groups;  // 0: none
    int perLine;
    std::vector<int> collapsed;
    int strays = 0;  // every so-manieth row is in no group
};

void PrintTo(const Case& one, std::ostream* out) {
    *out << one.name;
}

class ListGeometryCases : public testing::TestWithParam<Case> {
 protected:
    ListGeometryCases() {
        const Case& one = GetParam();
        if (one.groups == 0) {
            geometry.orderFlat(one.rows);
        } else {
            std::mt19937 random(7);
            for (int row = 0; row < one.rows; ++row) {
                const bool stray = one.strays > 0 && row % one.strays == 0;
                groupOfRow.push_back(stray ? -1
                                           : static_cast<int>(random() % static_cast<unsigned>(one.groups)));
            }
            geometry.orderByGroup(groupOfRow, one.groups);
        }
        std::vector<bool> collapsed(static_cast<size_t>(one.groups), false);
        for (const int group : one.collapsed) collapsed[static_cast<size_t>(group)] = true;
        geometry.arrange({.cell = {50, 20},
                          .perLine = one.perLine,
                          .groupHeaderHeight = 28,
                          .groupSpacing = 4,
                          .width = 400},
                         collapsed);
    }

    std::vector<int> shownPositions() const {
        std::vector<int> shown;
        for (int position = 0; position < geometry.positionCount(); ++position)
            if (geometry.isShown(position)) shown.push_back(position);
        return shown;
    }

    ListGeometry geometry;
    std::vector<int> groupOfRow;
};

}  // namespace

TEST_P(ListGeometryCases, EveryRowIsFoundWhereItStands) {
    std::vector<int> seen;
    for (int position = 0; position < geometry.positionCount(); ++position) {
        const int row = geometry.rowAt(position);
        EXPECT_EQ(geometry.positionOf(row), position);
        seen.push_back(row);
        const QRect rect = geometry.rectOf(position);
        ASSERT_EQ(rect.isEmpty(), !geometry.isShown(position));
        if (rect.isEmpty()) continue;
        EXPECT_EQ(geometry.positionAt(rect.topLeft()), position);
        EXPECT_EQ(geometry.positionAt(rect.bottomRight()), position);
        EXPECT_EQ(geometry.nearestShown(rect.center()), position);
        EXPECT_LE(rect.bottom(), geometry.height() - 1);
        EXPECT_EQ(geometry.headerAt(rect.center()), nullptr);
    }
    std::ranges::sort(seen);
    std::vector<int> expected;
    for (int row = 0; row < GetParam().rows; ++row)
        if (groupOfRow.empty() || groupOfRow[static_cast<size_t>(row)] >= 0) expected.push_back(row);
    EXPECT_EQ(seen, expected);
}

TEST_P(ListGeometryCases, RowsKeepTheirOrderWithinTheirGroup) {
    for (const ListGeometry::Section& section : geometry.sections()) {
        EXPECT_GT(section.count, 0);
        for (int position = section.firstPosition; position < section.firstPosition + section.count;
             ++position) {
            if (section.group >= 0) {
                EXPECT_EQ(groupOfRow[static_cast<size_t>(geometry.rowAt(position))], section.group);
            }
            if (position > section.firstPosition) {
                EXPECT_LT(geometry.rowAt(position - 1), geometry.rowAt(position));
            }
            EXPECT_EQ(geometry.sectionOfPosition(position), &section);
        }
    }
}

TEST_P(ListGeometryCases, HeadersStandAboveTheirRowsWithoutGaps) {
    int top = 0;
    for (const ListGeometry::Section& section : geometry.sections()) {
        EXPECT_EQ(section.top, top);
        top = section.bottom;
        const QRect header = geometry.headerRect(section);
        EXPECT_EQ(header.height(), section.group >= 0 ? 28 : 0);
        if (section.group < 0) continue;
        EXPECT_EQ(geometry.headerAt(header.center()), &section);
        EXPECT_EQ(geometry.positionAt(header.center()), -1);
        EXPECT_EQ(geometry.sectionOfGroup(section.group), &section);
    }
    EXPECT_EQ(geometry.height(), top);
}

TEST_P(ListGeometryCases, SpansHoldExactlyTheLinesInsideARange) {
    for (int top = -30; top < geometry.height() + 30; top += 17) {
        for (const int height : {1, 19, 90, 5000}) {
            std::vector<int> expected;
            for (const int position : shownPositions()) {
                const QRect rect = geometry.rectOf(position);
                if (rect.bottom() >= top && rect.top() <= top + height - 1) expected.push_back(position);
            }
            std::vector<int> found;
            for (const ListGeometry::Span& span : geometry.spansBetween(top, top + height - 1))
                for (int position = span.first; position <= span.last; ++position) found.push_back(position);
            ASSERT_EQ(found, expected) << "from " << top << ", " << height << " high";
        }
    }
}

TEST_P(ListGeometryCases, NextAndPreviousWalkOverAllShownRows) {
    std::vector<int> forth;
    for (int position = geometry.nextShown(-1); position >= 0; position = geometry.nextShown(position))
        forth.push_back(position);
    EXPECT_EQ(forth, shownPositions());
    std::vector<int> back;
    for (int position = geometry.previousShown(geometry.positionCount()); position >= 0;
         position = geometry.previousShown(position))
        back.push_back(position);
    std::ranges::reverse(back);
    EXPECT_EQ(back, shownPositions());
}

TEST_P(ListGeometryCases, LineStepsGoStraightDownAndUp) {
    for (const int position : shownPositions()) {
        const QRect from = geometry.rectOf(position);
        const int below = geometry.nextLine(position);
        if (below >= 0) {
            const QRect to = geometry.rectOf(below);
            EXPECT_GT(to.top(), from.top());
            EXPECT_LE(to.left(), from.left());
        }
        const int above = geometry.previousLine(position);
        if (above >= 0) {
            const QRect to = geometry.rectOf(above);
            EXPECT_LT(to.top(), from.top());
            EXPECT_LE(to.left(), from.left());
        }
        EXPECT_EQ(below < 0, from.top() == geometry.rectOf(shownPositions().back()).top());
        EXPECT_EQ(above < 0, from.top() == geometry.rectOf(shownPositions().front()).top());
    }
}

INSTANTIATE_TEST_SUITE_P(Lists, ListGeometryCases,
                         testing::Values(Case{"no rows", 0, 0, 1, {}}, Case{"one row", 1, 0, 1, {}},
                                         Case{"details", 100, 0, 1, {}}, Case{"icons", 100, 0, 7, {}},
                                         Case{"icons filling their last line", 98, 0, 7, {}},
                                         Case{"grouped details", 100, 6, 1, {}},
                                         Case{"first and last group collapsed", 100, 6, 1, {0, 5}},
                                         Case{"grouped icons", 100, 6, 7, {}},
                                         Case{"grouped icons with two collapsed", 100, 6, 7, {2, 3}},
                                         Case{"all groups collapsed", 40, 3, 4, {0, 1, 2}},
                                         Case{"groups without rows", 5, 40, 3, {}},
                                         Case{"rows in no group", 100, 6, 4, {1}, 5},
                                         Case{"no row in any group", 10, 2, 1, {}, 1}),
                         [](const auto& one) {
                             std::string name = one.param.name;
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

TEST(ListGeometry, AMillionRowsNeedNothingPerRowWithoutGroups) {
    ListGeometry geometry;
    geometry.orderFlat(1'000'000);
    geometry.arrange({.cell = {100, 24}}, {});
    EXPECT_EQ(geometry.height(), 24'000'000);
    EXPECT_EQ(geometry.positionAt({5, 23'999'999}), 999'999);
    EXPECT_EQ(geometry.rectOf(500'000), QRect(0, 12'000'000, 100, 24));
    EXPECT_EQ(geometry.positionAt({5, 24'000'000}), -1);
    EXPECT_EQ(geometry.positionAt({100, 0}), -1);
}
