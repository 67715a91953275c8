#pragma once

#include <QString>
#include <initializer_list>
#include <span>

namespace app {

/// A text that the program knows, made of babel/texts.tsv: its number, and "folder::kName" or, for one
/// without a constant, "command", "tip", "ribbon" or "menu".
struct TextKey {
    int number;
    const char* key;
};

/// All of them, the numbers ascending.
std::span<const TextKey> textKeys();

/// What stands in the place of a text that no language file has; empty for a number that is none.
QString keyOfText(int number);
/// The same with the values that the text should have shown.
QString keyAndValues(int number, std::initializer_list<QString> values);

}  // namespace app
