#include "browser/FileIcons.h"

#include "browser/TypeNames.h"
#include "controls/Icons.h"

namespace browser {
namespace {

QIcon firstOf(std::initializer_list<QString> names) {
    for (const QString& name : names)
        if (QIcon icon = controls::icon(name); !icon.isNull()) return icon;
    return {};
}

}  // namespace

QIcon FileIcons::of(std::string_view name, ItemKind kind, bool isLink) {
    if (kind == ItemKind::BrokenLink) {
        QIcon& icon = byName_[QStringLiteral("broken link")];
        if (icon.isNull())
            icon = firstOf({QStringLiteral("emblem-unreadable"), QStringLiteral("inode-symlink"),
                            QStringLiteral("unknown")});
        return icon;
    }
    if (kind == ItemKind::Folder && isLink) {
        QIcon& icon = byName_[QStringLiteral("folder link")];
        if (icon.isNull()) icon = firstOf({QStringLiteral("folder-symbolic-link"), QStringLiteral("folder")});
        return icon;
    }
    const TypeNames::Type type = TypeNames::instance().ofName(name, kind);
    QIcon& icon = byName_[type.iconName];
    if (icon.isNull())
        icon = firstOf({type.iconName, type.genericIconName, QStringLiteral("unknown"),
                        QStringLiteral("text-x-generic")});
    return icon;
}

QIcon FileIcons::folder(const QString& iconName) {
    return firstOf({iconName, QStringLiteral("folder")});
}

}  // namespace browser
