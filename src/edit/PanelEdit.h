#pragma once

#include "app/AppContext.h"
#include "jobs/OperationParts.h"
#include "tags/OutputParser.h"
#include "tags/TagEditContext.h"

#include <optional>

/// What a click on a value in the metadata panel leads to, decided without widgets.
namespace edit {

enum class PanelAction {
    Nothing,
    ViewText,       ///< template 136
    ViewPicture,    ///< template 148
    EditValue,      ///< the dialog of the kind
    TellNotInList,  ///< a value that its tag's list does not have; it cannot be edited
};

/// record: the first with the row's id, nothing when there is none. altHeld: only look.
PanelAction actionOfClick(const jobs::OperationParts& parts, app::CommandForm form,
                          const tags::MetadataRow& row, const std::optional<tags::TagRecord>& record,
                          bool altHeld);

/// What the dialog starts from, unless the value could not be read.
struct RowToEdit {
    tags::TagEditContext context;
    QString fault;    ///< why it could not be, for people
    QString refusal;  ///< why it cannot be edited, a whole sentence
};

/// The dialog that the value takes: that for texts where there are several entries.
tags::ValueKind kindOfDialog(const tags::TagEditContext& edit, const tags::TagRecord& record);
/// Why the file, or the one behind a link, cannot be rewritten by this user, as far as that can be known
/// before; for people. Empty when nothing speaks against it.
QString whyNotWritable(const std::filesystem::path& named);

/// Reads the value anew where the row does not hold all of it.
[[nodiscard]] RowToEdit contextOfRow(const jobs::OperationParts& parts, app::CommandForm form,
                                     const std::filesystem::path& file, const tags::MetadataRow& row,
                                     const tags::TagRecord& record);

/// What the write gets of a dialog that ended with 1; before is the context on entry.
app::CurrentEdit editOfRow(const jobs::OperationParts& parts, app::CommandForm form,
                           const tags::TagEditContext& before, const tags::TagEditContext& after,
                           const tags::TagRecord& record, int rowIndex);

/// Nothing has been changed, and in the corrected form nothing is to be written.
bool isUnchanged(app::CommandForm form, const tags::TagEditContext& before, const tags::TagEditContext& after,
                 const tags::TagRecord& record);

}  // namespace edit
