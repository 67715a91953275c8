#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QKeyEvent;

namespace controls {

class Ribbon;

/// The ribbon without a mouse: Alt alone or F10 moves the focus to the tabs, Down into the buttons, the
/// arrows go to the nearest button, Esc goes back up and then to where the focus was.
class RibbonKeyboard : public QObject {
    Q_OBJECT

 public:
    /// Watches the application's events for as long as it lives.
    RibbonKeyboard(Ribbon& ribbon, QWidget& tabs);

    void enter();
    /// Gives the focus back when it is in the ribbon.
    void leave();

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool watchAlt(const QWidget& widget, const QKeyEvent& event);
    bool tabKey(const QKeyEvent& event);
    bool buttonKey(QWidget& button, const QKeyEvent& event);
    void focusFirstButton();
    void moveFocus(QWidget& from, int key);
    bool focusIsInside() const;
    bool belongsToRibbon(const QWidget* widget) const;
    bool listensTo(const QWidget* widget) const;

    Ribbon& ribbon_;
    QWidget& tabs_;
    QPointer<QWidget> before_;  ///< had the focus before the ribbon
    bool altAlone_ = false;
};

}  // namespace controls
