#include "edit/NumberDialog.h"

#include "edit/EditControls.h"
#include "edit/EditTexts.h"

#include <QLineEdit>

namespace edit {

NumberDialog::NumberDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, int templateNumber,
                           int refusal, QWidget* parent)
    : ValueDialog(parts, edit, templateNumber, parent), refusal_(refusal) {
    auto* field = control<QLineEdit>(control::kText);
    if (field == nullptr) return;
    field->setText(edit.value);
    field->setFocus();
    field->selectAll();
}

void NumberDialog::accept() {
    auto* field = control<QLineEdit>(control::kText);
    const std::optional<QString> value = valueOf(field->text());
    if (!value) {
        showHint(parts().language.formatted(refusal_, {field->text()}), HintKind::Refusal);
        field->setFocus();
        field->selectAll();
        return;
    }
    edit().value = *value;
    ValueDialog::accept();
}

}  // namespace edit
