#include "controls/RibbonKeyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTabBar>
#include <cstdlib>
#include <limits>

#include "controls/Ribbon.h"
#include "controls/RibbonButton.h"
#include "controls/RibbonGroup.h"
#include "controls/RibbonPage.h"

namespace controls {
namespace {

constexpr int kTabTipDrop = 5;  ///< the tip of a tab hangs so far below it that its text can be read

/// How far a button lies in the direction of the arrow key; a step aside counts threefold. None when it lies
/// elsewhere.
std::optional<int> distance(const QRect& from, const QRect& target, int key) {
    const QPoint step = target.center() - from.center();
    switch (key) {
        case Qt::Key_Left:
            return target.right() <= from.left() ? std::optional(-step.x() + 3 * std::abs(step.y()))
                                                 : std::nullopt;
        case Qt::Key_Right:
            return target.left() >= from.right() ? std::optional(step.x() + 3 * std::abs(step.y()))
                                                 : std::nullopt;
        case Qt::Key_Up:
            return target.bottom() <= from.top() ? std::optional(-step.y() + 3 * std::abs(step.x()))
                                                 : std::nullopt;
        case Qt::Key_Down:
            return target.top() >= from.bottom() ? std::optional(step.y() + 3 * std::abs(step.x()))
                                                 : std::nullopt;
        default:
            return std::nullopt;
    }
}

QRect globalRect(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

bool isArrow(int key) {
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
}

/// The letter or digit that the key types as a key tip.
std::optional<QChar> typedTip(const QKeyEvent& event) {
    if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) return std::nullopt;
    const QString text = event.text();
    if (text.size() != 1 || !text.at(0).isLetterOrNumber()) return std::nullopt;
    return text.at(0);
}

void addTargets(const std::vector<RibbonButton*>& buttons, std::vector<KeyTipTarget>& targets) {
    for (RibbonButton* button : buttons) {
        if (!button->isEnabled() || button->visibleRegion().isEmpty()) continue;
        if (button->canRun()) targets.push_back({button->keyTip(), button, button->keyTipPlace(), false, -1});
        if (!button->arrowKeyTip().isEmpty())
            targets.push_back({button->arrowKeyTip(), button, button->arrowKeyTipPlace(), true, -1});
    }
}

bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr;
}

}  // namespace

RibbonKeyboard::RibbonKeyboard(Ribbon& ribbon, QTabBar& tabs) : ribbon_(ribbon), tabs_(tabs) {
    qApp->installEventFilter(this);
}

bool RibbonKeyboard::focusIsInside() const {
    // For a moment after a menu has closed no window is active; the window still knows where its keyboard is.
    const QWidget* focus = QApplication::focusWidget();
    return belongsToRibbon(focus ? focus : ribbon_.window()->focusWidget());
}

bool RibbonKeyboard::belongsToRibbon(const QWidget* widget) const {
    // Not isAncestorOf(): the pop-up of a group is a window of its own.
    while (widget && widget != &ribbon_) widget = widget->parentWidget();
    return widget != nullptr;
}

bool RibbonKeyboard::listensTo(const QWidget* widget) const {
    if (!widget) return false;
    const QWidget* popup = QApplication::activePopupWidget();
    if (popup) return widget->window() == popup && belongsToRibbon(widget);
    // Without a focus widget the keys come to the window.
    const QWidget* focus = QApplication::focusWidget();
    return focus ? widget == focus : widget == ribbon_.window();
}

void RibbonKeyboard::enter() {
    if (!focusIsInside()) before_ = QApplication::focusWidget();
    tabs_.setFocus(Qt::ShortcutFocusReason);
    showTabTips();
}

void RibbonKeyboard::leave() {
    tips_.hide();
    if (!focusIsInside()) return;
    if (before_ && before_->isVisible())
        before_->setFocus(Qt::OtherFocusReason);
    else if (QWidget* focus = QApplication::focusWidget())
        focus->clearFocus();
    before_.clear();
}

