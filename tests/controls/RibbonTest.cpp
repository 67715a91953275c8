#include "controls/Ribbon.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>

#include "controls/PictureMeasures.h"
#include "controls/RibbonButton.h"
#include "controls/RibbonFixture.h"
#include "controls/RibbonGroup.h"
#include "controls/RibbonPage.h"

using controls::Ribbon;
using controls::RibbonButton;
using controls::RibbonGroup;

namespace {

constexpr char kMarkup[] =
    "<ribbon foldText='99'><tab id='first' text='1'>"
    "<group id='a' text='100' priority='5'><button command='10' icon='tag' size='large'/>"
    "<button command='11' icon='tag'/><button command='12' icon='tag'/><button command='13' icon='tag'/>"
    "<button command='14' icon='tag'/></group>"
    "<group id='b' text='101' priority='1'><split command='20' icon='tag' size='large'><button command='21'/>"
    "<menu id='inner' text='102'><button command='22'/></menu></split><button command='23' "
    "icon='tag'/></group>"
    "<group id='c' text='103' priority='5'><menu id='m' text='104' icon='tag'><button command='30'/></menu>"
    "<button command='7' icon='tag' size='large'/></group></tab>"
    "<tab id='second' text='2'><group id='d' text='105'><button command='40' icon='tag' "
    "size='large'/></group></tab>"
    "</ribbon>";

/// A window with the ribbon over a field that holds the focus.
class RibbonTest : public testing::Test {
 protected:
    void SetUp() override {
        source_.toggles = {12, 21};
        source_.keys.insert(21, QKeySequence(QStringLiteral("Ctrl+E")));
        ribbon_ = new Ribbon(&window_);
        field_ = new QLineEdit(&window_);
        auto* layout = new QVBoxLayout(&window_);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(ribbon_);
        layout->addWidget(field_);
        QString error;
        ASSERT_TRUE(ribbon_->setMarkup(kMarkup, source_, &error)) << error.toStdString();
        window_.resize(900, 300);
        window_.show();
        window_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
        field_->setFocus();
    }

    QTabBar* tabs() { return ribbon_->findChild<QTabBar*>(QStringLiteral("ribbonTabs")); }
    RibbonGroup* group(const char* id) {
        return ribbon_->findChild<RibbonGroup*>(QStringLiteral("group-%1").arg(QLatin1String(id)));
    }
    QAction* action(int command) {
        return ribbon_->findChild<QAction*>(QStringLiteral("action-%1").arg(command));
    }
    void clickTab(int index) {
        QTest::mouseClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(index).center());
    }
    void press(int key) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
    void resizeWindow(int width) {
        window_.resize(width, 300);
        ASSERT_TRUE(QTest::qWaitFor([&] { return ribbon_->width() == width; }));
    }
    QString focusName() const {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    }

    NumberedSource source_;
    QWidget window_;
    Ribbon* ribbon_ = nullptr;
    QLineEdit* field_ = nullptr;
};

TEST_F(RibbonTest, ScriptsFindEveryCommand) {
    for (const int command : {10, 11, 12, 13, 14, 20, 23, 7, 40}) {
        const auto* button = ribbon_->findChild<QToolButton*>(QStringLiteral("command-%1").arg(command));
        ASSERT_NE(button, nullptr) << command;
        EXPECT_EQ(button->property("commandId").toInt(), command);
        EXPECT_EQ(ribbon_->button(command), button);
    }
    for (const int command : {21, 22, 30}) {
        ASSERT_NE(action(command), nullptr) << command;
        EXPECT_EQ(action(command)->property("commandId").toInt(), command);
        EXPECT_EQ(ribbon_->button(command), nullptr);
        EXPECT_TRUE(ribbon_->contains(command));
    }
    EXPECT_FALSE(ribbon_->contains(15));
}

TEST_F(RibbonTest, IsAsHighAsItsLookSays) {
    EXPECT_GE(tabs()->height(), 30);
    EXPECT_GE(ribbon_->page(QStringLiteral("first"))->height(), 84);
    EXPECT_EQ(ribbon_->height(), tabs()->height() + ribbon_->page(QStringLiteral("first"))->height());
}

TEST_F(RibbonTest, AToolTipIsTheOneOfTheCommandAndAMenuButtonHasItsText) {
    EXPECT_EQ(ribbon_->button(12)->toolTip(), QStringLiteral("Tip 12"));
    EXPECT_EQ(ribbon_->findChild<QToolButton*>(QStringLiteral("menu-m"))->toolTip(), QStringLiteral("T104"));
}

TEST_F(RibbonTest, AnEntryOfAMenuTellsTheKeysOfItsCommand) {
    EXPECT_EQ(action(22)->text(), QStringLiteral("&T22"));
    EXPECT_EQ(action(21)->text().section(u'\t', 1), QStringLiteral("Ctrl+E"));
}

