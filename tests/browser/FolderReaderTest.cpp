#include "browser/FolderReader.h"

#include "app/LanguageFile.h"
#include "app/TextNumbers.h"
#include "browser/FolderLoader.h"
#include "browser/FolderSize.h"
#include "platform/Text.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/UnprivilegedUser.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>
#include <cerrno>

namespace {

using browser::FolderListing;
using browser::FolderState;
using browser::ItemKind;
using support::TemporaryFolder;

const browser::ListItem* find(const FolderListing& listing, std::string_view name) {
    for (std::int32_t id = 0; id < listing.items.nextItemId(); ++id)
        if (listing.items.name(id) == name) return &listing.items.item(id);
    return nullptr;
}

TEST(FolderReader, ListsEveryHostileNameByItsBytes) {
    const TemporaryFolder folder;
    for (const std::string& name : support::hostileNames()) support::writeBytes(folder / name, "x");
    const FolderListing listing = browser::readFolder(folder.path());
    EXPECT_EQ(listing.state, FolderState::Readable);
    EXPECT_EQ(listing.items.count(), support::hostileNames().size());
    for (const std::string& name : support::hostileNames()) {
        const browser::ListItem* item = find(listing, name);
        ASSERT_NE(item, nullptr) << name;
        EXPECT_EQ(item->findData.size, 1U);
        EXPECT_EQ(item->kind, ItemKind::File);
    }
}

TEST(FolderReader, CountsWhatIsInAFolderAndFollowsNoLink) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    support::writeBytes(elsewhere / "large", std::string(5000, 'x'));
    std::filesystem::create_directories(folder / "sub/below/bad\xE9");
    support::writeBytes(folder / "a", std::string(100, 'x'));
    support::writeBytes(folder / ".hidden", std::string(20, 'x'));
    support::writeBytes(folder / "sub/below/bad\xE9/c", std::string(3, 'x'));
    std::filesystem::create_directory_symlink(folder.path(), folder / "sub/circle");
    std::filesystem::create_directory_symlink(elsewhere.path(), folder / "outside");
    std::filesystem::create_symlink(elsewhere / "large", folder / "sub/file");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::atomic_bool stops = false;
    EXPECT_EQ(browser::folderSize(folder.path(), stops), 123U);
    EXPECT_EQ(browser::folderSize(folder / "absent", stops), 0U);
    stops = true;
    EXPECT_FALSE(browser::folderSize(folder.path(), stops));
}

TEST(FolderReader, ShowsAndReopensANameOf255BytesAndOneThatIsNoText) {
    const TemporaryFolder folder;
    const std::string longest(255, 'n');
    support::writeBytes(folder / longest, "abc");
    support::writeBytes(folder / "bad\xE9.jpg", "abcd");
    const FolderListing listing = browser::readFolder(folder.path());
    ASSERT_NE(find(listing, longest), nullptr);
    for (std::int32_t id = 0; id < listing.items.nextItemId(); ++id) {
        const browser::ItemSnapshot snapshot = listing.items.snapshot(folder.path(), id);
        EXPECT_TRUE(std::filesystem::exists(snapshot.path));
        EXPECT_TRUE(snapshot.displayName.size() == 255 ||
                    snapshot.displayName == QString("bad") + QChar(0xFFFD) + ".jpg");
    }
}

TEST(FolderReader, TellsSpecialFilesLinksAndFoldersApart) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "real");
    std::filesystem::create_directory_symlink(folder / "real", folder / "to folder");
    std::filesystem::create_symlink(folder / "nowhere", folder / "broken");
    std::filesystem::create_symlink("loop", folder / "loop");
    support::writeBytes(folder / "file", "12345");
    std::filesystem::create_symlink("file", folder / "to file");
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const std::string socketPath = folder / "socket";
    sockaddr_un address{AF_UNIX, {}};
    ASSERT_LT(socketPath.size(), sizeof address.sun_path);
    std::ranges::copy(socketPath, address.sun_path);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ::close(socket);

    const FolderListing listing = browser::readFolder(folder.path());
    const std::pair<const char*, ItemKind> kinds[] = {
        {"pipe", ItemKind::Fifo},         {"real", ItemKind::Folder},     {"to folder", ItemKind::Folder},
        {"broken", ItemKind::BrokenLink}, {"loop", ItemKind::BrokenLink}, {"file", ItemKind::File},
        {"to file", ItemKind::File},      {"socket", ItemKind::Socket}};
    EXPECT_EQ(listing.items.count(), std::size(kinds));
    for (const auto& [name, kind] : kinds) {
        ASSERT_NE(find(listing, name), nullptr) << name;
        EXPECT_EQ(find(listing, name)->kind, kind) << name;
        EXPECT_TRUE(find(listing, name)->findDataValid) << name;
    }
    EXPECT_EQ(find(listing, "to file")->findData.size, 5U);
    EXPECT_EQ(find(listing, "real")->findData.size, 0U);
    EXPECT_TRUE(find(listing, "to folder")->attributes & browser::attribute::kLink);
}

TEST(FolderReader, ListsDevices) {
    const FolderListing listing = browser::readFolder("/dev");
    ASSERT_NE(find(listing, "null"), nullptr);
    EXPECT_EQ(find(listing, "null")->kind, ItemKind::CharacterDevice);
}

