#include "controls/RibbonTabStrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "controls/RibbonColors.h"

namespace controls {
namespace {

constexpr int kUsualHeight = 30;
constexpr int kSidePadding = 14;
constexpr int kAccentHeight = 2;

}  // namespace

RibbonTabStrip::RibbonTabStrip(QWidget* parent) : QTabBar(parent) {
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void RibbonTabStrip::setFolded(bool folded) {
    folded_ = folded;
    update();
}

QSize RibbonTabStrip::tabSizeHint(int index) const {
    const int height = std::max(kUsualHeight, fontMetrics().height() + 10);
    return {fontMetrics().horizontalAdvance(tabText(index)) + 2 * kSidePadding, height};
}

QSize RibbonTabStrip::minimumTabSizeHint(int index) const {
    return tabSizeHint(index);
}

void RibbonTabStrip::mouseMoveEvent(QMouseEvent* event) {
    const int tab = tabAt(event->pos());
    if (tab != hoveredTab_) {
        hoveredTab_ = tab;
        update();
    }
    QTabBar::mouseMoveEvent(event);
}

void RibbonTabStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    // The base class would tell a click behind it, which would unfold what the double click has folded.
    if (event->button() == Qt::LeftButton) Q_EMIT tabBarDoubleClicked(tabAt(event->pos()));
}

void RibbonTabStrip::leaveEvent(QEvent* event) {
    hoveredTab_ = -1;
    update();
    QTabBar::leaveEvent(event);
}

void RibbonTabStrip::wheelEvent(QWheelEvent* event) {
    // A turn of the wheel on the way to the list shall not change the tab.
    event->ignore();
}

void RibbonTabStrip::paintEvent(QPaintEvent*) {
    const RibbonColors colors(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.strip);
    painter.fillRect(QRect(0, height() - 1, width(), 1), colors.line);
    for (int index = 0; index < count(); ++index)
        if (isTabVisible(index)) paintTab(painter, index);
}

void RibbonTabStrip::paintTab(QPainter& painter, int index) const {
    const RibbonColors colors(palette());
    const QRect area = tabRect(index);
    const bool current = index == currentIndex();
    const bool joined = current && !folded_;
    if (joined) {
        painter.fillRect(area, colors.body);
        painter.fillRect(QRect(area.left(), area.top(), 1, area.height()), colors.line);
        painter.fillRect(QRect(area.right(), area.top(), 1, area.height()), colors.line);
        painter.fillRect(QRect(area.left(), area.top(), area.width(), kAccentHeight), colors.accent);
    } else if (index == hoveredTab_) {
        painter.fillRect(area.adjusted(0, 0, 0, -1), colors.hover);
    }
    painter.setPen(joined ? colors.currentTab : colors.text);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, tabText(index).replace("&&", "&"));
    if (hasFocus() && current) {
        painter.setPen(colors.accent);
        painter.drawRect(area.adjusted(4, 5, -5, -5));
    }
}

}  // namespace controls
