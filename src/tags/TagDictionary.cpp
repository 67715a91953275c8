#include "tags/TagDictionary.h"

#include "tags/CaseFolding.h"
#include "tags/GroupCatalogue.h"
#include "tags/TagDictionaryRows.h"

namespace tags {

namespace {

/// Length, first two units as they are and the last one folded: two names with different keys cannot match. A
/// group's keys stand side by side, so that a look-up touches the record of hardly any other name.
std::uint64_t nameKey(std::u16string_view name) {
    const auto unit = [&](std::size_t place) {
        return std::uint64_t{place < name.size() ? name[place] : u'\0'};
    };
    const std::uint64_t last = name.empty() ? 0 : foldedUnit(name.back());
    return (std::uint64_t{name.size()} << 48U) | (unit(0) << 32U) | (unit(1) << 16U) | last;
}

}  // namespace

TagDictionary::TagDictionary() {
    const std::span<const TagRecord> rows = tagDictionaryRows();
    records_.assign(rows.begin(), rows.end());

    std::uint32_t highestId = 0;
    groupStart_.assign(kGroupCount + 1, 0);
    for (const TagRecord& record : records_) {
        highestId = std::max(highestId, record.id);
        ++groupStart_[record.groupIndex + 1];
    }
    for (std::size_t group = 0; group < kGroupCount; ++group) groupStart_[group + 1] += groupStart_[group];

    rowsByGroup_.resize(records_.size());
    nameKeys_.resize(records_.size());
    firstRowOfId_.assign(highestId + 1, -1);
    std::vector<std::uint32_t> next(groupStart_);
    for (std::uint32_t row = 0; row < records_.size(); ++row) {
        const TagRecord& record = records_[row];
        const std::uint32_t entry = next[record.groupIndex]++;
        rowsByGroup_[entry] = row;
        nameKeys_[entry] = nameKey(record.name);
        if (firstRowOfId_[record.id] < 0) firstRowOfId_[record.id] = static_cast<std::int32_t>(row);
    }
}

std::optional<TagRecord> TagDictionary::FindTagById(std::uint32_t id) const {
    if (id >= firstRowOfId_.size() || firstRowOfId_[id] < 0) return std::nullopt;
    TagRecord record = records_[static_cast<std::size_t>(firstRowOfId_[id])];
    record.selected = false;
    return record;
}

int TagDictionary::FindTagId(std::uint32_t groupIndex, QStringView name) const {
    if (groupIndex >= kGroupCount) return -1;
    const std::u16string_view wanted = units(name);
    const std::uint64_t key = nameKey(wanted);
    for (std::uint32_t entry = groupStart_[groupIndex]; entry < groupStart_[groupIndex + 1]; ++entry) {
        if (nameKeys_[entry] != key) continue;
        const TagRecord& record = records_[rowsByGroup_[entry]];
        if (record.name.substr(0, 2) == wanted.substr(0, 2) && equalWithoutCase(record.name, wanted)) {
            return static_cast<int>(record.id);
        }
    }
    return -1;
}

int TagDictionary::findTagIdByScan(std::uint32_t groupIndex, QStringView name) const {
    const std::u16string_view wanted = units(name);
    for (const TagRecord& record : records_) {
        if (record.groupIndex != groupIndex) continue;
        if (record.name.substr(0, 2) != wanted.substr(0, 2)) continue;
        if (record.name.size() != wanted.size()) continue;
        if (equalWithoutCase(record.name, wanted)) return static_cast<int>(record.id);
    }
    return -1;
}

std::vector<const TagRecord*> TagDictionary::TagsOfCategory(std::uint32_t categoryId) const {
    std::vector<const TagRecord*> found;
    for (const TagRecord& record : records_) {
        if (record.categoryId == categoryId && record.writable && record.valueKind != ValueKind::Binary) {
            found.push_back(&record);
        }
    }
    return found;
}

}  // namespace tags
