#include "browser/AddressBar.h"
#include "browser/PlacesPanel.h"
#include "browser/TabContainer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

using browser::Tab;
using support::TemporaryFolder;

constexpr int kLimit = 20000;

class TabContainerTest : public testing::Test {
 protected:
    TabContainerTest() {
        for (const char* name : {"one", "two", "two/inner"}) std::filesystem::create_directory(folder / name);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(tabs);
        layout->addWidget(bar);
        layout->addWidget(&holder);
        window.resize(700, 400);
        window.show();
        message = bar->StatusMessage.connect([this](const QString& text) { messages << text; });
    }
    ~TabContainerTest() override {
        delete bar;
        delete tabs;
        holder.setParent(nullptr);
    }

    Tab& open(const std::filesystem::path& path, bool selected = true) {
        browser::TabSettings settings;
        settings.selected = selected;
        Tab* tab = tabs->CreateNewTab(path, settings);
        EXPECT_NE(tab, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([&] { return tab->shellBrowser().isFolderLoaded(); }, kLimit));
        return *tab;
    }
    bool waitForFolder(const std::filesystem::path& path) {
        return QTest::qWaitFor(
            [&] {
                const browser::ShellBrowser& shell = tabs->GetSelectedTab().shellBrowser();
                return !shell.isLoading() && shell.currentFolder() == path;
            },
            kLimit);
    }
    void typeAddress(const QString& text) {
        bar->edit().setText(text);
        QTest::keyClick(&bar->edit(), Qt::Key_Return);
    }

    TemporaryFolder folder;
    app::AppContext context;
    tags::PropertyCatalogue catalogue;
    app::LanguageFile language{TAGWRIGHT_BIN_DIR, app::kEnglishLanguage};
    QWidget window;
    QStackedWidget holder;
    browser::TabContainer* tabs = new browser::TabContainer(context, catalogue, language, holder);
    browser::AddressBar* bar = new browser::AddressBar(*tabs, language);
    QStringList messages;
    boost::signals2::scoped_connection message;
};

TEST_F(TabContainerTest, NoFolderNoTab) {
    EXPECT_EQ(tabs->CreateNewTab(folder / "absent"), nullptr);
    support::writeBytes(folder / "file", "");
    EXPECT_EQ(tabs->CreateNewTab(folder / "file"), nullptr);
    EXPECT_FALSE(tabs->hasTabs());
}

TEST_F(TabContainerTest, TellsWhatHappensInOrder) {
    QStringList steps;
    const boost::signals2::scoped_connection connections[] = {
        tabs->TabNavigationStarted.connect(
            [&](const Tab&, const std::filesystem::path&) { steps << "started"; }),
        tabs->TabNavigationCompleted.connect([&](const Tab&) { steps << "completed"; }),
        tabs->TabSelected.connect([&](const Tab&) { steps << "selected"; }),
        tabs->TabCreated.connect(
            [&](int id, bool selected) { steps << QString("created %1 %2").arg(id).arg(selected); }),
        tabs->TabRemoved.connect([&](int id) { steps << QString("removed %1").arg(id); })};
    open(folder / "one");
    EXPECT_EQ(steps, (QStringList{"started", "completed", "selected", "created 0 1"}));
    steps.clear();
    Tab& second = open(folder / "two", false);
    EXPECT_EQ(steps, (QStringList{"started", "completed", "created 1 0"}));
    EXPECT_FALSE(second.shellBrowser().view().isVisible());
    steps.clear();
    tabs->SelectTab(second);
    tabs->closeTab(second);
    EXPECT_EQ(steps, (QStringList{"selected", "selected", "removed 1"}));
}

TEST_F(TabContainerTest, TheLastTabStays) {
    Tab& only = open(folder / "one");
    EXPECT_FALSE(tabs->closeTab(only));
    EXPECT_EQ(tabs->tabCount(), 1);
    EXPECT_EQ(tabs->tabBar().count(), 1);
}

