#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace properties {

/// How near the points of a picture stand, as its own head tells; the numbers of the unit are those of TIFF.
struct PictureDensity {
    double horizontal = 0;
    double vertical = 0;
    std::uint8_t unit = 1;  ///< 1 none, only a ratio; 2 inches; 3 centimetres
};

/// From the JFIF segment of a JPEG file or the pHYs chunk of a PNG file; nothing where there is none. Looks
/// at the first 64 kB at the most. Any thread.
std::optional<PictureDensity> readPictureDensity(const std::filesystem::path& file);

}  // namespace properties
