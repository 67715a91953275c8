#include "properties/RafSize.h"

#include "properties/Atoms.h"

namespace properties {

std::optional<PictureSize> readRafSize(const std::filesystem::path& file) {
    constexpr std::uint64_t kTablePlace = 0x5C;
    constexpr std::uint64_t kMostEntries = 256;
    constexpr std::uint64_t kCroppedSize = 0x111;
    const platform::RegularFile opened(file);
    if (!opened.isOpen() || bytesAt(opened, 0, 15) != "FUJIFILMCCD-RAW") return std::nullopt;
    std::uint64_t position = bigEndian(bytesAt(opened, kTablePlace, 4));
    const std::uint64_t count = bigEndian(bytesAt(opened, position, 4));
    position += 4;
    for (std::uint64_t i = 0; i < count && i < kMostEntries; ++i) {
        // Number, length, and here two numbers: height and width.
        const std::string entry = bytesAt(opened, position, 8);
        if (entry.size() < 8) return std::nullopt;
        const std::string_view view = entry;
        const std::uint64_t length = bigEndian(view.substr(2, 2));
        if (bigEndian(view.substr(0, 2)) == kCroppedSize && length == 4)
            return PictureSize{static_cast<std::int64_t>(bigEndian(view.substr(6, 2))),
                               static_cast<std::int64_t>(bigEndian(view.substr(4, 2)))};
        position += 4 + length;
    }
    return std::nullopt;
}

}  // namespace properties