TEST(FolderReader, HidesNamesWithALeadingDotUnlessAsked) {
    const TemporaryFolder folder;
    support::writeBytes(folder / ".hidden", "");
    support::writeBytes(folder / "shown", "");
    EXPECT_EQ(browser::readFolder(folder.path()).items.count(), 1U);
    const FolderListing all = browser::readFolder(folder.path(), {true, nullptr});
    ASSERT_EQ(all.items.count(), 2U);
    EXPECT_TRUE(find(all, ".hidden")->isHidden());
    EXPECT_FALSE(find(all, "shown")->isHidden());
}

TEST(FolderReader, SaysWhyThereIsNothing) {
    const TemporaryFolder folder;
    support::writeBytes(folder / "file", "");
    std::filesystem::create_directory(folder / "empty");
    EXPECT_EQ(browser::readFolder(folder / "empty").state, FolderState::Empty);
    EXPECT_EQ(browser::readFolder(folder / "absent").state, FolderState::NotFound);
    EXPECT_EQ(browser::readFolder(folder / "file").state, FolderState::NotAFolder);
    EXPECT_EQ(browser::readFolder(folder / std::string(300, 'x')).state, FolderState::Unreadable);
}

TEST(FolderReader, TakesAPipeForNoFolderWithoutWaiting) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(browser::readFolder(folder / "pipe").state, FolderState::NotAFolder);
}

TEST(FolderReader, CannotReadAFolderWithoutPermission) {
    const support::UnprivilegedUser user;
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "closed");
    std::filesystem::permissions(folder / "closed", std::filesystem::perms::none);
    EXPECT_EQ(browser::readFolder(folder / "closed").state, FolderState::NotAllowed);
}

TEST(FolderReader, ListsNamesWithoutDataWhereEntriesMayNotBeLookedAt) {
    const support::UnprivilegedUser user;
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "names" / "sub");
    std::filesystem::permissions(folder / "names", std::filesystem::perms::owner_read);
    const FolderListing listing = browser::readFolder(folder / "names");
    ASSERT_NE(find(listing, "sub"), nullptr);
    EXPECT_FALSE(find(listing, "sub")->findDataValid);
    EXPECT_TRUE(find(listing, "sub")->isFolder());
}

TEST(FolderState, EveryFailureHasAText) {
    EXPECT_EQ(browser::folderStateOf(EACCES), FolderState::NotAllowed);
    EXPECT_EQ(browser::folderStateOf(EPERM), FolderState::NotAllowed);
    EXPECT_EQ(browser::folderStateOf(ENOENT), FolderState::NotFound);
    EXPECT_EQ(browser::folderStateOf(EIO), FolderState::Unreadable);
    EXPECT_EQ(browser::emptyListText(FolderState::Empty), app::text::kEmptyFolder);
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, app::kEnglishLanguage);
    for (const FolderState state :
         {FolderState::NotAllowed, FolderState::NotAFolder, FolderState::Unreadable})
        EXPECT_TRUE(english.text(browser::emptyListText(state)).startsWith("This folder cannot be read"));
    EXPECT_EQ(browser::emptyListText(FolderState::Readable), 0);
}

std::string numberedName(int number) {
    std::string name = "f";
    return name.append(std::to_string(number));
}

TEST(FolderReader, ReadsAFolderThatIsWorthSeveralThreads) {
    const TemporaryFolder folder;
    constexpr int kFiles = 9001;
    for (int i = 0; i < kFiles; ++i) support::writeBytes(folder / numberedName(i), {});
    const browser::LoadedFolder loaded = browser::loadFolder({folder.path(), false, {}});
    ASSERT_EQ(loaded.order.size(), static_cast<std::size_t>(kFiles));
    for (int i = 0; i < kFiles; ++i) {
        const auto id = loaded.order[static_cast<std::size_t>(i)];
        ASSERT_EQ(loaded.listing.items.name(id), numberedName(i));
        ASSERT_TRUE(loaded.listing.items.item(id).findDataValid);
    }
    EXPECT_LT(loaded.listing.items.memory() / kFiles, 200U);
}

TEST(FolderLoader, ReturnsAtOnceWhatIsReadyInTime) {
    const TemporaryFolder folder;
    support::writeBytes(folder / "a", "");
    QObject context;
    browser::FolderLoader loader;
    const auto loaded =
        loader.start({folder.path(), false, {}}, std::chrono::seconds(20), &context,
                     [](browser::LoadedFolder) { FAIL() << "the result was returned already"; });
    ASSERT_TRUE(loaded.has_value());
    EXPECT_EQ(loaded->order.size(), 1U);
    EXPECT_FALSE(loader.isLoading());
    QCoreApplication::processEvents();
}

TEST(FolderLoader, DeliversOnlyTheLatestLoad) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "one");
    std::filesystem::create_directory(folder / "two");
    QObject context;
    std::vector<std::filesystem::path> delivered;
    browser::FolderLoader loader;
    const auto note = [&](browser::LoadedFolder loaded) { delivered.push_back(loaded.listing.folder); };
    const auto first =
        loader.start({folder / "one", false, {}}, std::chrono::milliseconds(-1), &context, note);
    const auto second =
        loader.start({folder / "two", false, {}}, std::chrono::milliseconds(-1), &context, note);
    if (second) delivered.push_back(second->listing.folder);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !delivered.empty(); }, 20000));
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered, std::vector<std::filesystem::path>{folder / "two"});
}

TEST(FolderLoader, GivesALoadUpWhenAsked) {
    const std::atomic_bool cancelled = true;
    EXPECT_EQ(browser::loadFolder({"/usr/bin", false, {}}, &cancelled).listing.state, FolderState::Cancelled);
}

}  // namespace
