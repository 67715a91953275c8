#include "controls/HexView.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace controls {

namespace {

constexpr int kMargin = 8;
constexpr double kSecondaryOpacity = 0.75;

}  // namespace

void HexView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void HexView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) updateMetrics();
}

void HexView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void HexView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

std::size_t HexView::movedByRows(std::ptrdiff_t rows) const {
    const std::size_t row = rowOf(caret_);
    const std::size_t last = byteRows() - 1;
    const std::size_t target = rows < 0 ? row - std::min(row, static_cast<std::size_t>(-rows))
                                        : std::min(last, row + static_cast<std::size_t>(rows));
    const std::size_t column = caret_ - rowBegin(row);
    return std::min(rowBegin(target) + column, rowEnd(target) - 1);
}

std::size_t HexView::caretAfterKey(int key, bool wholeData) const {
    const auto page = static_cast<std::ptrdiff_t>(visibleRows());
    const std::size_t last = bytes_.size() - 1;
    switch (key) {
        case Qt::Key_Left:
            return mode_ == Mode::Text ? caret_ : caret_ - std::min<std::size_t>(caret_, 1);
        case Qt::Key_Right:
            return mode_ == Mode::Text ? caret_ : std::min(last, caret_ + 1);
        case Qt::Key_Up:
            return movedByRows(-1);
        case Qt::Key_Down:
            return movedByRows(1);
        case Qt::Key_PageUp:
            return movedByRows(-page);
        case Qt::Key_PageDown:
            return movedByRows(page);
        case Qt::Key_Home:
            return wholeData ? 0 : rowBegin(rowOf(caret_));
        default:  // End
            return wholeData ? last : rowEnd(rowOf(caret_)) - 1;
    }
}

void HexView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) return copySelection();
    if (event->matches(QKeySequence::SelectAll)) return selectAll();
    constexpr int kMoves[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                              Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    if (bytes_.empty() || std::ranges::find(kMoves, event->key()) == std::end(kMoves)) return event->ignore();
    moveCaret(caretAfterKey(event->key(), event->modifiers().testFlag(Qt::ControlModifier)),
              event->modifiers().testFlag(Qt::ShiftModifier));
    showCaret();
    // Sideways there is no caret in the text; the length stands below the last byte.
    if (mode_ == Mode::Text && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right))
        horizontalScrollBar()->triggerAction(event->key() == Qt::Key_Left
                                                 ? QAbstractSlider::SliderSingleStepSub
                                                 : QAbstractSlider::SliderSingleStepAdd);
    if (caret_ + 1 == bytes_.size()) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void HexView::moveCaret(std::size_t offset, bool extend) {
    if (!extend) anchor_ = offset;
    caret_ = offset;
    hasSelection_ = extend;
    viewport()->update();
}

void HexView::showCaret() {
    const int row = static_cast<int>(rowOf(caret_));
    const int rows = static_cast<int>(visibleRows());
    QScrollBar* const bar = verticalScrollBar();
    if (row < bar->value()) bar->setValue(row);
    if (row >= bar->value() + rows) bar->setValue(row - rows + 1);
}

std::size_t HexView::byteAt(const QPoint& position) const {
    // Above and below the visible rows, when the mouse is dragged out: the view follows.
    const std::ptrdiff_t fromTop = position.y() < 0 ? -1 : position.y() / rowHeight_;
    const std::ptrdiff_t wanted = static_cast<std::ptrdiff_t>(firstRow()) + fromTop;
    const auto last = static_cast<std::ptrdiff_t>(byteRows()) - 1;
    const auto row = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last));
    const std::size_t begin = rowBegin(row);
    const std::size_t length = rowEnd(row) - begin;
    if (mode_ == Mode::Text) return begin;
    const int x = position.x() - kMargin + horizontalScrollBar()->value();
    const auto column = static_cast<std::size_t>(std::max(0.0, x / columnWidth_));
    const std::size_t text = dumpColumnOfText(length, fill_);
    if (column + 1 >= text) return begin + std::min(length - 1, column - std::min(column, text));
    std::size_t index = 0;
    while (index + 1 < length && dumpColumnOfByte(index + 1) <= column) ++index;
    return begin + index;
}

