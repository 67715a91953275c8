#include "tags/PropertyWrite.h"

#include "properties/PropertyStore.h"
#include "properties/PropertyTexts.h"
#include "tags/PropertyCatalogue.h"

#include <algorithm>

namespace tags {
namespace {

constexpr std::uint32_t kFileGroup = 30;
constexpr std::uint32_t kSystemGroup = 209;
constexpr std::uint32_t kFirstPropertyGroup = 330;
constexpr std::uint32_t kLastPropertyGroup = 339;
constexpr std::uint32_t kGroupInBetween = 333;  // belongs to ExifTool

constexpr properties::PropertyId kTimes[] = {properties::PropertyId::PhotoDateTaken,
                                             properties::PropertyId::TextDateSaved};

}  // namespace

bool isPropertyGroup(std::uint32_t groupId) {
    if (groupId == kFileGroup || groupId == kSystemGroup) return true;
    return groupId >= kFirstPropertyGroup && groupId <= kLastPropertyGroup && groupId != kGroupInBetween;
}

std::optional<properties::PropertyResult> WriteProperty(const std::filesystem::path& file,
                                                        const PropertyWrite& write) {
    const auto row = std::ranges::find(propertyRows(), write.propertyNumber, &PropertyRecord::propertyId);
    if (row == propertyRows().end() || row->pid == 0) return std::nullopt;
    properties::PropertyStore store(file);
    if (!store.isOpen()) return std::nullopt;
    const auto property = static_cast<properties::PropertyId>(write.propertyNumber);
    properties::PropertyValue value = write.value;
    // The digits that were picked say more than the moment: an hour that the summer time here leaves out was
    // an hour elsewhere.
    if (std::ranges::find(kTimes, property) != std::end(kTimes)) {
        const auto digits = properties::parseLocalTime(write.value);
        value = digits ? properties::PropertyValue(*digits) : properties::PropertyValue(write.time);
    }
    const properties::PropertyResult result = store.set(property, value);
    return result == properties::PropertyResult::Ok ? store.commit() : result;
}

}  // namespace tags
