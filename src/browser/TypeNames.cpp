#include "browser/TypeNames.h"

#include "browser/DisplayText.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <QMimeType>

namespace browser {
namespace {

// No longer extension is worth a place in the memory: it is a name with a dot in it.
constexpr std::size_t kLongestExtension = 12;
constexpr std::size_t kMostExtensions = 4096;
constexpr std::size_t kHeadBytes = 4096;

TypeNames::Type typeOf(const QMimeType& mime, bool certain) {
    return {mime.comment(), mime.iconName(), mime.genericIconName(), certain};
}

// The database knows whole names too ("CMakeLists.txt", "README"), but none among these families, so that one
// file of an extension speaks for all.
bool extensionDecides(const QMimeType& mime) {
    const QString name = mime.name();
    return name.startsWith(u"image/") || name.startsWith(u"video/") || name.startsWith(u"audio/");
}

const char* specialTypeName(ItemKind kind) {
    switch (kind) {
        case ItemKind::Folder:
            return "inode/directory";
        case ItemKind::Fifo:
            return "inode/fifo";
        case ItemKind::CharacterDevice:
            return "inode/chardevice";
        case ItemKind::BlockDevice:
            return "inode/blockdevice";
        case ItemKind::Socket:
            return "inode/socket";
        case ItemKind::BrokenLink:
            return "inode/symlink";
        case ItemKind::File:
        case ItemKind::Unknown:
            break;
    }
    return nullptr;
}

}  // namespace

TypeNames& TypeNames::instance() {
    static TypeNames names;
    return names;
}

TypeNames::Type TypeNames::lookUpName(std::string_view name) {
    const QString text = platform::wide(name);
    const QList<QMimeType> matches = database_.mimeTypesForFileName(text);
    const QMimeType mime = database_.mimeTypeForFile(text, QMimeDatabase::MatchExtension);
    Type type = typeOf(mime, matches.size() == 1);
    const std::string extension = platform::lowerAscii(extensionOf(name));
    if (type.certain && !extension.empty() && extension.size() <= kLongestExtension &&
        extensionDecides(mime)) {
        const std::lock_guard lock(mutex_);
        if (byExtension_.size() < kMostExtensions) byExtension_.emplace(extension, type);
    }
    return type;
}

TypeNames::Type TypeNames::ofName(std::string_view name, ItemKind kind) {
    if (const char* special = specialTypeName(kind))
        return typeOf(database_.mimeTypeForName(QLatin1String(special)), true);
    {
        const std::lock_guard lock(mutex_);
        const auto known = byExtension_.find(platform::lowerAscii(extensionOf(name)));
        if (known != byExtension_.end()) return known->second;
    }
    return lookUpName(name);
}

TypeNames::Type TypeNames::ofFile(const std::filesystem::path& path, ItemKind kind) {
    const std::string name = path.filename().string();
    Type type = ofName(name, kind);
    if (type.certain || kind != ItemKind::File) return type;
    const auto head = QByteArray::fromStdString(platform::readHead(path, kHeadBytes));
    return typeOf(database_.mimeTypeForFileNameAndData(platform::wide(name), head), true);
}

}  // namespace browser
