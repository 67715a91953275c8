#include "browser/ShellBrowser.h"

#include "browser/ColumnText.h"
#include "platform/Text.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QHeaderView>
#include <QMimeDatabase>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

namespace {

using browser::FolderState;
using browser::ShellBrowser;
using controls::GroupedListView;
using support::TemporaryFolder;

constexpr int kLimit = 20000;

class ShellBrowserTest : public testing::Test {
 protected:
    ShellBrowserTest() {
        catalogue.setVisible(6, true);
        catalogue.setVisible(9, true);
        catalogue.setVisible(70, true);
        for (const std::uint32_t column : {6U, 9U, 70U}) catalogue.setWidth(column, 120);
        holder.resize(800, 400);
        shell = std::make_unique<ShellBrowser>(parts, &holder);
        shell->view().setGeometry(0, 0, 800, 400);
        holder.show();
        connections.emplace_back(shell->FileClicked.connect(
            [this](const std::filesystem::path& file, std::int32_t) { clicked.push_back(file.filename()); }));
        connections.emplace_back(shell->FileActivated.connect(
            [this](const std::filesystem::path& file) { activated.push_back(file.filename()); }));
        connections.emplace_back(shell->MetadataOutdated.connect([this] { ++outdated; }));
        connections.emplace_back(shell->ListSelectionChanged.connect([this] { ++selectionChanges; }));
        connections.emplace_back(
            shell->NavigationStarted.connect([this](const std::filesystem::path&) { steps << "started"; }));
        connections.emplace_back(
            shell->NavigationCompleted.connect([this](const std::filesystem::path&, bool history) {
                steps << (history ? "completed" : "refreshed");
            }));
    }

    void makeFiles(std::initializer_list<const char*> names) {
        for (const char* name : names) support::writeBytes(folder / name, name);
    }
    void browse(const std::filesystem::path& path) {
        const unsigned generation = shell->folderGeneration();
        shell->BrowseFolder(path, true);
        ASSERT_TRUE(QTest::qWaitFor([&] { return shell->folderGeneration() > generation; }, kLimit));
    }
    bool waitForOrder() const {
        return QTest::qWaitFor([&] { return !shell->isSorting(); }, kLimit);
    }
    void sortByHeader(int section) {
        clickHeader(section);
        ASSERT_TRUE(waitForOrder());
    }
    QStringList names() const {
        QStringList all;
        for (int row = 0; row < shell->model().rowCount(); ++row)
            all << shell->model().index(row, 0).data(browser::FileListModel::NameRole).toString();
        return all;
    }
    QString cell(int row, std::uint32_t column) const {
        return shell->model().index(row, shell->model().sectionOf(column)).data().toString();
    }
    bool waitForCell(int row, std::uint32_t column, const QString& text) const {
        return QTest::qWaitFor([&] { return cell(row, column) == text; }, kLimit);
    }
    QModelIndex at(int row, int section = 0) const { return shell->model().index(row, section); }
    void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
        const QRect rect = shell->view().visualRect(at(row));
        QTest::mouseClick(shell->view().viewport(), button, modifiers, {rect.left() + 60, rect.center().y()});
    }
    void clickHeader(int section) {
        QHeaderView* header = shell->view().header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(section) + 20, header->height() / 2});
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&shell->view(), key, modifiers);
    }
    QList<int> selectedRows() const {
        QList<int> rows;
        for (int row = 0; row < shell->model().rowCount(); ++row)
            if (shell->view().selectionModel()->isRowSelected(row)) rows << row;
        return rows;
    }

    TemporaryFolder folder;
    app::AppContext context;
    tags::PropertyCatalogue catalogue;
    browser::FileIcons icons;
    app::LanguageFile language{TAGWRIGHT_BIN_DIR, app::kEnglishLanguage};
    browser::BrowserParts parts{context, catalogue, icons, language};
    QWidget holder;
    std::vector<std::string> clicked;
    std::vector<std::string> activated;
    QStringList steps;
    int outdated = 0;
    int selectionChanges = 0;
    std::unique_ptr<ShellBrowser> shell;
    std::vector<boost::signals2::scoped_connection> connections;
};

