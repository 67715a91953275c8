#include "taglists/DeleteTags.h"

#include "platform/Text.h"

#include <algorithm>

namespace taglists {

namespace {

std::optional<TagAddress> addressOf(const jobs::OperationParts& parts, app::CommandForm form,
                                    const tags::MetadataRow& row) {
    if (form == app::CommandForm::Designed)
        return TagAddress{platform::narrow(row.group), platform::narrow(row.tag)};
    if (row.tagId < 0) return std::nullopt;
    const auto record = parts.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    if (!record || !record->writable) return std::nullopt;
    return TagAddress{platform::narrow(record->group), platform::narrow(record->name)};
}

}  // namespace

std::vector<TagAddress> addressesOf(const jobs::OperationParts& parts, app::CommandForm form,
                                    const std::vector<tags::MetadataRow>& rows) {
    std::vector<TagAddress> addresses;
    for (const tags::MetadataRow& row : rows) {
        const std::optional<TagAddress> address = addressOf(parts, form, row);
        if (address && std::ranges::find(addresses, *address) == addresses.end())
            addresses.push_back(*address);
    }
    return addresses;
}

jobs::Job deleteTagsJob(app::CommandForm form, const QString& title, const std::vector<TagAddress>& tags,
                        const std::filesystem::path& file) {
    jobs::Job job{.title = title};
    if (tags.empty() && form == app::CommandForm::Corrected) return job;
    job.files = {file};
    job.workOnFile = [tags](jobs::JobWork& work, const std::filesystem::path& one) {
        if (std::optional<exiftool::Outcome> refused = work.runner.copyForSafety(one)) return *refused;
        return work.runner.runWriteLine(one, removeTagsOfFileCommand(work.context, work.form, tags, one));
    };
    return job;
}

}  // namespace taglists
