#pragma once

#include <QString>
#include <QStringList>

/// A tag that holds a list of values is edited as text with one entry a line. What would be taken for the end
/// of an entry has kLiteral in front of it, and so has kLiteral itself.
namespace tags {

/// A character that Unicode keeps for such purposes. The one behind it belongs to the entry, whatever it is,
/// but for kNoText, with which it stands for an entry without text.
inline constexpr char16_t kLiteral = 0xFDD0;
inline constexpr char16_t kNoText = u'e';

QString joinEntries(const QStringList& entries);

/// Every character of an entry is kept, blanks at its ends too; empty lines are none.
QStringList splitEntries(const QString& text);

/// The entries as the panel shows them on one line, and any other text as well: entries with ", " between
/// them, control characters as dots.
QString panelText(const QStringList& entries);

}  // namespace tags
