#include "edit/ModifIntDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

namespace edit {

ModifIntDialog::ModifIntDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent)
    : NumberDialog(parts, edit, kTemplate, text::kNoInteger, parent) {}

std::optional<QString> ModifIntDialog::valueOf(const QString& typed) {
    return isCorrected() ? CorrectedInteger(typed, edit().value) : std::optional(DesignedInteger(typed));
}

}  // namespace edit
