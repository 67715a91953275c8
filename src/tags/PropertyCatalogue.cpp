#include "tags/PropertyCatalogue.h"

#include "properties/PropertyId.h"

#include <algorithm>
#include <cstdio>

namespace tags {
namespace {

using Id = properties::PropertyId;

constexpr int kNameWidth = 250;

constexpr std::uint32_t number(Id property) {
    return static_cast<std::uint32_t>(property);
}

constexpr std::array kRows{std::to_array<PropertyRecord>({
#include "tags/data/PropertyRows.inc"
})};
static_assert(kRows.size() == properties::kPropertyCount);

}  // namespace

QString plainName(const PropertyRecord& record) {
    QString words;
    char16_t before = u' ';
    for (std::size_t at = 0; at < record.name.size(); ++at) {
        const QChar here(record.name[at]);
        const bool endsShort = at + 1 < record.name.size() && QChar(record.name[at + 1]).isLower();
        // "GPSLatitude" holds two words, "GPS" is one.
        const bool begins = here.isUpper() && at > 0 && (!QChar(before).isUpper() || endsShort);
        if (begins) words += u' ';
        words += begins && endsShort ? here.toLower() : here;
        before = here.unicode();
    }
    return words;
}

std::string formatIdText(const FormatId& id) {
    const auto& end = id.data4;
    std::array<char, 37> text{};
    std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", id.data1,
                  id.data2, id.data3, end[0], end[1], end[2], end[3], end[4], end[5], end[6], end[7]);
    return text.data();
}

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

const PropertyRecord* PropertyCatalogue::findColumn(std::uint32_t columnType) const {
    const auto found = std::ranges::find(records_, columnType, &PropertyRecord::columnType);
    return found == records_.end() ? nullptr : &*found;
}

PropertyRecord* PropertyCatalogue::findColumn(std::uint32_t columnType) {
    const auto found = std::ranges::find(records_, columnType, &PropertyRecord::columnType);
    return found == records_.end() ? nullptr : &*found;
}

const PropertyRecord* findPropertyKey(const FormatId& formatId, std::uint32_t pid) {
    const auto found = std::ranges::find_if(kRows, [&](const PropertyRecord& record) {
        return record.pid == pid && record.formatId == formatId;
    });
    return found == kRows.end() ? nullptr : &*found;
}

const PropertyRecord* findPropertyColumn(std::uint32_t columnType) {
    const auto found = std::ranges::find(kRows, columnType, &PropertyRecord::columnType);
    return found == kRows.end() ? nullptr : &*found;
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
    if (PropertyRecord* record = findColumn(columnType)) record->width = widthPixels;
}

void PropertyCatalogue::setVisible(std::uint32_t columnType, bool visible) {
    if (PropertyRecord* record = findColumn(columnType)) record->visible = visible ? 1 : 0;
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
