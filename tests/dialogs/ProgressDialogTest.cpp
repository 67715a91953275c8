#include "dialogs/ProgressDialog.h"

#include "dialogs/FormLoader.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QProgressBar>
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
    dialog.handleCommand(1154);
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

TEST(ProgressDialog, TellsWhichFileOfHowManyAndMovesTheBar) {
    ProgressDialog dialog(9);
    auto* bar = qobject_cast<QProgressBar*>(dialogs::findControl(dialog, ProgressDialog::kBarControl));
    ASSERT_NE(bar, nullptr);
    dialog.beginFiles(QStringLiteral("Removing thumbnails"), 3);
    EXPECT_TRUE(dialog.isWaiting());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Removing thumbnails"));
    for (int number = 1; number <= 3; ++number) {
        dialog.showFile(QStringLiteral("a b.jpg"), static_cast<std::size_t>(number));
        EXPECT_EQ(dialog.text(), QStringLiteral("a b.jpg  (%1 / 3)").arg(number));
        EXPECT_EQ(bar->value(), number - 1);
        EXPECT_EQ(bar->maximum(), 3);
    }
    EXPECT_FALSE(dialog.isVisible()) << "nothing is shown for what takes less than 200 ms";
    dialog.finish();
    EXPECT_FALSE(dialog.isWaiting());
    EXPECT_EQ(bar->maximum(), 0);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Tagwright"));
}

TEST(ProgressDialog, ALongNameDoesNotWidenItAndTheCountStays) {
    ProgressDialog dialog(9);
    dialog.beginFiles(QStringLiteral("x"), 1000);
    dialog.showFile(QString(5000, u'w') + QStringLiteral("\nend.jpg"), 17);
    EXPECT_TRUE(dialog.text().endsWith(QStringLiteral("  (17 / 1000)")));
    EXPECT_LT(dialog.sizeHint().width(), 600);
    dialog.finish();
}

TEST(ProgressDialog, ManyShortRunsMakeOneLongWait) {
    ProgressDialog dialog(9);
    dialog.beginFiles(QStringLiteral("x"), 3);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            EXPECT_TRUE(dialog.keepWaiting(5ms));
            return dialog.isVisible();
        },
        5000));
    EXPECT_TRUE(dialog.keepWaiting(10s)) << "one run of them that takes long can be ended";
    EXPECT_TRUE(stopButton(dialog)->isVisible());
    dialog.showFile(QStringLiteral("b.jpg"), 2);
    EXPECT_FALSE(stopButton(dialog)->isVisible());
    dialog.finish();
}

/// Waits until the dialog shows, and thus has the windows painted.
void waitUntilShown(ProgressDialog& dialog) {
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            dialog.pulse();
            return dialog.isVisible();
        },
        5000));
}

// A click that was meant for what stood there before a batch must not act behind it.
TEST(ProgressDialog, WhileFilesAreWorkedOnOtherInputIsDroppedButForTheClosingOfTheWindow) {
    struct Window : QLineEdit {
        void closeEvent(QCloseEvent* event) override {
            ++closings;
            event->ignore();
        }
        int closings = 0;
    } window, other;
    window.show();
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ProgressDialog dialog(9);
    dialog.setClosableWindow(&window);
    dialog.beginFiles(QStringLiteral("x"), 2);
    waitUntilShown(dialog);
    QCoreApplication::postEvent(
        &window, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    QCoreApplication::postEvent(window.windowHandle(), new QCloseEvent);
    QCoreApplication::postEvent(other.windowHandle(), new QCloseEvent);
    dialog.keepWaiting(300ms);
    EXPECT_EQ(window.text(), QString());
    EXPECT_EQ(window.closings, 1);
    EXPECT_EQ(other.closings, 0);
    dialog.showClosing();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Closing after this file ..."));
    dialog.finish();
}

TEST(ProgressDialog, OverAnOpenDialogItsButtonCanBeReached) {
    QDialog below;
    below.setModal(true);
    below.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&below));
    ProgressDialog dialog(9);
    dialog.beginFiles(QStringLiteral("x"), 1);
    waitUntilShown(dialog);
    dialog.keepWaiting(10s);
    ASSERT_EQ(QApplication::activeModalWidget(), &dialog);
    QTest::mouseClick(stopButton(dialog), Qt::LeftButton);
    EXPECT_FALSE(dialog.keepWaiting(11s));
    dialog.finish();
    EXPECT_EQ(QApplication::activeModalWidget(), &below);
}

}  // namespace
