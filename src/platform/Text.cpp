#include "platform/Text.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char16_t kFirstByte = 0xDC00;
constexpr char16_t kFirstNotAscii = 0x80;
constexpr char16_t kLastByte = 0xFF;

struct Sequence {
    unsigned char first, last;         ///< of the leading byte
    unsigned char second, lastSecond;  ///< of the one behind it; all others are 0x80 to 0xBF
    std::size_t length;
};

/// As Unicode's table of well-formed sequences has them.
constexpr Sequence kSequences[] = {
    {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

/// Of the character at the beginning; 0 where there is none.
std::size_t lengthOfCharacter(std::string_view bytes) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
    for (const Sequence& row : kSequences) {
        if (byte(0) < row.first || byte(0) > row.last) continue;
        if (bytes.size() < row.length) return 0;
        if (row.length > 1 && (byte(1) < row.second || byte(1) > row.lastSecond)) return 0;
        for (std::size_t at = 2; at < row.length; ++at)
            if (byte(at) < 0x80 || byte(at) > 0xBF) return 0;
        return row.length;
    }
    return 0;
}

/// How many bytes from the beginning on are UTF-8.
std::size_t lengthOfUtf8(std::string_view bytes) {
    std::size_t good = 0;
    while (good < bytes.size()) {
        const std::size_t length = lengthOfCharacter(bytes.substr(good));
        if (length == 0) break;
        good += length;
    }
    return good;
}

}  // namespace

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

QString exactText(std::string_view bytes) {
    QString text;
    while (!bytes.empty()) {
        const std::size_t good = lengthOfUtf8(bytes);
        // The converter takes a mark of the byte order at the beginning away.
        if (good > 0 && bytes.starts_with(kByteOrderMark)) text += QChar::ByteOrderMark;
        if (good > 0) text += wide(bytes.substr(0, good));
        bytes.remove_prefix(good);
        if (bytes.empty()) break;
        text += QChar(static_cast<char16_t>(kFirstByte + static_cast<unsigned char>(bytes.front())));
        bytes.remove_prefix(1);
    }
    return text;
}

std::string exactBytes(QStringView text) {
    std::string bytes;
    qsizetype begin = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            ++at;
            continue;
        }
        const char16_t unit = text[at].unicode();
        if (unit < kFirstByte + kFirstNotAscii || unit > kFirstByte + kLastByte) continue;
        bytes += narrow(text.sliced(begin, at - begin));
        bytes += static_cast<char>(unit - kFirstByte);
        begin = at + 1;
    }
    return bytes + narrow(text.sliced(begin));
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
