#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <optional>

#include "controls/RibbonKeyTips.h"

class QKeyEvent;
class QTabBar;

namespace controls {

class Ribbon;
class RibbonButton;
class RibbonGroup;

/// The ribbon without a mouse: Alt alone or F10 moves the focus to the tabs and shows key tips, Down goes
/// into the buttons, the arrows go to the nearest button, Esc goes back up and then to where the focus was. A
/// key tip that is typed opens its tab, group or menu, or runs its command.
class RibbonKeyboard : public QObject {
    Q_OBJECT

 public:
    /// Watches the application's events for as long as it lives.
    RibbonKeyboard(Ribbon& ribbon, QTabBar& tabs);

    void enter();
    /// Gives the focus back when it is in the ribbon.
    void leave();

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool overridesShortcut(QWidget* widget, const QKeyEvent& event) const;
    void watchFocus(const QWidget* widget);
    bool tipKey(const QKeyEvent& event);
    void backFromTips();
    void choose(const KeyTipTarget& target);
    void openMenu(RibbonButton& button);
    void showTabTips();
    void showButtonTips();
    void showPopupTips(RibbonGroup& group);
    bool watchAlt(const QWidget& widget, const QKeyEvent& event);
    bool tabKey(const QKeyEvent& event);
    bool buttonKey(QWidget& button, const QKeyEvent& event);
    void focusFirstButton();
    void moveFocus(QWidget& from, int key);
    bool focusIsInside() const;
    bool belongsToRibbon(const QWidget* widget) const;
    bool listensTo(const QWidget* widget) const;

    Ribbon& ribbon_;
    QTabBar& tabs_;
    RibbonKeyTips tips_;
    QPointer<RibbonGroup> tippedPopup_;  ///< the open group over whose buttons the tips are
    bool tipsOnTabs_ = false;
    QPointer<QWidget> before_;  ///< had the focus before the ribbon
    bool altAlone_ = false;
};

}  // namespace controls
