#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

/// The path's own bytes, which are UTF-8 on nearly every system but need not be. What command lines carry.
std::string narrow(const std::filesystem::path& path);

/// The path as it is shown to people: bytes that are no UTF-8 become replacement characters. Never used to
/// open.
QString display(const std::filesystem::path& path);

/// The path that the user typed or a settings file holds.
std::filesystem::path pathFromText(const QString& text);

/// UTF-8.
std::string narrow(QStringView text);
std::string narrow(std::u16string_view text);

/// What is no UTF-8 becomes replacement characters.
QString wide(std::string_view utf8);
QString wide(std::u16string_view text);

/// Both ways without loss, for texts that are edited: a byte that is no UTF-8 becomes the lone surrogate
/// U+DC00 plus the byte, and a byte again. Any other lone surrogate, which no file can hold, is written as
/// "?".
QString exactText(std::string_view bytes);
std::string exactBytes(QStringView text);

/// Without a copy: good as long as the bytes are, and unchanged.
std::string_view bytesOf(const QByteArray& bytes);

/// The lower case of the letters of ASCII, whatever the locale; all other bytes stay.
constexpr char lowerAscii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}
std::string lowerAscii(std::string_view text);

}  // namespace platform
