#include "controls/HexView.h"
#include "controls/PictureView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace controls;

namespace {

using Mode = HexView::Mode;

/// Bytes with a line feed each hundred.
std::shared_ptr<const std::string> data(std::size_t size) {
    auto bytes = std::make_shared<std::string>(size, 'x');
    for (std::size_t at = 99; at < size; at += 100) (*bytes)[at] = '\n';
    return bytes;
}

class HexViewTest : public testing::Test {
 protected:
    void show(std::size_t size) {
        bytes_ = data(size);
        view_.setBytes({reinterpret_cast<const unsigned char*>(bytes_->data()), bytes_->size()}, bytes_);
        view_.resize(view_.sizeHint());
        view_.show();
        view_.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view_));
    }

    using Selection = std::pair<std::size_t, std::size_t>;

    HexView view_;
    std::shared_ptr<const std::string> bytes_;
};

}  // namespace

TEST_F(HexViewTest, NothingAndNothingInIt) {
    EXPECT_EQ(view_.rowCount(), 0u);
    show(0);
    EXPECT_EQ(view_.firstRows(), QStringLiteral("(0 bytes)"));
    view_.setMode(Mode::Text);
    EXPECT_EQ(view_.rowCount(), 0u);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp}) QTest::keyClick(&view_, key);
    QTest::mouseClick(view_.viewport(), Qt::LeftButton, {}, {30, 30});
    EXPECT_EQ(view_.selection(), Selection(0, 0));
    view_.clear();
    view_.setMode(Mode::Dump);
    EXPECT_EQ(view_.firstRows(), QString());
}

