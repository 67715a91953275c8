#include "browser/AddressPath.h"

#include "platform/Text.h"

#include <QDir>
#include <QRegularExpression>

namespace browser {
namespace {

std::filesystem::path withHome(const QString& text, const std::filesystem::path& base) {
    std::error_code failure;
    if ((text == u"~" || text.startsWith(u"~/")) && !std::filesystem::exists(base / "~", failure))
        return platform::pathFromText(QDir::homePath() + text.mid(1));
    return platform::pathFromText(text);
}

}  // namespace

// A lone colon makes no address here: names of this platform may hold one.
bool isUrl(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+://"));
    return pattern.match(text).hasMatch();
}

std::filesystem::path absolutePath(const QString& text, const std::filesystem::path& base) {
    if (text.isEmpty()) return {};
    if (isUrl(text)) return platform::pathFromText(text);
    std::filesystem::path path = withHome(text, base);
    if (path.is_relative()) path = base / path;
    path = path.lexically_normal();
    // A separator at the end is no part of the folder's name.
    if (path.has_relative_path() && !path.has_filename()) path = path.parent_path();
    return path;
}

}  // namespace browser
