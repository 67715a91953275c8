#include "controls/RibbonButton.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <array>

#include "controls/CommandAction.h"
#include "controls/RibbonColors.h"

namespace controls {
namespace {

constexpr int kLargeIcon = 32;
constexpr int kSmallIcon = 16;
constexpr int kSmallestLargeWidth = 48;
constexpr int kSidePadding = 6;
constexpr int kGap = 4;
constexpr int kChevronWidth = 12;
constexpr int kRadius = 3;

}  // namespace

RibbonButton::RibbonButton(Shape shape, QWidget* parent) : QToolButton(parent), shape_(shape) {
    // Tab goes through the panes of the window; the ribbon's buttons are reached with Alt and the arrow keys.
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    const int side = shape == Shape::Large ? kLargeIcon : kSmallIcon;
    setIconSize(QSize(side, side));
    setSizePolicy(shape == Shape::Large ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                  shape == Shape::Large ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

void RibbonButton::showCommand(const CommandAction& command) {
    setProperty("commandId", command.commandId());
    setObjectName(QStringLiteral("command-%1").arg(command.commandId()));
    const auto showStates = [this, &command] {
        setToolTip(command.toolTip());
        setCheckable(command.isCheckable());
        setChecked(command.isChecked());
        canRun_ = command.isEnabled();
        setEnabled(canRun_ || menuPart_ == MenuPart::Arrow);
        update();
    };
    showStates();
    connect(&command, &QAction::changed, this, showStates);
}

void RibbonButton::setLabel(const QString& label) {
    label_ = label;
    QString escaped = label;
    // An ampersand would make a shortcut.
    setText(escaped.replace(QLatin1Char('&'), QLatin1String("&&")));
    updateGeometry();
}

void RibbonButton::setButtonMenu(QMenu* menu, MenuPart part) {
    menu->setParent(this, menu->windowFlags());
    setMenu(menu);
    menuPart_ = part;
    setPopupMode(part == MenuPart::Whole ? InstantPopup : DelayedPopup);
    updateGeometry();
}

void RibbonButton::showAsDropDown() {
    menuPart_ = MenuPart::Whole;
    updateGeometry();
}

int RibbonButton::smallHeight(const QFontMetrics& metrics) {
    return std::max(20, metrics.height() + 2);
}

QSize RibbonButton::sizeHint() const {
    ensurePolished();
    const int text = fontMetrics().horizontalAdvance(label_);
    const int chevron = menuPart_ == MenuPart::None ? 0 : kChevronWidth;
    const int height = smallHeight(fontMetrics());
    if (shape_ == Shape::Small)
        return {kSidePadding + kSmallIcon + kGap + text + chevron + kSidePadding, height};
    return {std::max(kSmallestLargeWidth, text + chevron + 2 * kSidePadding), 3 * height};
}

QRect RibbonButton::arrowRect() const {
    if (menuPart_ != MenuPart::Arrow) return {};
    if (shape_ == Shape::Small) return rect().adjusted(width() - kChevronWidth - kGap, 0, 0, 0);
    return rect().adjusted(0, kLargeIcon + 2 * kGap, 0, 0);
}

void RibbonButton::setKeyTips(const QString& button, const QString& arrow) {
    keyTip_ = button;
    arrowKeyTip_ = arrow;
}

QRect RibbonButton::keyTipPlace() const {
    // On the icon, so that the text can be read beside or under it.
    if (shape_ == Shape::Large) return {(width() - kLargeIcon) / 2, 0, kLargeIcon, kLargeIcon - kGap};
    return {kSidePadding, 0, kSmallIcon, height() / 2 + 1};
}

QRect RibbonButton::arrowKeyTipPlace() const {
    if (shape_ == Shape::Large) return rect();
    const QRect arrow = arrowRect();
    return {arrow.left(), 0, arrow.width(), height() / 2 + 1};
}

QColor RibbonButton::textColor(bool enabled) const {
    const RibbonColors colors(palette());
    return enabled ? colors.text : colors.disabledText;
}

void RibbonButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    if (shape_ == Shape::Large)
        paintLarge(painter);
    else
        paintSmall(painter);
}

void RibbonButton::paintGround(QPainter& painter) const {
    const RibbonColors colors(palette());
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool hovered = isEnabled() && underMouse();
    const bool down = isEnabled() && (isDown() || (menu() && menu()->isVisible()));
    QColor fill = Qt::transparent;
    QColor frame = Qt::transparent;
    if (isChecked()) {
        fill = colors.checked;
        frame = colors.checkedLine;
    }
    if (hovered) fill = isChecked() ? colors.pressed : colors.hover;
    if (down) fill = colors.pressed;
    if (hasFocus()) frame = colors.accent;
    if (hovered && menuPart_ == MenuPart::Arrow && frame == Qt::transparent) frame = colors.line;
    painter.setPen(frame);
    painter.setBrush(fill);
    painter.drawRoundedRect(area, kRadius, kRadius);
    if (!hovered || menuPart_ != MenuPart::Arrow) return;
    const QRect arrow = arrowRect();
    if (overArrow_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.pressed);
        painter.drawRoundedRect(QRectF(arrow).adjusted(1, 1, -1, -1), kRadius, kRadius);
    }
    painter.setPen(colors.line);
    if (shape_ == Shape::Large)
        painter.drawLine(QPointF(1, arrow.top() + 0.5), QPointF(width() - 1, arrow.top() + 0.5));
    else
        painter.drawLine(QPointF(arrow.left() + 0.5, 1), QPointF(arrow.left() + 0.5, height() - 1));
}

void RibbonButton::paintIcon(QPainter& painter, QPoint topLeft, int side) const {
    const QPixmap picture = icon().pixmap(QSize(side, side), devicePixelRatio(),
                                          isEnabled() && canRun_ ? QIcon::Normal : QIcon::Disabled);
    if (picture.isNull()) return;
    const QSize size = picture.size() / picture.devicePixelRatio();
    painter.drawPixmap(topLeft.x() + (side - size.width()) / 2, topLeft.y() + (side - size.height()) / 2,
                       picture);
}

void RibbonButton::paintChevron(QPainter& painter, QPointF center) const {
    QPen pen(textColor(isEnabled()), 1.2);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    const std::array<QPointF, 3> points = {center + QPointF(-3, -1.5), center + QPointF(0, 1.5),
                                           center + QPointF(3, -1.5)};
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void RibbonButton::paintLarge(QPainter& painter) const {
    paintIcon(painter, QPoint((width() - kLargeIcon) / 2, kGap), kLargeIcon);
    const int top = kGap + kLargeIcon + 2;
    const QRect area(0, top, width(), height() - top);
    const int text = fontMetrics().horizontalAdvance(label_);
    const int chevron = menuPart_ == MenuPart::None ? 0 : kChevronWidth;
    const int left = (width() - text - chevron) / 2;
    painter.setPen(textColor(isEnabled() && canRun_));
    painter.drawText(QRect(left, area.top(), text + 1, area.height()), Qt::AlignVCenter | Qt::TextSingleLine,
                     label_);
    if (chevron > 0) paintChevron(painter, QPointF(left + text + chevron / 2.0 + 1, area.center().y() + 1.5));
}

void RibbonButton::paintSmall(QPainter& painter) const {
    paintIcon(painter, QPoint(kSidePadding, (height() - kSmallIcon) / 2), kSmallIcon);
    const int left = kSidePadding + kSmallIcon + kGap;
    painter.setPen(textColor(isEnabled() && canRun_));
    painter.drawText(QRect(left, 0, fontMetrics().horizontalAdvance(label_) + 1, height()),
                     Qt::AlignVCenter | Qt::TextSingleLine, label_);
    if (menuPart_ != MenuPart::None)
        paintChevron(painter,
                     QPointF(width() - kSidePadding - kChevronWidth / 2.0 + 2, height() / 2.0 + 0.5));
}

bool RibbonButton::hitButton(const QPoint& position) const {
    return canRun_ && QToolButton::hitButton(position);
}

void RibbonButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && arrowRect().contains(event->pos())) {
        showMenu();
        return;
    }
    QToolButton::mousePressEvent(event);
}

void RibbonButton::mouseMoveEvent(QMouseEvent* event) {
    const bool over = arrowRect().contains(event->pos());
    if (over != overArrow_) {
        overArrow_ = over;
        update();
    }
    QToolButton::mouseMoveEvent(event);
}

void RibbonButton::leaveEvent(QEvent* event) {
    overArrow_ = false;
    QToolButton::leaveEvent(event);
}

void RibbonButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool opens = event->key() == Qt::Key_F4 ||
                       (event->key() == Qt::Key_Down && (event->modifiers() & Qt::AltModifier));
    if (menu() && (opens || (enter && menuPart_ == MenuPart::Whole)))
        showMenu();
    else if (enter && canRun_)
        click();
    else
        QToolButton::keyPressEvent(event);
}

}  // namespace controls
