#include "panel/MetadataPanel.h"

#include "app/StartUp.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QTimer>
#include <QToolTip>
#include <QtTest/QTest>

using panel::MetadataPanel;

namespace {

/// A panel on real files, read by the real ExifTool.
class MetadataPanelTest : public ::testing::Test {
 protected:
    MetadataPanelTest() {
        context.installPath = folder.path();
        context.tempPath = folder / "Temp";
        std::filesystem::create_directory(context.tempPath);
        app::resolveTools(context);
        auto& show = context.settings.metadataList;
        show.showExif = show.showComposite = show.showXmp = true;
        show.showUnknown = true;
        panel.resize(700, 500);
        panel.show();
        panel.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&panel));
    }

    std::filesystem::path photo(const std::string& name, const std::vector<std::string>& tagsToWrite) {
        const auto file = folder / name;
        support::writeJpeg(file);
        std::vector<std::string> arguments{"-q", "-overwrite_original"};
        arguments.insert(arguments.end(), tagsToWrite.begin(), tagsToWrite.end());
        arguments.push_back(file.string());
        support::ExifTool(arguments);
        return file;
    }

    int rowOf(const QString& group, const QString& tag) {
        for (int position = 0; position < panel.model().rowCount(); ++position) {
            const tags::MetadataRow& row = panel.model().row(position);
            if (row.group == group && row.tag == tag) return position;
        }
        return -1;
    }

    void show(const std::filesystem::path& file) {
        panel.newSelection(file);
        waitForRows();
    }
    void showAgain() {
        panel.Refresh();
        waitForRows();
    }
    void waitForRows() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return !panel.isReading(); }, 60'000));
    }

    QStringList shownTitles() {
        QStringList titles;
        for (const int id : panel.list().shownGroups()) titles.append(panel.list().groupTitle(id));
        return titles;
    }

    support::TemporaryFolder folder;
    app::AppContext context;
    tags::TagDictionary dictionary;
    tags::RatingMemory memory;
    tags::RatingLog log;
    tags::OutputParser parser{dictionary, context.settings, memory, log};
    exiftool::ToolRunner runner{context};
    exiftool::ReadFeedback readFeedback;
    exiftool::ReadCommands commands{context, runner, readFeedback};
    exiftool::MetadataLoad load{context, runner, commands, parser};
    exiftool::MetadataReader reader{context};
    exiftool::LoadFeedback loadFeedback;
    tags::LabelLibrary labels{9, dictionary};
    MetadataPanel panel{{context, dictionary, memory, parser, reader, load, loadFeedback,
                         [](int number) { return QStringLiteral("text %1").arg(number); }, &labels}};
};

}  // namespace

TEST_F(MetadataPanelTest, ReadsAFileIntoItsGroupsWithCounts) {
    show(
        photo("a.jpg", {"-IFD0:Make=Maker", "-IFD0:Model=Model 7", "-XMP-dc:Title=Grüße", "-IFD0:Rating=3"}));
    const int make = rowOf("IFD0", "Make");
    ASSERT_GE(make, 0);
    EXPECT_EQ(panel.model().row(make).value, "Maker");
    EXPECT_EQ(panel.model().row(make).id, "010f");
    EXPECT_EQ(panel.model().row(rowOf("XMP-dc", "Title")).value, QString::fromUtf8("Grüße"));
    EXPECT_EQ(panel.model().row(rowOf("IFD0", "Rating")).stars, 3);
    const QStringList titles = shownTitles();
    EXPECT_TRUE(titles.filter(QRegularExpression("^ IFD0 \\(\\d+\\)$")).size() == 1)
        << titles.join(";").toStdString();
    EXPECT_TRUE(titles.contains(" XMP-dc (1)")) << titles.join(";").toStdString();
    EXPECT_LT(titles.indexOf(QRegularExpression("^ IFD0.*")), titles.indexOf(" XMP-dc (1)"));

    show(photo("b.jpg", {"-XMP-dc:Title=b", "-XMP-dc:Creator=c"}));
    EXPECT_LT(rowOf("IFD0", "Make"), 0) << "nothing of the file before is left";
    EXPECT_TRUE(shownTitles().contains(" XMP-dc (2)"));
    panel.clear();
    EXPECT_EQ(panel.model().rowCount(), 0);
}