TEST_F(RibbonTest, AClickTellsTheCommandAndChangesNoState) {
    QTest::mouseClick(ribbon_->button(12), Qt::LeftButton);
    EXPECT_EQ(source_.chosen, std::vector<int>{12});
    EXPECT_FALSE(ribbon_->button(12)->isChecked());
    source_.action(12)->setStates(true, true);
    EXPECT_TRUE(ribbon_->button(12)->isChecked());
    EXPECT_FALSE(ribbon_->button(10)->isCheckable());
}

TEST_F(RibbonTest, AMenuEntryTellsItsCommandAndKeepsItsState) {
    source_.action(21)->setStates(true, true);
    EXPECT_TRUE(action(21)->isChecked());
    action(21)->trigger();
    action(22)->trigger();
    EXPECT_EQ(source_.chosen, (std::vector<int>{21, 22}));
    EXPECT_TRUE(action(21)->isChecked());
}

TEST_F(RibbonTest, ADisabledCommandDoesNothing) {
    source_.setEnabled(11, false);
    source_.setEnabled(30, false);
    EXPECT_FALSE(ribbon_->button(11)->isEnabled());
    QTest::mouseClick(ribbon_->button(11), Qt::LeftButton);
    EXPECT_FALSE(action(30)->isEnabled());
    action(30)->trigger();
    EXPECT_TRUE(source_.chosen.empty());
    source_.setEnabled(11, true);
    QTest::mouseClick(ribbon_->button(11), Qt::LeftButton);
    EXPECT_EQ(source_.chosen, std::vector<int>{11});
}

/// The contrast of what stands out most on the button.
double strongest(RibbonButton& button) {
    QWidget& window = *button.window();  // which paints the ground
    const QPixmap picture = window.grab(QRect(button.mapTo(&window, QPoint(0, 0)), button.size()));
    return contrast(picture, picture.toImage().pixelColor(1, 1));
}

TEST_F(RibbonTest, ADisabledCommandIsGreyAndCanStillBeReadInBothLooks) {
    const QPalette light = window_.palette();
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x2b, 0x2d, 0x2f));
    dark.setColor(QPalette::WindowText, QColor(0xe4, 0xe6, 0xe8));
    for (const QPalette& look : {light, dark}) {
        window_.setPalette(look);
        for (const int command : {10, 11}) {
            RibbonButton& button = *ribbon_->button(command);
            source_.setEnabled(command, true);
            const double enabled = strongest(button);
            source_.setEnabled(command, false);
            const double disabled = strongest(button);
            EXPECT_GT(enabled, disabled + 2) << command;
            EXPECT_GT(disabled, 2.2) << command;
        }
    }
}

TEST_F(RibbonTest, TheMenuOfASplitButtonOpensWhileItsCommandCannotRun) {
    RibbonButton* split = ribbon_->button(20);
    source_.setEnabled(20, false);
    EXPECT_FALSE(split->canRun());
    QTest::mouseClick(split, Qt::LeftButton, {}, QPoint(split->width() / 2, 10));
    EXPECT_TRUE(source_.chosen.empty());
    QSignalSpy opens(ribbon_, &Ribbon::MenuAboutToOpen);
    // showMenu() returns when the menu is closed.
    QObject::connect(split->menu(), &QMenu::aboutToShow, split,
                     [&] { QMetaObject::invokeMethod(split->menu(), &QMenu::close, Qt::QueuedConnection); });
    QTest::mouseClick(split, Qt::LeftButton, {}, split->arrowRect().center());
    EXPECT_EQ(opens.size(), 1);
}

TEST_F(RibbonTest, TheArrowOfASplitButtonOpensItsMenu) {
    RibbonButton* split = ribbon_->button(20);
    QTest::mouseClick(split, Qt::LeftButton, {}, QPoint(split->width() / 2, 10));
    EXPECT_EQ(source_.chosen, std::vector<int>{20});
    bool opened = false;
    // showMenu() returns when the menu is closed.
    QObject::connect(split->menu(), &QMenu::aboutToShow, split, [&] {
        opened = true;
        QMetaObject::invokeMethod(split->menu(), &QMenu::close, Qt::QueuedConnection);
    });
    QTest::mouseClick(split, Qt::LeftButton, {}, split->arrowRect().center());
    EXPECT_TRUE(opened);
    EXPECT_EQ(source_.chosen.size(), 1U);
}

