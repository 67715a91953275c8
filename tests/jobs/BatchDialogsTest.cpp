#include "dialogs/Messages.h"
#include "jobs/BatchNoFilesSelectedDialog.h"
#include "jobs/QuietSuccessNotice.h"
#include "jobs/ReportDialog.h"
#include "support/TemporaryFolder.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

namespace {

namespace fs = std::filesystem;
using jobs::BatchNoFilesSelectedDialog;
using jobs::ReportDialog;

const app::LanguageFile& english() {
    static const app::LanguageFile file(TAGWRIGHT_BIN_DIR, 9);
    return file;
}

/// Does so once the dialog that is run next stands open.
template <typename Action>
void whenOpen(QDialog& dialog, Action action) {
    QMetaObject::invokeMethod(&dialog, action, Qt::QueuedConnection);
}

TEST(ReportDialog, ShowsTextThatCanBeReadSelectedAndCopiedButNotChanged) {
    ReportDialog dialog(english(), QStringLiteral("Error: <b>one</b>\nWarning: two"), nullptr);
    ASSERT_TRUE(dialog.hasForm());
    EXPECT_EQ(dialog.templateNumber(), 94);
    auto* text = dialog.control<QPlainTextEdit>(924);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->toPlainText(), QStringLiteral("Error: <b>one</b>\nWarning: two"));
    EXPECT_TRUE(QFontInfo(text->font()).fixedPitch());
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    text->setFocus();
    QTest::keyClicks(text, QStringLiteral("x"));
    EXPECT_FALSE(text->toPlainText().contains(u'x'));
    QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text->toPlainText());
    const QSize before = text->size();
    dialog.resize(dialog.size() + QSize(200, 100));
    EXPECT_EQ(text->size(), before + QSize(200, 100));
}

TEST(ReportDialog, BothButtonsAndTheKeysCloseIt) {
    const auto resultOf = [](auto action) {
        ReportDialog dialog(english(), QStringLiteral("x"), nullptr);
        whenOpen(dialog, [&] { action(dialog); });
        return dialog.run();
    };
    const auto press = [](ReportDialog& dialog, int number) {
        QTest::mouseClick(dialog.control<QPushButton>(number), Qt::LeftButton);
    };
    EXPECT_EQ(resultOf([&](ReportDialog& dialog) { press(dialog, dialogs::kOkControl); }), 1);
    EXPECT_EQ(resultOf([&](ReportDialog& dialog) { press(dialog, dialogs::kCancelControl); }), 0);
    EXPECT_EQ(resultOf([](ReportDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }), 1);
    EXPECT_EQ(resultOf([](ReportDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }), 0);
}

TEST(ReportDialog, OfALongReportOnlyWhatIsSeenIsLaidOut) {
    QString text;
    for (int i = 0; i < 80'000; ++i) text += QStringLiteral("Warning: nothing to say - /photos/a.jpg\n");
    ReportDialog dialog(english(), text, nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    const QTextDocument& shown = *dialog.control<QPlainTextEdit>(924)->document();
    EXPECT_EQ(shown.blockCount(), 80'001);
    int laidOut = 0;
    for (QTextBlock block = shown.begin(); block.isValid(); block = block.next())
        laidOut += block.layout()->lineCount() > 0 ? 1 : 0;
    EXPECT_GT(laidOut, 0);
    EXPECT_LT(laidOut, 1000);
}

class NoFilesSelected : public testing::Test {
 protected:
    NoFilesSelected() { fs::create_directory(folder_ / "other"); }
    ~NoFilesSelected() override { dialogs::setMessageAnswer({}); }

    template <typename Control>
    Control* find(int number) {
        auto* control = dialog_.control<Control>(number);
        EXPECT_NE(control, nullptr) << number;
        return control;
    }
    void press(int number) { QTest::mouseClick(dialog_.control<QAbstractButton>(number), Qt::LeftButton); }

    support::TemporaryFolder folder_;
    BatchNoFilesSelectedDialog dialog_{english(), folder_.path(), nullptr};
};

TEST_F(NoFilesSelected, TakesTheShownFolderUnlessToldOtherwise) {
    EXPECT_TRUE(find<QRadioButton>(1930)->isChecked());
    EXPECT_FALSE(find<QCheckBox>(1008)->isChecked());
    EXPECT_FALSE(find<QLineEdit>(1321)->isEnabled());
    EXPECT_TRUE(find<QLabel>(82020)->text().startsWith(u'/'));
    whenOpen(dialog_, [&] { QTest::keyClick(&dialog_, Qt::Key_Return); });
    EXPECT_EQ(dialog_.run(), 1);
    EXPECT_EQ(dialog_.folder(), folder_.path());
    EXPECT_FALSE(dialog_.withSubfolders());
}

TEST_F(NoFilesSelected, CancelIsZero) {
    whenOpen(dialog_, [&] { QTest::keyClick(&dialog_, Qt::Key_Escape); });
    EXPECT_EQ(dialog_.run(), 0);
}

TEST_F(NoFilesSelected, TakesATypedFolderWithItsSubfolders) {
    whenOpen(dialog_, [&] {
        find<QRadioButton>(1931)->click();
        EXPECT_EQ(dialog_.focusWidget(), find<QLineEdit>(1321));
        QTest::keyClicks(find<QLineEdit>(1321), QString::fromStdString((folder_ / "other").string()));
        find<QCheckBox>(1008)->click();
        press(dialogs::kOkControl);
    });
    EXPECT_EQ(dialog_.run(), 1);
    EXPECT_EQ(dialog_.folder(), folder_ / "other");
    EXPECT_TRUE(dialog_.withSubfolders());
}

TEST_F(NoFilesSelected, AFolderThatIsNoneIsToldAndTheDialogStays) {
    QStringList told;
    dialogs::setMessageAnswer([&](QWidget*, const dialogs::Message& message) {
        told.append(message.text);
        return QMessageBox::Ok;
    });
    whenOpen(dialog_, [&] {
        find<QRadioButton>(1931)->click();
        for (const QString& text : {QString(), QStringLiteral("relative"), QStringLiteral("/no/such")}) {
            find<QLineEdit>(1321)->setText(text);
            press(dialogs::kOkControl);
            EXPECT_TRUE(dialog_.isVisible());
        }
        press(dialogs::kCancelControl);
    });
    EXPECT_EQ(dialog_.run(), 0);
    EXPECT_EQ(told.size(), 3);
    EXPECT_TRUE(told.last().contains(QStringLiteral("/no/such")));
}

TEST_F(NoFilesSelected, TheButtonChoosesAFolder) {
    whenOpen(dialog_, [&] {
        QTimer::singleShot(0, qApp, [&] {
            auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(chooser, nullptr);
            chooser->selectFile(QString::fromStdString((folder_ / "other").string()));
            QMetaObject::invokeMethod(chooser, "accept");
        });
        press(1097);
        EXPECT_TRUE(find<QRadioButton>(1931)->isChecked());
        press(dialogs::kOkControl);
    });
    EXPECT_EQ(dialog_.run(), 1);
    EXPECT_EQ(dialog_.folder(), folder_ / "other");
}

TEST(QuietSuccessNotice, WithoutATrayItSaysSoAndLeavesNothing) {
    if (QSystemTrayIcon::isSystemTrayAvailable()) GTEST_SKIP() << "this desktop has a tray";
    jobs::QuietSuccessNotice notice;
    EXPECT_FALSE(notice.Show(QStringLiteral("Done.")));
}

}  // namespace
