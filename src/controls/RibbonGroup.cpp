#include "controls/RibbonGroup.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/RibbonButton.h"
#include "controls/RibbonColors.h"

namespace controls {
namespace {

constexpr int kTopMargin = 3;
constexpr int kBottomMargin = 3;
constexpr int kSideMargin = 4;
constexpr int kColumnGap = 2;
constexpr int kRowsOfSmall = 3;
constexpr int kUsualHeight = 84;
constexpr int kSeparatorInset = 6;
constexpr qreal kTitleScale = 0.88;

QFont titleFont(const QFont& font) {
    QFont smaller = font;
    if (font.pointSizeF() > 0)
        smaller.setPointSizeF(font.pointSizeF() * kTitleScale);
    else
        smaller.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * kTitleScale)));
    return smaller;
}

void paintTitle(QPainter& painter, const QRect& area, const QString& title, const QFont& font,
                const QPalette& palette) {
    painter.setFont(titleFont(font));
    painter.setPen(RibbonColors(palette).secondaryText);
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine, title);
}

/// The buttons of a collapsed group, hanging under its drop-down.
class GroupPopup : public QWidget {
 public:
    explicit GroupPopup(const RibbonGroup* group, QWidget* parent)
        : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint), group_(group) {
        setAttribute(Qt::WA_WindowPropagation);
        // A click on the drop-down closes the pop-up and shall not open it again.
        setAttribute(Qt::WA_NoMouseReplay);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        const RibbonColors colors(palette());
        QPainter painter(this);
        painter.fillRect(rect(), colors.body);
        painter.setPen(colors.line);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        const int height = QFontMetrics(titleFont(font())).height();
        paintTitle(painter, QRect(0, this->height() - height - kBottomMargin, width(), height),
                   group_->title(), font(), palette());
    }

 private:
    const RibbonGroup* group_;
};

}  // namespace

RibbonGroup::RibbonGroup(const QString& id, const QString& title, const QIcon& icon, int priority,
                         QWidget* parent)
    : QWidget(parent),
      title_(title),
      priority_(priority),
      body_(new QWidget(this)),
      columns_(new QHBoxLayout(body_)),
      dropDown_(new RibbonButton(RibbonButton::Shape::Large, this)),
      popup_(new GroupPopup(this, this)) {
    setObjectName(QStringLiteral("group-%1").arg(id));
    setAccessibleName(title);
    columns_->setContentsMargins(0, 0, 0, 0);
    columns_->setSpacing(kColumnGap);
    popup_->setObjectName(QStringLiteral("popup-%1").arg(id));
    dropDown_->setObjectName(QStringLiteral("collapsed-%1").arg(id));
    dropDown_->setIcon(icon);
    dropDown_->setLabel(title);
    dropDown_->setToolTip(title);
    dropDown_->showAsDropDown();
    dropDown_->hide();
    connect(dropDown_, &QAbstractButton::clicked, this, &RibbonGroup::openPopup);
}

void RibbonGroup::addButton(RibbonButton* button) {
    buttons_.push_back(button);
    button->setParent(body_);
    connect(button, &QAbstractButton::clicked, this, &RibbonGroup::closePopup);
    if (button->menu()) connect(button->menu(), &QMenu::triggered, this, &RibbonGroup::closePopup);
    if (button->shape() == RibbonButton::Shape::Large) {
        columns_->addWidget(button);
        smallColumn_ = nullptr;
        return;
    }
    if (!smallColumn_ || smallColumn_->count() == kRowsOfSmall) {
        smallColumn_ = new QVBoxLayout;
        smallColumn_->setSpacing(0);
        smallColumn_->setAlignment(Qt::AlignTop);
        columns_->addLayout(smallColumn_);
    }
    smallColumn_->addWidget(button);
}

int RibbonGroup::titleHeight() const {
    return QFontMetrics(titleFont(font())).height();
}

int RibbonGroup::bodyHeight(const QFont& font) {
    const int rows = kRowsOfSmall * RibbonButton::smallHeight(QFontMetrics(font));
    const int title = QFontMetrics(titleFont(font)).height();
    return std::max(kUsualHeight, kTopMargin + rows + title + kBottomMargin);
}

int RibbonGroup::fullWidth() const {
    const int title = QFontMetrics(titleFont(font())).horizontalAdvance(title_);
    return std::max(columns_->sizeHint().width(), title) + 2 * kSideMargin + 1;
}

int RibbonGroup::collapsedWidth() const {
    return dropDown_->sizeHint().width() + 2 * kSideMargin + 1;
}

void RibbonGroup::setCollapsed(bool collapsed) {
    if (collapsed_ == collapsed) return;
    closePopup();
    collapsed_ = collapsed;
    body_->setParent(collapsed ? popup_ : this);
    body_->setVisible(true);
    dropDown_->setVisible(collapsed);
    placeBody();
    update();
}

void RibbonGroup::resizeEvent(QResizeEvent*) {
    placeBody();
}

void RibbonGroup::placeBody() {
    const int rows = kRowsOfSmall * RibbonButton::smallHeight(fontMetrics());
    const int bodyWidth = columns_->sizeHint().width();
    if (collapsed_) {
        dropDown_->setGeometry(kSideMargin, kTopMargin, width() - 2 * kSideMargin - 1, rows);
        return;
    }
    const int left = std::max(0, (width() - 1 - bodyWidth) / 2);
    body_->setGeometry(left, kTopMargin, bodyWidth, rows);
}

void RibbonGroup::openPopup() {
    if (!collapsed_) return;
    const int rows = kRowsOfSmall * RibbonButton::smallHeight(fontMetrics());
    const int margin = kSideMargin + 2;
    body_->setGeometry(margin, margin, columns_->sizeHint().width(), rows);
    const int titleWidth = QFontMetrics(titleFont(font())).horizontalAdvance(title_);
    const int width = std::max(body_->width(), titleWidth) + 2 * margin;
    popup_->resize(width, margin + rows + titleHeight() + 2 * kBottomMargin);
    QPoint corner = mapToGlobal(QPoint(0, height()));
    if (const QScreen* display = screen()) {
        const QRect area = display->availableGeometry();
        corner.setX(std::clamp(corner.x(), area.left(), std::max(area.left(), area.right() - width)));
    }
    popup_->move(corner);
    const bool byKeyboard = dropDown_->hasFocus();
    popup_->show();
    const auto first = std::find_if(buttons_.begin(), buttons_.end(),
                                    [](const RibbonButton* button) { return button->isEnabled(); });
    if (byKeyboard && first != buttons_.end()) (*first)->setFocus(Qt::PopupFocusReason);
}

void RibbonGroup::closePopup() {
    popup_->hide();
}

bool RibbonGroup::isPopupOpen() const {
    return popup_->isVisible();
}

void RibbonGroup::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!collapsed_)
        paintTitle(painter, QRect(0, height() - titleHeight() - kBottomMargin, width() - 1, titleHeight()),
                   title_, font(), palette());
    painter.setPen(RibbonColors(palette()).line);
    painter.drawLine(width() - 1, kSeparatorInset, width() - 1, height() - kSeparatorInset);
}

}  // namespace controls
