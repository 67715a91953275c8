#pragma once

#include <QString>
#include <QStringList>

/// A tag that holds a list of values is edited as text with one entry a line. A line feed within an entry is
/// a line separator (U+2028) there, as text edits have it for a break that begins no new paragraph.
namespace tags {

QString joinEntries(const QStringList& entries);

/// Entries without blanks at their ends; empty lines are none.
QStringList splitEntries(const QString& text);

/// The entries as the panel shows them on one line, and any other text as well: entries with ", " between
/// them, control characters as dots.
QString panelText(const QStringList& entries);

}  // namespace tags
