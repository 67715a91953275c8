#include "browser/ColumnText.h"

#include "browser/TypeNames.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDateTime>
#include <QLocale>
#include <QMimeDatabase>

namespace {

using browser::GetColumnText;
using support::TemporaryFolder;

constexpr std::uint32_t kDateModified = 6;
constexpr std::uint32_t kFileSize = 9;
constexpr std::uint32_t kItemTypeText = 70;

QString comment(const char* mime) {
    return QMimeDatabase().mimeTypeForName(mime).comment();
}

TEST(ColumnText, FillsTheColumnsOfAFile) {
    const TemporaryFolder folder;
    support::writeBytes(folder / "a.jpg", std::string(1258291, 'x'));
    const QDateTime time(QDate(2021, 3, 4), QTime(5, 6, 7));
    const timespec stamps[] = {{time.toSecsSinceEpoch(), 0}, {time.toSecsSinceEpoch(), 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (folder / "a.jpg").c_str(), stamps, 0), 0);
    EXPECT_EQ(GetColumnText(folder / "a.jpg", kDateModified), QLocale().toString(time, QLocale::ShortFormat));
    EXPECT_EQ(GetColumnText(folder / "a.jpg", kFileSize), "1.2 MB");
    EXPECT_EQ(GetColumnText(folder / "a.jpg", kItemTypeText), comment("image/jpeg"));
    EXPECT_EQ(GetColumnText(folder / "a.jpg", 4711), "");
}

TEST(ColumnText, FoldersAndMissingFilesHaveNone) {
    const TemporaryFolder folder;
    for (const std::uint32_t column : {kDateModified, kFileSize, kItemTypeText}) {
        EXPECT_EQ(GetColumnText(folder.path(), column), "");
        EXPECT_EQ(GetColumnText(folder / "absent.jpg", column), "");
    }
}

TEST(ColumnText, ReadsTheHeadWhereTheNameTellsNothing) {
    const TemporaryFolder folder;
    support::writeJpeg(folder / "no extension");
    EXPECT_EQ(GetColumnText(folder / "no extension", kItemTypeText), comment("image/jpeg"));
    support::writeBytes(folder / "plain", "just text\n");
    EXPECT_EQ(GetColumnText(folder / "plain", kItemTypeText), comment("text/plain"));
}

TEST(ColumnText, NeverOpensAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    // Would wait for a writer for ever.
    EXPECT_EQ(GetColumnText(folder / "pipe", kItemTypeText), comment("inode/fifo"));
    EXPECT_EQ(GetColumnText(folder / "pipe", kFileSize), "");
}

TEST(ColumnText, NamesBrokenLinks) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "link.jpg");
    EXPECT_EQ(GetColumnText(folder / "link.jpg", kItemTypeText), comment("inode/symlink"));
}

TEST(TypeNames, OneFileOfAnExtensionDoesNotSpeakForWholeNames) {
    browser::TypeNames& names = browser::TypeNames::instance();
    const auto type = [&](const char* name) { return names.ofName(name, browser::ItemKind::File).comment; };
    EXPECT_EQ(type("notes.txt"), comment("text/plain"));
    EXPECT_EQ(type("CMakeLists.txt"), comment("text/x-cmake"));
    EXPECT_EQ(type("other.txt"), comment("text/plain"));
    EXPECT_EQ(type("a.JPG"), comment("image/jpeg"));
    EXPECT_EQ(type("b.jpg"), comment("image/jpeg"));
}

TEST(SizeText, CountsByTheThousandAndTwentyFour) {
    EXPECT_EQ(browser::sizeText(0), "0 bytes");
    EXPECT_EQ(browser::sizeText(1536), "1.5 kB");
    EXPECT_EQ(browser::sizeText(5ULL * 1024 * 1024 * 1024), "5.0 GB");
}

}  // namespace