TEST_F(MetadataPanelTest, ReadsHostileNamesLikeAnyOther) {
    for (const std::string& name : support::hostileNames()) {
        const auto file = folder / name;
        support::writeJpeg(file);
        support::writeBytes(folder / "title.args", "-overwrite_original\n-XMP-dc:Title=found\n");
        std::error_code error;
        const auto plain = folder / "plain copy.jpg";
        std::filesystem::copy_file(file, plain, error);
        support::ExifTool({"-q", "-@", (folder / "title.args").string(), plain.string()});
        std::filesystem::rename(plain, file, error);
        show(file);
        const int title = rowOf("XMP-dc", "Title");
        EXPECT_GE(title, 0) << name;
        EXPECT_FALSE(std::filesystem::exists(folder / "owned"));
    }
    EXPECT_TRUE(std::filesystem::is_directory(context.tempPath));
}

TEST_F(MetadataPanelTest, RefreshKeepsTheCurrentRow) {
    const auto file = photo("a.jpg", {"-XMP-dc:Title=one", "-XMP-dc:Creator=c"});
    show(file);
    panel.list().setCurrentIndex(panel.model().index(rowOf("XMP-dc", "Title"), 4));
    support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=two", "-IFD0:Make=m", file.string()});
    showAgain();
    const QModelIndex current = panel.list().currentIndex();
    ASSERT_TRUE(current.isValid());
    EXPECT_EQ(panel.model().row(current.row()).value, "two");
    EXPECT_EQ(current.column(), 4);
}

TEST_F(MetadataPanelTest, CopiesTheCellThatIsCurrent) {
    show(photo("a.jpg", {"-XMP-dc:Title=copied text", "-IFD0:Rating=4"}));
    const std::tuple<QString, QString, int, QString> cells[] = {{"XMP-dc", "Title", 4, "copied text"},
                                                                {"XMP-dc", "Title", 1, "Title"},
                                                                {"IFD0", "Rating", 2, "4746"},
                                                                {"IFD0", "Rating", 4, "4"}};
    for (const auto& [group, tag, column, text] : cells) {
        panel.list().setCurrentIndex(panel.model().index(rowOf(group, tag), column));
        panel.list().setFocus();
        QTest::keySequence(&panel.list(), QKeySequence::Copy);
        EXPECT_EQ(QApplication::clipboard()->text(), text);
    }
}

TEST_F(MetadataPanelTest, TheRowMenuOffersAddressesToBeOpened) {
    show(photo("a.jpg", {"-XMP-dc:Source=https://example.org", "-XMP-dc:Title=plain",
                         "-XMP-dc:Rights=http all rights"}));
    const auto entriesFor = [&](const QString& tag, int column) {
        QList<int> ids;
        QTimer::singleShot(0, &panel, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* entry : menu->actions())
                if (!entry->isSeparator()) ids.append(entry->data().toInt());
            menu->close();
        });
        const QModelIndex index = panel.model().index(rowOf("XMP-dc", tag), column);
        Q_EMIT panel.list().CellMenuRequested(index, panel.mapToGlobal(QPoint(10, 10)));
        return ids;
    };
    EXPECT_TRUE(entriesFor("Source", 4).contains(40011));
    EXPECT_FALSE(entriesFor("Source", 1).contains(40011));
    EXPECT_FALSE(entriesFor("Title", 4).contains(40011));
    context.settings.exifTool.correctedCommands = true;
    EXPECT_TRUE(entriesFor("Source", 4).contains(40011));
    EXPECT_FALSE(entriesFor("Rights", 4).contains(40011)) << "begins like an address and is none";
}

