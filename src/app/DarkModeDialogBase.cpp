#include "app/DarkModeDialogBase.h"

namespace app {

DarkModeDialogBase::DarkModeDialogBase(const LanguageFile& languageFile, int templateNumber, QWidget* parent)
    : QDialog(parent),
      templateNumber_(templateNumber),
      hasForm_(LoadForm(*this, languageFile.form(templateNumber)).isEmpty()) {
    setProperty(kTemplateNumberProperty, templateNumber);
}

int DarkModeDialogBase::run() {
    return hasForm_ && exec() == Accepted ? 1 : 0;
}

}  // namespace app