TEST_F(ShellBrowserTest, ShowsAFolderInNaturalOrderWithNothingSelected) {
    makeFiles({"img10.jpg", "img9.jpg", ".hidden"});
    std::filesystem::create_directory(folder / "Folder");
    browse(folder.path());
    EXPECT_EQ(names(), (QStringList{"Folder", "img9.jpg", "img10.jpg"}));
    EXPECT_EQ(at(1).data().toString(), "   img9.jpg");
    EXPECT_EQ(steps, (QStringList{"started", "completed"}));
    EXPECT_EQ(shell->view().currentIndex().row(), 0);
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_FALSE(at(1).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(shell->totals().folderSize, 17U);
}

TEST_F(ShellBrowserTest, HiddenFilesAreGhosts) {
    makeFiles({".hidden", "shown"});
    parts.showHidden = true;
    browse(folder.path());
    ASSERT_EQ(names(), (QStringList{".hidden", "shown"}));
    EXPECT_TRUE(at(0).data(GroupedListView::GhostRole).toBool());
    EXPECT_FALSE(at(1).data(GroupedListView::GhostRole).toBool());
}

TEST_F(ShellBrowserTest, AnEmptyFolderAndOneThatIsNotThereSaySo) {
    browse(folder.path());
    EXPECT_EQ(shell->view().emptyText(), "This folder is empty");
    EXPECT_EQ(shell->model().list().itemCount(), 0U);
    browse(folder / "absent");
    EXPECT_EQ(shell->folderState(), FolderState::NotFound);
    EXPECT_FALSE(shell->view().emptyText().isEmpty());
    EXPECT_EQ(steps, (QStringList{"started", "completed", "started", "completed"}));
}

TEST_F(ShellBrowserTest, FillsTheColumnsOfFilesOnly) {
    support::writeJpeg(folder / "b.jpg");
    std::filesystem::create_directory(folder / "a folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    browse(folder.path());
    const auto bytes = std::filesystem::file_size(folder / "b.jpg");
    EXPECT_TRUE(waitForCell(1, 9, browser::sizeText(bytes)));
    EXPECT_TRUE(waitForCell(1, 70, QMimeDatabase().mimeTypeForName("image/jpeg").comment()));
    EXPECT_TRUE(waitForCell(1, 6, browser::GetColumnText(folder / "b.jpg", 6)));
    EXPECT_TRUE(waitForCell(2, 70, QMimeDatabase().mimeTypeForName("inode/fifo").comment()));
    for (const std::uint32_t column : {6U, 9U, 70U}) EXPECT_EQ(cell(0, column), "");
}

TEST_F(ShellBrowserTest, FoldersHaveASizeWhereTheSettingsSaySo) {
    for (const char* name : {"one", "two"}) std::filesystem::create_directories(folder / name / "in it");
    support::writeBytes(folder / "one/in it/x", "12345");
    context.settings.main.showFoldersSizes = true;
    shell->applySettings();
    QStringList told;
    connections.emplace_back(
        shell->FolderSizeCounted.connect([&](const QString& size) { told.append(size); }));
    browse(folder.path());
    EXPECT_TRUE(waitForCell(0, 9, browser::sizeText(5)));
    EXPECT_TRUE(waitForCell(1, 9, browser::sizeText(0)));
    for (const std::uint32_t column : {6U, 70U}) EXPECT_EQ(cell(0, column), "");
    EXPECT_TRUE(told.isEmpty());
    shell->selectItem("one");
    EXPECT_EQ(told, QStringList{browser::sizeText(5)});
    // Without the column the size is counted for who selects the folder.
    catalogue.setVisible(9, false);
    shell->RebuildColumns();
    shell->selectItem("two");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }, kLimit));
    EXPECT_EQ(told.back(), browser::sizeText(0));
    shell->view().selectAll();
    EXPECT_EQ(told.size(), 2);
}

TEST_F(ShellBrowserTest, AlignsSizesAndDatesToTheRight) {
    const auto right = [&](std::uint32_t column) {
        const int section = shell->model().sectionOf(column);
        return (shell->model().headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
                Qt::AlignRight) != 0;
    };
    EXPECT_FALSE(right(1));
    EXPECT_TRUE(right(6));
    EXPECT_TRUE(right(9));
    EXPECT_FALSE(right(70));
    EXPECT_EQ(shell->model().headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "FileSize");
}

TEST_F(ShellBrowserTest, TextsOfTheFolderThatWasLeftAreDropped) {
    std::filesystem::create_directory(folder / "one");
    std::filesystem::create_directory(folder / "two");
    support::writeBytes(folder / "one/x.txt", "12345");
    support::writeBytes(folder / "two/x.txt", "1");
    browse(folder / "one");
    // Asked for, but the answer can only come after the navigation that follows at once.
    EXPECT_EQ(cell(0, 9), "");
    browse(folder / "two");
    QStringList seen;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            seen << cell(0, 9);
            return seen.back() == browser::sizeText(1);
        },
        kLimit));
    EXPECT_FALSE(seen.contains(browser::sizeText(5)));
}

