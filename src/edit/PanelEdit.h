#pragma once

#include "app/AppContext.h"
#include "edit/EditParts.h"
#include "edit/TagEditContext.h"
#include "tags/OutputParser.h"

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
PanelAction ActionOfClick(const EditParts& parts, const tags::MetadataRow& row,
                          const std::optional<tags::TagRecord>& record, bool altHeld);

/// The rating that the first character of a value preselects: "3" gives 6, as it always has; everything but
/// "1" to "5" gives 0.
int DesignedRatingSelection(QStringView value);

/// What the dialog starts from. Reads the value anew where the row does not hold all of it.
TagEditContext ContextOfRow(const EditParts& parts, const std::filesystem::path& file,
                            const tags::MetadataRow& row, const tags::TagRecord& record);

/// What the write gets of a dialog that ended with 1; before is the context on entry. Remembers a rating.
app::CurrentEdit EditOfRow(const EditParts& parts, const TagEditContext& before, const TagEditContext& after,
                           const tags::TagRecord& record, int rowIndex);

/// Nothing has been changed, and in the corrected form nothing is to be written.
bool IsUnchanged(const EditParts& parts, const TagEditContext& before, const TagEditContext& after,
                 const tags::TagRecord& record);

}  // namespace edit
