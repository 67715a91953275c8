#include "edit/PanelEdit.h"

#include "edit/WholeValue.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "tags/ImageTags.h"

namespace edit {

using app::CommandForm;

namespace {

/// A rating that shows as stars has no text.
QString valueOf(const tags::MetadataRow& row) {
    return row.stars ? QString::number(*row.stars) : row.value;
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
            if (parts.labels.GetComboIndex(static_cast<int>(record->id), row.value) >= 0)
                return PanelAction::EditValue;
            return form == CommandForm::Corrected ? PanelAction::TellNotInList : PanelAction::Nothing;
    }
    return PanelAction::Nothing;
}

QString whyNotWritable(const std::filesystem::path& file) {
    std::error_code refused = platform::checkAccess(file, platform::AccessRight::Write);
    // What is written is a new file beside it, which then takes its place.
    if (!refused) refused = platform::checkAccess(file.parent_path(), platform::AccessRight::AddFiles);
    return refused ? platform::wide(refused.message()) : QString();
}

RowToEdit contextOfRow(const jobs::OperationParts& parts, CommandForm form, const std::filesystem::path& file,
                       const tags::MetadataRow& row, const tags::TagRecord& record) {
    tags::TagEditContext edit;
    edit.filePath = file;
    edit.title = platform::wide(record.name);
    edit.group = platform::wide(record.group);
    edit.tagId = static_cast<int>(record.id);
    const jobs::EditableValue value = editableValue(parts, form, file, record, valueOf(row));
    edit.value = value.text;
    if (record.valueKind == tags::ValueKind::Rating && form == CommandForm::Designed)
        edit.selection = tags::designedRatingSelection(edit.value);
    if (record.valueKind == tags::ValueKind::List)
        edit.selection = parts.labels.GetComboIndex(edit.tagId, edit.value);
    return {edit, value.fault};
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
    edit.severalValues = form == CommandForm::Corrected && record.valueKind == tags::ValueKind::Text &&
                         parts.labels.takesSeveralValues(after.tagId);
    if (record.valueKind == tags::ValueKind::Rating) edit.value = QString::number(after.selection);
    return edit;
}

bool isUnchanged(CommandForm form, const tags::TagEditContext& before, const tags::TagEditContext& after,
                 const tags::TagRecord& record) {
    if (form == CommandForm::Designed) return false;
    // A list is shown in the program's language, whatever language the value was read in.
    if (record.valueKind == tags::ValueKind::List) return before.selection == after.selection;
    return before.value == after.value;
}

}  // namespace edit
