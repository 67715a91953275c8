#include "tags/ExtensionTable.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace tags {

namespace {

constexpr auto kExtensions = std::to_array<ExtensionRecord>({
#include "tags/data/ExtensionRows.inc"
});

constexpr std::size_t kRowCount = 331;
static_assert(kExtensions.size() == kRowCount);

constexpr auto rowsOf(FileClass fileClass) {
    return std::ranges::count(kExtensions, fileClass, &ExtensionRecord::fileClass);
}
static_assert(rowsOf(FileClass::OtherImage) == 68);
static_assert(rowsOf(FileClass::Photograph) == 77);
static_assert(rowsOf(FileClass::Audio) == 55);
static_assert(rowsOf(FileClass::Video) == 61);
static_assert(rowsOf(FileClass::Document) == 35);
static_assert(rowsOf(FileClass::Executable) == 4);
static_assert(rowsOf(FileClass::Archive) == 20);
static_assert(rowsOf(FileClass::Font) == 2);
static_assert(rowsOf(FileClass::ElectronicBook) == 9);

/// Strictly rising, thus without a double.
constexpr bool isInOrder() {
    return std::ranges::adjacent_find(kExtensions, std::ranges::greater_equal{},
                                      &ExtensionRecord::extension) == kExtensions.end();
}
static_assert(isInOrder());

}  // namespace

std::span<const ExtensionRecord> ExtensionTable() {
    return kExtensions;
}

const ExtensionRecord* findExtension(const std::filesystem::path& file) {
    const std::string extension = platform::lowerAscii(platform::narrow(file.extension()));
    const auto* const found =
        std::ranges::lower_bound(kExtensions, std::string_view(extension), {}, &ExtensionRecord::extension);
    return found != kExtensions.end() && found->extension == extension ? found : nullptr;
}

}  // namespace tags
