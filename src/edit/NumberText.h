#pragma once

#include <QString>
#include <QStringView>
#include <optional>

/// What becomes of the text of an edit for numbers. "Designed" and "corrected" are the two forms of
/// docs/commands.md.
namespace edit {

/// Read as an unsigned number of 32 bits up to the first other character, and printed as a signed one: text
/// that is no number, or one that is too large, becomes "0", and 4294967295 "-1". Empty stays empty.
QString designedInteger(const QString& text);

/// The text without blanks at its ends if it is a whole number of any size and sign (also "0x1F"), or if it
/// has the form of the value before with other numbers in it: "50 mm", "8 8 8". Empty stays empty and deletes
/// the tag. Nothing for anything else.
std::optional<QString> correctedInteger(QStringView text, QStringView before);

/// At most 255 characters of the text, behind the value before.
QString designedRational(const QString& before, const QString& text);

/// As correctedInteger, for what ExifTool takes as a rational: "1/3", "0.5", "1e-3", "inf", "undef".
std::optional<QString> correctedRational(QStringView text, QStringView before);

}  // namespace edit
