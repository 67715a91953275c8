#include "controls/RibbonPage.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "controls/RibbonColors.h"
#include "controls/RibbonGroup.h"

namespace controls {

RibbonPage::RibbonPage(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void RibbonPage::addGroup(RibbonGroup* group) {
    group->setParent(this);
    group->show();
    groups_.push_back(group);
    arrange();
}

QSize RibbonPage::sizeHint() const {
    int width = 0;
    for (const RibbonGroup* group : groups_) width += group->fullWidth();
    return {width, RibbonGroup::bodyHeight(font())};
}

QSize RibbonPage::minimumSizeHint() const {
    return {0, RibbonGroup::bodyHeight(font())};
}

bool RibbonPage::event(QEvent* event) {
    const bool result = QWidget::event(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        arrange();
    }
    return result;
}

void RibbonPage::resizeEvent(QResizeEvent*) {
    arrange();
}

std::vector<RibbonGroup*> RibbonPage::inOrderOfCollapse() const {
    std::vector<RibbonGroup*> order(groups_.rbegin(), groups_.rend());
    std::stable_sort(order.begin(), order.end(), [](const RibbonGroup* left, const RibbonGroup* right) {
        return left->priority() < right->priority();
    });
    return order;
}

void RibbonPage::arrange() {
    int needed = sizeHint().width();
    for (RibbonGroup* group : inOrderOfCollapse()) {
        // A group of one button would win nothing by a drop-down.
        const bool collapses = needed > width() && group->collapsedWidth() < group->fullWidth();
        if (collapses) needed -= group->fullWidth() - group->collapsedWidth();
        group->setCollapsed(collapses);
    }
    place();
}

int RibbonPage::rowWidth() const {
    int width = 0;
    for (const RibbonGroup* group : groups_)
        width += group->isCollapsed() ? group->collapsedWidth() : group->fullWidth();
    return width;
}

void RibbonPage::place() {
    offset_ = std::clamp(offset_, 0, std::max(0, rowWidth() - width()));
    int left = -offset_;
    for (RibbonGroup* group : groups_) {
        const int groupWidth = group->isCollapsed() ? group->collapsedWidth() : group->fullWidth();
        group->setGeometry(left, 0, groupWidth, height() - 1);
        left += groupWidth;
    }
}

void RibbonPage::ensureVisible(const QWidget* widget) {
    if (!isAncestorOf(widget) || widget->window() != window()) return;
    const QRect area(widget->mapTo(this, QPoint(0, 0)), widget->size());
    if (area.left() < 0)
        offset_ += area.left();
    else if (area.right() >= width())
        offset_ += area.right() - width() + 1;
    place();
}

void RibbonPage::wheelEvent(QWheelEvent* event) {
    if (rowWidth() <= width()) {
        event->ignore();
        return;
    }
    const QPoint delta = event->angleDelta();
    offset_ -= (delta.x() != 0 ? delta.x() : delta.y()) / 2;
    place();
    event->accept();
}

void RibbonPage::paintEvent(QPaintEvent*) {
    const RibbonColors colors(palette());
    QPainter painter(this);
    painter.fillRect(rect(), colors.body);
    painter.fillRect(QRect(0, height() - 1, width(), 1), colors.line);
}

}  // namespace controls
