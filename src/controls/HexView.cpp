#include "controls/HexView.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <limits>

namespace controls {

namespace {

constexpr int kMargin = 8;
constexpr int kHintRows = 24;
constexpr int kFontPixels = 12;
constexpr std::size_t kFirstRows = 2000;

int toInt(std::size_t count) {
    return static_cast<int>(std::min<std::size_t>(count, std::numeric_limits<int>::max()));
}

}  // namespace

HexView::HexView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    QFont fixed(QStringLiteral("Courier New"));
    fixed.setStyleHint(QFont::Monospace);
    if (!QFontDatabase::families().contains(fixed.family()))
        fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPixelSize(std::max(kFontPixels, QFontMetrics(font()).height() * 3 / 4));
    setFont(fixed);
    updateMetrics();
}

void HexView::setBytes(Bytes bytes, std::shared_ptr<const void> owner) {
    bytes_ = bytes;
    owner_ = std::move(owner);
    hasBytes_ = true;
    anchor_ = caret_ = 0;
    hasSelection_ = false;
    hasTextRows_ = mode_ == Mode::Text;
    textRows_ = hasTextRows_ ? TextRows(bytes_) : TextRows();
    updateScrollBars();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    viewport()->update();
}

void HexView::clear() {
    setBytes({}, nullptr);
    hasBytes_ = false;
}

void HexView::setMode(Mode mode) {
    if (mode == mode_) return;
    const std::size_t top = rowCount() == 0 ? 0 : rowBegin(firstRow());
    mode_ = mode;
    if (mode == Mode::Text && !hasTextRows_) {
        textRows_ = TextRows(bytes_);
        hasTextRows_ = true;
    }
    updateScrollBars();
    verticalScrollBar()->setValue(toInt(rowOf(top)));
    viewport()->update();
}

void HexView::setShortLineFill(ShortLineFill fill) {
    fill_ = fill;
    viewport()->update();
}

std::size_t HexView::byteRows() const {
    return mode_ == Mode::Dump ? dumpLineCount(bytes_.size()) : textRows_.rowCount();
}

std::size_t HexView::rowCount() const {
    return byteRows() + (mode_ == Mode::Dump && hasBytes_ ? 1 : 0);
}

std::size_t HexView::rowBegin(std::size_t row) const {
    if (row >= byteRows()) return bytes_.size();
    return mode_ == Mode::Dump ? row * kBytesPerDumpLine : textRows_.beginOf(row);
}

std::size_t HexView::rowEnd(std::size_t row) const {
    if (row >= byteRows()) return bytes_.size();
    return mode_ == Mode::Dump ? std::min(bytes_.size(), (row + 1) * kBytesPerDumpLine)
                               : textRows_.endOf(row);
}

std::size_t HexView::rowOf(std::size_t offset) const {
    return mode_ == Mode::Dump ? offset / kBytesPerDumpLine : textRows_.rowOf(offset);
}

QString HexView::rowText(std::size_t row) const {
    if (row >= rowCount()) return {};
    if (row >= byteRows()) return dumpEnd(bytes_.size());
    if (mode_ == Mode::Text) return textRows_.textOf(row);
    const std::size_t begin = rowBegin(row);
    return dumpLine(bytes_.subspan(begin, rowEnd(row) - begin), begin, fill_);
}

QString HexView::firstRows() const {
    QStringList rows;
    for (std::size_t row = 0; row < std::min(kFirstRows, rowCount()); ++row) rows.append(rowText(row));
    return rows.join(u'\n');
}

std::pair<std::size_t, std::size_t> HexView::selection() const {
    if (!hasSelection_ || bytes_.empty()) return {0, 0};
    std::size_t first = std::min(anchor_, caret_);
    std::size_t end = std::max(anchor_, caret_) + 1;
    if (mode_ == Mode::Text) {
        first = rowBegin(rowOf(first));
        end = rowEnd(rowOf(end - 1));
    }
    return {first, end - first};
}

void HexView::select(std::size_t first, std::size_t count) {
    if (count == 0 || first >= bytes_.size()) return;
    anchor_ = first;
    caret_ = std::min(bytes_.size(), first + count) - 1;
    hasSelection_ = true;
    viewport()->update();
}

void HexView::selectAll() {
    select(0, bytes_.size());
}

QString HexView::selectedText() const {
    const auto [first, count] = selection();
    if (count == 0) return {};
    const std::size_t endRow = rowOf(first + count - 1) + 1;
    if (mode_ == Mode::Text)
        return QString::fromUtf8(reinterpret_cast<const char*>(bytes_.data()) + first,
                                 static_cast<qsizetype>(count));
    QString lines = dumpLines(bytes_, rowOf(first), endRow, fill_);
    return count == bytes_.size() ? lines + dumpEnd(count) : lines;
}

void HexView::copySelection() {
    const std::size_t count = selection().second;
    if (count > kMostCopied) Q_EMIT TooMuchToCopy();
    if (count == 0 || count > kMostCopied) return;
    QGuiApplication::clipboard()->setText(selectedText());
}

QSize HexView::sizeHint() const {
    const auto columns = static_cast<double>(dumpColumnOfText(kBytesPerDumpLine, fill_) + kBytesPerDumpLine);
    const int bar = verticalScrollBar()->sizeHint().width();
    return {static_cast<int>(std::ceil(columns * columnWidth_)) + 2 * kMargin + bar + 2 * frameWidth(),
            kHintRows * rowHeight_ + 2 * frameWidth()};
}

void HexView::updateMetrics() {
    const QFontMetricsF metrics(font());
    rowHeight_ = std::max(1, static_cast<int>(std::ceil(metrics.lineSpacing())) + 2);
    columnWidth_ = metrics.horizontalAdvance(u'0');
    updateScrollBars();
}

std::size_t HexView::firstRow() const {
    return static_cast<std::size_t>(verticalScrollBar()->value());
}

std::size_t HexView::visibleRows() const {
    return static_cast<std::size_t>(std::max(1, viewport()->height() / rowHeight_));
}

void HexView::updateScrollBars() {
    const int page = toInt(visibleRows());
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(0, toInt(rowCount()) - page));
    const std::size_t columns = mode_ == Mode::Dump
                                    ? dumpColumnOfText(kBytesPerDumpLine, fill_) + kBytesPerDumpLine
                                    : TextRows::kLongestRow;
    const bool hasRows = byteRows() > 0;
    const int width =
        hasRows ? static_cast<int>(static_cast<double>(columns) * columnWidth_) + 2 * kMargin : 0;
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(static_cast<int>(columnWidth_) * 4);
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
}

}  // namespace controls
