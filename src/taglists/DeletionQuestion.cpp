#include "taglists/DeletionQuestion.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

namespace taglists {

void makeCancelDefault(const QDialog& dialog) {
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    if (buttons == nullptr) return;
    if (QPushButton* ok = buttons->button(QDialogButtonBox::Ok)) ok->setAutoDefault(false);
    QPushButton* cancel = buttons->button(QDialogButtonBox::Cancel);
    if (cancel == nullptr) return;
    cancel->setDefault(true);
    cancel->setFocus();
}

}  // namespace taglists
