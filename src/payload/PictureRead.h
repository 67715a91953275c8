#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <span>

namespace payload {

struct PictureRead {
    QImage image;  ///< null when the bytes are no picture that can be read
    QSize size;    ///< of the picture; the image is smaller when the picture is too large to be held whole
    QString reason;
};

/// Reads a picture of a kind that Qt knows, whatever its name. A size that the bytes only claim takes no
/// memory beyond a limit. Any thread.
PictureRead readPicture(std::span<const unsigned char> bytes);

}  // namespace payload
