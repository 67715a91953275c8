#include "dialogs/DarkModeDialogBase.h"

namespace dialogs {

DarkModeDialogBase::DarkModeDialogBase(const app::LanguageFile& languageFile, int templateNumber,
                                       QWidget* parent)
    : QDialog(parent),
      templateNumber_(templateNumber),
      hasForm_(loadForm(*this, languageFile.form(templateNumber)).isEmpty()) {
    setProperty(kTemplateNumberProperty, templateNumber);
}

int DarkModeDialogBase::run() {
    return hasForm_ && exec() == Accepted ? 1 : 0;
}

}  // namespace dialogs
