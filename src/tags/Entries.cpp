#include "tags/Entries.h"

namespace tags {

namespace {

constexpr char16_t kDelete = 0x7F;

QString lineOf(QString entry) {
    if (entry.isEmpty()) return QString(QChar(kLiteral)) + QChar(kNoText);
    entry.replace(QChar(kLiteral), QString(2, QChar(kLiteral)));
    return entry.replace(u'\n', QString(QChar(kLiteral)) + u'\n');
}

}  // namespace

QString joinEntries(const QStringList& entries) {
    QStringList lines;
    for (const QString& entry : entries) lines.append(lineOf(entry));
    return lines.join(u'\n');
}

QStringList splitEntries(const QString& text) {
    QStringList entries;
    QString entry;
    bool isThere = false;
    const auto end = [&] {
        if (isThere) entries.append(entry);
        entry.clear();
        isThere = false;
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'\n') {
            end();
            continue;
        }
        isThere = true;
        if (text[at] == kLiteral && ++at < text.size() && text[at] == kNoText) continue;
        if (at < text.size()) entry += text[at];
    }
    end();
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