bool RibbonKeyboard::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
            altAlone_ = false;
            tips_.hide();
            return false;
        case QEvent::WindowDeactivate:
            altAlone_ = false;
            return false;
        case QEvent::FocusIn:
            watchFocus(qobject_cast<QWidget*>(watched));
            return false;
        case QEvent::Resize:
            if (watched == &ribbon_) tips_.hide();
            return false;
        case QEvent::ShortcutOverride:
            // A key that is a shortcut with Alt comes as this event only.
            if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Alt) altAlone_ = false;
            if (!overridesShortcut(qobject_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event)))
                return false;
            event->accept();
            return true;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            break;
        default:
            return false;
    }
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!listensTo(widget)) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (watchAlt(*widget, *key)) return true;
    if (event->type() != QEvent::KeyPress) return false;
    if (tips_.isShown() && belongsToRibbon(widget) && tipKey(*key)) return true;
    if (widget == &tabs_) return tabKey(*key);
    if (belongsToRibbon(widget) && qobject_cast<RibbonButton*>(widget)) return buttonKey(*widget, *key);
    return false;
}

/// Inside the ribbon its keys are its own, whatever the window does with them elsewhere.
bool RibbonKeyboard::overridesShortcut(QWidget* widget, const QKeyEvent& event) const {
    if (!listensTo(widget) || !belongsToRibbon(widget)) return false;
    if (tips_.isShown() && typedTip(event)) return true;
    if ((event.modifiers() & ~Qt::KeypadModifier) != 0) return false;
    const int key = event.key();
    return isArrow(key) || key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Space;
}

void RibbonKeyboard::watchFocus(const QWidget* widget) {
    if (tips_.isShown() && widget && !belongsToRibbon(widget)) tips_.hide();
}

bool RibbonKeyboard::tipKey(const QKeyEvent& event) {
    if (const std::optional<QChar> letter = typedTip(event)) {
        KeyTipTarget chosen;
        if (tips_.type(*letter, &chosen) == RibbonKeyTips::Answer::Chosen) choose(chosen);
        return true;
    }
    if (event.key() == Qt::Key_Escape) {
        if (!tips_.takeBack()) backFromTips();
        return true;
    }
    // The arrows and Enter go on without the tips.
    if (!isModifier(event.key())) tips_.hide();
    return false;
}

void RibbonKeyboard::backFromTips() {
    if (tipsOnTabs_) {
        leave();
    } else if (tippedPopup_) {
        tippedPopup_->closePopup();
        showButtonTips();
    } else {
        tabs_.setFocus(Qt::OtherFocusReason);
        showTabTips();
    }
}

void RibbonKeyboard::choose(const KeyTipTarget& target) {
    if (target.tab >= 0) {
        tabs_.setCurrentIndex(target.tab);
        ribbon_.setFolded(false);
        // The tips need the places that the buttons are going to have.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        showButtonTips();
        return;
    }
    auto* button = qobject_cast<RibbonButton*>(target.widget);
    if (!button) return;
    auto* group = qobject_cast<RibbonGroup*>(button->parentWidget());
    if (group && group->dropDown() == button) {
        button->setFocus(Qt::OtherFocusReason);
        group->openPopup();
        showPopupTips(*group);
    } else if (target.menu || button->menuPart() == RibbonButton::MenuPart::Whole) {
        openMenu(*button);
    } else {
        button->click();
    }
}

void RibbonKeyboard::openMenu(RibbonButton& button) {
    const QPointer<RibbonButton> opened = &button;
    const QPointer<RibbonGroup> popup = tippedPopup_;
    button.setFocus(Qt::OtherFocusReason);
    button.showMenu();
    // Esc has closed the menu when the keyboard is still here; a command would have sent it back.
    if (!opened || !focusIsInside()) return;
    if (popup && popup->isPopupOpen())
        showPopupTips(*popup);
    else
        showButtonTips();
}

