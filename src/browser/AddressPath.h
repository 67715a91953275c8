#pragma once

#include <QString>
#include <filesystem>

namespace browser {

/// What a text typed in the address bar names. An empty text stays, an address with a scheme ("https://")
/// stays as it is, a relative path is taken from the base folder; then "." and ".." are resolved in the text.
/// "~" alone or before a separator is the home folder, unless the base folder has an entry of that name.
std::filesystem::path absolutePath(const QString& text, const std::filesystem::path& base);

bool isUrl(const QString& text);

}  // namespace browser