TEST_F(ShellBrowserTest, AResultOfARemovedItemIsDropped) {
    makeFiles({"a", "b"});
    browse(folder.path());
    EXPECT_EQ(cell(0, 9), "");
    shell->RemoveItem(shell->model().list().itemIdAt(0));
    EXPECT_TRUE(waitForCell(0, 9, browser::sizeText(1)));
    EXPECT_EQ(names(), QStringList{"b"});
}

TEST_F(ShellBrowserTest, ACellBorrowedFromAnotherTabIsReplacedByItsOwn) {
    makeFiles({"a"});
    std::filesystem::create_directory(folder / "other");
    support::writeBytes(folder / "other/long", std::string(3000, 'x'));
    browse(folder.path());
    ShellBrowser other(parts, &holder);
    const auto ready = [&] { return other.folderGeneration() == 1; };
    other.BrowseFolder(folder / "other", true);
    ASSERT_TRUE(QTest::qWaitFor(ready, kLimit));
    ASSERT_EQ(names(), (QStringList{"a", "other"}));
    parts.active = shell.get();
    other.QueueColumnTask(0, 9);
    EXPECT_TRUE(waitForCell(0, 9, browser::sizeText(1)));
    parts.active = nullptr;
}

// --- selection

TEST_F(ShellBrowserTest, CountsWhatIsSelected) {
    makeFiles({"a", "bb", "ccc"});
    std::filesystem::create_directory(folder / "d");
    browse(folder.path());
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedRows().size(), 4);
    EXPECT_EQ(shell->totals().selectedFiles, 3U);
    EXPECT_EQ(shell->totals().selectedFolders, 1U);
    EXPECT_EQ(shell->totals().selectedSize, 6U);
    EXPECT_EQ(shell->GetSelectedFiles().size(), 4U);
    click(1, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(shell->totals().selectedSize, 4U);
    press(Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), QList<int>{1});
    EXPECT_EQ(shell->totals().selectedFiles, 1U);
    EXPECT_EQ(shell->totals().selectedSize, 2U);
    EXPECT_GE(selectionChanges, 3);
}

