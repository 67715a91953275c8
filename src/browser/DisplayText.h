#pragma once

#include "browser/ListItem.h"

#include <string_view>

namespace app {
struct Settings;
}

namespace browser {

/// What decides whether a file's extension is shown.
struct NameSettings {
    bool showExtensions = true;
    bool hideLinkExtension = false;

    bool operator==(const NameSettings&) const = default;
};

NameSettings nameSettingsOf(const app::Settings& settings);

/// The extension with its dot: from the last dot of the name on, unless a blank follows it; empty when there
/// is none.
std::string_view extensionOf(std::string_view name);

/// The name as the list shows it: without its extension when the settings hide it. Folders and names that
/// begin with a dot keep theirs.
std::string_view displayText(std::string_view name, bool isFolder, const NameSettings& settings);

/// What an item's text begins with in the list.
inline constexpr int kLeadingBlanks = 3;

}  // namespace browser
