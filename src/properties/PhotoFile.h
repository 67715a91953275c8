#pragma once

#include <exiv2/exiv2.hpp>
#include <filesystem>

namespace properties {

/// Opens a photo and reads its metadata; throws what Exiv2 throws. The first call of the process sets Exiv2
/// up: silent, its XMP toolkit behind a lock, HEIF files on.
Exiv2::Image::AutoPtr openPhoto(const std::filesystem::path& file);

}  // namespace properties
