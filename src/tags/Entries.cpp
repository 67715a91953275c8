#include "tags/Entries.h"

namespace tags {

namespace {

constexpr QChar kBreakWithinEntry = QChar::LineSeparator;
constexpr char16_t kDelete = 0x7F;

}  // namespace

QString joinEntries(const QStringList& entries) {
    QStringList lines;
    for (QString entry : entries) lines.append(entry.replace(u'\n', kBreakWithinEntry));
    return lines.join(u'\n');
}

QStringList splitEntries(const QString& text) {
    QStringList entries;
    for (const QString& line : text.split(u'\n')) {
        QString entry = line.trimmed();
        if (!entry.isEmpty()) entries.append(entry.replace(kBreakWithinEntry, u'\n'));
    }
    return entries;
}

QString panelText(const QStringList& entries) {
    QString text = entries.join(QStringLiteral(", "));
    text.remove(QChar::Null);
    for (QChar& character : text)
        if (character < u' ' || character == kDelete) character = u'.';
    return text;
}

}  // namespace tags
