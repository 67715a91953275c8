#include "controls/ExactTextEdit.h"

#include <QGuiApplication>
#include <QLayout>
#include <QMimeData>
#include <QTextBlock>
#include <algorithm>

namespace controls {

namespace {

constexpr int kOriginal = QTextFormat::UserProperty + 1;
const QString kOwnForm = QStringLiteral("application/x-tagwright-text");

constexpr char16_t kMarkOfTab = 0x2192;
constexpr char16_t kMarkOfReturn = 0x21B2;
constexpr char16_t kMarkOfLineEnd = 0x21B5;
constexpr char16_t kMarkOfParagraphEnd = 0x00B6;
constexpr char16_t kMarkOfOthers = 0x25A1;
constexpr char16_t kMarkOfNothing = 0x2205;
constexpr char16_t kNextLine = 0x0085;

/// What stands in the edit for a character that it cannot show or would not keep; 0 for the character itself.
char16_t markOf(QChar character) {
    const char16_t unit = character.unicode();
    if (unit == u'\t') return kMarkOfTab;
    if (unit == u'\r') return kMarkOfReturn;
    if (unit == u'\n' || unit == kNextLine || unit == QChar::LineSeparator) return kMarkOfLineEnd;
    if (unit == QChar::ParagraphSeparator) return kMarkOfParagraphEnd;
    const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
    const bool isSpecial = unit >= 0xFFF9 && unit != QChar::ReplacementCharacter;
    const bool isNoCharacter = unit >= 0xFDD0 && unit <= 0xFDEF;
    return isControl || isSpecial || isNoCharacter ? kMarkOfOthers : 0;
}

/// A surrogate without its other half.
bool isHalf(const QString& text, qsizetype at) {
    if (!text[at].isSurrogate()) return false;
    if (text[at].isHighSurrogate()) return at + 1 >= text.size() || !text[at + 1].isLowSurrogate();
    return at == 0 || !text[at - 1].isHighSurrogate();
}

/// The text of a run of one format, which may hold the marks of several equal characters, and what was typed
/// among them.
QString unmarked(const QString& run, const QVariant& original) {
    if (!original.isValid()) return run;
    const QString kept = original.toString();
    const QChar mark = kept.isEmpty()          ? QChar(kMarkOfNothing)
                       : kept[0].isSurrogate() ? QChar(kMarkOfOthers)
                                               : QChar(markOf(kept[0]));
    QString text = kept.isEmpty() ? QString(QChar(ExactTextEdit::kNoText)) : kept;
    if (kept.isEmpty() || kept == u"\n" || kept[0] == ExactTextEdit::kLiteral)
        text.prepend(QChar(ExactTextEdit::kLiteral));
    return QString(run).replace(mark, text);
}

}  // namespace

ExactTextEdit::ExactTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    // What is typed behind a mark is no mark.
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        if (!textCursor().hasSelection()) setCurrentCharFormat({});
    });
}

ExactTextEdit* ExactTextEdit::inPlaceOf(QPlainTextEdit& other) {
    auto* edit = new ExactTextEdit(other.parentWidget());
    edit->setObjectName(other.objectName());
    edit->setAccessibleName(other.accessibleName());
    edit->setTabChangesFocus(other.tabChangesFocus());
    edit->setMinimumSize(other.minimumSize());
    for (const QByteArray& name : other.dynamicPropertyNames())
        edit->setProperty(name.constData(), other.property(name.constData()));
    QWidget::setTabOrder(&other, edit);
    if (QWidget* parent = other.parentWidget(); parent != nullptr && parent->layout() != nullptr)
        delete parent->layout()->replaceWidget(&other, edit);
    delete &other;
    return edit;
}

QString ExactTextEdit::literal(QString text) {
    return text.replace(QChar(kLiteral), QString(2, QChar(kLiteral)));
}

QString ExactTextEdit::bare(const QString& text) {
    QString bare;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == kLiteral && ++at < text.size() && text[at] == kNoText) continue;
        if (at < text.size()) bare += text[at];
    }
    return bare;
}

QTextCharFormat ExactTextEdit::markFormat(QChar original) const {
    QTextCharFormat format;
    format.setProperty(kOriginal, QString(original));
    format.setForeground(palette().color(QPalette::PlaceholderText));
    return format;
}

void ExactTextEdit::insert(QTextCursor cursor, const QString& text) const {
    const QTextCharFormat plain;
    QString run;
    const auto mark = [&](char16_t picture, const QTextCharFormat& format) {
        cursor.insertText(run, plain);
        run.clear();
        cursor.insertText(QString(QChar(picture)), format);
    };
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isLiteral = text[at] == kLiteral && at + 1 < text.size();
        if (isLiteral) ++at;
        const QChar unit = text[at];
        if (isLiteral && unit == kNoText) {
            QTextCharFormat format = markFormat({});
            format.setProperty(kOriginal, QString());
            mark(kMarkOfNothing, format);
        } else if (unit == u'\n' && !isLiteral) {
            cursor.insertText(run, plain);
            run.clear();
            cursor.insertBlock();
        } else if (const char16_t picture = isHalf(text, at) ? kMarkOfOthers : markOf(unit)) {
            mark(picture, markFormat(unit));
        } else {
            run += unit;
        }
    }
    cursor.insertText(run, plain);
    cursor.endEditBlock();
}

void ExactTextEdit::setExactText(const QString& text) {
    selectAll();
    insert(textCursor(), text);
    document()->clearUndoRedoStacks();
    document()->setModified(false);
    moveCursor(QTextCursor::Start);
}

/// In the form of the text.
QString ExactTextEdit::textBetween(int begin, int end) const {
    QString text;
    for (QTextBlock block = document()->findBlock(begin); block.isValid() && block.position() < end + 1;
         block = block.next()) {
        if (block.position() > begin) text += u'\n';
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int first = std::max(0, begin - fragment.position());
            const int last = std::min(fragment.length(), end - fragment.position());
            if (last > first)
                text += unmarked(fragment.text().sliced(first, last - first),
                                 fragment.charFormat().property(kOriginal));
        }
    }
    return text;
}

QString ExactTextEdit::exactText() const {
    return textBetween(0, document()->characterCount() - 1);
}

bool ExactTextEdit::hasMarks() const {
    for (QTextBlock block = document()->firstBlock(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            if (it.fragment().charFormat().hasProperty(kOriginal)) return true;
    return false;
}

QMimeData* ExactTextEdit::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    const QString text = textBetween(cursor.selectionStart(), cursor.selectionEnd());
    auto* data = new QMimeData;
    data->setText(bare(text));
    data->setData(kOwnForm, QByteArray(reinterpret_cast<const char*>(text.utf16()), text.size() * 2));
    return data;
}

bool ExactTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || source->hasFormat(kOwnForm);
}

void ExactTextEdit::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly()) return;
    QString text;
    if (source->hasFormat(kOwnForm)) {
        const QByteArray own = source->data(kOwnForm);
        text = QString(reinterpret_cast<const QChar*>(own.constData()), own.size() / 2);
    } else {
        // Other programs end lines as their system does.
        text = literal(source->text()).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    }
    insert(textCursor(), text);
    ensureCursorVisible();
}

}  // namespace controls
