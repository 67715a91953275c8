#include "taglists/HeldTags.h"

#include "platform/Text.h"
#include "tags/ExactOutput.h"
#include "tags/GroupCatalogue.h"

#include <unordered_map>

namespace taglists {

namespace {

constexpr std::string_view kFileHeading = "======== ";

struct Line {
    std::string_view group;  ///< without brackets
    std::string_view tag;
    std::string_view value;
};

/// An empty tag where the line is none of the form.
Line split(std::string_view line) {
    const std::size_t groupEnd = line.find("] ");
    if (!line.starts_with('[') || groupEnd == std::string_view::npos) return {};
    const std::size_t tagBegin = groupEnd + 2;
    const std::size_t tagEnd = line.find(':', tagBegin);
    if (tagEnd == std::string_view::npos) return {};
    std::string_view value = line.substr(tagEnd + 1);
    if (value.starts_with(' ')) value.remove_prefix(1);
    return {line.substr(1, groupEnd - 1), line.substr(tagBegin, tagEnd - tagBegin), value};
}

QString latin(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

/// The catalogue spells some XMP namespaces otherwise than ExifTool prints them: "XMP_lr", "XMP-applefi".
std::optional<std::uint32_t> groupOf(std::string_view printed) {
    const QString name = latin(printed);
    const auto find = [](const QString& spelled) {
        return tags::FindGroup(QStringLiteral("[%1]").arg(spelled));
    };
    std::optional<std::uint32_t> group = find(name);
    const QString prefix = QStringLiteral("XMP-");
    if (group || !name.startsWith(prefix)) return group;
    QString space = name.mid(prefix.size());
    group = find(QStringLiteral("XMP_") + space);
    return group ? group : find(prefix + space.remove(u'-'));
}

/// A text in another language has the record of its tag.
int idOf(const tags::TagDictionary& dictionary, std::uint32_t group, const QString& name) {
    const int id = dictionary.FindTagId(group, name);
    const auto parted = tags::splitLanguage(name);
    return id >= 0 || !parted ? id : dictionary.FindTagId(group, parted->tag.toString());
}

/// Nothing for a tag that is unknown or cannot be written.
std::optional<HeldTag> writableTag(const Line& line, const tags::TagDictionary& dictionary) {
    if (!isPlainName(line.group) || !isPlainName(line.tag)) return std::nullopt;
    const std::optional<std::uint32_t> group = groupOf(line.group);
    const int id = group ? idOf(dictionary, *group, latin(line.tag)) : -1;
    if (id < 0) return std::nullopt;
    const std::optional<tags::TagRecord> record = dictionary.FindTagById(static_cast<std::uint32_t>(id));
    if (!record || !record->writable) return std::nullopt;
    HeldTag held;
    held.address = {std::string(line.group), std::string(line.tag)};
    held.tagId = id;
    held.groupId = *group;
    held.files = 1;
    held.value = platform::wide(line.value);
    return held;
}

}  // namespace

std::vector<HeldTag> heldTags(std::string_view output, const tags::TagDictionary& dictionary) {
    struct Place {
        std::size_t row;
        std::size_t lastFile;
    };
    std::vector<HeldTag> held;
    std::unordered_map<std::string, Place> places;
    std::size_t file = 0;
    while (!output.empty()) {
        const std::size_t end = output.find('\n');
        const std::string_view text = output.substr(0, end);
        output.remove_prefix(end == std::string_view::npos ? output.size() : end + 1);
        if (text.starts_with(kFileHeading)) ++file;
        const Line line = split(text);
        if (line.tag.empty()) continue;
        std::string key = std::string(line.group) + ':' + std::string(line.tag);
        const auto known = places.find(key);
        if (known != places.end()) {
            if (known->second.lastFile != file) ++held[known->second.row].files;
            known->second.lastFile = file;
            continue;
        }
        std::optional<HeldTag> tag = writableTag(line, dictionary);
        if (!tag) continue;
        places.emplace(std::move(key), Place{held.size(), file});
        held.push_back(std::move(*tag));
    }
    return held;
}

}  // namespace taglists