TEST_F(TabContainerTest, AMiddleClickClosesAndThePlusOpens) {
    open(folder / "one");
    QTest::mouseClick(tabs->findChild<QToolButton*>("NewTab"), Qt::LeftButton);
    ASSERT_EQ(tabs->tabCount(), 2);
    EXPECT_TRUE(waitForFolder(folder / "one"));
    EXPECT_EQ(tabs->tabBar().currentIndex(), 1);
    QTest::mouseClick(&tabs->tabBar(), Qt::MiddleButton, {}, tabs->tabBar().tabRect(1).center());
    EXPECT_EQ(tabs->tabCount(), 1);
}

TEST_F(TabContainerTest, ATabIsNamedAfterItsFolderUnlessItsNameIsFixed) {
    Tab& tab = open(folder / "one");
    browser::TabSettings settings;
    settings.name = "Fixed & firm";
    settings.index = 0;
    Tab* fixed = tabs->CreateNewTab(folder / "one", settings);
    EXPECT_EQ(tabs->indexOf(*fixed), 0);
    tab.shellBrowser().BrowseFolder(folder / "two", true);
    fixed->shellBrowser().BrowseFolder(folder / "two", true);
    EXPECT_EQ(tabs->tabBar().tabText(1), "two");
    EXPECT_EQ(tabs->tabBar().tabText(0), "Fixed && firm");
}

TEST_F(TabContainerTest, EachTabHasItsOwnHistory) {
    Tab& first = open(folder / "one");
    Tab& second = open(folder / "two");
    second.shellBrowser().BrowseFolder(folder / "two/inner", true);
    EXPECT_EQ(first.shellBrowser().navigationController().entryCount(), 1);
    EXPECT_EQ(second.shellBrowser().navigationController().entryCount(), 2);
}

TEST_F(TabContainerTest, TheBarFollowsTheSelectedTab) {
    Tab& first = open(folder / "one");
    open(folder / "two");
    EXPECT_EQ(bar->text().toStdString(), (folder / "two").native());
    first.shellBrowser().BrowseFolder(folder.path(), true);
    EXPECT_EQ(bar->text().toStdString(), (folder / "two").native());
    tabs->SelectTab(first);
    EXPECT_EQ(bar->text().toStdString(), folder.path().native());
}

TEST_F(TabContainerTest, ATypedPathIsTakenFromTheTabsFolder) {
    open(folder / "one");
    typeAddress("../two/inner");
    EXPECT_TRUE(waitForFolder(folder / "two/inner"));
    EXPECT_EQ(bar->text().toStdString(), (folder / "two/inner").native());
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(TabContainerTest, AWrongPathStaysInTheBarAndIsTold) {
    open(folder / "one");
    typeAddress("absent");
    EXPECT_EQ(bar->text(), "absent");
    ASSERT_EQ(messages.size(), 1);
    EXPECT_TRUE(messages[0].contains("absent"));
    EXPECT_EQ(tabs->GetSelectedTab().shellBrowser().currentFolder(), folder / "one");
    QTest::keyClick(&bar->edit(), Qt::Key_Escape);
    EXPECT_EQ(bar->text().toStdString(), (folder / "one").native());
}

TEST_F(TabContainerTest, AFolderThatIsReadLateLeavesWhatIsTypedByThen) {
    Tab& tab = open(folder / "one");
    bar->editPath();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->edit().hasFocus(); }, kLimit));
    QTest::keyClicks(&bar->edit(), "../tw");
    tabs->TabNavigationCompleted(tab);
    QTest::keyClicks(&bar->edit(), "o");
    EXPECT_EQ(bar->text(), "../two");
    QTest::keyClick(&bar->edit(), Qt::Key_Return);
    EXPECT_TRUE(waitForFolder(folder / "two"));
    tabs->TabNavigationCompleted(tab);
    EXPECT_EQ(bar->text().toStdString(), (folder / "two").native());
}

