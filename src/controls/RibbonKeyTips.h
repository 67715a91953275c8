#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <vector>

#include "controls/RibbonMarkup.h"

namespace controls {

/// Gives each tab, group and item of the markup that has none a key tip: unique among the tabs, among what
/// one tab shows, and in each menu, and never the beginning of another. Taken from the letters of the texts,
/// in the order of the markup, so that a command has the same tip whether its neighbours work or not. The tip
/// of a group is a Z and another letter, which leaves the single ones to the buttons.
void assignKeyTips(RibbonMarkup& markup, const RibbonSource& source);

/// The text of a menu entry with its letter marked for QAction. Ampersands in it are kept.
QString withMnemonic(const QString& text, const QString& keyTip);

/// One place that can be chosen by typing.
struct KeyTipTarget {
    QString tip;
    QPointer<QWidget> widget;
    QRect place;        ///< in the widget's coordinates; the tip is centred on its lower edge
    bool menu = false;  ///< the menu of the widget is meant
    int tab = -1;       ///< index, when a tab is meant
};

/// The letters over a set of targets. They are drawn over the window, take no mouse, and go when hide() is
/// called. GUI thread.
class RibbonKeyTips {
 public:
    RibbonKeyTips() = default;
    ~RibbonKeyTips();
    RibbonKeyTips(const RibbonKeyTips&) = delete;
    RibbonKeyTips& operator=(const RibbonKeyTips&) = delete;

    void show(std::vector<KeyTipTarget> targets);
    void hide();
    bool isShown() const { return !targets_.empty(); }

    /// What typing one more letter leads to.
    enum class Answer { Unknown, More, Chosen };
    /// Unknown leaves everything as it was; after More only the tips with this beginning are shown; after
    /// Chosen, *chosen is set and nothing is shown any more.
    Answer type(QChar letter, KeyTipTarget* chosen);
    /// Takes the letters typed so far back. False when there were none.
    bool takeBack();

 private:
    void showMatching();

    std::vector<KeyTipTarget> targets_;
    std::vector<QPointer<QWidget>> labels_;
    QString typed_;
};

}  // namespace controls
