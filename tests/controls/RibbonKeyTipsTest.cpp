#include "controls/RibbonKeyTips.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/PictureMeasures.h"
#include "controls/Ribbon.h"
#include "controls/RibbonButton.h"
#include "controls/RibbonColors.h"
#include "controls/RibbonFixture.h"
#include "controls/RibbonGroup.h"
#include "controls/RibbonPage.h"

using controls::assignKeyTips;
using controls::Ribbon;
using controls::RibbonGroup;
using controls::RibbonMarkup;

namespace {

constexpr char kMarkup[] =
    "<ribbon><tab id='home' text='1'>"
    "<group id='a' text='100' priority='5'><button command='10' size='large'/>"
    "<button command='11'/><button command='12' keyTip='q'/></group>"
    "<group id='b' text='101' priority='1'><split command='20' size='large'><button command='21'/>"
    "<button command='22'/></split><button command='23'/></group>"
    "<group id='c' text='103' priority='5'><menu id='m' text='104' icon='tag'><button command='30'/>"
    "<button command='31'/></menu></group></tab>"
    "<tab id='view' text='2'><group id='d' text='105'><button command='40' size='large'/></group></tab>"
    "</ribbon>";

struct WordSource : NumberedSource {
    QHash<int, QString> words = {{1, QStringLiteral("Home")},       {2, QStringLiteral("View")},
                                 {10, QStringLiteral("Copy")},      {11, QStringLiteral("Copy to")},
                                 {12, QStringLiteral("Cut")},       {20, QStringLiteral("Paste")},
                                 {21, QStringLiteral("Paste all")}, {22, QStringLiteral("Paste one")},
                                 {23, QStringLiteral("Undo")},      {30, QStringLiteral("Name & size")},
                                 {31, QStringLiteral("Number")},    {40, QStringLiteral("Details")},
                                 {100, QStringLiteral("Edit")},     {101, QStringLiteral("Enter")},
                                 {103, QStringLiteral("Order")},    {104, QStringLiteral("Sort")},
                                 {105, QStringLiteral("List")}};
    QString text(int number) const override {
        return words.value(number, QStringLiteral("Text %1").arg(number));
    }
};

RibbonMarkup tipped(const QByteArray& xml, const controls::RibbonSource& source) {
    controls::RibbonMarkupResult result = controls::readRibbonMarkup(xml);
    EXPECT_TRUE(result.markup) << result.error.toStdString();
    RibbonMarkup markup = result.markup.value_or(RibbonMarkup{});
    nameCommands(markup, source);
    assignKeyTips(markup, source);
    return markup;
}

/// All tips that are typed where one tab shows its buttons.
QStringList tipsOf(const controls::RibbonTabMarkup& tab) {
    QStringList tips;
    for (const controls::RibbonGroupMarkup& group : tab.groups) {
        tips.append(group.keyTip);
        for (const controls::RibbonItem& item : group.items) {
            tips.append(item.keyTip);
            if (item.kind == controls::RibbonItem::Kind::Split) tips.append(item.arrowKeyTip);
        }
    }
    return tips;
}

void expectDistinct(const QStringList& tips) {
    for (qsizetype left = 0; left < tips.size(); ++left) {
        EXPECT_FALSE(tips[left].isEmpty());
        for (qsizetype right = 0; right < tips.size(); ++right)
            EXPECT_TRUE(left == right || !tips[right].startsWith(tips[left]))
                << tips[left].toStdString() << " " << tips[right].toStdString();
    }
}

TEST(KeyTipsTest, AreTheFirstFreeLetterOfTheText) {
    const WordSource source;
    const RibbonMarkup markup = tipped(kMarkup, source);
    EXPECT_EQ(markup.tabs[0].keyTip, QStringLiteral("H"));
    EXPECT_EQ(markup.tabs[1].keyTip, QStringLiteral("V"));
    const auto& groups = markup.tabs[0].groups;
    EXPECT_EQ(groups[0].keyTip, QStringLiteral("ZE"));
    EXPECT_EQ(groups[0].items[0].keyTip, QStringLiteral("C"));
    EXPECT_EQ(groups[0].items[1].keyTip, QStringLiteral("T"));  // of "to"
    EXPECT_EQ(groups[0].items[2].keyTip, QStringLiteral("Q"));  // as the markup says
    EXPECT_EQ(groups[1].keyTip, QStringLiteral("ZN"));
    EXPECT_EQ(groups[1].items[0].keyTip, QStringLiteral("P"));
    EXPECT_EQ(groups[1].items[0].arrowKeyTip, QStringLiteral("A"));
    EXPECT_EQ(groups[1].items[0].entries[1].keyTip, QStringLiteral("O"));
    expectDistinct(tipsOf(markup.tabs[0]));
}

TEST(KeyTipsTest, StayDistinctWhenTheLettersAreUsedUp) {
    QByteArray buttons;
    for (int command = 200; command < 250; ++command)
        buttons += "<button command='" + QByteArray::number(command) + "'/>";
    const WordSource source;
    const RibbonMarkup markup = tipped(
        "<ribbon><tab id='t' text='1'><group id='g' text='1'>" + buttons + "</group></tab></ribbon>", source);
    expectDistinct(tipsOf(markup.tabs[0]));
}

TEST(KeyTipsTest, AMissingNeighbourChangesNoTip) {
    WordSource source;
    Ribbon all;
    ASSERT_TRUE(all.setMarkup(kMarkup, source));
    source.missing = {10, 12, 22};
    Ribbon some;
    ASSERT_TRUE(some.setMarkup(kMarkup, source));
    for (const int command : {11, 20, 23})
        EXPECT_EQ(some.button(command)->keyTip(), all.button(command)->keyTip()) << command;
}

TEST(KeyTipsTest, AMnemonicIsPutBeforeItsLetterAndAmpersandsStay) {
    struct Case {
        const char* text;
        const char* tip;
        const char* marked;
    };
    for (const auto& [text, tip, marked] :
         {Case{"Name & size", "S", "Name && &size"}, Case{"A&B", "B", "A&&&B"}, Case{"Copy", "", "Copy"}})
        EXPECT_EQ(controls::withMnemonic(QLatin1String(text), QLatin1String(tip)), QLatin1String(marked));
}

class KeyTipsInAWindow : public testing::Test {
 protected:
    void SetUp() override {
        ribbon_ = new Ribbon(&window_);
        field_ = new QLineEdit(&window_);
        auto* layout = new QVBoxLayout(&window_);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(ribbon_);
        layout->addWidget(field_, 1);
        ASSERT_TRUE(ribbon_->setMarkup(kMarkup, source_));
        window_.resize(900, 300);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
        field_->setFocus();
        source_.onChosen = [this](int command) {
            told_ = command;
            focusAtCommand_ = QApplication::focusWidget();
        };
    }

