#include "drive/CommandLineWords.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace drive {

namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

/// The end of the JSON string that begins at `from`, one past its closing quote; -1 when it does not end.
qsizetype endOfQuoted(const QByteArray& line, qsizetype from) {
    for (qsizetype at = from + 1; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == '"')
            return at + 1;
    }
    return -1;
}

}  // namespace

std::optional<QStringList> splitWords(const QByteArray& line) {
    QStringList words;
    for (qsizetype at = 0; at < line.size();) {
        if (isBlank(line[at])) {
            ++at;
            continue;
        }
        if (line[at] == '"') {
            const qsizetype end = endOfQuoted(line, at);
            if (end < 0) return std::nullopt;
            const QJsonDocument parsed = QJsonDocument::fromJson("[" + line.mid(at, end - at) + "]");
            if (!parsed.isArray() || !parsed.array().at(0).isString()) return std::nullopt;
            if (end < line.size() && !isBlank(line[end])) return std::nullopt;
            words.append(parsed.array().at(0).toString());
            at = end;
        } else {
            qsizetype end = at;
            while (end < line.size() && !isBlank(line[end])) ++end;
            words.append(QString::fromUtf8(line.mid(at, end - at)));
            at = end;
        }
    }
    return words;
}

}  // namespace drive
