#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace properties {

struct PictureSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

/// How large the picture of a RAF file is, in points; Exiv2 gives the size of the preview in it. Nothing for
/// all other files. Reads the head and the table of the raw picture. Any thread.
std::optional<PictureSize> readRafSize(const std::filesystem::path& file);

}  // namespace properties
