#include "taglists/DialogAddTagsMain.h"

#include "platform/Text.h"
#include "taglists/TagListTexts.h"

namespace taglists {

namespace {

constexpr int kNameWidth = 220;
constexpr int kKindWidth = 22;

TagValuesDialog::Task taskOf(const jobs::OperationParts& parts, int commandId,
                             std::vector<std::filesystem::path> files) {
    const QString title = parts.language.formatted(
        text::kAddTitle, {platform::wide(addTagsGroupOf(commandId).group), filesText(parts.language, files)});
    return {DialogAddTagsMain::kTemplate,
            title,
            std::move(files),
            {TagColumn::Name, TagColumn::Kind, TagColumn::Value}};
}

}  // namespace

DialogAddTagsMain::DialogAddTagsMain(const jobs::OperationParts& parts, int commandId,
                                     std::vector<std::filesystem::path> files, QWidget* parent)
    : TagValuesDialog(parts, taskOf(parts, commandId, std::move(files)), parent),
      group_(addTagsGroupOf(commandId)) {
    list().setColumnWidths({kNameWidth, kKindWidth});
    list().setEmptyText(parts.language.formatted(text::kGroupOnlyRead, {platform::wide(group_.group)}));
    const std::filesystem::path& first = this->files().front();
    fill(rowsOfCategory(parts.dictionary, group_.categoryId), valuesOutput(parts.context, first),
         [&](const std::filesystem::path& output) {
             return this->parts().reads.ReadCategory(first, output, static_cast<int>(group_.categoryId));
         });
}

jobs::Job DialogAddTagsMain::jobOf(const TagRows& rows) {
    return addTagsJob(parts(), form(), windowTitle(), rows, platform::wide(group_.group), files());
}

}  // namespace taglists