TEST_F(ShellBrowserTest, CheckBoxAndSelectionAreOneState) {
    makeFiles({"a", "b"});
    browse(folder.path());
    ASSERT_TRUE(shell->view().checkBoxes());
    const QRect box = shell->view().checkBoxRect(at(1));
    QTest::mouseClick(shell->view().viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_EQ(selectedRows(), QList<int>{1});
    EXPECT_EQ(shell->totals().selectedFiles, 1U);
    EXPECT_TRUE(clicked.empty());
    QTest::mouseClick(shell->view().viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_EQ(shell->totals().selectedFiles, 0U);
}

TEST_F(ShellBrowserTest, TheSelectionGoesWithItsItemsWhenSorted) {
    makeFiles({"a", "b", "c"});
    browse(folder.path());
    click(0);
    sortByHeader(0);
    EXPECT_EQ(names(), (QStringList{"c", "b", "a"}));
    EXPECT_EQ(selectedRows(), QList<int>{2});
    EXPECT_EQ(shell->GetSelectedFiles(), std::vector<std::filesystem::path>{folder / "a"});
    EXPECT_EQ(shell->totals().selectedFiles, 1U);
}

TEST_F(ShellBrowserTest, NavigationForgetsTheSelection) {
    makeFiles({"a"});
    browse(folder.path());
    click(0);
    shell->navigationController().Refresh();
    EXPECT_TRUE(QTest::qWaitFor([&] { return steps.contains("refreshed"); }, kLimit));
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_EQ(shell->totals().selectedFiles, 0U);
    EXPECT_EQ(shell->navigationController().entryCount(), 1);
}

TEST_F(ShellBrowserTest, RebuiltColumnsKeepTheSelection) {
    makeFiles({"a", "b", "c"});
    browse(folder.path());
    click(1);
    int changed = 0;
    const boost::signals2::scoped_connection connection = shell->ColumnsChanged.connect([&] { ++changed; });
    catalogue.setVisible(70, false);
    shell->RebuildColumns();
    EXPECT_EQ(shell->model().columnCount(), 3);
    EXPECT_EQ(selectedRows(), QList<int>{1});
    EXPECT_EQ(shell->totals().selectedFiles, 1U);
    EXPECT_EQ(changed, 1);
}

// --- clicks and keys

TEST_F(ShellBrowserTest, AClickReadsAndTheKeyboardDoesNot) {
    makeFiles({"a", "b"});
    browse(folder.path());
    click(1);
    EXPECT_EQ(clicked, std::vector<std::string>{"b"});
    EXPECT_EQ(outdated, 1);
    press(Qt::Key_Up);
    EXPECT_EQ(selectedRows(), QList<int>{0});
    EXPECT_EQ(clicked.size(), 1U);
    EXPECT_EQ(outdated, 1);
}

TEST_F(ShellBrowserTest, AClickOnAFolderOrTheFreeAreaOnlyClears) {
    std::filesystem::create_directory(folder / "d");
    browse(folder.path());
    click(0);
    EXPECT_EQ(outdated, 1);
    QTest::mouseClick(shell->view().viewport(), Qt::LeftButton, {}, {300, 300});
    EXPECT_EQ(outdated, 2);
    EXPECT_TRUE(clicked.empty());
    click(0, Qt::RightButton);
    EXPECT_EQ(outdated, 2);
}

TEST_F(ShellBrowserTest, WithSmartDetailsOtherColumnsNeitherReadNorClear) {
    makeFiles({"a"});
    context.settings.main.showSmartDetails = true;
    browse(folder.path());
    const QRect cellRect = shell->view().visualRect(at(0, 2));
    QTest::mouseClick(shell->view().viewport(), Qt::LeftButton, {}, cellRect.center());
    EXPECT_EQ(outdated, 0);
    EXPECT_TRUE(clicked.empty());
    click(0);
    EXPECT_EQ(clicked, std::vector<std::string>{"a"});
}

TEST_F(ShellBrowserTest, HostileNamesAreClickedByTheirBytes) {
    for (const std::string& name : support::hostileNames()) support::writeBytes(folder / name, "x");
    browse(folder.path());
    holder.resize(800, 700);
    shell->view().setGeometry(0, 0, 800, 700);
    for (int row = 0; row < shell->model().rowCount(); ++row) click(row);
    EXPECT_THAT(clicked, testing::UnorderedElementsAreArray(support::hostileNames()));
}

TEST_F(ShellBrowserTest, EnterAndDoubleClickOpen) {
    std::filesystem::create_directory(folder / "a folder");
    makeFiles({"b"});
    browse(folder.path());
    QTest::mouseDClick(shell->view().viewport(), Qt::LeftButton, {},
                       shell->view().visualRect(at(1)).center());
    EXPECT_EQ(activated, std::vector<std::string>{"b"});
    shell->view().setCurrentIndex(at(0));
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell->currentFolder() == folder / "a folder"; }, kLimit));
    EXPECT_EQ(shell->navigationController().entryCount(), 2);
}

TEST_F(ShellBrowserTest, BackspaceGoesUpToTheFolderThatWasLeft) {
    for (const char* name : {"a", "b", "c"}) std::filesystem::create_directory(folder / name);
    browse(folder / "b");
    press(Qt::Key_Backspace);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shell->folderGeneration() == 2; }, kLimit));
    EXPECT_EQ(shell->currentFolder(), folder.path());
    EXPECT_EQ(selectedRows(), QList<int>{1});
    press(Qt::Key_Backspace, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shell->folderGeneration() == 3; }, kLimit));
    EXPECT_EQ(shell->currentFolder(), "/");
    press(Qt::Key_Backspace);
    EXPECT_EQ(shell->currentFolder(), "/");
}

TEST_F(ShellBrowserTest, TypingFindsANameDespiteItsLeadingBlanks) {
    makeFiles({"alpha", "beta", "gamma"});
    browse(folder.path());
    QTest::keyClicks(&shell->view(), "ga");
    EXPECT_EQ(selectedRows(), QList<int>{2});
    EXPECT_TRUE(clicked.empty());
}

// --- order

