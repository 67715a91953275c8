#pragma once

#include <QStringView>
#include <algorithm>
#include <string_view>

namespace tags {

/// Lower case of one UTF-16 unit, as a wide-character compare without case folds it: unit by unit, whatever
/// the language, and a half of a surrogate pair stays as it is.
inline char16_t foldedUnit(char16_t unit) {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    return QChar(unit).toLower().unicode();
}

inline bool equalWithoutCase(std::u16string_view left, std::u16string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t a, char16_t b) { return foldedUnit(a) == foldedUnit(b); });
}

inline std::u16string_view units(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

}  // namespace tags
