#include "app/PaneLayout.h"

#include <algorithm>

namespace app {

namespace {

constexpr int kLeastRightWidth = 300;
constexpr int kLeastMiddleWidth = 120;
constexpr int kLeftGap = 4;
constexpr int kEdge = 2;         ///< left of the middle without a left pane, and between middle and right
constexpr int kRightMargin = 8;  ///< what the right holder leaves of the right area
constexpr int kLeastTopBand = 208;
constexpr int kHandle = 6;
constexpr int kFirstRightWidth = 500;
constexpr int kFirstClientWidth = 1280;

}  // namespace

Pane nextPane(std::optional<Pane> current, const std::array<bool, kPaneCount>& shown, bool backwards) {
    if (!current) return Pane::Files;
    const std::size_t step = backwards ? kPaneCount - 1 : 1;
    auto next = static_cast<std::size_t>(*current);
    do {
        next = (next + step) % kPaneCount;
    } while (!shown[next] && next != static_cast<std::size_t>(*current));
    return static_cast<Pane>(next);
}

int spreadRightWidth(int stored, int clientWidth) {
    if (stored != kFirstRightWidth) return stored;
    return stored + std::max(clientWidth - kFirstClientWidth, 0) * 3 / 5;
}

int rightHolderWidth(int asked) {
    return std::max(asked, kLeastRightWidth);
}

PaneRects PaneLayout(const PaneLayoutInput& input) {
    PaneRects rects;
    const int width = std::max(input.client.width(), 0);
    const int height = std::max(input.client.height() - input.statusBarHeight, 0);
    const int band = std::min(input.topBandHeight, height);

    const int room = std::max(width - kLeastMiddleWidth - kLeftGap - kEdge, 0);
    const int leftWidth = input.leftShown ? std::clamp(input.leftWidth, 0, room) : 0;
    const int middleLeft = input.leftShown ? leftWidth + kLeftGap : kEdge;
    const int roomAtRight = std::max(width - middleLeft - kEdge - kLeastMiddleWidth, 0);
    const int rightWidth = input.rightShown ? std::clamp(input.rightWidth, 0, roomAtRight) : 0;

    if (input.leftShown) {
        rects.topBand = QRect(0, 0, std::min(std::max(leftWidth, kLeastTopBand), width), band);
        rects.left = QRect(0, band, leftWidth, height - band);
        rects.leftHandle = QRect(leftWidth + kLeftGap / 2 - kHandle / 2, 0, kHandle, height);
    }
    int middleWidth = width - middleLeft;
    if (input.rightShown) middleWidth -= rightWidth + kEdge;
    rects.middle = QRect(middleLeft, 0, std::max(middleWidth, 0), height);
    if (input.rightShown) {
        const int rightLeft = middleLeft + rects.middle.width() + kEdge;
        rects.right = QRect(rightLeft + kRightMargin / 2, 0, std::max(rightWidth - kRightMargin, 0), height);
        rects.rightHandle = QRect(rightLeft - kEdge / 2, 0, kHandle, height);
    }
    return rects;
}

}  // namespace app