void HexView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || bytes_.empty()) return;
    moveCaret(byteAt(event->pos()), event->modifiers().testFlag(Qt::ShiftModifier));
}

void HexView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton) || bytes_.empty()) return;
    moveCaret(byteAt(event->pos()), true);
    showCaret();
}

void HexView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || bytes_.empty()) return;
    const std::size_t row = rowOf(byteAt(event->pos()));
    select(rowBegin(row), rowEnd(row) - rowBegin(row));
}

void HexView::paintDumpMarks(QPainter& painter, std::size_t row, int y) const {
    const std::size_t begin = rowBegin(row);
    const std::size_t length = rowEnd(row) - begin;
    const auto [first, count] = selection();
    const std::size_t from = std::max(first, begin);
    const std::size_t to = std::min(first + count, begin + length);
    const std::size_t text = dumpColumnOfText(length, fill_);
    const auto mark = [&](std::size_t column, std::size_t columns) {
        return QRectF(kMargin + static_cast<double>(column) * columnWidth_, y,
                      static_cast<double>(columns) * columnWidth_, rowHeight_);
    };
    QColor selected = palette().color(QPalette::Highlight);
    selected.setAlphaF(hasFocus() ? 0.3F : 0.18F);
    if (from < to) {
        const std::size_t left = dumpColumnOfByte(from - begin);
        const std::size_t right = dumpColumnOfByte(to - begin - 1) + 2;
        painter.fillRect(mark(left, right - left), selected);
        painter.fillRect(mark(text + from - begin, to - from), selected);
    }
    if (!hasFocus() || caret_ < begin || caret_ >= begin + length) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(mark(dumpColumnOfByte(caret_ - begin), 2).adjusted(-1, 0, 1, -1));
    painter.drawRect(mark(text + caret_ - begin, 1).adjusted(0, 0, 0, -1));
}

void HexView::paintTextMarks(QPainter& painter, std::size_t row, int y) const {
    const QRect whole(horizontalScrollBar()->value(), y, viewport()->width(), rowHeight_);
    const auto [first, count] = selection();
    QColor selected = palette().color(QPalette::Highlight);
    selected.setAlphaF(hasFocus() ? 0.3F : 0.18F);
    if (count > 0 && rowBegin(row) >= first && rowBegin(row) < first + count)
        painter.fillRect(whole, selected);
    else if (hasFocus() && row == rowOf(caret_)) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(whole.adjusted(1, 0, -2, -1));
    }
}

void HexView::paintRow(QPainter& painter, std::size_t row, int y) const {
    const bool isBytes = row < byteRows();
    if (isBytes && mode_ == Mode::Dump) paintDumpMarks(painter, row, y);
    if (isBytes && mode_ == Mode::Text) paintTextMarks(painter, row, y);
    const QRect line(kMargin, y, static_cast<int>(columnWidth_ * (TextRows::kLongestRow + 1)), rowHeight_);
    constexpr int kFlags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextDontClip;
    QString text = rowText(row);
    QColor color = palette().color(QPalette::Text);
    painter.setPen(color);
    if (isBytes && mode_ == Mode::Text) return painter.drawText(line, kFlags, text);
    color.setAlphaF(static_cast<float>(kSecondaryOpacity));
    painter.setPen(color);
    if (!isBytes) return painter.drawText(line, kFlags, text);
    const auto offsetColumns = static_cast<qsizetype>(dumpColumnOfByte(0));
    painter.drawText(line, kFlags, text.left(offsetColumns));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(line.translated(static_cast<int>(columnWidth_ * static_cast<double>(offsetColumns)), 0),
                     kFlags, text.mid(offsetColumns));
}

void HexView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    painter.setFont(font());
    painter.translate(-horizontalScrollBar()->value(), 0);
    const std::size_t end = std::min(rowCount(), firstRow() + visibleRows() + 2);
    int y = 0;
    for (std::size_t row = firstRow(); row < end; ++row, y += rowHeight_) paintRow(painter, row, y);
}

}  // namespace controls
