#include "tags/TagDictionary.h"

#include "tags/CaseFolding.h"
#include "tags/GroupCatalogue.h"
#include "tags/TagDictionaryRows.h"

namespace tags {

namespace {

/// The cheap tests stand first; a name that differs in the case of its first two letters is another name.
bool nameMatches(std::u16string_view ours, std::u16string_view wanted) {
    return ours.size() == wanted.size() && ours.substr(0, 2) == wanted.substr(0, 2) &&
           equalWithoutCase(ours, wanted);
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
    firstRowOfId_.assign(highestId + 1, -1);
    std::vector<std::uint32_t> next(groupStart_);
    for (std::uint32_t row = 0; row < records_.size(); ++row) {
        const TagRecord& record = records_[row];
        rowsByGroup_[next[record.groupIndex]++] = row;
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
    for (std::uint32_t entry = groupStart_[groupIndex]; entry < groupStart_[groupIndex + 1]; ++entry) {
        const TagRecord& record = records_[rowsByGroup_[entry]];
        if (nameMatches(record.name, wanted)) return static_cast<int>(record.id);
    }
    return -1;
}

int TagDictionary::FindTagIdByScan(std::uint32_t groupIndex, QStringView name) const {
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
