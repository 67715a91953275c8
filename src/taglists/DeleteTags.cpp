#include "taglists/DeleteTags.h"

#include <algorithm>

namespace taglists {

namespace {

std::string utf8(QStringView text) {
    return text.toUtf8().toStdString();
}

std::string utf8(std::u16string_view text) {
    return utf8(QStringView(text.data(), static_cast<qsizetype>(text.size())));
}

std::optional<TagAddress> addressOf(const jobs::OperationParts& parts, const tags::MetadataRow& row) {
    if (!parts.context.settings.exifTool.correctedCommands) return TagAddress{utf8(row.group), utf8(row.tag)};
    if (row.tagId < 0) return std::nullopt;
    const auto record = parts.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    if (!record || !record->writable) return std::nullopt;
    return TagAddress{utf8(record->group), utf8(record->name)};
}

}  // namespace

std::vector<TagAddress> addressesOf(const jobs::OperationParts& parts,
                                    const std::vector<tags::MetadataRow>& rows) {
    std::vector<TagAddress> addresses;
    for (const tags::MetadataRow& row : rows) {
        const std::optional<TagAddress> address = addressOf(parts, row);
        if (address && std::ranges::find(addresses, *address) == addresses.end())
            addresses.push_back(*address);
    }
    return addresses;
}

exiftool::TagWriteResult deleteTags(const jobs::OperationParts& parts, const std::vector<TagAddress>& tags,
                                    const std::filesystem::path& file) {
    if (tags.empty() && parts.context.settings.exifTool.correctedCommands) return {};
    parts.runner.copyForSafety(file);
    return exiftool::runTagWrite(parts.context, parts.runner, file,
                                 removeTagsOfFileCommand(parts.context, tags, file));
}

}  // namespace taglists
