#include "NoisePhoto.h"

#include <QImage>
#include <random>
#include <stdexcept>

namespace bench {

void writeNoisePhoto(const std::filesystem::path& file, int bytes) {
    constexpr double kBytesOfPixel = 0.9;
    constexpr int kWidth = 640;
    QImage image(kWidth, static_cast<int>(bytes / kBytesOfPixel / kWidth), QImage::Format_Grayscale8);
    std::mt19937 random(1);
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < kWidth; ++x) line[x] = static_cast<uchar>(random() >> 24);
    }
    if (!image.save(QString::fromStdString(file.string()), "JPEG", 90))
        throw std::runtime_error("no photo could be written");
}

}  // namespace bench
