#include "platform/Text.h"

#include <algorithm>

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

std::string narrow(QStringView text) {
    return text.toUtf8().toStdString();
}

std::string narrow(std::u16string_view text) {
    return narrow(QStringView(text.data(), static_cast<qsizetype>(text.size())));
}

QString wide(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString wide(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

std::string_view bytesOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

std::string lowerAscii(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char letter) { return lowerAscii(letter); });
    return lower;
}

}  // namespace platform
