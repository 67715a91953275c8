#include "browser/DisplayText.h"

#include "app/Settings.h"

#include <QByteArray>

namespace browser {

NameSettings nameSettingsOf(const app::Settings& settings) {
    return {settings.listView.showExtensions, settings.main.hideLinkExtensionGlobal};
}

std::string_view extensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return {};
    const std::string_view extension = name.substr(dot);
    return extension.find(' ') == std::string_view::npos ? extension : std::string_view();
}

std::string_view displayText(std::string_view name, bool isFolder, const NameSettings& settings) {
    if (isFolder || name.starts_with('.')) return name;
    const std::string_view extension = extensionOf(name);
    const bool isLink = extension.size() == 4 && qstrnicmp(extension.data(), ".lnk", 4) == 0;
    if (settings.showExtensions && !(settings.hideLinkExtension && isLink)) return name;
    return name.substr(0, name.size() - extension.size());
}

}  // namespace browser
