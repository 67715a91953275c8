#include "controls/Ribbon.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/CommandAction.h"
#include "controls/RibbonButton.h"
#include "controls/RibbonColors.h"
#include "controls/RibbonGroup.h"
#include "controls/RibbonKeyTips.h"
#include "controls/RibbonKeyboard.h"
#include "controls/RibbonPage.h"
#include "controls/RibbonTabStrip.h"

namespace controls {
namespace {

QString escaped(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString withMore(QString tip, const QString& more) {
    if (!more.isEmpty()) tip += QLatin1Char('\n') + more;
    return tip;
}

/// The icon that the markup names, or else the one of the command.
QIcon iconOf(const RibbonItem& item, const RibbonSource& source) {
    if (!item.icon.isEmpty()) return source.icon(item.icon);
    const CommandAction* action = item.command > 0 ? source.action(item.command) : nullptr;
    return action != nullptr ? action->icon() : QIcon();
}

/// Folds the ribbon away; the arrow points to where the body goes.
class FoldButton : public QToolButton {
 public:
    explicit FoldButton(QWidget* parent) : QToolButton(parent) {
        setObjectName(QStringLiteral("fold"));
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        setFixedWidth(30);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    }
    bool pointsDown = false;

 protected:
    void paintEvent(QPaintEvent*) override {
        const RibbonColors colors(palette());
        QPainter painter(this);
        painter.fillRect(rect(), underMouse() ? colors.hover : colors.strip);
        painter.fillRect(QRect(0, height() - 1, width(), 1), colors.line);
        painter.setRenderHint(QPainter::Antialiasing);
        QPen pen(colors.secondaryText, 1.4);
        pen.setCapStyle(Qt::RoundCap);
        painter.setPen(pen);
        const QPointF center = QRectF(rect()).center();
        const qreal tip = pointsDown ? 2 : -2;
        painter.drawLine(center + QPointF(-4, -tip), center + QPointF(0, tip));
        painter.drawLine(center + QPointF(0, tip), center + QPointF(4, -tip));
    }
};

}  // namespace

Ribbon::Ribbon(QWidget* parent)
    : QWidget(parent),
      tabs_(new RibbonTabStrip(this)),
      foldButton_(new FoldButton(this)),
      pages_(new QStackedWidget(this)),
      keyboard_(std::make_unique<RibbonKeyboard>(*this, *tabs_)) {
    setObjectName(QStringLiteral("ribbon"));
    tabs_->setObjectName(QStringLiteral("ribbonTabs"));
    foldButton_->setObjectName(QStringLiteral("ribbonFold"));
    pages_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* strip = new QHBoxLayout;
    strip->setContentsMargins(0, 0, 0, 0);
    strip->setSpacing(0);
    strip->addWidget(tabs_, 1);
    strip->addWidget(foldButton_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(strip);
    layout->addWidget(pages_);
    connect(tabs_, &QTabBar::currentChanged, pages_, &QStackedWidget::setCurrentIndex);
    connect(tabs_, &QTabBar::tabBarClicked, this, &Ribbon::tabClicked);
    connect(tabs_, &QTabBar::tabBarDoubleClicked, this, &Ribbon::tabDoubleClicked);
    connect(foldButton_, &QAbstractButton::clicked, this, [this] { setFolded(!isFolded()); });
}

Ribbon::~Ribbon() = default;

bool Ribbon::setMarkup(const QByteArray& xml, const RibbonSource& source, QString* error) {
    RibbonMarkupResult result = readRibbonMarkup(xml);
    if (!result.markup) {
        if (error) *error = result.error;
        return false;
    }
    nameCommands(*result.markup, source);
    assignKeyTips(*result.markup, source);
    const RibbonMarkup markup = keepAvailable(std::move(*result.markup), source);
    const QString shown = currentTab();
    clear();
    foldButton_->setToolTip(markup.foldText > 0 ? source.text(markup.foldText) : QString());
    for (const RibbonTabMarkup& tab : markup.tabs) buildTab(tab, source);
    setCurrentTab(shown);
    return true;
}

void Ribbon::clear() {
    keyboard_->leave();
    buttons_.clear();
    entries_.clear();
    tabIds_.clear();
    tabKeyTips_.clear();
    const QSignalBlocker quiet(tabs_);
    while (tabs_->count() > 0) tabs_->removeTab(0);
    while (QWidget* page = pages_->widget(0)) {
        pages_->removeWidget(page);
        // The call may come out of one of its own buttons.
        page->hide();
        page->setParent(nullptr);
        page->deleteLater();
    }
}

void Ribbon::buildTab(const RibbonTabMarkup& tab, const RibbonSource& source) {
    auto* page = new RibbonPage(pages_);
    page->setObjectName(QStringLiteral("tab-%1").arg(tab.id));
    for (const RibbonGroupMarkup& group : tab.groups) page->addGroup(buildGroup(group, source));
    tabIds_.append(tab.id);
    tabKeyTips_.append(tab.keyTip);
    pages_->addWidget(page);
    tabs_->addTab(escaped(source.text(tab.text)));
}

RibbonGroup* Ribbon::buildGroup(const RibbonGroupMarkup& markup, const RibbonSource& source) {
    QIcon icon = source.icon(markup.icon);
    for (const RibbonItem& item : markup.items) {
        if (!icon.isNull()) break;
        icon = iconOf(item, source);
    }
    auto* group = new RibbonGroup(markup.id, source.text(markup.text), icon, markup.priority);
    group->dropDown()->setKeyTips(markup.keyTip, {});
    for (const RibbonItem& item : markup.items) {
        RibbonButton* button = buildButton(item, source);
        group->addButton(button);
        // After the group's own connection, so that its pop-up is closed when the command runs.
        if (item.kind == RibbonItem::Kind::Menu) continue;
        connect(button, &QAbstractButton::clicked, this, &Ribbon::giveKeyboardBack);
        connect(button, &QAbstractButton::clicked, source.action(item.command), &QAction::trigger);
    }
    return group;
}

RibbonButton* Ribbon::buildButton(const RibbonItem& item, const RibbonSource& source) {
    using Kind = RibbonItem::Kind;
    auto* button = new RibbonButton(item.large ? RibbonButton::Shape::Large : RibbonButton::Shape::Small);
    button->setLabel(source.text(item.text));
    button->setIcon(iconOf(item, source));
    button->setKeyTips(item.keyTip, item.kind == Kind::Split ? item.arrowKeyTip : QString());
    if (item.kind != Kind::Button)
        button->setButtonMenu(buildMenu(item.entries, source), item.kind == Kind::Split
                                                                   ? RibbonButton::MenuPart::Arrow
                                                                   : RibbonButton::MenuPart::Whole);
    if (item.kind == Kind::Menu) {
        button->setObjectName(QStringLiteral("menu-%1").arg(item.id));
        button->setToolTip(withMore(source.text(item.text), source.tip(item.text)));
        return button;
    }
    button->showCommand(*source.action(item.command));
    buttons_.insert(item.command, button);
    return button;
}

QMenu* Ribbon::buildMenu(const std::vector<RibbonItem>& entries, const RibbonSource& source) {
    auto* menu = new QMenu(this);
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, &Ribbon::MenuAboutToOpen);
    for (const RibbonItem& entry : entries) {
        if (entry.kind == RibbonItem::Kind::Separator) {
            menu->addSeparator();
        } else if (entry.kind == RibbonItem::Kind::Menu) {
            QMenu* inner = buildMenu(entry.entries, source);
            inner->setParent(menu, inner->windowFlags());
            inner->setTitle(withMnemonic(source.text(entry.text), entry.keyTip));
            inner->setIcon(source.icon(entry.icon));
            inner->setObjectName(QStringLiteral("menu-%1").arg(entry.id));
            menu->addMenu(inner);
        } else {
            menu->addAction(buildEntry(entry, source, menu));
        }
    }
    return menu;
}

QAction* Ribbon::buildEntry(const RibbonItem& item, const RibbonSource& source, QMenu* menu) {
    CommandAction& command = *source.action(item.command);
    QString text = withMnemonic(source.text(item.text), item.keyTip);
    const QString keys = command.shortcut().toString(QKeySequence::NativeText);
    // What stands behind a tab is shown in the column of the shortcuts, and nothing listens to it.
    if (!keys.isEmpty()) text += QLatin1Char('\t') + keys;
    entries_.insert(item.command);
    QAction* entry = command.makeEntry(text, menu, [this] { giveKeyboardBack(); });
    if (!item.icon.isEmpty()) entry->setIcon(source.icon(item.icon));
    return entry;
}

/// A command of the focused list needs the list to have the focus.
void Ribbon::giveKeyboardBack() {
    keyboard_->leave();
}

bool Ribbon::contains(int commandId) const {
    return buttons_.contains(commandId) || entries_.contains(commandId);
}

RibbonButton* Ribbon::button(int commandId) const {
    return buttons_.value(commandId);
}

QStringList Ribbon::tabIds() const {
    return tabIds_;
}

QString Ribbon::currentTab() const {
    return tabIds_.value(tabs_->currentIndex());
}

bool Ribbon::setCurrentTab(const QString& id) {
    const auto index = tabIds_.indexOf(id);
    if (index < 0) return false;
    tabs_->setCurrentIndex(static_cast<int>(index));
    pages_->setCurrentIndex(static_cast<int>(index));
    return true;
}

RibbonPage* Ribbon::page(const QString& tabId) const {
    return qobject_cast<RibbonPage*>(pages_->widget(static_cast<int>(tabIds_.indexOf(tabId))));
}

bool Ribbon::isFolded() const {
    return pages_->isHidden();
}

void Ribbon::setFolded(bool folded) {
    if (folded == isFolded()) return;
    if (folded && !tabs_->hasFocus()) keyboard_->leave();
    pages_->setVisible(!folded);
    tabs_->setFolded(folded);
    static_cast<FoldButton*>(foldButton_)->pointsDown = folded;
    foldButton_->update();
    Q_EMIT FoldedChanged(folded);
}

void Ribbon::tabClicked(int index) {
    unfoldedByClick_ = index >= 0 && isFolded();
    if (unfoldedByClick_) setFolded(false);
}

void Ribbon::tabDoubleClicked(int index) {
    // The first press of this double click has unfolded; the second shall not fold again.
    if (index >= 0 && !unfoldedByClick_) setFolded(true);
    unfoldedByClick_ = false;
}

void Ribbon::focusTabs() {
    keyboard_->enter();
}

void Ribbon::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) update();
}

void Ribbon::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), RibbonColors(palette()).strip);
}

}  // namespace controls
