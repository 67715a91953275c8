#include "edit/ModifComboDialog.h"

#include "edit/EditControls.h"
#include "edit/EditTexts.h"

#include <QComboBox>

namespace edit {

ModifComboDialog::ModifComboDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit,
                                   QWidget* parent)
    : ValueDialog(parts, edit, kTemplate, parent) {
    auto* choice = control<QComboBox>(control::kChoice);
    if (choice == nullptr) return;
    const int count = parts.labels.GetItemNumberFromCombo(edit.tagId);
    for (int index = 0; index < count; ++index) {
        QString label;
        QString code;
        parts.labels.GetLibelleCombo(edit.tagId, label, code, index);
        choice->addItem(label, code.toLongLong());
    }
    choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choice->setCurrentIndex(edit.selection);
    choice->setFocus();
}

void ModifComboDialog::accept() {
    const int chosen = control<QComboBox>(control::kChoice)->currentIndex();
    QString label;
    QString code;
    if (!parts().labels.GetLibelleCombo(edit().tagId, label, code, chosen)) {
        ValueDialog::reject();
        return;
    }
    edit().selection = chosen;
    edit().value = label;
    edit().comboCode = code;
    ValueDialog::accept();
}

}  // namespace edit
