#include "taglists/DialogAddATag_ToOneFile.h"

#include "taglists/TagListTexts.h"

namespace taglists {

namespace {

constexpr int kNameWidth = 220;
constexpr int kKindWidth = 22;
constexpr qsizetype kLongestGroup = 80;

TagValuesDialog::Task taskOf(const jobs::OperationParts& parts, const QString& group,
                             const std::filesystem::path& file) {
    std::vector<std::filesystem::path> files{file};
    const QString title =
        parts.language.formatted(text::kAddTitle, {group, filesText(parts.language, files)});
    return {DialogAddATag_ToOneFile::kTemplate,
            title,
            std::move(files),
            {TagColumn::Name, TagColumn::Kind, TagColumn::Value}};
}

}  // namespace

DialogAddATag_ToOneFile::DialogAddATag_ToOneFile(const jobs::OperationParts& parts, const QString& group,
                                                 const std::filesystem::path& file, QWidget* parent)
    : TagValuesDialog(parts, taskOf(parts, group, file), parent), group_(group.left(kLongestGroup)) {
    list().setColumnWidths({kNameWidth, kKindWidth});
    TagRows rows = rowsOfGroup(parts.dictionary, group);
    // Some groups have another name in the panel than in ExifTool.
    const QString asked =
        form() == app::CommandForm::Corrected && !rows.empty() ? rows.front().group : group_;
    fill(std::move(rows), parts.context.tempPath / "Metadata.txt", [&](const std::filesystem::path& output) {
        return this->parts().reads.ReadGroupAll(file, output, asked.toStdString());
    });
}

jobs::Job DialogAddATag_ToOneFile::jobOf(const TagRows& rows) {
    return addATagJob(parts(), form(), windowTitle(), rows, group_, files().front());
}

}  // namespace taglists
