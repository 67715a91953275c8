#pragma once

#include "controls/DumpText.h"
#include "controls/TextRows.h"

#include <QAbstractScrollArea>
#include <memory>
#include <utility>

namespace controls {

/// Shows bytes as a hexadecimal dump or as plain text, of any size at once: only the rows that are visible
/// are made. It can be read and copied from by mouse and keyboard, and changes nothing. In the dump bytes are
/// selected, in the text whole rows. GUI thread.
class HexView : public QAbstractScrollArea {
    Q_OBJECT
    /// The first rows, as scripts read them.
    Q_PROPERTY(QString text READ firstRows)

 public:
    enum class Mode { Dump, Text };
    /// More bytes than these are not copied at a time.
    static constexpr std::size_t kMostCopied = std::size_t{4} << 20;

    explicit HexView(QWidget* parent = nullptr);

    /// The owner keeps the bytes alive as long as they are shown. The view goes back to their beginning.
    void setBytes(Bytes bytes, std::shared_ptr<const void> owner);
    /// Nothing at all, not even a length.
    void clear();
    void setMode(Mode mode);
    Mode mode() const { return mode_; }
    void setShortLineFill(ShortLineFill fill);

    /// Rows of the present mode; the dump has one more for the length.
    std::size_t rowCount() const;
    QString rowText(std::size_t row) const;
    QString firstRows() const;

    /// First selected byte and the number of them; the number is 0 when there are none.
    std::pair<std::size_t, std::size_t> selection() const;
    void select(std::size_t first, std::size_t count);
    void selectAll();
    /// The rows that the selection touches, as text; the dump of everything ends with the length.
    QString selectedText() const;
    /// To the clipboard. Nothing selected does nothing.
    void copySelection();

    QSize sizeHint() const override;

 Q_SIGNALS:
    /// More than kMostCopied bytes are selected; nothing was copied.
    void TooMuchToCopy();

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    std::size_t byteRows() const;
    std::size_t firstRow() const;
    std::size_t visibleRows() const;
    std::size_t rowOf(std::size_t offset) const;
    std::size_t rowBegin(std::size_t row) const;
    std::size_t rowEnd(std::size_t row) const;
    std::size_t byteAt(const QPoint& position) const;
    std::size_t caretAfterKey(int key, bool wholeData) const;
    std::size_t movedByRows(std::ptrdiff_t rows) const;
    void moveCaret(std::size_t offset, bool extend);
    void showCaret();
    void updateMetrics();
    void updateScrollBars();
    void paintDumpMarks(QPainter& painter, std::size_t row, int y) const;
    void paintTextMarks(QPainter& painter, std::size_t row, int y) const;
    void paintRow(QPainter& painter, std::size_t row, int y) const;

    Bytes bytes_;
    std::shared_ptr<const void> owner_;
    bool hasBytes_ = false;
    Mode mode_ = Mode::Dump;
    ShortLineFill fill_ = ShortLineFill::Aligned;
    TextRows textRows_;
    bool hasTextRows_ = false;
    std::size_t anchor_ = 0;
    std::size_t caret_ = 0;
    bool hasSelection_ = false;
    int rowHeight_ = 1;
    double columnWidth_ = 1;
};

}  // namespace controls
