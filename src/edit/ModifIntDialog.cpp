#include "edit/ModifIntDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

namespace edit {

ModifIntDialog::ModifIntDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, QWidget* parent)
    : NumberDialog(parts, edit, kTemplate, text::kNoInteger, parent) {}

std::optional<QString> ModifIntDialog::valueOf(const QString& typed) {
    return form() == app::CommandForm::Corrected ? correctedInteger(typed, edit().value)
                                                 : std::optional(designedInteger(typed));
}

}  // namespace edit
