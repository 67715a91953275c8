#pragma once

#include "exiftool/SafetyCopy.h"
#include "support/EditedFile.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImage>

/// Files with embedded data of our own making.
class PayloadFile : public EditedFile {
 protected:
    /// A picture of one colour, as JPEG.
    static std::string jpegBytes(const QColor& color, QSize size = {160, 120}, bool withProfile = false) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        if (withProfile) image.setColorSpace(QColorSpace::SRgb);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "JPEG", 90);
        return bytes.toStdString();
    }

    std::filesystem::path smallJpeg(const std::string& name, const QColor& color) const {
        const std::filesystem::path file = folder.path() / name;
        support::writeBytes(file, jpegBytes(color));
        return file;
    }

    /// A photo with a thumbnail, and with a colour profile when asked for.
    std::filesystem::path photoWithThumbnail(const std::string& name, bool withProfile = false) const {
        const std::filesystem::path plain = folder / (withProfile ? "profile.jpg" : "plain.jpg");
        if (!std::filesystem::exists(plain)) {
            support::writeBytes(plain, jpegBytes(Qt::blue, {320, 240}, withProfile));
            const std::filesystem::path thumbnail = smallJpeg("first.jpg", Qt::red);
            support::ExifTool({"-q", "-overwrite_original", "-ThumbnailImage<=" + thumbnail.string(),
                               "-IFD0:Artist=Somebody", plain.string()});
        }
        const std::filesystem::path file = folder / "photos" / std::filesystem::path(name);
        std::filesystem::copy_file(plain, file);
        return file;
    }

    static std::string thumbnailOf(const std::filesystem::path& file) {
        return support::ExifTool({"-b", "-ThumbnailImage", file.string()});
    }

    std::string copyOf(const std::filesystem::path& file) const {
        const auto copy = exiftool::safetyCopyPath(file, context.cachePath, {}, QDateTime());
        return std::filesystem::exists(copy) ? support::readBytes(copy) : "";
    }

    tags::TagEditContext thumbnailRow(const std::filesystem::path& file) const {
        tags::TagEditContext edit;
        edit.filePath = file;
        edit.value = "(Binary data 2511 bytes, use -b option to extract)";
        edit.title = "ThumbnailImage";
        edit.group = "IFD1";
        edit.tagId = static_cast<int>(record(u"IFD1", u"ThumbnailImage").id);
        return edit;
    }
};
