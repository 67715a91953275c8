#include "dialogs/DarkModeDialogBase.h"

#include "dialogs/DialogTexts.h"
#include "dialogs/FormControls.h"
#include "dialogs/Messages.h"

#include <QUiLoader>
#include <algorithm>

namespace dialogs {

DarkModeDialogBase::DarkModeDialogBase(const app::LanguageFile& languageFile, int templateNumber,
                                       QWidget* parent)
    : QDialog(parent),
      languageFile_(languageFile),
      templateNumber_(templateNumber),
      fault_(loadForm(*this, languageFile.form(templateNumber))) {
    setProperty(kTemplateNumberProperty, templateNumber);
    setFault(fillGaps());
}

void DarkModeDialogBase::setFault(const QString& fault) {
    if (fault_.isEmpty()) fault_ = fault;
}

int DarkModeDialogBase::run() {
    if (hasForm()) return exec() == Accepted ? 1 : 0;
    const QString told =
        languageFile_.formatted(text::kFormFaulty, {QString::number(templateNumber_), fault_});
    if (!told.isEmpty()) showMessage(parentWidget(), {.text = told, .icon = MessageIcon::Exclamation});
    return 0;
}

// Says which required control is missing or of another class; every one of them has a stand-in then.
QString DarkModeDialogBase::fillGaps() {
    QString gap;
    for (const FormControl& row : formControls(templateNumber_)) {
        QWidget* widget = findControl(*this, row.controlId);
        if (widget != nullptr && widget->inherits(row.className)) continue;
        // One of another class must not be taken for the one that is asked for.
        if (widget != nullptr) widget->setProperty(kControlIdProperty, QVariant());
        if (!row.required) continue;
        const QString className = QString::fromLatin1(row.className);
        if (gap.isEmpty()) gap = QStringLiteral("%1 %2").arg(className).arg(row.controlId);
        QWidget* standIn = QUiLoader().createWidget(className, this);
        if (standIn == nullptr) continue;
        standIn->setProperty(kControlIdProperty, row.controlId);
        standIn->hide();
    }
    return gap;
}

bool DarkModeDialogBase::isDeclared(int controlId) const {
    const auto rows = formControls(templateNumber_);
    return std::ranges::find(rows, controlId, &FormControl::controlId) != rows.end();
}

void DarkModeDialogBase::tellUndeclared(int controlId, const char* className) const {
    // The buttons that end a dialog come from no form of ours.
    if (controlId == kOkControl || controlId == kCancelControl) return;
    qCritical("Undeclared control: form %d, control %d as %s", templateNumber_, controlId, className);
}

}  // namespace dialogs