    void press(int key) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    void pressAlt() {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyPress(focus, Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(focus, Qt::Key_Alt);
    }
    /// A desktop does so when a menu closes; the platform without one forgets it now and then.
    void activateAgain() {
        ASSERT_TRUE(QTest::qWaitFor([this] {
            window_.activateWindow();
            return QApplication::activeWindow() == &window_;
        }));
    }
    /// Sends the key to the menu that comes up. It waits until the menu has the keyboard: an activation that
    /// comes after the menu has closed again would take it away from the window.
    void pressInMenu(QTimer& timer, Qt::Key key) {
        QObject::connect(&timer, &QTimer::timeout, ribbon_, [&timer, key, tries = 0]() mutable {
            QWidget* menu = QApplication::activePopupWidget();
            if (menu == nullptr) return;
            constexpr int kEnough = 100;
            if (QApplication::activeWindow() != menu && ++tries < kEnough) return;
            timer.stop();
            QTest::keyClick(menu, key);
        });
        timer.start(5);
    }
    void type(const char* letters) {
        for (; *letters != 0; ++letters) QTest::keyClick(QApplication::focusWidget(), *letters);
    }
    /// What is shown over the window, in the order of the alphabet.
    std::string tips(const QWidget* parent = nullptr) const {
        QStringList shown;
        for (const QWidget* child : (parent ? parent : &window_)->findChildren<QWidget*>()) {
            if (child->objectName().startsWith(QLatin1String("keyTip-")) && child->isVisible())
                shown.append(child->objectName().mid(7));
        }
        shown.sort();
        return shown.join(QLatin1Char(' ')).toStdString();
    }
    RibbonGroup* group(const char* id) {
        return ribbon_->findChild<RibbonGroup*>(QStringLiteral("group-%1").arg(QLatin1String(id)));
    }

    WordSource source_;
    QWidget window_;
    Ribbon* ribbon_ = nullptr;
    QLineEdit* field_ = nullptr;
    int told_ = 0;
    QWidget* focusAtCommand_ = nullptr;
};

TEST_F(KeyTipsInAWindow, AltShowsThemOverTheTabsAndALetterOverTheButtons) {
    EXPECT_EQ(tips(), "");
    pressAlt();
    EXPECT_EQ(tips(), "H V");
    type("h");
    EXPECT_EQ(tips(), "A C P Q S T U");
    type("t");
    EXPECT_EQ(told_, 11);
    EXPECT_EQ(focusAtCommand_, field_);
    EXPECT_EQ(tips(), "");
    EXPECT_TRUE(field_->hasFocus());
    EXPECT_EQ(field_->text(), QString());
}

TEST_F(KeyTipsInAWindow, EscGoesBackLevelByLevel) {
    pressAlt();
    type("v");
    EXPECT_EQ(ribbon_->currentTab(), QStringLiteral("view"));
    EXPECT_EQ(tips(), "D");
    press(Qt::Key_Escape);
    EXPECT_EQ(tips(), "H V");
    press(Qt::Key_Escape);
    EXPECT_EQ(tips(), "");
    EXPECT_TRUE(field_->hasFocus());
    EXPECT_EQ(told_, 0);
}

TEST_F(KeyTipsInAWindow, ALetterThatIsNoTipDoesNothing) {
    pressAlt();
    type("x");
    EXPECT_EQ(tips(), "H V");
    type("hx");
    EXPECT_EQ(tips(), "A C P Q S T U");
    EXPECT_EQ(told_, 0);
}

TEST_F(KeyTipsInAWindow, ArrowsMouseAltAndResizeTakeThemAway) {
    pressAlt();
    press(Qt::Key_Right);
    EXPECT_EQ(tips(), "");
    EXPECT_EQ(ribbon_->currentTab(), QStringLiteral("view"));
    pressAlt();
    EXPECT_TRUE(field_->hasFocus());
    pressAlt();
    EXPECT_EQ(tips(), "H V");
    pressAlt();
    EXPECT_EQ(tips(), "");
    pressAlt();
    QTest::mouseClick(field_, Qt::LeftButton);
    EXPECT_EQ(tips(), "");
    field_->setFocus();
    pressAlt();
    EXPECT_EQ(tips(), "H V");
    window_.resize(800, 300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return tips().empty(); }));
}

