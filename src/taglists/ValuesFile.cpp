#include "taglists/ValuesFile.h"

#include "platform/Text.h"
#include "tags/Entries.h"

#include <algorithm>
#include <string>

namespace taglists {

namespace {

constexpr std::size_t kMostNames = 256;
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestNameOfRow = 128;
constexpr std::size_t kLongestValueLine = 5096;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr QStringView kSourceFile = u"SourceFile";

using Cells = std::vector<std::string>;

std::string_view withoutLineEnd(std::string_view bytes) {
    return bytes.substr(0, bytes.find_first_of("\r\n"));
}

Cells designedNames(std::string_view header) {
    Cells names;
    for (std::size_t begin = 0; begin <= header.size() && names.size() < kMostNames;) {
        const std::size_t end = std::min(header.find(',', begin), header.size());
        names.emplace_back(header.substr(begin, std::min(end - begin, kLongestName)));
        begin = end + 1;
    }
    return names;
}

Cells designedValues(std::string_view line) {
    Cells values;
    for (std::size_t begin = 0; begin <= line.size();) {
        std::size_t end = begin;
        if (begin < line.size() && line[begin] == '"') {
            end = std::min(line.find('"', begin + 1), line.size());
            values.emplace_back(line.substr(begin + 1, end - begin - 1));
        } else {
            values.emplace_back(line.substr(begin, line.find(',', begin) - begin));
        }
        end = std::min(line.find(',', end), line.size());
        begin = end + 1;
    }
    return values;
}

/// Takes one record off the front: up to a line end that stands outside quotes.
Cells takeRecord(std::string_view& rest) {
    Cells cells(1);
    bool quoted = false;
    std::size_t at = 0;
    for (; at < rest.size(); ++at) {
        const char byte = rest[at];
        if (quoted && byte == '"' && at + 1 < rest.size() && rest[at + 1] == '"') {
            cells.back() += rest[++at];
        } else if (byte == '"' && (quoted || cells.back().empty())) {
            quoted = !quoted;
        } else if (!quoted && byte == ',') {
            cells.emplace_back();
        } else if (!quoted && (byte == '\r' || byte == '\n')) {
            break;
        } else {
            cells.back() += byte;
        }
    }
    const bool pair = at + 1 < rest.size() && rest[at] == '\r' && rest[at + 1] == '\n';
    rest.remove_prefix(std::min(rest.size(), at + (pair ? 2 : 1)));
    return cells;
}

std::vector<NamedValue> named(const Cells& names, const Cells& values, std::size_t first) {
    std::vector<NamedValue> found;
    for (std::size_t at = first; at < std::min(names.size(), values.size()); ++at)
        found.push_back({{}, platform::wide(names[at]), platform::exactText(values[at])});
    return found;
}

std::vector<NamedValue> parseDesigned(std::string_view bytes) {
    const std::size_t end = bytes.find('\r');
    if (end == std::string_view::npos) return {};
    std::string_view line = end + 2 < bytes.size() ? bytes.substr(end + 2) : std::string_view();
    line = withoutLineEnd(line.substr(0, kLongestValueLine));
    return named(designedNames(bytes.substr(0, end)), designedValues(line), 1);
}

std::vector<NamedValue> parseCorrected(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    const Cells names = takeRecord(bytes);
    if (bytes.empty()) return {};
    const Cells values = takeRecord(bytes);
    std::vector<NamedValue> found = named(names, values, 0);
    if (!found.empty() && found.front().name.compare(kSourceFile, Qt::CaseInsensitive) == 0)
        found.erase(found.begin());
    for (NamedValue& value : found) {
        const qsizetype colon = value.name.indexOf(u':');
        if (colon < 0) continue;
        value.group = value.name.first(colon);
        value.name = value.name.sliced(colon + 1);
    }
    return found;
}

bool equalWithoutCase(const QString& left, const QString& right) {
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

/// The groups that a name without one is most likely to come from, and those that repeat the tags of others.
// What both of the first two have is at home in the ExifIFD.
constexpr QStringView kLikelyGroups[] = {u"ExifIFD", u"IFD0",    u"GPS",           u"IPTC",
                                         u"XMP-dc",  u"XMP-xmp", u"XMP-photoshop", u"XMP-iptcCore"};
constexpr QStringView kRepeatingGroups[] = {u"IFD1", u"IFD2", u"IFD3", u"SubIFD"};

std::size_t rankOf(const QString& group) {
    const auto startsGroup = [&](QStringView start) { return group.startsWith(start); };
    constexpr std::size_t kCount = std::size(kLikelyGroups);
    if (std::ranges::any_of(kRepeatingGroups, startsGroup)) return kCount + 1;
    const auto* const found = std::ranges::find_if(
        kLikelyGroups, [&](QStringView likely) { return likely.compare(group, Qt::CaseInsensitive) == 0; });
    return static_cast<std::size_t>(found - std::begin(kLikelyGroups));
}

}  // namespace

std::vector<NamedValue> parseValuesFile(std::string_view bytes, app::CommandForm form) {
    return form == app::CommandForm::Designed ? parseDesigned(bytes) : parseCorrected(bytes);
}

namespace {

TagRow* rowOfValue(TagRows& rows, const NamedValue& value, app::CommandForm form) {
    const bool isDesigned = form == app::CommandForm::Designed;
    TagRow* best = nullptr;
    for (TagRow& row : rows) {
        const QString name =
            isDesigned ? QString::fromUtf8(row.name.toUtf8().left(kLongestNameOfRow)) : row.name;
        if (!equalWithoutCase(name, value.name)) continue;
        if (!value.group.isEmpty() && !equalWithoutCase(row.group, value.group)) continue;
        if (isDesigned) return &row;
        if (best == nullptr || rankOf(row.group) < rankOf(best->group)) best = &row;
    }
    return best;
}

/// As ExifTool writes what the row's file holds.
QString writtenValue(const TagRow& row) {
    return row.fileSeveral ? tags::splitEntries(row.fileValue).join(QStringLiteral(", ")) : row.fileValue;
}

void applyValue(TagRow& row, const NamedValue& value, app::CommandForm form, const TagTraits& traits) {
    if (value.value == writtenValue(row)) {
        undoRow(row);
        return;
    }
    NewValue newValue{.value = value.value, .loaded = true};
    newValue.severalEntries = form == app::CommandForm::Corrected && traits.takesSeveral(row.tagId);
    if (newValue.severalEntries)
        newValue.value = tags::joinEntries(value.value.split(QStringLiteral(", "), Qt::SkipEmptyParts));
    setRowValue(row, newValue);
}

}  // namespace

LoadedValues applyValues(TagRows& rows, std::span<const NamedValue> values, app::CommandForm form,
                         const TagTraits& traits) {
    const bool isCorrected = form == app::CommandForm::Corrected;
    LoadedValues loaded;
    for (const NamedValue& value : values) {
        // What a file lacks says nothing about what is to become of it in another.
        if (isCorrected && value.value.isEmpty()) continue;
        TagRow* const row = rowOfValue(rows, value, form);
        if (row == nullptr) {
            ++loaded.unknown;
        } else if (isCorrected && value.value != writtenValue(*row) &&
                   (row->timesInFile > 1 || traits.describesStructure(row->tagId))) {
            loaded.leftOut.append(row->group + u':' + row->name);
        } else {
            applyValue(*row, value, form, traits);
            ++loaded.set;
        }
    }
    return loaded;
}

}  // namespace taglists
