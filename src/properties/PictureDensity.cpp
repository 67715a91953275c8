#include "properties/PictureDensity.h"

#include "platform/RegularFile.h"

#include <string_view>

namespace properties {
namespace {

constexpr std::size_t kHeadBytes = std::size_t{64} * 1024;

std::uint32_t numberAt(std::string_view bytes, std::size_t position, std::size_t length) {
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(position, length))
        number = number << 8 | static_cast<std::uint8_t>(byte);
    return number;
}

/// The segment stands right behind the mark of the beginning: marker, length, "JFIF", version, unit,
/// densities.
std::optional<PictureDensity> jfifDensity(std::string_view bytes) {
    constexpr std::size_t kName = 6;
    constexpr std::size_t kUnit = 13;
    constexpr std::size_t kDensity = 14;
    if (bytes.size() < kDensity + 4 || bytes.substr(kName, 5) != std::string_view("JFIF\0", 5))
        return std::nullopt;
    const auto unit = static_cast<std::uint8_t>(numberAt(bytes, kUnit, 1));
    if (unit > 2) return std::nullopt;
    return PictureDensity{static_cast<double>(numberAt(bytes, kDensity, 2)),
                          static_cast<double>(numberAt(bytes, kDensity + 2, 2)),
                          static_cast<std::uint8_t>(unit + 1)};
}

/// Chunks of length, name, content and check sum; the density comes before the picture, by the metre.
std::optional<PictureDensity> pngDensity(std::string_view bytes) {
    constexpr double kCentimetresInAMetre = 100;
    std::size_t position = 8;
    while (position + 8 <= bytes.size()) {
        const std::size_t length = numberAt(bytes, position, 4);
        const std::string_view name = bytes.substr(position + 4, 4);
        position += 8;
        if (name == "IDAT" || length > bytes.size() - position) return std::nullopt;
        if (name == "pHYs" && length == 9) {
            const bool isMetre = numberAt(bytes, position + 8, 1) == 1;
            return PictureDensity{numberAt(bytes, position, 4) / kCentimetresInAMetre,
                                  numberAt(bytes, position + 4, 4) / kCentimetresInAMetre,
                                  static_cast<std::uint8_t>(isMetre ? 3 : 1)};
        }
        position += length + 4;
    }
    return std::nullopt;
}

}  // namespace

std::optional<PictureDensity> readPictureDensity(const std::filesystem::path& file) {
    const std::string head = platform::readHead(file, kHeadBytes);
    if (head.starts_with("\xFF\xD8\xFF\xE0")) return jfifDensity(head);
    if (head.starts_with("\x89PNG\r\n")) return pngDensity(head);
    return std::nullopt;
}

}  // namespace properties
