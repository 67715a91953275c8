#include "taglists/TagListRows.h"

#include "tags/Entries.h"
#include "tags/ExactOutput.h"
#include "tags/FilterWords.h"
#include "tags/OutputParser.h"

#include <QHash>
#include <QSet>
#include <algorithm>

namespace taglists {

namespace {

/// The dictionary's texts stand in static storage.
QString textOf(std::u16string_view units) {
    return QString::fromRawData(reinterpret_cast<const QChar*>(units.data()),
                                static_cast<qsizetype>(units.size()));
}

bool isOffered(const tags::TagRecord& record) {
    return record.writable && record.valueKind != tags::ValueKind::Binary;
}

QString keyOf(const QString& group, const QString& name) {
    return group + u'\n' + name;
}

/// What the output tells of one tag.
struct HeldTexts {
    QStringList entries;
    int times = 0;
    std::vector<app::Translation> translations;
};

}  // namespace

TagRow rowOf(const tags::TagRecord& record) {
    TagRow row;
    row.tagId = static_cast<int>(record.id);
    row.name = textOf(record.name);
    row.group = textOf(record.group);
    row.kind = record.valueKind;
    return row;
}

TagRows rowsOfCategory(const tags::TagDictionary& dictionary, std::uint32_t categoryId) {
    TagRows rows;
    for (const tags::TagRecord* record : dictionary.TagsOfCategory(categoryId))
        rows.push_back(rowOf(*record));
    return rows;
}

TagRows rowsOfFamily(const tags::TagDictionary& dictionary, const tags::TagFamily& family) {
    TagRows rows;
    for (const tags::TagRecord* record : tags::tagsOfFamily(dictionary, family))
        if (isOffered(*record)) rows.push_back(rowOf(*record));
    return rows;
}

bool fillValues(TagRows& rows, const std::filesystem::path& outputFile) {
    QHash<QString, QString> values;
    const bool isRead =
        tags::forEachTagValue(outputFile, [&](QStringView group, QStringView name, QStringView value) {
            const QString key = keyOf(group.toString(), name.toString());
            if (!values.contains(key)) values.insert(key, value.toString());
        });
    if (!isRead) return false;
    for (TagRow& row : rows) {
        const auto found = values.constFind(keyOf(row.group, row.name));
        if (found == values.cend()) continue;
        row.fileValue = *found;
        undoRow(row);
    }
    return true;
}

bool fillExactValues(TagRows& rows, const std::filesystem::path& outputFile,
                     const TakesSeveral& takesSeveral) {
    QHash<QString, HeldTexts> held;
    const bool isRead = tags::forEachExactLine(outputFile, [&](const tags::ExactLine& line) {
        const QString group = line.group.toCaseFolded();
        HeldTexts& texts = held[keyOf(group, line.name)];
        if (texts.times++ == 0) texts.entries = line.entries;
        if (const auto parted = tags::splitLanguage(line.name))
            held[keyOf(group, parted->tag.toString())].translations.push_back(
                {line.name, line.entries.join(QStringLiteral(", "))});
    });
    if (!isRead) return false;
    for (TagRow& row : rows) {
        const auto found = held.constFind(keyOf(row.group.toCaseFolded(), row.name));
        if (found == held.cend()) continue;
        row.timesInFile = found->times;
        row.translations = found->translations;
        const bool isText = row.kind == tags::ValueKind::Text;
        row.fileSeveral = found->entries.size() > 1 || (isText && takesSeveral(row.tagId));
        row.fileValue = row.fileSeveral ? tags::joinEntries(found->entries) : found->entries.value(0);
        undoRow(row);
    }
    return true;
}

void setRowValue(TagRow& row, const NewValue& value) {
    if (value.value == row.fileValue && (value.severalEntries == row.fileSeveral || value.value.isEmpty())) {
        undoRow(row);
        return;
    }
    row.value = value.value;
    row.code = value.code;
    row.severalEntries = value.severalEntries;
    row.loaded = value.loaded;
    row.changed = true;
}

QString shownValue(const TagRow& row) {
    return tags::panelText(row.severalEntries ? tags::splitEntries(row.value) : QStringList(row.value));
}

void emptyRow(TagRow& row, bool severalFiles) {
    const bool forgets = severalFiles && row.changed;
    undoRow(row);
    if (forgets) return;
    row.value.clear();
    row.changed = severalFiles || !row.fileValue.isEmpty();
}

void undoRow(TagRow& row) {
    row.value = row.fileValue;
    row.code.clear();
    row.severalEntries = row.fileSeveral;
    row.changed = row.loaded = false;
}

void sortRows(TagRows& rows, TagSort column, bool ascending) {
    const auto text = column == TagSort::Name ? &TagRow::name : &TagRow::group;
    std::ranges::stable_sort(rows, [&](const TagRow& left, const TagRow& right) {
        const int order = left.*text == right.*text ? 0 : left.*text < right.*text ? -1 : 1;
        return ascending ? order < 0 : order > 0;
    });
}

std::size_t changedCount(const TagRows& rows) {
    return static_cast<std::size_t>(std::ranges::count_if(rows, &TagRow::changed));
}

std::size_t tickedCount(const TagRows& rows) {
    return static_cast<std::size_t>(std::ranges::count_if(rows, &TagRow::ticked));
}

bool matchesFilter(const TagRow& row, const QString& label, const QString& filter) {
    return tags::matchesWords(filter, {row.name, row.group, label});
}

bool isFilled(const TagRow& row) {
    return !row.value.isEmpty() || row.changed;
}

void putFilledFirst(TagRows& rows) {
    QSet<QString> present;
    for (const TagRow& row : rows)
        if (isFilled(row)) present.insert(row.group);
    const auto rank = [&](const TagRow& row) {
        return isFilled(row) ? 0 : present.contains(row.group) ? 1 : 2;
    };
    std::ranges::stable_sort(rows, {}, rank);
}

std::size_t filledCount(const TagRows& rows) {
    return static_cast<std::size_t>(std::ranges::count_if(rows, isFilled));
}

}  // namespace taglists
