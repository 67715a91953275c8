#include "tags/PropertyCatalogue.h"

#include <algorithm>

namespace tags {
namespace {

constexpr FormatId kNameFormat{0x41CF5AE0, 0xF75A, 0x4806, {0xBD, 0x87, 0x59, 0xC7, 0xD9, 0x24, 0x8E, 0xB9}};
constexpr FormatId kStorageFormat{
    0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}};

constexpr std::uint32_t kSystem = 1073;
constexpr std::uint32_t kDisk = 1139;
constexpr std::uint32_t kSummary = 1141;

constexpr int kNameWidth = 250;

// A property's number is its place in the whole catalogue, which is why the numbers here have gaps.
constexpr std::array<PropertyRecord, 4> kRows{{
    {1, 0, kNameFormat, 100, u"Name", u"System", 2, 0, kSystem},
    {6, 5, kStorageFormat, 14, u"DateModified", u"Disk", 0, 0, kDisk},
    {9, 10, kStorageFormat, 12, u"FileSize", u"Disk", 1, 0, kDisk},
    {70, 27, kStorageFormat, 4, u"ItemTypeText", u"Summary", 2, 0, kSummary},
}};

}  // namespace

std::span<const PropertyRecord> propertyRows() {
    return kRows;
}

PropertyCatalogue::PropertyCatalogue() : records_(kRows.begin(), kRows.end()) {
    records_.front().visible = 1;
    records_.front().width = kNameWidth;
}

const PropertyRecord* PropertyCatalogue::FindProperty(std::uint32_t propertyId) const {
    const auto found = std::ranges::find(records_, propertyId, &PropertyRecord::propertyId);
    return found == records_.end() ? nullptr : &*found;
}

const PropertyRecord* PropertyCatalogue::FindColumn(std::uint32_t columnType) const {
    const auto found = std::ranges::find(records_, columnType, &PropertyRecord::columnType);
    return found == records_.end() ? nullptr : &*found;
}

PropertyRecord* PropertyCatalogue::FindColumn(std::uint32_t columnType) {
    const auto found = std::ranges::find(records_, columnType, &PropertyRecord::columnType);
    return found == records_.end() ? nullptr : &*found;
}

std::vector<const PropertyRecord*> PropertyCatalogue::visibleRecords() const {
    std::vector<const PropertyRecord*> visible;
    for (const PropertyRecord& record : records_)
        if (record.visible != 0) visible.push_back(&record);
    return visible;
}

std::vector<PropertyRecord*> PropertyCatalogue::visibleRecords() {
    std::vector<PropertyRecord*> visible;
    for (PropertyRecord& record : records_)
        if (record.visible != 0) visible.push_back(&record);
    return visible;
}

void PropertyCatalogue::setWidth(std::uint32_t columnType, int widthPixels) {
    if (PropertyRecord* record = FindColumn(columnType)) record->width = widthPixels;
}

void PropertyCatalogue::setVisible(std::uint32_t columnType, bool visible) {
    if (PropertyRecord* record = FindColumn(columnType)) record->visible = visible ? 1 : 0;
    records_.front().visible = 1;
}

std::vector<app::ColumnState> PropertyCatalogue::columnStates() const {
    std::vector<app::ColumnState> states;
    states.reserve(records_.size());
    for (const PropertyRecord& record : records_)
        states.push_back({static_cast<int>(record.columnType), record.width, record.visible != 0});
    return states;
}

void PropertyCatalogue::setColumnStates(std::span<const app::ColumnState> states) {
    const std::size_t count = std::min(states.size(), records_.size());
    for (std::size_t i = 0; i < count; ++i) {
        records_[i].width = states[i].width;
        records_[i].visible = states[i].visible ? 1 : 0;
    }
    records_.front().visible = 1;
}

}  // namespace tags
