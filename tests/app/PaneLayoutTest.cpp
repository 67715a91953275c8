#include "app/PaneLayout.h"

#include "app/SizeText.h"

#include <gtest/gtest.h>

using app::PaneLayout;
using app::PaneLayoutInput;
using app::PaneRects;

TEST(PaneLayout, TheFiguresOfTheFrame) {
    PaneLayoutInput input;
    input.client = {1280, 700};
    input.statusBarHeight = 24;
    input.topBandHeight = 30;
    input.leftWidth = 240;
    input.rightWidth = 420;
    input.rightShown = true;
    const PaneRects all = PaneLayout(input);
    EXPECT_EQ(all.left, QRect(0, 30, 240, 646));
    EXPECT_EQ(all.topBand.width(), 240);
    EXPECT_EQ(all.middle, QRect(244, 0, 1280 - 244 - 422, 676));
    EXPECT_EQ(all.right.width(), 412);

    input.leftShown = false;
    EXPECT_EQ(PaneLayout(input).middle.left(), 2);
    EXPECT_TRUE(PaneLayout(input).left.isEmpty());
    input.rightShown = false;
    EXPECT_EQ(PaneLayout(input).middle.width(), 1278);
    EXPECT_TRUE(PaneLayout(input).right.isEmpty());

    input.leftShown = true;
    input.leftWidth = 100;
    EXPECT_EQ(PaneLayout(input).topBand.width(), 208) << "the band over the left pane has a floor";
    EXPECT_EQ(app::rightHolderWidth(120), 300);
    EXPECT_EQ(app::rightHolderWidth(301), 301);
}

TEST(PaneLayout, NoWindowIsTooSmall) {
    for (int width = 0; width < 900; width += 7) {
        PaneLayoutInput input;
        input.client = {width, width / 3};
        input.statusBarHeight = 24;
        input.topBandHeight = 30;
        input.rightShown = true;
        const PaneRects rects = PaneLayout(input);
        for (const QRect& rect : {rects.left, rects.middle, rects.right}) {
            EXPECT_GE(rect.width(), 0);
            EXPECT_GE(rect.height(), 0);
        }
        if (width >= 300) {
            EXPECT_GE(rects.middle.width(), 120) << width;
        }
    }
}

TEST(SizeText, DividesAndCuts) {
    QLocale::setDefault(QLocale::c());
    struct Case {
        std::uint64_t bytes;
        int format;
        const char* text;
    };
    const Case cases[] = {
        {0, 0, "0 bytes"},         {1023, 0, "1023 bytes"},      {1024, 0, "1.000 KB"},
        {10239, 0, "9.999 KB"},    {102399, 0, "99.99 KB"},      {1048575, 0, "1023.9 KB"},
        {1572864, 0, "1.500 MB"},  {1ULL << 62, 0, "4096.0 PB"}, {1572864, 1, "1572864 bytes"},
        {1572864, 2, "1536.0 KB"}, {1572864, 3, "1.500 MB"},     {1572864, 4, "0.001 GB"},
    };
    for (const Case& expected : cases)
        EXPECT_EQ(app::sizeText(expected.bytes, expected.format), expected.text);
}

TEST(PaneLayout, TheKeyboardGoesRoundThePanesThatAreShown) {
    using app::Pane;
    const std::array<bool, app::kPaneCount> all = {true, true, true};
    const std::array<bool, app::kPaneCount> noTags = {true, true, false};
    const std::array<bool, app::kPaneCount> filesAlone = {false, true, false};
    EXPECT_EQ(app::nextPane(Pane::Files, all, false), Pane::Tags);
    EXPECT_EQ(app::nextPane(Pane::Tags, all, false), Pane::Folders);
    EXPECT_EQ(app::nextPane(Pane::Folders, all, true), Pane::Tags);
    EXPECT_EQ(app::nextPane(Pane::Files, noTags, false), Pane::Folders);
    EXPECT_EQ(app::nextPane(Pane::Files, filesAlone, true), Pane::Files);
    EXPECT_EQ(app::nextPane(std::nullopt, all, true), Pane::Files);
}

TEST(PaneLayout, APaneThatNobodyHasDraggedGrowsWithAWideWindow) {
    EXPECT_EQ(app::spreadRightWidth(500, 1280), 500);
    EXPECT_EQ(app::spreadRightWidth(500, 800), 500);
    EXPECT_EQ(app::spreadRightWidth(500, 1920), 884);
    EXPECT_EQ(app::spreadRightWidth(501, 1920), 501) << "the user's own width stays";
}