TEST_F(RibbonTest, FaultyMarkupLeavesTheRibbonAsItWas) {
    QString error;
    EXPECT_FALSE(ribbon_->setMarkup("<ribbon><tab/></ribbon>", source_, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_NE(ribbon_->button(10), nullptr);
    EXPECT_EQ(ribbon_->tabIds(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

TEST_F(RibbonTest, NewMarkupKeepsTabAndStatesAndLeavesOutWhatIsMissing) {
    ribbon_->setCurrentTab(QStringLiteral("second"));
    source_.action(12)->setStates(true, true);
    source_.setEnabled(40, false);
    source_.missing = {10, 11, 7, 30};
    ASSERT_TRUE(ribbon_->setMarkup(kMarkup, source_));
    EXPECT_EQ(ribbon_->currentTab(), QStringLiteral("second"));
    EXPECT_TRUE(ribbon_->button(12)->isChecked());
    EXPECT_FALSE(ribbon_->button(40)->isEnabled());
    EXPECT_EQ(ribbon_->button(10), nullptr);
    EXPECT_EQ(ribbon_->page(QStringLiteral("first"))->groups().size(), 2U);
    source_.missing = {10, 11, 12, 13, 14, 20, 21, 22, 23, 7, 30};
    ASSERT_TRUE(ribbon_->setMarkup(kMarkup, source_));
    EXPECT_EQ(ribbon_->tabIds(), QStringList(QStringLiteral("second")));
}

TEST_F(RibbonTest, NewMarkupOutOfAClickIsSafe) {
    source_.onChosen = [this](int) { EXPECT_TRUE(ribbon_->setMarkup(kMarkup, source_)); };
    QTest::mouseClick(ribbon_->button(10), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_NE(ribbon_->button(10), nullptr);
}

TEST_F(RibbonTest, NarrowingCollapsesTheLeastImportantFirst) {
    const int full = ribbon_->page(QStringLiteral("first"))->sizeHint().width();
    resizeWindow(full);
    EXPECT_FALSE(group("a")->isCollapsed() || group("b")->isCollapsed() || group("c")->isCollapsed());
    resizeWindow(full - 1);
    EXPECT_TRUE(group("b")->isCollapsed());
    EXPECT_FALSE(group("a")->isCollapsed() || group("c")->isCollapsed());
    resizeWindow(full - (group("b")->fullWidth() - group("b")->collapsedWidth()) - 1);
    EXPECT_TRUE(group("b")->isCollapsed() && group("c")->isCollapsed());
    EXPECT_FALSE(group("a")->isCollapsed());
    resizeWindow(200);
    EXPECT_TRUE(group("a")->isCollapsed());
    resizeWindow(full);
    EXPECT_FALSE(group("a")->isCollapsed() || group("b")->isCollapsed() || group("c")->isCollapsed());
    EXPECT_TRUE(ribbon_->button(23)->isVisible());
}

TEST_F(RibbonTest, ACollapsedGroupShowsItsButtonsInAPopup) {
    resizeWindow(200);
    ASSERT_TRUE(group("a")->isCollapsed());
    EXPECT_FALSE(ribbon_->button(11)->isVisible());
    EXPECT_TRUE(group("a")->dropDown()->isVisible());
    QTest::mouseClick(group("a")->dropDown(), Qt::LeftButton);
    ASSERT_TRUE(group("a")->isPopupOpen());
    ASSERT_TRUE(ribbon_->button(11)->isVisible());
    bool openAtCommand = true;
    source_.onChosen = [&](int) { openAtCommand = group("a")->isPopupOpen(); };
    QTest::mouseClick(ribbon_->button(11), Qt::LeftButton);
    EXPECT_FALSE(openAtCommand);
    EXPECT_FALSE(group("a")->isPopupOpen());
}

TEST_F(RibbonTest, NoTextIsCut) {
    for (const int command : {10, 11, 20, 23, 7}) {
        const RibbonButton* button = ribbon_->button(command);
        EXPECT_GE(button->width(), button->sizeHint().width()) << command;
        EXPECT_GE(button->height(), button->fontMetrics().height()) << command;
    }
}

TEST_F(RibbonTest, ALargerFontMakesALargerRibbon) {
    const int before = ribbon_->height();
    QFont font = ribbon_->font();
    font.setPointSizeF(font.pointSizeF() * 2);
    ribbon_->setFont(font);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ribbon_->height() > before + 40; }));
    const RibbonButton* button = ribbon_->button(14);
    EXPECT_GE(button->height(), button->fontMetrics().height());
}

TEST_F(RibbonTest, ADoubleClickFoldsAndAClickUnfolds) {
    QSignalSpy spy(ribbon_, &Ribbon::FoldedChanged);
    const int before = ribbon_->height();
    QTest::mouseDClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(0).center());
    EXPECT_TRUE(ribbon_->isFolded());
    EXPECT_TRUE(QTest::qWaitFor([&] { return ribbon_->height() == tabs()->height(); }));
    clickTab(1);
    EXPECT_FALSE(ribbon_->isFolded());
    EXPECT_EQ(ribbon_->currentTab(), QStringLiteral("second"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ribbon_->height() == before; }));
    EXPECT_EQ(spy.size(), 2);
}

TEST_F(RibbonTest, ADoubleClickOnAFoldedRibbonUnfoldsItForGood) {
    ribbon_->setFolded(true);
    clickTab(0);
    QTest::mouseDClick(tabs(), Qt::LeftButton, {}, tabs()->tabRect(0).center());
    EXPECT_FALSE(ribbon_->isFolded());
}

TEST_F(RibbonTest, TheArrowAtTheRightFoldsToo) {
    auto* fold = ribbon_->findChild<QToolButton*>(QStringLiteral("ribbonFold"));
    ASSERT_NE(fold, nullptr);
    EXPECT_EQ(fold->toolTip(), QStringLiteral("T99"));
    QTest::mouseClick(fold, Qt::LeftButton);
    EXPECT_TRUE(ribbon_->isFolded());
    QTest::mouseClick(fold, Qt::LeftButton);
    EXPECT_FALSE(ribbon_->isFolded());
}

TEST_F(RibbonTest, TheKeyboardReachesACommandAndGivesTheFocusBackFirst) {
    QWidget* focusAtCommand = nullptr;
    int told = 0;
    source_.onChosen = [&](int command) {
        told = command;
        focusAtCommand = QApplication::focusWidget();
    };
    press(Qt::Key_F10);
    EXPECT_EQ(focusName().toStdString(), "ribbonTabs");
    press(Qt::Key_Down);
    EXPECT_EQ(focusName().toStdString(), "command-10");
    press(Qt::Key_Right);
    EXPECT_EQ(focusName().toStdString(), "command-12");
    press(Qt::Key_Up);
    EXPECT_EQ(focusName().toStdString(), "command-11");
    press(Qt::Key_Right);
    EXPECT_EQ(focusName().toStdString(), "command-14");
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    EXPECT_EQ(told, 11);
    EXPECT_EQ(focusAtCommand, field_);
}

TEST_F(RibbonTest, TheArrowsChangeTheTabAndEscGoesBack) {
    press(Qt::Key_F10);
    press(Qt::Key_Right);
    EXPECT_EQ(ribbon_->currentTab(), QStringLiteral("second"));
    press(Qt::Key_Down);
    EXPECT_EQ(focusName().toStdString(), "command-40");
    press(Qt::Key_Escape);
    EXPECT_EQ(focusName().toStdString(), "ribbonTabs");
    press(Qt::Key_Escape);
    EXPECT_TRUE(field_->hasFocus());
}

TEST_F(RibbonTest, AltAloneEntersAndAltWithAKeyDoesNot) {
    QTest::keyPress(field_, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(field_, Qt::Key_X, Qt::AltModifier);
    QTest::keyRelease(field_, Qt::Key_Alt);
    EXPECT_TRUE(field_->hasFocus());
    QTest::keyPress(field_, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(field_, Qt::Key_Alt);
    EXPECT_EQ(focusName().toStdString(), "ribbonTabs");
    QTest::keyPress(tabs(), Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(tabs(), Qt::Key_Alt);
    EXPECT_TRUE(field_->hasFocus());
}

TEST_F(RibbonTest, TheKeyboardUnfoldsAndSkipsDisabledButtons) {
    ribbon_->setFolded(true);
    source_.setEnabled(10, false);
    press(Qt::Key_F10);
    press(Qt::Key_Down);
    EXPECT_FALSE(ribbon_->isFolded());
    EXPECT_EQ(focusName().toStdString(), "command-11");
}

TEST_F(RibbonTest, TheKeyboardWalksThroughThePopupOfACollapsedGroup) {
    resizeWindow(200);
    press(Qt::Key_F10);
    press(Qt::Key_Down);
    EXPECT_EQ(focusName().toStdString(), "collapsed-a");
    press(Qt::Key_Return);
    ASSERT_TRUE(group("a")->isPopupOpen());
    EXPECT_EQ(focusName().toStdString(), "command-10");
    press(Qt::Key_Right);
    EXPECT_EQ(focusName().toStdString(), "command-12");
    press(Qt::Key_Escape);
    EXPECT_FALSE(group("a")->isPopupOpen());
    EXPECT_EQ(focusName().toStdString(), "collapsed-a");
}

TEST_F(RibbonTest, AnAmpersandInATextIsOne) {
    struct : NumberedSource {
        QString text(int) const override { return QStringLiteral("Copy && move & more"); }
    } source;
    ASSERT_TRUE(ribbon_->setMarkup(kMarkup, source));
    EXPECT_EQ(ribbon_->button(10)->label(), QStringLiteral("Copy && move & more"));
    EXPECT_TRUE(ribbon_->button(10)->shortcut().isEmpty());
    EXPECT_EQ(tabs()->tabText(0), QStringLiteral("Copy &&&& move && more"));
}

}  // namespace
