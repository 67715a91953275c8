#pragma once

#include <exiv2/exiv2.hpp>
#include <filesystem>
#include <string>

namespace properties {

/// Opens a photo and reads its metadata; throws what Exiv2 throws. The first call of the process sets Exiv2
/// up: silent, its XMP toolkit behind a lock, HEIF files on.
Exiv2::Image::AutoPtr openPhoto(const std::filesystem::path& file);

/// An image without a picture that holds what the text of a note in XMP says; throws what Exiv2 throws.
Exiv2::Image::AutoPtr openNote(const std::string& note);

}  // namespace properties
