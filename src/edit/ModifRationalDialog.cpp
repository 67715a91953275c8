#include "edit/ModifRationalDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

namespace edit {

ModifRationalDialog::ModifRationalDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                         QWidget* parent)
    : NumberDialog(parts, edit, kTemplate, text::kNoRational, parent) {}

std::optional<QString> ModifRationalDialog::valueOf(const QString& typed) {
    return form() == app::CommandForm::Corrected ? correctedRational(typed, edit().value)
                                                 : std::optional(designedRational(edit().value, typed));
}

}  // namespace edit
