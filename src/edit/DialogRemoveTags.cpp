#include "edit/DialogRemoveTags.h"

#include "app/Messages.h"
#include "edit/RemovalTexts.h"
#include "edit/Removals.h"

namespace edit {

namespace {

const std::vector<TagColumn> kColumns{TagColumn::Name, TagColumn::Group, TagColumn::Kind, TagColumn::Value};
const std::vector<int> kWidths{240, 120, 24};
constexpr QSize kSize(640, 520);

/// Of several files the value column says how many hold the tag.
TagRows rowsOf(const EditParts& parts, const std::vector<HeldTag>& held, std::size_t files) {
    TagRows rows;
    for (const HeldTag& tag : held) {
        TagRow row;
        if (const auto record = parts.dictionary.FindTagById(static_cast<std::uint32_t>(tag.tagId)))
            row = RowOf(*record);
        row.name = QString::fromStdString(tag.address.name);
        row.group = QString::fromStdString(tag.address.group);
        row.value = files == 1 ? tag.value
                               : parts.language.formatted(text::kHeldBy, {QString::number(tag.files),
                                                                          FilesText(parts.language, files)});
        row.fileValue = row.value;
        rows.push_back(row);
    }
    return rows;
}

bool isNothing(const std::vector<TagAddress>& ticked, QWidget* dialog) {
    if (!ticked.empty()) return false;
    app::ShowMessage(dialog,
                     {QStringLiteral("Please select at least one tag."), app::MessageIcon::Exclamation});
    return true;
}

}  // namespace

DialogRemoveTags::DialogRemoveTags(const EditParts& parts, std::vector<std::filesystem::path> files,
                                   QWidget* parent)
    : TickedTagsDialog(parts, kTemplate, {.look = {.columns = kColumns}}, kSize, parent),
      files_(std::move(files)) {
    setWindowTitle(parts.language.formatted(text::kRemoveTags, {FilesText(parts.language, files_.size())}));
    if (list() == nullptr) return;
    list()->model().setRows(rowsOf(parts, ReadHeldTags(parts, files_), files_.size()));
    list()->setColumnWidths(kWidths);
}

void DialogRemoveTags::accept() {
    const std::vector<TagAddress> ticked = tickedTags();
    if (isNothing(ticked, this)) return;
    RemoveTagsFromFiles(parts(), windowTitle(), ticked, files_,
                        [this](const QString& message) { tellLeftOut(message); });
    TickedTagsDialog::accept();
}

DialogRemoveATag_FromOneFile::DialogRemoveATag_FromOneFile(const EditParts& parts, std::filesystem::path file,
                                                           const QString& group, QWidget* parent)
    : TickedTagsDialog(parts, kTemplate, {.look = {.columns = kColumns}}, kSize, parent),
      file_(std::move(file)) {
    const QString shortGroup = group.left(kLongestGroup);
    setWindowTitle(group.isEmpty() ? parts.language.text(text::kRemoveTagsOfFile)
                                   : parts.language.formatted(text::kRemoveTagsOfGroup, {shortGroup}));
    if (list() == nullptr) return;
    const std::vector<HeldTag> held = group.isEmpty()
                                          ? ReadHeldTags(parts, {file_})
                                          : ReadHeldTagsOfGroup(parts, file_, shortGroup.toStdString());
    list()->model().setRows(rowsOf(parts, held, 1));
    list()->setColumnWidths(kWidths);
}

void DialogRemoveATag_FromOneFile::accept() {
    const std::vector<TagAddress> ticked = tickedTags();
    if (isNothing(ticked, this)) return;
    RemoveTagsFromShownFile(parts(), windowTitle(), ticked, file_,
                            [this](const QString& message) { tellLeftOut(message); });
    TickedTagsDialog::accept();
}

}  // namespace edit