TEST_F(MetadataPanelTest, AClickOnATagsNameShowsItsHelpUnlessTurnedOff) {
    show(photo("a.jpg", {"-IFD0:Make=m"}));
    const auto helpAfterClickOn = [&](int column) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        const QModelIndex index = panel.model().index(rowOf("IFD0", "Make"), column);
        panel.list().scrollTo(index);
        QTest::mouseClick(panel.list().viewport(), Qt::LeftButton, {},
                          panel.list().visualRect(index).center());
        QCoreApplication::processEvents();
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    int chosen = 0;
    QObject::connect(&panel, &MetadataPanel::ValueChosen, [&] { ++chosen; });
    EXPECT_TRUE(helpAfterClickOn(1).contains("Make"));
    EXPECT_EQ(chosen, 0);
    // A click elsewhere is about the value, and so is one on a name without help.
    for (const int column : {2, 3, 4}) EXPECT_TRUE(helpAfterClickOn(column).isEmpty());
    EXPECT_EQ(chosen, 3);
    context.settings.listViewMetadata.libelleHelp = false;
    EXPECT_TRUE(helpAfterClickOn(1).isEmpty());
    EXPECT_EQ(chosen, 4);
}

TEST_F(MetadataPanelTest, AFileThatIsTakenAwayLeavesNothingThatCouldBeEdited) {
    const auto elsewhere = folder / "elsewhere";
    std::filesystem::create_directory(elsewhere);
    const auto inner = folder / "inner";
    using Change = std::function<void(const std::filesystem::path&)>;
    const struct {
        const char* what;
        Change change;
        bool vanishes;
    } cases[] = {
        {"deleted", [](const auto& file) { std::filesystem::remove(file); }, true},
        {"renamed", [](const auto& file) { std::filesystem::rename(file, file.native() + "2"); }, true},
        {"moved", [&](const auto& file) { std::filesystem::rename(file, elsewhere / "there.jpg"); }, true},
        {"its folder renamed", [&](const auto&) { std::filesystem::rename(inner, folder / "outer"); }, true},
        {"replaced",
         [&](const auto& file) {
             support::writeJpeg(folder / "new.jpg");
             std::filesystem::rename(folder / "new.jpg", file);
         },
         false},
        {"taken away and put back",
         [&](const auto& file) {
             std::filesystem::rename(file, elsewhere / "a while");
             std::filesystem::rename(elsewhere / "a while", file);
         },
         false},
    };
    std::filesystem::path vanished;
    QObject::connect(&panel, &MetadataPanel::FileVanished,
                     [&](const std::filesystem::path& file) { vanished = file; });
    for (const auto& [what, change, vanishes] : cases) {
        SCOPED_TRACE(what);
        vanished.clear();
        std::filesystem::create_directory(inner);
        const auto file = photo("inner/a.jpg", {"-IFD0:Make=m"});
        show(file);
        ASSERT_GT(panel.model().rowCount(), 0);
        change(file);
        EXPECT_EQ(QTest::qWaitFor([&] { return !vanished.empty(); }, vanishes ? 60'000 : 700), vanishes);
        EXPECT_EQ(vanished, vanishes ? file : std::filesystem::path());
        EXPECT_EQ(panel.file().empty(), vanishes);
        EXPECT_EQ(panel.model().rowCount() == 0, vanishes);
        std::filesystem::remove_all(inner);
        panel.clear();
    }
}

TEST_F(MetadataPanelTest, AFileWithoutTagsAndAMissingToolLeaveAnEmptyList) {
    const auto file = folder / "empty.jpg";
    support::writeBytes(file, "");
    show(file);
    for (int position = 0; position < panel.model().rowCount(); ++position)
        EXPECT_EQ(panel.model().row(position).tagId, tags::kUnknownTag);
    show(photo("a.jpg", {"-XMP-dc:Title=t"}));
    ASSERT_GT(panel.model().rowCount(), 0);
    context.exifToolPath = folder / "no such tool";
    show(file);
    EXPECT_EQ(panel.model().rowCount(), 0) << "the tags of the file before must not stand for this one";
}
