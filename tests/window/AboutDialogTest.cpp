#include "window/AboutDialog.h"

#include <QLabel>
#include <QTest>

namespace {

TEST(AboutDialog, SaysVersionAndToolAndEndsWithOne) {
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, 9);
    ASSERT_TRUE(english.valid());
    app::AppContext context;
    context.exifToolPath = "/opt/<b>odd</b>/exiftool";
    window::AboutDialog dialog(context, english, QStringLiteral("1.2.3"), nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.templateNumber(), 284);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("About Tagwright"));
    EXPECT_TRUE(dialog.control<QLabel>(28402)->text().contains(QStringLiteral("1.2.3")));
    EXPECT_TRUE(dialog.control<QLabel>(28403)->text().contains(QStringLiteral("/opt/<b>odd</b>/exiftool")));
    EXPECT_EQ(dialog.control<QLabel>(28403)->textFormat(), Qt::PlainText);

    QMetaObject::invokeMethod(
        &dialog,
        [&] { QTest::mouseClick(dialog.control<QAbstractButton>(dialogs::kOkControl), Qt::LeftButton); },
        Qt::QueuedConnection);
    EXPECT_EQ(dialog.run(), 1);
    QMetaObject::invokeMethod(
        &dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }, Qt::QueuedConnection);
    EXPECT_EQ(dialog.run(), 0);
}

}  // namespace
