#include "taglists/DeleteTags.h"

#include "platform/Text.h"
#include "tags/ExactOutput.h"

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
    // A text in another language has its tag's record and a name of its own.
    const bool isOther = tags::splitLanguage(row.tag).has_value();
    return TagAddress{platform::narrow(record->group),
                      isOther ? platform::narrow(row.tag) : platform::narrow(record->name)};
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

std::vector<TagAddress> addressOfEntry(const jobs::OperationParts& parts, app::CommandForm form,
                                       const tags::MetadataRow& row) {
    std::vector<TagAddress> addresses = addressesOf(parts, form, {row});
    const bool isPlain = !tags::splitLanguage(row.tag) && parts.labels.keepsLanguages(row.tagId);
    // Under its bare name ExifTool would delete a text in all its languages.
    if (form == app::CommandForm::Corrected && isPlain)
        for (TagAddress& address : addresses) address.name += "-x-default";
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