TEST_F(ShellBrowserTest, AHeaderClickSortsAndASecondOneTurnsRound) {
    makeFiles({"a", "bbb", "cc"});
    browse(folder.path());
    EXPECT_EQ(shell->view().header()->sortIndicatorSection(), 0);
    sortByHeader(2);
    EXPECT_EQ(context.settings.main.sortMode, static_cast<int>(app::SortMode::Size));
    EXPECT_EQ(names(), (QStringList{"a", "cc", "bbb"}));
    EXPECT_EQ(shell->view().header()->sortIndicatorSection(), 2);
    sortByHeader(2);
    EXPECT_EQ(names(), (QStringList{"bbb", "cc", "a"}));
    EXPECT_EQ(shell->view().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    sortByHeader(0);
    EXPECT_EQ(names(), (QStringList{"cc", "bbb", "a"}));
}

TEST_F(ShellBrowserTest, TheOldOrderStandsUntilTheNewOneIsThere) {
    makeFiles({"a", "bbb", "cc"});
    browse(folder.path());
    clickHeader(2);
    EXPECT_TRUE(shell->isSorting());
    EXPECT_EQ(names(), (QStringList{"a", "bbb", "cc"}));
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(names(), (QStringList{"a", "cc", "bbb"}));
}

TEST_F(ShellBrowserTest, OfTwoOrdersAskedForTheLastOneIsShownAlone) {
    makeFiles({"a", "bbb", "cc"});
    browse(folder.path());
    std::vector<QStringList> orders;
    QObject::connect(&shell->model(), &QAbstractItemModel::layoutChanged, &shell->view(),
                     [&] { orders.push_back(names()); });
    clickHeader(2);
    // It has begun and may even have ended, but has not been told.
    QCoreApplication::sendPostedEvents();
    clickHeader(0);
    clickHeader(0);
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(orders, std::vector<QStringList>{(QStringList{"cc", "bbb", "a"})});
}

TEST_F(ShellBrowserTest, AnOrderOfTheFolderThatWasLeftIsDropped) {
    std::filesystem::create_directory(folder / "one");
    std::filesystem::create_directory(folder / "two");
    for (const char* name : {"one/a", "one/b", "one/c", "two/a", "two/b"})
        support::writeBytes(folder / name, name);
    support::writeBytes(folder / "two/c", "");
    browse(folder / "one");
    context.settings.main.sortAscending = false;
    shell->SetSortMode(app::SortMode::Name);
    QCoreApplication::sendPostedEvents();
    context.settings.main.sortAscending = true;
    browse(folder / "two");
    int reordered = 0;
    QObject::connect(&shell->model(), &QAbstractItemModel::layoutChanged, &shell->view(),
                     [&] { ++reordered; });
    EXPECT_FALSE(shell->isSorting());
    shell->SetSortMode(app::SortMode::Size);
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(names(), (QStringList{"c", "a", "b"}));
    EXPECT_EQ(reordered, 1);
}

TEST_F(ShellBrowserTest, ASortKeepsCurrentItemSelectionAndPlace) {
    for (int i = 100; i < 300; ++i)
        support::writeBytes(folder / std::to_string(i), std::string(static_cast<std::size_t>(i), 'x'));
    browse(folder.path());
    ASSERT_TRUE(shell->selectItem("200"));
    shell->view().selectionModel()->select(at(20), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const int place = shell->view().verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    context.settings.main.sortAscending = false;
    shell->SetSortMode(app::SortMode::Size);
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(names().front(), "299");
    const auto nameAt = [&](int row) { return names().at(row); };
    EXPECT_EQ(nameAt(shell->view().currentIndex().row()), "200");
    ASSERT_EQ(selectedRows().size(), 2);
    EXPECT_EQ(nameAt(selectedRows().front()), "200");
    EXPECT_EQ(nameAt(selectedRows().back()), "120");
    EXPECT_EQ(shell->totals().selectedSize, 320U);
    EXPECT_EQ(shell->view().verticalScrollBar()->value(), place);
}

TEST_F(ShellBrowserTest, ItemsThatComeAndGoDuringASortAreInTheListAfterIt) {
    makeFiles({"a", "b", "c"});
    browse(folder.path());
    context.settings.main.sortAscending = false;
    shell->SetSortMode(app::SortMode::Name);
    // The sort has taken the items that there were.
    QCoreApplication::sendPostedEvents();
    shell->RemoveItem(shell->model().list().findItem("b"));
    makeFiles({"bb"});
    shell->AddItem("bb");
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(names(), (QStringList{"c", "bb", "a"}));
}

TEST_F(ShellBrowserTest, AColumnWithoutAModeSortsByName) {
    makeFiles({"b", "a"});
    browse(folder.path());
    clickHeader(2);
    clickHeader(3);
    EXPECT_EQ(context.settings.main.sortMode, static_cast<int>(app::SortMode::Name));
    EXPECT_EQ(shell->view().header()->sortIndicatorSection(), 0);
}

TEST_F(ShellBrowserTest, AModeThatNoColumnLeadsToGivesWayOnNavigation) {
    makeFiles({"b", "a"});
    context.settings.main.sortMode = static_cast<int>(app::SortMode::TotalSize);
    browse(folder.path());
    EXPECT_EQ(context.settings.main.sortMode, static_cast<int>(app::SortMode::Name));
    EXPECT_EQ(names(), (QStringList{"a", "b"}));
}

TEST_F(ShellBrowserTest, NewItemsComeInOrder) {
    makeFiles({"a", "c"});
    browse(folder.path());
    click(1);
    makeFiles({"b"});
    shell->AddItem("b");
    shell->AddItem("absent");
    ASSERT_TRUE(waitForOrder());
    EXPECT_EQ(names(), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(selectedRows(), QList<int>{2});
}

TEST_F(ShellBrowserTest, ExtensionsGoWhenTheSettingsSaySo) {
    makeFiles({"a.jpg", ".profile"});
    parts.showHidden = true;
    context.settings.listView.showExtensions = false;
    shell->applySettings();
    browse(folder.path());
    EXPECT_EQ(names(), (QStringList{".profile", "a"}));
}

TEST_F(ShellBrowserTest, ColumnWidthsAreReadBackOnNavigation) {
    browse(folder.path());
    shell->view().header()->resizeSection(2, 77);
    browse(folder.path());
    EXPECT_EQ(catalogue.findColumn(9)->width, 77);
}

TEST_F(ShellBrowserTest, AFolderThatVanishesLeavesAnEmptyListAndAText) {
    std::filesystem::create_directory(folder / "d");
    support::writeBytes(folder / "d/file", "x");
    browse(folder / "d");
    EXPECT_EQ(shell->model().rowCount(), 1);
    std::filesystem::remove_all(folder / "d");
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell->folderState() == FolderState::NotFound; }, kLimit));
    EXPECT_EQ(shell->model().rowCount(), 0);
    EXPECT_FALSE(shell->view().emptyText().isEmpty());
}

