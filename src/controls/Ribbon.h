#pragma once

#include <QHash>
#include <QSet>
#include <QWidget>
#include <memory>

#include "controls/RibbonMarkup.h"

class QAction;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace controls {

class RibbonButton;
class RibbonGroup;
class RibbonKeyboard;
class RibbonPage;
class RibbonTabStrip;

/// The ribbon: a strip of tabs, and under it the groups of the current tab. What it holds comes from markup;
/// what it does is to choose the actions of commands, whose states it shows. Each button carries the dynamic
/// property `commandId` and the object name "command-<id>"; each entry of a menu is an action with the
/// property and the name "action-<id>"; groups are named "group-<id>", menu buttons "menu-<id>". Alt or F10
/// moves the focus into it and shows the key tips, Esc goes back. GUI thread.
class Ribbon : public QWidget {
    Q_OBJECT

 public:
    explicit Ribbon(QWidget* parent = nullptr);
    ~Ribbon() override;

    /// Fills the ribbon anew; the source is asked during the call only. Commands without an action, and
    /// groups and tabs without commands, are left out. False, with a text and a line number in *error, when
    /// the markup is faulty; the ribbon then stays as it was.
    bool setMarkup(const QByteArray& xml, const RibbonSource& source, QString* error = nullptr);

    /// Whether the command stands in the ribbon, as a button or in a menu.
    bool contains(int commandId) const;
    /// Null when the command has no button of its own.
    RibbonButton* button(int commandId) const;

    /// Ids of the tabs on show, from left to right.
    QStringList tabIds() const;
    QString currentTab() const;
    bool setCurrentTab(const QString& id);
    RibbonPage* page(const QString& tabId) const;

    /// Only the tabs are shown. A double click on a tab folds, a click on one unfolds.
    void setFolded(bool folded);
    bool isFolded() const;

    /// Moves the keyboard to the current tab and shows the key tips; Esc brings it back to where it was.
    void focusTabs();
    /// What is typed for each tab on show, from left to right.
    QStringList tabKeyTips() const { return tabKeyTips_; }

 Q_SIGNALS:
    /// Before the menu of a button opens, so that its entries can be brought up to date.
    void MenuAboutToOpen();
    void FoldedChanged(bool folded);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

 private:
    void clear();
    void buildTab(const RibbonTabMarkup& tab, const RibbonSource& source);
    RibbonGroup* buildGroup(const RibbonGroupMarkup& markup, const RibbonSource& source);
    RibbonButton* buildButton(const RibbonItem& item, const RibbonSource& source);
    QMenu* buildMenu(const std::vector<RibbonItem>& entries, const RibbonSource& source);
    QAction* buildEntry(const RibbonItem& item, const RibbonSource& source, QMenu* menu);
    void giveKeyboardBack();
    void tabClicked(int index);
    void tabDoubleClicked(int index);

    RibbonTabStrip* tabs_;
    QToolButton* foldButton_;
    QStackedWidget* pages_;
    std::unique_ptr<RibbonKeyboard> keyboard_;
    QStringList tabIds_;
    QStringList tabKeyTips_;
    QHash<int, RibbonButton*> buttons_;
    QSet<int> entries_;  ///< the commands in menus
    bool unfoldedByClick_ = false;
};

}  // namespace controls
