#include "payload/PictureRead.h"

#include <QBuffer>
#include <QImageReader>
#include <cmath>

namespace payload {

namespace {

/// A picture of more pixels is read at a smaller size; QImageReader itself refuses one that takes more than
/// 128 MiB on the way.
constexpr double kMostPixels = 24e6;

}  // namespace

PictureRead readPicture(std::span<const unsigned char> bytes) {
    QByteArray data = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    PictureRead read;
    read.size = reader.size();
    const double pixels = static_cast<double>(read.size.width()) * read.size.height();
    if (pixels > kMostPixels)
        reader.setScaledSize(
            (QSizeF(read.size) * std::sqrt(kMostPixels / pixels)).toSize().expandedTo({1, 1}));
    read.image = reader.read();
    if (read.image.isNull()) read.reason = reader.errorString();
    if (!read.size.isValid()) read.size = read.image.size();
    return read;
}

}  // namespace payload
