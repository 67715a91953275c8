#include "edit/ModifRationalDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

namespace edit {

ModifRationalDialog::ModifRationalDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent)
    : NumberDialog(parts, edit, kTemplate, text::kNoRational, parent) {}

std::optional<QString> ModifRationalDialog::valueOf(const QString& typed) {
    return isCorrected() ? CorrectedRational(typed, edit().value)
                         : std::optional(DesignedRational(edit().value, typed));
}

}  // namespace edit