void RibbonKeyboard::showTabTips() {
    tipsOnTabs_ = true;
    tippedPopup_.clear();
    std::vector<KeyTipTarget> targets;
    const QStringList tips = ribbon_.tabKeyTips();
    for (int at = 0; at < tabs_.count(); ++at) {
        if (tabs_.tabRect(at).intersects(tabs_.rect()))
            targets.push_back(
                {tips.value(at), &tabs_, tabs_.tabRect(at).adjusted(0, 0, 0, kTabTipDrop), false, at});
    }
    tips_.show(std::move(targets));
}

void RibbonKeyboard::showButtonTips() {
    tipsOnTabs_ = false;
    tippedPopup_.clear();
    std::vector<KeyTipTarget> targets;
    const RibbonPage* page = ribbon_.page(ribbon_.currentTab());
    if (!page) return;
    for (RibbonGroup* group : page->groups()) {
        if (group->isCollapsed())
            targets.push_back({group->dropDown()->keyTip(), group->dropDown(),
                               group->dropDown()->keyTipPlace(), false, -1});
        else
            addTargets(group->buttons(), targets);
    }
    tips_.show(std::move(targets));
}

void RibbonKeyboard::showPopupTips(RibbonGroup& group) {
    tipsOnTabs_ = false;
    tippedPopup_ = &group;
    std::vector<KeyTipTarget> targets;
    addTargets(group.buttons(), targets);
    tips_.show(std::move(targets));
}

bool RibbonKeyboard::watchAlt(const QWidget& widget, const QKeyEvent& event) {
    if (!ribbon_.isVisible() || widget.window() != ribbon_.window()) return false;
    const bool press = event.type() == QEvent::KeyPress;
    if (press && event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier) {
        focusIsInside() ? leave() : enter();
        return true;
    }
    if (press) {
        altAlone_ = event.key() == Qt::Key_Alt && (event.modifiers() & ~Qt::AltModifier) == 0;
        return false;
    }
    if (event.key() != Qt::Key_Alt || !altAlone_) return false;
    altAlone_ = false;
    focusIsInside() ? leave() : enter();
    return true;
}

bool RibbonKeyboard::tabKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Escape:
            leave();
            return true;
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            ribbon_.setFolded(false);
            focusFirstButton();
            return true;
        default:
            return false;
    }
}

bool RibbonKeyboard::buttonKey(QWidget& button, const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) {
        if (button.window() != ribbon_.window())
            button.window()->close();
        else
            tabs_.setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (!isArrow(event.key()) || (event.modifiers() & Qt::AltModifier)) return false;
    moveFocus(button, event.key());
    return true;
}

void RibbonKeyboard::focusFirstButton() {
    RibbonPage* page = ribbon_.page(ribbon_.currentTab());
    if (!page) return;
    QWidget* first = nullptr;
    for (RibbonButton* button : page->findChildren<RibbonButton*>()) {
        if (!button->isVisible() || !button->isEnabled() || button->window() != ribbon_.window()) continue;
        const QPoint place = button->mapTo(page, QPoint(0, 0));
        const QPoint best =
            first ? first->mapTo(page, QPoint(0, 0)) : QPoint(std::numeric_limits<int>::max(), 0);
        if (place.x() < best.x() || (place.x() == best.x() && place.y() < best.y())) first = button;
    }
    if (!first) return;
    first->setFocus(Qt::OtherFocusReason);
    page->ensureVisible(first);
}

void RibbonKeyboard::moveFocus(QWidget& from, int key) {
    RibbonPage* page = ribbon_.page(ribbon_.currentTab());
    if (!page) return;
    QWidget* nearest = nullptr;
    int best = std::numeric_limits<int>::max();
    for (RibbonButton* button : page->findChildren<RibbonButton*>()) {
        if (!button->isVisible() || !button->isEnabled() || button->window() != from.window()) continue;
        const std::optional<int> far = distance(globalRect(from), globalRect(*button), key);
        if (!far || *far >= best) continue;
        best = *far;
        nearest = button;
    }
    if (nearest) {
        nearest->setFocus(Qt::OtherFocusReason);
        page->ensureVisible(nearest);
    } else if (key == Qt::Key_Up && from.window() == ribbon_.window()) {
        tabs_.setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace controls
