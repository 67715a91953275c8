#pragma once

#include <QPlainTextEdit>
#include <QString>
#include <QTextCharFormat>

namespace controls {

/// A text edit that gives back every character that it was given, where the plain one would take some for the
/// end of a line and replaces others. What cannot be seen, or would end a line, shows as a mark: an
/// arrow for a tab. Marks are copied and pasted as what they stand for.
///
/// Its text has one form only: a line feed begins a line, and kLiteral says that the character behind it is
/// to be taken as it is, within its line, or with kNoText for a place that holds nothing. GUI thread.
class ExactTextEdit : public QPlainTextEdit {
    Q_OBJECT

 public:
    static constexpr char16_t kLiteral = 0xFDD0;
    static constexpr char16_t kNoText = u'e';

    explicit ExactTextEdit(QWidget* parent = nullptr);

    /// Lays one over the other edit, whose name, properties and place in its layout it takes, and deletes
    /// that.
    static ExactTextEdit* inPlaceOf(QPlainTextEdit& other);

    /// The text is then unmodified, and cannot be undone.
    void setExactText(const QString& text);
    QString exactText() const;
    bool hasMarks() const;

    /// Any text as one of that form.
    static QString literal(QString text);
    /// And back, of a text whose lines mean nothing.
    static QString bare(const QString& text);

 protected:
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

 private:
    void insert(QTextCursor cursor, const QString& text) const;
    QString textBetween(int begin, int end) const;
    QTextCharFormat markFormat(QChar original) const;
};

}  // namespace controls
