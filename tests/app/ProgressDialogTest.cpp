#include "app/ProgressDialog.h"

#include "app/FormLoader.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace {

using namespace std::chrono_literals;
using app::ProgressDialog;

QPushButton* stopButton(const ProgressDialog& dialog) {
    return qobject_cast<QPushButton*>(app::FindControl(dialog, ProgressDialog::kStopControl));
}

TEST(ProgressDialog, SpeaksTheStepsOfItsLanguage) {
    ProgressDialog dialog(12);
    dialog.HandleCommand(1154);
    EXPECT_EQ(dialog.text(), QStringLiteral("Initialisation ..."));
    dialog.showReading(QStringLiteral("a b.jpg"));
    EXPECT_EQ(dialog.text(), QStringLiteral("Lecture de a b.jpg"));
    dialog.setLanguage(9);
    dialog.HandleCommand(1152);
    EXPECT_EQ(dialog.text(), QStringLiteral("Metadata sorting ..."));
    dialog.HandleCommand(4711);
    EXPECT_EQ(dialog.text(), QStringLiteral("Metadata sorting ..."));
    dialog.showReading(QStringLiteral("line\nfeed.jpg"));
    EXPECT_EQ(dialog.text(), QStringLiteral("Reading line feed.jpg"));
    EXPECT_EQ(dialog.property(app::kTemplateNumberProperty).toInt(), 171);
}

TEST(ProgressDialog, AppearsOnlyWhenAWaitLasts) {
    ProgressDialog dialog(9);
    dialog.showReading(QStringLiteral("a.jpg"));
    EXPECT_TRUE(dialog.isWaiting());
    EXPECT_TRUE(dialog.keepWaiting(0ms));
    EXPECT_TRUE(dialog.keepWaiting(199ms));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(dialog.keepWaiting(200ms));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(stopButton(dialog)->isVisible());
    dialog.finish();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(dialog.isWaiting());
}

TEST(ProgressDialog, WorkWithoutAToolShowsItToo) {
    ProgressDialog dialog(9);
    dialog.HandleCommand(1154);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            dialog.pulse();
            return dialog.isVisible();
        },
        5000));
}

TEST(ProgressDialog, CanBeStoppedAfterTenSeconds) {
    ProgressDialog dialog(9);
    const QSignalSpy chosen(&dialog, &ProgressDialog::StopWaitingChosen);
    dialog.showReading(QStringLiteral("a.jpg"));
    EXPECT_TRUE(dialog.keepWaiting(9999ms));
    EXPECT_FALSE(stopButton(dialog)->isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.keepWaiting(9999ms)) << "there is nothing yet that Escape could press";
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.keepWaiting(10s));
    ASSERT_TRUE(stopButton(dialog)->isVisible());
    EXPECT_EQ(stopButton(dialog)->text(), QStringLiteral("Stop waiting"));
    QTest::mouseClick(stopButton(dialog), Qt::LeftButton);
    EXPECT_FALSE(dialog.keepWaiting(10020ms));
    EXPECT_EQ(chosen.count(), 1);
    dialog.finish();

    dialog.showReading(QStringLiteral("b.jpg"));
    EXPECT_TRUE(dialog.keepWaiting(300ms)) << "the next wait starts afresh";
    EXPECT_FALSE(stopButton(dialog)->isVisible());
}

TEST(ProgressDialog, EscapeStopsOnceTheButtonIsThere) {
    ProgressDialog dialog(9);
    dialog.showReading(QStringLiteral("a.jpg"));
    EXPECT_TRUE(dialog.keepWaiting(11s));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.keepWaiting(12s));
}

TEST(ProgressDialog, ABarThatIsClosedStaysAsLongAsTheWait) {
    ProgressDialog dialog(9);
    dialog.showReading(QStringLiteral("a.jpg"));
    dialog.keepWaiting(300ms);
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
}

// Input that waits for another window: kept out before the tenth second, dropped after it.
TEST(ProgressDialog, OnlyTheDialogGetsInputWhileItWaits) {
    QLineEdit edit;
    edit.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&edit));
    ProgressDialog dialog(9);
    dialog.showReading(QStringLiteral("a.jpg"));
    dialog.keepWaiting(11s);
    const auto type = [&] {
        QCoreApplication::postEvent(
            &edit, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    };
    type();
    dialog.keepWaiting(12s);
    EXPECT_EQ(edit.text(), QString());

    bool pressed = false;
    QObject::connect(stopButton(dialog), &QPushButton::pressed, [&] { pressed = true; });
    QCoreApplication::postEvent(stopButton(dialog), new QKeyEvent(QEvent::KeyPress, Qt::Key_Space,
                                                                  Qt::NoModifier, QStringLiteral(" ")));
    dialog.keepWaiting(12s);
    EXPECT_TRUE(pressed);

    dialog.finish();
    type();
    QCoreApplication::processEvents();
    EXPECT_EQ(edit.text(), QStringLiteral("a"));
}

TEST(ProgressDialog, AWaitWithinAWaitDoesNotNest) {
    ProgressDialog dialog(9);
    dialog.showReading(QStringLiteral("a.jpg"));
    int calls = 0;
    std::function<void()> again = [&] {
        if (++calls < 3)
            QMetaObject::invokeMethod(
                &dialog, [&] { again(); }, Qt::QueuedConnection);
        EXPECT_TRUE(dialog.keepWaiting(400ms));
    };
    QMetaObject::invokeMethod(
        &dialog, [&] { again(); }, Qt::QueuedConnection);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.keepWaiting(500ms) && calls == 3; }, 5000));
}

}  // namespace
