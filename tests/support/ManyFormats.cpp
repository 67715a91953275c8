#include "support/ManyFormats.h"

#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>

namespace support {

namespace fs = std::filesystem;

namespace {

std::string bigEndian(quint32 number) {
    const quint32 swapped = qToBigEndian(number);
    return {reinterpret_cast<const char*>(&swapped), sizeof swapped};
}

std::string atom(const std::string& type, const std::string& content) {
    return bigEndian(static_cast<quint32>(8 + content.size())) + type + content;
}

/// A film without a track, which is all that takes metadata.
std::string smallFilm() {
    std::string header(12, '\0');
    header += bigEndian(600) + bigEndian(0) + bigEndian(0x10000);
    header += std::string("\x01\0", 2) + std::string(10, '\0');
    for (const quint32 entry : {0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000}) header += bigEndian(entry);
    header += std::string(24, '\0') + bigEndian(1);
    return atom("ftyp", "qt  " + bigEndian(0) + "qt  ") + atom("moov", atom("mvhd", header)) +
           atom("mdat", "");
}

void writePage(const fs::path& file) {
    QPdfWriter page(QString::fromStdString(file.string()));
    page.setPageSize(QPageSize(QPageSize::A6));
    QPainter(&page).drawLine(0, 0, 100, 100);
}

}  // namespace

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    if (!fs::is_directory(folder)) return files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::vector<fs::path> addedSamples() {
    const char* folder = std::getenv("TAGWRIGHT_SAMPLES");
    return folder == nullptr ? std::vector<fs::path>() : filesIn(folder);
}

void makeFilesOfManyFormats(const fs::path& folder) {
    writeJpeg(folder / "photo.jpg");
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    for (const char* name : {"picture.png", "picture.ppm", "picture.tif", "picture.webp", "picture.jp2"})
        image.save(QString::fromStdString((folder / name).string()));
    for (const char* name : {"sidecar.xmp", "envelope.mie", "metadata.exv"})
        ExifTool({"-q", "-o", (folder / name).string(), "-XMP:Label=first"});
    using namespace std::string_literals;
    writeBytes(folder / "picture.gif",
               "GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s);
    writeBytes(folder / "page.eps",
               "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\n%%EndComments\nshowpage\n%%EOF\n");
    writePage(folder / "page.pdf");
    writeBytes(folder / "film.mov", smallFilm());
    writeBytes(folder / "broken.jpg", "no photo at all");
    writeBytes(folder / "text.txt", "nothing that can be written");
}

}  // namespace support
