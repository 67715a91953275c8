#include "edit/ModifRationalDialog.h"

#include "edit/EditTexts.h"
#include "edit/NumberText.h"

#include <QLineEdit>

namespace edit {

ModifRationalDialog::ModifRationalDialog(const EditParts& parts, TagEditContext& edit, QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    auto* field = control<QLineEdit>(control::kText);
    if (field == nullptr) return;
    field->setText(edit.value);
    field->setFocus();
    field->selectAll();
}

void ModifRationalDialog::accept() {
    auto* field = control<QLineEdit>(control::kText);
    const auto value = isCorrected() ? CorrectedRational(field->text(), edit().value)
                                     : std::optional(DesignedRational(edit().value, field->text()));
    if (!value) {
        showHint(parts().language.formatted(text::kNoRational, {field->text()}), HintKind::Refusal);
        field->setFocus();
        field->selectAll();
        return;
    }
    edit().value = *value;
    ValueDialog::accept();
}

}  // namespace edit
