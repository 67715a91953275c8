#include "controls/Splitter.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

using controls::Splitter;

namespace {

class SplitterTest : public testing::Test {
 protected:
    SplitterTest() {
        for (int pane = 0; pane < 3; ++pane) {
            auto* widget = new QWidget;
            widget->setMinimumWidth(1);
            splitter.addWidget(widget);
        }
        splitter.resize(1012, 200);
        splitter.show();
        splitter.setSizes({300, 400, 300});
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&splitter));
    }

    void drag(int handle, int by) {
        QWidget* widget = splitter.handle(handle);
        const QPoint from = widget->rect().center();
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + QPoint(by, 0), widget->mapToGlobal(from + QPoint(by, 0)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, widget->rect().center());
    }

    Splitter splitter{Qt::Horizontal};
};

}  // namespace

TEST_F(SplitterTest, HandlesAreSixWide) {
    EXPECT_EQ(splitter.handle(1)->width(), 6);
    EXPECT_EQ(splitter.sizes(), (QList<int>{300, 400, 300}));
}

TEST_F(SplitterTest, ADragIsToldOnceWhenTheHandleIsLetGo) {
    QSignalSpy chosen(&splitter, &Splitter::SizesChosen);
    drag(1, -50);
    EXPECT_EQ(splitter.sizes(), (QList<int>{250, 450, 300}));
    EXPECT_EQ(chosen.count(), 1);
    QTest::mouseClick(splitter.handle(1), Qt::LeftButton);
    EXPECT_EQ(chosen.count(), 1) << "a click moves nothing";
}

TEST_F(SplitterTest, ADoubleClickRestoresTheGivenSizes) {
    QSignalSpy chosen(&splitter, &Splitter::SizesChosen);
    QTest::mouseDClick(splitter.handle(2), Qt::LeftButton);
    EXPECT_EQ(chosen.count(), 0) << "nothing given";
    splitter.setResetSizes({200, Splitter::kRest, 350});
    drag(2, 100);
    QTest::mouseDClick(splitter.handle(2), Qt::LeftButton);
    EXPECT_EQ(splitter.sizes(), (QList<int>{200, 450, 350}));
    EXPECT_EQ(chosen.count(), 2);
}

TEST_F(SplitterTest, AHiddenPaneTakesNoneOfTheRest) {
    splitter.widget(2)->hide();
    QCoreApplication::processEvents();
    splitter.setResetSizes({200, Splitter::kRest, 350});
    QTest::mouseDClick(splitter.handle(1), Qt::LeftButton);
    EXPECT_EQ(splitter.sizes(), (QList<int>{200, 806, 0}));
}

TEST_F(SplitterTest, TheHandleShowsItselfUnderTheMouse) {
    QSplitterHandle* handle = splitter.handle(1);
    const QImage quiet = handle->grab().toImage();
    QTest::mousePress(handle, Qt::LeftButton);
    QMouseEvent move(QEvent::MouseMove, QPointF(4, 50), handle->mapToGlobal(QPointF(4, 50)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(handle, &move);
    EXPECT_NE(handle->grab().toImage(), quiet);
    QTest::mouseRelease(handle, Qt::LeftButton);
}
