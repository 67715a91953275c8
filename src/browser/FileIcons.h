#pragma once

#include "browser/ListItem.h"

#include <QHash>
#include <QIcon>
#include <string_view>

namespace browser {

/// The small icons of the list: by the name's extension and the kind only, so that nothing ever waits for a
/// disk. GUI thread.
class FileIcons {
 public:
    QIcon of(std::string_view name, ItemKind kind, bool isLink);

    /// The icon of the theme for a folder by the name that folderIconName() gives.
    static QIcon folder(const QString& iconName = QStringLiteral("folder"));

 private:
    QHash<QString, QIcon> byName_;  // by the icon's name
};

}  // namespace browser
