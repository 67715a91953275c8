#pragma once

#include "app/CommandForm.h"

#include <QString>
#include <QStringList>
#include <QStringView>
#include <filesystem>
#include <span>

namespace payload {

/// What the first bytes of a value say it is.
enum class PayloadKind {
    Other,
    Jpeg,
    Tiff,
    Png,
    JpegBehindHeader,  ///< a block with a header of 140 bytes before a JPEG
};

PayloadKind kindOfPayload(std::span<const unsigned char> bytes);

/// Whether the bytes are a text for people: UTF-8 without controls but tabs and ends of lines, and no longer
/// than somebody would read.
bool isReadableText(std::span<const unsigned char> bytes);

/// Whether the panel holds ExifTool's "(Binary data ..." in the place of the value.
bool standsForBinaryData(QStringView value);
/// Whether that says itself that there are 0 bytes.
bool standsForNoBytes(QStringView value);

/// Where the bytes of a value, and its picture, are kept in the temp folder. Named after the tag, whose name
/// comes out of a file: characters that a tag's name does not have become "_".
struct PayloadPlaces {
    PayloadPlaces(const std::filesystem::path& tempPath, QStringView tag);

    std::filesystem::path fetched;
    /// The copy of the picture, with the extension of its kind.
    std::filesystem::path picture(PayloadKind kind) const;
    /// What stands behind the header of PayloadKind::JpegBehindHeader.
    std::filesystem::path behindHeader() const;

 private:
    std::filesystem::path base_;
    std::filesystem::path behindHeader_;
};

/// Makes the copy of the picture that is shown and saved. Empty when the kind is no picture or the copy
/// cannot be made.
std::filesystem::path copyPicture(const PayloadPlaces& places, std::span<const unsigned char> bytes,
                                  PayloadKind kind);

/// The types that saving offers, and the extension that a name without one gets.
struct SaveTypes {
    QStringList types;
    QString extension;
};

/// pictureShown: the view shows a picture of the kind. The corrected form offers what the copy really is:
/// PNG, and JPEG for a JPEG behind a header.
SaveTypes typesToSave(std::span<const unsigned char> bytes, PayloadKind kind, bool pictureShown,
                      app::CommandForm form);

/// "File name:" in the language of the interface, where it is one of three.
QString fileNameLabel(int language);

}  // namespace payload