TEST_F(ShellBrowserTest, ALargeFolderIsNotWaitedForAndTheListThatWasLeftStaysOnTheScreen) {
    for (const char* name : {"large", "small"}) std::filesystem::create_directory(folder / name);
    support::writeBytes(folder / "small/file", "x");
    for (int i = 0; i < 6000; ++i)
        std::filesystem::create_symlink("nowhere", folder / "large" / std::to_string(i));
    browse(folder / "small");
    EXPECT_TRUE(shell->view().updatesEnabled());
    const unsigned generation = shell->folderGeneration();
    shell->BrowseFolder(folder / "large", true);
    EXPECT_EQ(shell->folderGeneration(), generation) << "it was waited for";
    EXPECT_FALSE(shell->view().updatesEnabled()) << "an empty list flickers";
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell->view().updatesEnabled(); }, kLimit));
    EXPECT_TRUE(shell->model().rowCount() > 0 || !shell->view().emptyText().isEmpty());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shell->model().rowCount() == 6000; }, kLimit));
    EXPECT_TRUE(shell->view().updatesEnabled());
}

TEST_F(ShellBrowserTest, EndsInTheMiddleOfItsWork) {
    for (int i = 0; i < 500; ++i) support::writeBytes(folder / QByteArray::number(i).toStdString(), "x");
    browse(folder.path());
    for (int row = 0; row < 500; ++row) cell(row, 70);
    shell->SetSortMode(app::SortMode::Type);
    QCoreApplication::processEvents();
    shell->BrowseFolder("/usr/lib", true);
    const QPointer<browser::FileListView> view = &shell->view();
    const auto toldBefore = steps.size();
    shell.reset();
    EXPECT_EQ(view, nullptr) << "a list without its browser would ask it for texts";
    QCoreApplication::processEvents();
    EXPECT_EQ(steps.size(), toldBefore) << "a load or a sort that ends later tells nobody";
}

TEST_F(ShellBrowserTest, TheModelKeepsTheRulesOfModels) {
    makeFiles({"a", "b", "c"});
    browse(folder.path());
    const QPersistentModelIndex second = at(1);
    shell->SetSortMode(app::SortMode::Size);
    ASSERT_TRUE(waitForOrder());
    sortByHeader(0);
    sortByHeader(0);
    EXPECT_EQ(second.data(browser::FileListModel::NameRole).toString(), "b");
    shell->RemoveItem(shell->model().list().itemIdAt(second.row()));
    EXPECT_FALSE(second.isValid());
}

}  // namespace
