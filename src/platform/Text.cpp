#include "platform/Text.h"

namespace platform {

std::string narrow(const std::filesystem::path& path) {
    return path.string();
}

QString display(const std::filesystem::path& path) {
    return wide(path.native());
}

std::filesystem::path pathFromText(const QString& text) {
    return {narrow(text)};
}

std::string narrow(const QString& text) {
    return text.toStdString();
}

QString wide(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace platform
