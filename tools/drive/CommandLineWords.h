#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace drive {

/// The words of one command line: separated by blanks; a word that begins with a double quote is a JSON
/// string. Nothing when a quoted word does not end, is no valid JSON string or runs into another word.
std::optional<QStringList> splitWords(const QByteArray& line);

}  // namespace drive
