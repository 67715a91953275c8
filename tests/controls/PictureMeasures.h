#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <algorithm>
#include <cmath>

/// The share of the picture that is painted at all.
inline double coverage(const QPixmap& picture) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 40) ++painted;
    return image.isNull() ? 0.0 : static_cast<double>(painted) / (image.width() * image.height());
}

inline double luminance(QRgb color) {
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/// The best contrast that any opaque pixel has with the ground.
inline double contrast(const QPixmap& picture, const QColor& ground) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    const double behind = luminance(ground.rgb());
    double best = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) < 200) continue;
            const double front = luminance(image.pixel(x, y));
            best = std::max(best, (std::max(front, behind) + 0.05) / (std::min(front, behind) + 0.05));
        }
    }
    return best;
}
