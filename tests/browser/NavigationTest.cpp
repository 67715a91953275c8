#include "browser/ShellNavigationController.h"

#include "app/LanguageFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

using browser::HistoryEntry;

/// Completes every navigation at once, or fails before completion when told so.
class FakeNavigator final : public browser::NavigatorInterface {
 public:
    long BrowseFolder(const std::filesystem::path& folder, bool addHistoryEntry) override {
        browsed.push_back(folder);
        if (!fails) completed_(folder, addHistoryEntry);
        return 0;
    }
    boost::signals2::connection addNavigationCompletedObserver(
        const NavigationCompletedSignal::slot_type& slot) override {
        return completed_.connect(slot);
    }

    std::vector<std::filesystem::path> browsed;
    bool fails = false;

 private:
    NavigationCompletedSignal completed_;
};

class FakeIconFetcher final : public browser::IconFetcher {
 public:
    void QueueIconTask(const std::filesystem::path&, Callback callback) override {
        callbacks.push_back(std::move(callback));
    }
    void clearQueue() override { callbacks.clear(); }
    std::vector<Callback> callbacks;
};

class Navigation : public testing::Test {
 protected:
    void browse(std::initializer_list<const char*> folders) {
        for (const char* folder : folders) navigator.BrowseFolder(folder, true);
    }
    std::vector<std::string> entries() const {
        std::vector<std::string> paths;
        for (int i = 0; i < controller.entryCount(); ++i) paths.push_back(controller.entryAt(i)->path());
        return paths;
    }

    FakeNavigator navigator;
    FakeIconFetcher icons;
    browser::ShellNavigationController controller{navigator, icons};
};

TEST_F(Navigation, BeginsEmpty) {
    EXPECT_EQ(controller.currentIndex(), -1);
    EXPECT_EQ(controller.GoUp(), browser::kNavigationFailed);
    EXPECT_EQ(controller.Refresh(), browser::kNavigationFailed);
    EXPECT_EQ(controller.GoToOffset(0), browser::kNavigationFailed);
    EXPECT_TRUE(navigator.browsed.empty());
}

TEST_F(Navigation, TheFirstBrowseSetsThePlaceTo0) {
    browse({"/a"});
    EXPECT_EQ(controller.currentIndex(), 0);
    EXPECT_EQ(controller.currentEntry()->displayName(), "a");
}

TEST_F(Navigation, BackAndForwardStopAtTheEnds) {
    browse({"/a", "/b"});
    controller.GoToOffset(1);
    EXPECT_EQ(controller.currentIndex(), 1);
    controller.GoToOffset(-1);
    EXPECT_EQ(controller.currentIndex(), 0);
    controller.GoToOffset(-1);
    EXPECT_EQ(controller.currentIndex(), 0);
    EXPECT_EQ(navigator.browsed.size(), 3U);
    EXPECT_EQ(navigator.browsed.back(), "/a");
    EXPECT_EQ(controller.entryCount(), 2);
}

TEST_F(Navigation, ANewFolderCutsOffTheForwardEntries) {
    browse({"/a", "/b", "/c"});
    controller.GoToOffset(-2);
    browse({"/d"});
    EXPECT_EQ(entries(), (std::vector<std::string>{"/a", "/d"}));
    EXPECT_EQ(controller.currentIndex(), 1);
}

TEST_F(Navigation, RefreshAddsNothing) {
    browse({"/a", "/b"});
    EXPECT_EQ(controller.Refresh(), browser::kNavigationOk);
    EXPECT_EQ(controller.entryCount(), 2);
    EXPECT_EQ(navigator.browsed.back(), "/b");
}

TEST_F(Navigation, UpGoesToTheParentWithHistoryAndStopsAtTheRoot) {
    browse({"/a/b"});
    EXPECT_EQ(controller.GoUp(), browser::kNavigationOk);
    EXPECT_EQ(controller.GoUp(), browser::kNavigationOk);
    EXPECT_EQ(controller.GoUp(), browser::kNavigationFailed);
    EXPECT_EQ(entries(), (std::vector<std::string>{"/a/b", "/a", "/"}));
}

TEST_F(Navigation, ThePlaceMovesEvenIfTheFolderFails) {
    browse({"/a", "/b"});
    navigator.fails = true;
    controller.GoToOffset(-1);
    EXPECT_EQ(controller.currentIndex(), 0);
}

TEST_F(Navigation, AFailureBeforeCompletionLeavesTheHistory) {
    browse({"/a"});
    navigator.fails = true;
    navigator.BrowseFolder("/b", true);
    EXPECT_EQ(entries(), std::vector<std::string>{"/a"});
}

TEST_F(Navigation, ALateIconReachesItsEntryOnly) {
    browse({"/a", "/b"});
    int updates = 0;
    const boost::signals2::scoped_connection connection = controller.currentEntry()->addUpdatedObserver(
        [&](const HistoryEntry&, HistoryEntry::PropertyType) { ++updates; });
    icons.callbacks[1](5);
    icons.callbacks[1](5);
    EXPECT_EQ(controller.currentEntry()->systemIconIndex(), 5);
    EXPECT_EQ(updates, 1);
}

TEST_F(Navigation, TheIconOfAnEntryThatWasCutOffIsDropped) {
    browse({"/a", "/b"});
    controller.GoToOffset(-1);
    browse({"/c"});
    icons.callbacks[1](5);
    EXPECT_EQ(controller.entryAt(1)->path(), "/c");
    EXPECT_FALSE(controller.entryAt(1)->systemIconIndex().has_value());
}

TEST(NavigationEnd, AnIconAfterTheControllerIsDropped) {
    FakeNavigator navigator;
    FakeIconFetcher icons;
    {
        browser::ShellNavigationController controller(navigator, icons);
        navigator.BrowseFolder("/a", true);
    }
    icons.callbacks[0](5);
    navigator.BrowseFolder("/b", true);
    EXPECT_EQ(icons.callbacks.size(), 1U);
}

TEST_F(Navigation, APathIsCheckedBeforeItIsBrowsed) {
    const support::TemporaryFolder folder;
    support::writeBytes(folder / "file", "");
    std::filesystem::create_directory(folder / "two words");
    EXPECT_EQ(controller.BrowseFolder(folder / "absent"), browser::kPathNotFound);
    EXPECT_EQ(controller.BrowseFolder(folder / "file"), browser::kPathIsNoFolder);
    EXPECT_EQ(controller.BrowseFolder(QString()), browser::kPathNotFound);
    EXPECT_EQ(controller.BrowseFolder(QString("https://example.org/")), browser::kPathNotFound);
    EXPECT_TRUE(navigator.browsed.empty());
    const QString address = "file://" + QString::fromStdString(folder.path()) + "/two%20words";
    EXPECT_EQ(controller.BrowseFolder(address), browser::kNavigationOk);
    EXPECT_EQ(navigator.browsed.back(), folder / "two words");
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, app::kEnglishLanguage);
    for (const long failure :
         {browser::kPathNotFound, browser::kPathDenied, browser::kPathIsNoFolder, browser::kNavigationFailed})
        EXPECT_TRUE(english.formatted(browser::navigationFailureText(failure), {"/x y"}).contains("/x y"));
}

TEST(HistoryEntry, NumbersAreUnique) {
    const HistoryEntry first("/a", "a");
    const HistoryEntry second("/a", "a");
    EXPECT_NE(first.id(), second.id());
    EXPECT_EQ(browser::folderDisplayName("/"), "/");
}

}  // namespace
