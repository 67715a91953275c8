#include "payload/Payload.h"

#include "platform/FileAccess.h"
#include "platform/FileCopy.h"

#include <QStringDecoder>
#include <algorithm>
#include <string>
#include <string_view>

namespace payload {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kHeaderBytes = 140;
constexpr qsizetype kLongestName = 100;
constexpr std::size_t kLongestReadText = 1 << 20;

const char* extensionOf(PayloadKind kind) {
    switch (kind) {
        case PayloadKind::Tiff:
            return ".tif";
        case PayloadKind::Png:
            return ".png";
        default:
            return ".jpg";
    }
}

std::string fileNameOf(QStringView tag) {
    std::string name;
    for (const QChar c : tag.first(std::min(tag.size(), kLongestName))) {
        const bool isPlain = c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'-' || c == u'_');
        name += isPlain ? static_cast<char>(c.unicode()) : '_';
    }
    return name.empty() ? "value" : name;
}

}  // namespace

PayloadKind kindOfPayload(std::span<const unsigned char> bytes) {
    if (bytes.size() < 2) return PayloadKind::Other;
    const unsigned first = bytes[0];
    const unsigned second = bytes[1];
    if (first == 0xFF && second == 0xD8) return PayloadKind::Jpeg;
    if ((first == 0x49 && second == 0x49) || (first == 0x4D && second == 0x4D)) return PayloadKind::Tiff;
    if (first == 0x89) return PayloadKind::Png;
    if (first == 0x31 && second == 0x02) return PayloadKind::JpegBehindHeader;
    return PayloadKind::Other;
}

bool isReadableText(std::span<const unsigned char> bytes) {
    if (bytes.empty() || bytes.size() > kLongestReadText) return false;
    const auto isControl = [](unsigned char byte) {
        return byte == 0x7F || (byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r');
    };
    if (std::ranges::any_of(bytes, isControl)) return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return !text.isNull() && !decoder.hasError();
}

bool standsForBinaryData(QStringView value) {
    return value.startsWith(u"(Binary data", Qt::CaseInsensitive);
}

bool standsForNoBytes(QStringView value) {
    return value.startsWith(u"(Binary data 0 ", Qt::CaseInsensitive);
}

PayloadPlaces::PayloadPlaces(const fs::path& tempPath, QStringView tag) {
    const std::string name = fileNameOf(tag);
    fetched = tempPath / (name + ".bin");
    base_ = tempPath / name;
    behindHeader_ = tempPath / ("prov_" + name + ".jpg");
}

fs::path PayloadPlaces::picture(PayloadKind kind) const {
    fs::path path = base_;
    return path += extensionOf(kind);
}

fs::path PayloadPlaces::behindHeader() const {
    return behindHeader_;
}

fs::path copyPicture(const PayloadPlaces& places, std::span<const unsigned char> bytes, PayloadKind kind) {
    if (kind == PayloadKind::Other) return {};
    fs::path source = places.fetched;
    if (kind == PayloadKind::JpegBehindHeader) {
        if (bytes.size() <= kHeaderBytes) return {};
        source = places.behindHeader();
        const auto behind = bytes.subspan(kHeaderBytes);
        const std::string_view text(reinterpret_cast<const char*>(behind.data()), behind.size());
        if (platform::writeFile(source, platform::WriteMode::Replace, text) != 0) return {};
    }
    return platform::copyFile(source, places.picture(kind)) == 0 ? places.picture(kind) : fs::path();
}

SaveTypes typesToSave(std::span<const unsigned char> bytes, PayloadKind kind, bool pictureShown,
                      app::CommandForm form) {
    const QString all = QStringLiteral("All Documents (*)");
    const bool isCalledWhatItIs = pictureShown && form == app::CommandForm::Corrected;
    const bool isJpeg =
        kind == PayloadKind::Jpeg || (isCalledWhatItIs && kind == PayloadKind::JpegBehindHeader);
    if (isJpeg) return {{QStringLiteral("JPEG image (*.jpg)"), all}, QStringLiteral("jpg")};
    if (!bytes.empty() && bytes[0] == '<')
        return {{QStringLiteral("XML text (*.xml *.jpeg)"), all}, QStringLiteral("xml")};
    if (!pictureShown) return {{all}, {}};
    if (isCalledWhatItIs && kind == PayloadKind::Png)
        return {{QStringLiteral("PNG image (*.png)"), all}, QStringLiteral("png")};
    return {{QStringLiteral("TIFF image (*.tif)"), all}, QStringLiteral("tif")};
}

QString fileNameLabel(int language) {
    constexpr int kPrimaryLanguageMask = 0x3FF;
    constexpr int kSpanish = 10;
    constexpr int kFrench = 12;
    switch (language & kPrimaryLanguageMask) {
        case kSpanish:
            return QStringLiteral("Ingrese el nombre del archivo:");
        case kFrench:
            return QStringLiteral("Nom du fichier:");
        default:
            return QStringLiteral("File name:");
    }
}

}  // namespace payload
