#include "edit/PanelEdit.h"

#include "edit/WholeValue.h"
#include "platform/FileAccess.h"
#include "platform/FileBelongings.h"
#include "platform/Text.h"
#include "tags/ImageTags.h"

namespace edit {

using app::CommandForm;

namespace {

/// A rating that shows as stars has no text.
QString valueOf(const tags::MetadataRow& row) {
    return row.stars ? QString::number(*row.stars) : row.value;
}

/// Under its bare name ExifTool would delete the other languages with it.
bool isPlainEntry(const jobs::OperationParts& parts, const tags::TagEditContext& edit,
                  const tags::TagRecord& record) {
    return parts.labels.keepsLanguages(edit.tagId) && !isTranslation(edit.title, record);
}

PanelAction viewOf(const tags::TagRecord& record) {
    const bool asPicture =
        record.valueKind == tags::ValueKind::Binary && tags::isImageTag(static_cast<int>(record.id));
    return asPicture ? PanelAction::ViewPicture : PanelAction::ViewText;
}

}  // namespace

PanelAction actionOfClick(const jobs::OperationParts& parts, CommandForm form, const tags::MetadataRow& row,
                          const std::optional<tags::TagRecord>& record, bool altHeld) {
    if (!record) return PanelAction::ViewText;
    if (altHeld || !record->writable) return viewOf(*record);
    // The designed line would write the tag's plain entry in its place.
    if (form == CommandForm::Designed && isTranslation(row.tag, *record)) return viewOf(*record);
    switch (record->valueKind) {
        case tags::ValueKind::Date:
        case tags::ValueKind::Integer:
        case tags::ValueKind::Text:
        case tags::ValueKind::Rating:
        case tags::ValueKind::Rational:
            return PanelAction::EditValue;
        case tags::ValueKind::Binary:
            return viewOf(*record);
        case tags::ValueKind::List:
            if (parts.labels.GetComboIndex(static_cast<int>(record->id), row.value) >= 0 ||
                (form == CommandForm::Corrected && row.value.contains(u", ") &&
                 parts.labels.takesSeveralValues(static_cast<int>(record->id))))
                return PanelAction::EditValue;
            return form == CommandForm::Corrected ? PanelAction::TellNotInList : PanelAction::Nothing;
    }
    return PanelAction::Nothing;
}

QString whyNotWritable(const std::filesystem::path& named) {
    // As every write does it: the file behind a link is the one that gets rewritten, in its own folder.
    const std::filesystem::path file = platform::behindLink(named);
    std::error_code refused = platform::checkRewritable(file);
    // What is written is a new file beside it, which then takes its place.
    if (!refused) refused = platform::checkAccess(file.parent_path(), platform::AccessRight::AddFiles);
    return refused ? platform::wide(refused.message()) : QString();
}

RowToEdit contextOfRow(const jobs::OperationParts& parts, CommandForm form, const std::filesystem::path& file,
                       const tags::MetadataRow& row, const tags::TagRecord& record) {
    tags::TagEditContext edit;
    edit.filePath = file;
    // The row of a text in another language has its tag's record.
    const bool isOther = form == CommandForm::Corrected && isTranslation(row.tag, record);
    edit.title = isOther ? row.tag : platform::wide(record.name);
    edit.group = platform::wide(record.group);
    edit.tagId = static_cast<int>(record.id);
    EditableValue value = editableValue(parts, form, file, record, edit.title, valueOf(row));
    edit.value = value.text;
    edit.severalEntries = value.severalEntries;
    edit.translations = std::move(value.translations);
    if (record.valueKind == tags::ValueKind::Rating && form == CommandForm::Designed)
        edit.selection = tags::designedRatingSelection(edit.value);
    if (record.valueKind == tags::ValueKind::List)
        edit.selection = parts.labels.GetComboIndex(edit.tagId, edit.value);
    return {edit, value.fault, value.refusal};
}

tags::ValueKind kindOfDialog(const tags::TagEditContext& edit, const tags::TagRecord& record) {
    return edit.severalEntries ? tags::ValueKind::Text : record.valueKind;
}

app::CurrentEdit editOfRow(const jobs::OperationParts& parts, CommandForm form,
                           const tags::TagEditContext& before, const tags::TagEditContext& after,
                           const tags::TagRecord& record, int rowIndex) {
    app::CurrentEdit edit;
    edit.id = after.tagId;
    edit.groupIndex = static_cast<int>(record.groupIndex);
    edit.name = after.title;
    edit.value = after.value;
    edit.comboCode = after.comboCode;
    edit.group = after.group;
    edit.fileTime = after.fileTime;
    edit.valueKind = static_cast<int>(record.valueKind);
    edit.writable = record.writable;
    edit.selection = after.selection;
    edit.rowIndex = rowIndex;
    edit.valueBefore = before.value;
    edit.severalValues = after.severalEntries;
    edit.translations = after.translations;
    if (form == CommandForm::Corrected && isPlainEntry(parts, after, record))
        edit.language = QStringLiteral("x-default");
    if (kindOfDialog(after, record) == tags::ValueKind::Rating) edit.value = QString::number(after.selection);
    return edit;
}

bool isUnchanged(CommandForm form, const tags::TagEditContext& before, const tags::TagEditContext& after,
                 const tags::TagRecord& record) {
    if (form == CommandForm::Designed) return false;
    // A list is shown in the program's language, whatever language the value was read in.
    if (kindOfDialog(before, record) == tags::ValueKind::List) return before.selection == after.selection;
    return before.value == after.value;
}

}  // namespace edit