TEST_F(HexViewTest, AHundredMegabytesOpenScrollAndSwitch) {
    constexpr std::size_t kSize = 104'857'607;
    show(kSize);
    EXPECT_EQ(view_.rowCount(), kSize / 16 + 2);
    EXPECT_EQ(view_.verticalScrollBar()->value(), 0);
    QTest::keyClick(&view_, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(view_.verticalScrollBar()->value(), view_.verticalScrollBar()->maximum());
    const QImage shown = view_.grab().toImage();
    EXPECT_FALSE(shown.isNull());
    EXPECT_EQ(view_.rowText(view_.rowCount() - 1), QStringLiteral("(104857607 bytes)"));
    EXPECT_TRUE(view_.rowText(view_.rowCount() - 2).startsWith(QStringLiteral("06400000   ")));

    view_.setMode(Mode::Text);
    EXPECT_EQ(view_.rowCount(), kSize / 100 + 1);
    EXPECT_EQ(view_.rowText(view_.rowCount() - 1), QStringLiteral("xxxxxxx"));
    QTest::keyClick(&view_, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view_, Qt::Key_PageDown);
    EXPECT_FALSE(view_.grab().isNull());
}

TEST_F(HexViewTest, ItIsReadAndMarkedByTheKeyboardAlone) {
    show(1000);
    QTest::keyClick(&view_, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(view_.selection(), Selection(0, 2));
    QTest::keyClick(&view_, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(view_.selection(), Selection(0, 18));
    QTest::keyClick(&view_, Qt::Key_End);
    EXPECT_EQ(view_.selection().second, 0u);
    QTest::keyClick(&view_, Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(view_.selection(), Selection(16, 16));
    QTest::keyClick(&view_, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&view_, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(view_.selection(), Selection(998, 2));
    QTest::keyClick(&view_, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view_, Qt::Key_Up);
    QTest::keyClick(&view_, Qt::Key_Left);
    QTest::keyClick(&view_, Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(view_.selection().first, 0u);
    EXPECT_GT(view_.selection().second, 16u);
    QTest::keyClick(&view_, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(view_.selection(), Selection(0, 1000));
}

TEST_F(HexViewTest, WhatIsMarkedIsCopiedAsTheDump) {
    show(40);
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&view_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString());
    view_.select(20, 2);
    QTest::keyClick(&view_, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "00000010   78 78 78 78 78 78 78 78   78 78 78 78 78 78 78 78    xxxxxxxxxxxxxxxx\r\n");
    view_.selectAll();
    EXPECT_TRUE(view_.selectedText().endsWith(QStringLiteral("xxxxxxxx\r\n(40 bytes)")));
    view_.setMode(Mode::Text);
    EXPECT_EQ(view_.selectedText(), QString(40, u'x'));
}

TEST_F(HexViewTest, TooMuchIsNotCopied) {
    show(HexView::kMostCopied + 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
    const QSignalSpy spy(&view_, &HexView::TooMuchToCopy);
    view_.selectAll();
    view_.copySelection();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("kept"));
}

TEST_F(HexViewTest, TheMouseMarksBytesInEitherColumn) {
    show(1000);
    const QFontMetricsF metrics(view_.font());
    const double column = metrics.horizontalAdvance(u'0');
    const auto at = [&](std::size_t columns, int row) {
        const int height = static_cast<int>(std::ceil(metrics.lineSpacing())) + 2;
        return QPoint(8 + static_cast<int>((static_cast<double>(columns) + 0.4) * column),
                      row * height + height / 2);
    };
    const auto drag = [&](QPoint from, QPoint to) {
        QTest::mousePress(view_.viewport(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, view_.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(view_.viewport(), &move);
        QTest::mouseRelease(view_.viewport(), Qt::LeftButton, {}, to);
    };
    drag(at(dumpColumnOfByte(2), 0), at(dumpColumnOfByte(9), 1));
    EXPECT_EQ(view_.selection(), Selection(2, 24));
    const std::size_t text = dumpColumnOfText(16, ShortLineFill::Aligned);
    drag(at(text + 3, 2), at(text + 15, 2));
    EXPECT_EQ(view_.selection(), Selection(35, 13));
    QTest::mouseClick(view_.viewport(), Qt::LeftButton, Qt::ShiftModifier, at(text + 1, 2));
    EXPECT_EQ(view_.selection(), Selection(33, 3));
    QTest::mouseDClick(view_.viewport(), Qt::LeftButton, {}, at(dumpColumnOfByte(5), 4));
    EXPECT_EQ(view_.selection(), Selection(64, 16));
    view_.setMode(Mode::Text);
    drag(at(3, 1), at(3, 2));
    EXPECT_EQ(view_.selection(), Selection(100, 200));
}

TEST_F(HexViewTest, EnterAndEscapeAreLeftToTheDialog) {
    show(100);
    QDialog dialog;
    view_.setParent(&dialog);
    dialog.show();
    view_.show();
    view_.setFocus();
    QTest::keyClick(&view_, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    view_.setParent(nullptr);
}

TEST(PictureView, FitsAndZooms) {
    PictureView view;
    view.resize(200, 200);
    EXPECT_FALSE(view.grab().isNull());
    QImage image(400, 100, QImage::Format_RGB32);
    image.fill(Qt::red);
    view.setImage(image);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    EXPECT_TRUE(view.fits());
    EXPECT_LT(view.zoom(), 0.5);
    EXPECT_EQ(view.grab().toImage().pixelColor(100, 100), QColor(Qt::red));
    QTest::keyClick(&view, Qt::Key_1);
    EXPECT_DOUBLE_EQ(view.zoom(), 1);
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    QTest::keyClick(&view, Qt::Key_Plus);
    EXPECT_GT(view.zoom(), 1);
    for (int step = 0; step < 100; ++step) QTest::keyClick(&view, Qt::Key_Minus);
    EXPECT_GT(view.zoom(), 0);
    QWheelEvent wheel({50, 50}, view.mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    const double before = view.zoom();
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_GT(view.zoom(), before);
    QTest::keyClick(&view, Qt::Key_0);
    EXPECT_TRUE(view.fits());
    image = QImage(10, 10, QImage::Format_RGB32);
    view.setImage(image);
    EXPECT_DOUBLE_EQ(view.zoom(), 1);
}
