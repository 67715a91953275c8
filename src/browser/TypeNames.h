#pragma once

#include "browser/ListItem.h"

#include <QMimeDatabase>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace browser {

/// The names and icons that the MIME database has for files, remembered. Any thread.
class TypeNames {
 public:
    struct Type {
        QString comment;   ///< for people, in the user's language
        QString iconName;  ///< in the icon theme
        QString genericIconName;
        bool certain = false;  ///< the name alone decides; otherwise the content might tell more
    };

    /// The one store of the program.
    static TypeNames& instance();

    /// By the name and the kind only; nothing is opened.
    Type ofName(std::string_view name, ItemKind kind);

    /// As ofName, but where the name does not decide the head of a regular file is read. Blocks as the disk
    /// does.
    Type ofFile(const std::filesystem::path& path, ItemKind kind);

 private:
    TypeNames() = default;

    Type lookUpName(std::string_view name);

    QMimeDatabase database_;
    std::mutex mutex_;
    std::unordered_map<std::string, Type> byExtension_;
};

}  // namespace browser
