#include "edit/ModifIntDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

#include <QLineEdit>

namespace edit {

ModifIntDialog::ModifIntDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    auto* field = control<QLineEdit>(control::kText);
    if (field == nullptr) return;
    field->setText(edit.value);
    field->setFocus();
    field->selectAll();
}

void ModifIntDialog::accept() {
    auto* field = control<QLineEdit>(control::kText);
    const auto value = isCorrected() ? CorrectedInteger(field->text(), edit().value)
                                     : std::optional(DesignedInteger(field->text()));
    if (!value) {
        showHint(parts().language.formatted(text::kNoInteger, {field->text()}), HintKind::Refusal);
        field->setFocus();
        field->selectAll();
        return;
    }
    edit().value = *value;
    ValueDialog::accept();
}

}  // namespace edit
