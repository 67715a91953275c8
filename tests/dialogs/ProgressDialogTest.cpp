#include "dialogs/ProgressDialog.h"

#include "dialogs/FormLoader.h"

#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

using namespace std::chrono_literals;
using dialogs::ProgressDialog;

QPushButton* stopButton(const ProgressDialog& dialog) {
    return qobject_cast<QPushButton*>(dialogs::findControl(dialog, ProgressDialog::kStopControl));
}

TEST(ProgressDialog, SpeaksTheStepsOfItsLanguage) {
    ProgressDialog dialog(12);
    dialog.handleCommand(1154);
    EXPECT_EQ(dialog.text(), QStringLiteral("Initialisation ..."));
    dialog.showReading(QStringLiteral("a b.jpg"));
    EXPECT_EQ(dialog.text(), QStringLiteral("Lecture de a b.jpg"));
    dialog.setLanguage(9);
    dialog.handleCommand(1152);
    EXPECT_EQ(dialog.text(), QStringLiteral("Metadata sorting ..."));
    dialog.handleCommand(4711);
    EXPECT_EQ(dialog.text(), QStringLiteral("Metadata sorting ..."));
    dialog.showReading(QStringLiteral("line\nfeed.jpg"));
    EXPECT_EQ(dialog.text(), QStringLiteral("Reading line feed.jpg"));
    EXPECT_EQ(dialog.property(dialogs::kTemplateNumberProperty).toInt(), 171);
}

/// Delays that a test can wait for, far enough from each other that a busy machine does not mix them up.
constexpr ProgressDialog::Delays kShort{20ms, 60ms, 400ms};
constexpr int kLimit = 20'000;

bool becomesVisible(const QWidget* widget) {
    return QTest::qWaitFor([widget] { return widget->isVisible(); }, kLimit);
}

TEST(ProgressDialog, AppearsWhenAWaitLastsAndOffersToStopLater) {
    ProgressDialog dialog(9, kShort);
    const QSignalSpy chosen(&dialog, &ProgressDialog::StopWaitingChosen);
    dialog.showReading(QStringLiteral("a.jpg"));
    EXPECT_TRUE(dialog.isWaiting());
    EXPECT_FALSE(dialog.isVisible());
    ASSERT_TRUE(becomesVisible(&dialog));
    EXPECT_FALSE(dialog.isModal()) << "everything else goes on beside a read";
    dialog.close();
    EXPECT_TRUE(dialog.isVisible()) << "it stays as long as the wait";
    ASSERT_TRUE(becomesVisible(stopButton(dialog)));
    EXPECT_EQ(stopButton(dialog)->text(), QStringLiteral("Stop waiting"));
    EXPECT_TRUE(dialog.canStop());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(chosen.count(), 1) << "once is enough";
    EXPECT_FALSE(dialog.canStop());
    dialog.finish();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(dialog.isWaiting());

    dialog.showReading(QStringLiteral("b.jpg"));
    ASSERT_TRUE(becomesVisible(&dialog));
    EXPECT_FALSE(stopButton(dialog)->isVisible()) << "the next wait starts afresh";
}

TEST(ProgressDialog, AtTheStartItIsShownWithoutAnEventLoop) {
    ProgressDialog dialog(9, {0ms, 60ms, 400ms});
    dialog.handleCommand(1154);
    dialog.pulse();
    EXPECT_TRUE(dialog.isVisible());
}

TEST(ProgressDialog, AWaitThatNothingMayInterruptIsModal) {
    ProgressDialog dialog(9, kShort);
    dialog.beginWait();
    ASSERT_TRUE(becomesVisible(&dialog));
    EXPECT_TRUE(dialog.isModal());
    dialog.finish();
}

TEST(ProgressDialog, TellsWhichFileOfHowManyAndMovesTheBar) {
    ProgressDialog dialog(9, kShort);
    dialog.beginFiles(QStringLiteral("Add keywords to 3 files"), 3);
    EXPECT_TRUE(dialog.isShowingFiles());
    dialog.showFile(QStringLiteral("b.jpg"), 2);
    EXPECT_EQ(dialog.text(), QStringLiteral("b.jpg  (2 / 3)"));
    ASSERT_TRUE(becomesVisible(&dialog));
    EXPECT_TRUE(dialog.canStop()) << "an operation can be stopped from the beginning";
    EXPECT_FALSE(dialog.isModal());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Add keywords to 3 files"));
    auto* bar = qobject_cast<QProgressBar*>(dialogs::findControl(dialog, ProgressDialog::kBarControl));
    EXPECT_EQ(bar->maximum(), 3);
    EXPECT_EQ(bar->value(), 1);
    dialog.showFile(QString(400, u'x'), 3);
    EXPECT_TRUE(dialog.text().endsWith(QStringLiteral("  (3 / 3)"))) << "the count stays behind a long name";
    EXPECT_LT(dialog.width(), 600);
    dialog.finish();
    EXPECT_FALSE(dialog.isShowingFiles());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Tagwright"));
    dialog.beginFiles(QStringLiteral("One run"), 3, false);
    EXPECT_EQ(bar->maximum(), 0) << "nobody knows how far one run over all files is";
}

}  // namespace