TEST_F(TabContainerTest, AFolderWhoseNameIsNoTextIsReadAgainByEnter) {
    std::filesystem::create_directory(folder / "bad\xE9");
    open(folder / "bad\xE9");
    QTest::keyClick(&bar->edit(), Qt::Key_Return);
    EXPECT_TRUE(waitForFolder(folder / "bad\xE9"));
    EXPECT_TRUE(messages.isEmpty());
}

TEST_F(TabContainerTest, TheButtonsWalkTheHistory) {
    open(folder / "two");
    const auto button = [&](const char* name) { return bar->findChild<QToolButton*>(name); };
    EXPECT_FALSE(button("Back")->isEnabled());
    QTest::mouseClick(button("Up"), Qt::LeftButton);
    EXPECT_TRUE(waitForFolder(folder.path()));
    EXPECT_EQ(tabs->GetSelectedTab().shellBrowser().GetSelectedFiles(),
              std::vector<std::filesystem::path>{folder / "two"});
    QTest::mouseClick(button("Back"), Qt::LeftButton);
    EXPECT_TRUE(waitForFolder(folder / "two"));
    EXPECT_TRUE(button("Forward")->isEnabled());
    QTest::mouseClick(button("Forward"), Qt::LeftButton);
    EXPECT_TRUE(waitForFolder(folder.path()));
}

TEST_F(TabContainerTest, FolderNamesAreOfferedWhileTyping) {
    open(folder.path());
    bar->editPath();
    bar->edit().clear();
    QTest::keyClicks(&bar->edit(), "t");
    const auto offers = [&] {
        QStringList all;
        for (int row = 0; row < bar->edit().completer()->model()->rowCount(); ++row)
            all << bar->edit().completer()->model()->index(row, 0).data().toString();
        return all;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return offers() == QStringList{"one", "two"}; }, kLimit));
    bar->edit().clear();
    QTest::keyClicks(&bar->edit(), "two/");
    EXPECT_TRUE(QTest::qWaitFor([&] { return offers() == QStringList{"two/inner"}; }, kLimit));
}

TEST_F(TabContainerTest, ALateIconReachesTheBar) {
    open("/");
    Tab& tab = tabs->GetSelectedTab();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return tab.shellBrowser().navigationController().currentEntry()->systemIconIndex().has_value();
        },
        kLimit));
}

TEST_F(TabContainerTest, HiddenFilesAreReadAgainWhenWanted) {
    support::writeBytes(folder / "one/.hidden", "");
    Tab& tab = open(folder / "one");
    EXPECT_EQ(tab.shellBrowser().model().rowCount(), 0);
    tabs->setShowHidden(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tab.shellBrowser().model().rowCount() == 1; }, kLimit));
}

TEST(PlacesPanel, MarksTheNearestPlaceAndTellsClicks) {
    const app::LanguageFile language(TAGWRIGHT_BIN_DIR, app::kEnglishLanguage);
    browser::PlacesPanel panel(language);
    panel.resize(200, 400);
    panel.show();
    panel.setCurrentFolder("/etc");
    ASSERT_NE(panel.currentItem(), nullptr);
    EXPECT_EQ(panel.currentItem()->text(0), "File system");
    std::vector<std::filesystem::path> told;
    const boost::signals2::scoped_connection connection =
        panel.PlaceActivated.connect([&](const std::filesystem::path& path) { told.push_back(path); });
    const QPoint place = panel.visualItemRect(panel.currentItem()).center();
    QTest::mouseClick(panel.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told, std::vector<std::filesystem::path>{"/"});
    QTest::mouseClick(panel.viewport(), Qt::LeftButton, {},
                      panel.visualItemRect(panel.topLevelItem(0)).center());
    EXPECT_EQ(told.size(), 1U);
}

}  // namespace
