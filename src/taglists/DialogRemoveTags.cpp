#include "taglists/DialogRemoveTags.h"

#include "dialogs/Messages.h"
#include "jobs/OutcomeText.h"
#include "taglists/RemovalTexts.h"
#include "taglists/Removals.h"

namespace taglists {

namespace {

const std::vector<TagColumn> kColumns{TagColumn::Name, TagColumn::Group, TagColumn::Kind, TagColumn::Value};
const std::vector<int> kWidths{240, 120, 24};
constexpr QSize kSize(640, 520);

/// Of several files the value column says how many hold the tag.
TagRows rowsOf(const jobs::OperationParts& parts, const std::vector<HeldTag>& held, std::size_t files) {
    TagRows rows;
    for (const HeldTag& tag : held) {
        TagRow row;
        if (const auto record = parts.dictionary.FindTagById(static_cast<std::uint32_t>(tag.tagId)))
            row = rowOf(*record);
        row.name = QString::fromStdString(tag.address.name);
        row.group = QString::fromStdString(tag.address.group);
        row.value = files == 1
                        ? tag.value
                        : parts.language.formatted(text::kHeldBy, {QString::number(tag.files),
                                                                   jobs::filesText(parts.language, files)});
        row.fileValue = row.value;
        rows.push_back(row);
    }
    return rows;
}

bool isNothing(const std::vector<TagAddress>& ticked, QWidget* dialog) {
    if (!ticked.empty()) return false;
    dialogs::showMessage(
        dialog, {QStringLiteral("Please select at least one tag."), dialogs::MessageIcon::Exclamation});
    return true;
}

}  // namespace

DialogRemoveTags::DialogRemoveTags(const jobs::OperationParts& parts,
                                   std::vector<std::filesystem::path> files, QWidget* parent)
    : TickedTagsDialog(parts, kTemplate, {.look = {.columns = kColumns}}, kSize, parent),
      files_(std::move(files)) {
    setWindowTitle(
        parts.language.formatted(text::kRemoveTags, {jobs::filesText(parts.language, files_.size())}));
    if (list() == nullptr) return;
    const HeldTagsRead held = readHeldTags(parts, form(), files_);
    showHeldTags(rowsOf(parts, held.tags, files_.size()), held.fault);
    list()->setColumnWidths(kWidths);
}

void DialogRemoveTags::accept() {
    const std::vector<TagAddress> ticked = tickedTags();
    if (isNothing(ticked, this)) return;
    setJob(removeTagsJob(windowTitle(), ticked, files_));
    TickedTagsDialog::accept();
}

DialogRemoveATag_FromOneFile::DialogRemoveATag_FromOneFile(const jobs::OperationParts& parts,
                                                           std::filesystem::path file, const QString& group,
                                                           QWidget* parent)
    : TickedTagsDialog(parts, kTemplate, {.look = {.columns = kColumns}}, kSize, parent),
      file_(std::move(file)) {
    const QString shortGroup = group.left(kLongestGroup);
    setWindowTitle(group.isEmpty() ? parts.language.text(text::kRemoveTagsOfFile)
                                   : parts.language.formatted(text::kRemoveTagsOfGroup, {shortGroup}));
    if (list() == nullptr) return;
    const HeldTagsRead held = group.isEmpty()
                                  ? readHeldTags(parts, form(), {file_})
                                  : readHeldTagsOfGroup(parts, form(), file_, shortGroup.toStdString());
    showHeldTags(rowsOf(parts, held.tags, 1), held.fault);
    list()->setColumnWidths(kWidths);
}

void DialogRemoveATag_FromOneFile::accept() {
    const std::vector<TagAddress> ticked = tickedTags();
    if (isNothing(ticked, this)) return;
    setJob(removeTagsFromShownFileJob(windowTitle(), ticked, file_));
    TickedTagsDialog::accept();
}

}  // namespace taglists