TEST_F(KeyTipsInAWindow, ADisabledButtonHasNoneAndAFoldedRibbonUnfolds) {
    ribbon_->setFolded(true);
    source_.setEnabled(10, false);
    pressAlt();
    type("h");
    EXPECT_FALSE(ribbon_->isFolded());
    EXPECT_EQ(tips(), "A P Q S T U");
    type("c");
    EXPECT_EQ(told_, 0);
}

TEST_F(KeyTipsInAWindow, AMenuOpensAndItsLettersRun) {
    struct Case {
        const char* typed;
        Qt::Key letter;
        int command;
    };
    for (const auto& [typed, letter, command] : {Case{"hs", Qt::Key_U, 31}, Case{"ha", Qt::Key_O, 22}}) {
        told_ = 0;
        pressAlt();
        // Typing opens the menu and returns when it is closed.
        QTimer timer;
        pressInMenu(timer, letter);
        type(typed);
        EXPECT_EQ(told_, command) << typed;
        EXPECT_EQ(tips(), "");
        activateAgain();
        EXPECT_TRUE(field_->hasFocus()) << typed;
    }
}

TEST_F(KeyTipsInAWindow, EscOutOfAMenuShowsTheButtonsAgain) {
    pressAlt();
    QTimer timer;
    pressInMenu(timer, Qt::Key_Escape);
    type("hs");
    EXPECT_EQ(tips(), "A C P Q S T U");
    EXPECT_EQ(told_, 0);
}

TEST_F(KeyTipsInAWindow, ACollapsedGroupOpensByItsTwoLetters) {
    window_.resize(200, 300);
    ASSERT_TRUE(QTest::qWaitFor([this] { return group("a")->isCollapsed(); }));
    pressAlt();
    type("h");
    EXPECT_NE(tips().find("ZE"), std::string::npos) << tips();
    type("z");
    EXPECT_EQ(tips().find('C'), std::string::npos) << tips();
    press(Qt::Key_Escape);
    type("ze");
    ASSERT_TRUE(group("a")->isPopupOpen());
    const QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(tips(popup), "C Q T");
    press(Qt::Key_Escape);
    EXPECT_FALSE(group("a")->isPopupOpen());
    EXPECT_NE(tips().find("ZE"), std::string::npos) << tips();
    type("zec");
    EXPECT_EQ(told_, 10);
    EXPECT_FALSE(group("a")->isPopupOpen());
    EXPECT_TRUE(field_->hasFocus());
}

TEST_F(KeyTipsInAWindow, TheyCanBeReadInBothLooksAndLieInTheWindow) {
    for (const bool dark : {false, true}) {
        QPalette palette;
        palette.setColor(QPalette::Window, dark ? QColor(0x20, 0x20, 0x20) : QColor(0xf2, 0xf3, 0xf5));
        palette.setColor(QPalette::WindowText, dark ? QColor(Qt::white) : QColor(0x1a, 0x1c, 0x1e));
        window_.setPalette(palette);
        pressAlt();
        type("h");
        int seen = 0;
        for (QWidget* child : window_.findChildren<QWidget*>()) {
            if (!child->objectName().startsWith(QLatin1String("keyTip-"))) continue;
            ++seen;
            EXPECT_TRUE(window_.rect().contains(child->geometry()));
            EXPECT_GE(contrast(child->grab(), controls::RibbonColors(palette).body), 4.5) << dark;
        }
        EXPECT_EQ(seen, 7);
        pressAlt();
        field_->setFocus();
    }
}

}  // namespace
