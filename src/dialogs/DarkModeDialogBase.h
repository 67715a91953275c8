#pragma once

#include "app/LanguageFile.h"
#include "dialogs/FormLoader.h"

#include <QDialog>
#include <QString>

namespace dialogs {

/// The base of every dialog: its form comes out of the language file by template number, its controls are
/// found by number, its light or dark look is the program's. A dialog sets its controls in its constructor,
/// does its work in accept(), and is shown with run(). GUI thread; owned by its caller, usually on the stack.
///
/// A control that the dialog cannot do without (FormControls.tsv of its folder) is always there: where the
/// form lacks it, a hidden one stands in, so that the constructors need not ask, and run() tells and does not
/// open.
class DarkModeDialogBase : public QDialog {
    Q_OBJECT

 public:
    DarkModeDialogBase(const app::LanguageFile& languageFile, int templateNumber, QWidget* parent);

    int templateNumber() const { return templateNumber_; }

    /// False when the language file has no such form, a damaged one, or one without a required control.
    bool hasForm() const { return fault_.isEmpty(); }

    /// The form lacks something that only the dialog itself knows of: it does not open, and run() tells what.
    /// The first fault counts.
    void setFault(const QString& fault);

    /// Shows the dialog modally: 1 when it ran, 0 when it was cancelled, or has no form, which is then told.
    int run();

    /// The control with this number and type, which FormControls.tsv must declare. Null only for one without
    /// which the dialog can do.
    template <typename Control>
    Control* control(int controlId) const {
        QWidget* widget = findControl(*this, controlId);
        auto* found = qobject_cast<Control*>(widget);
        if (!isDeclared(controlId) || (widget != nullptr && found == nullptr))
            tellUndeclared(controlId, Control::staticMetaObject.className());
        return found;
    }

 private:
    QString fillGaps();
    bool isDeclared(int controlId) const;
    void tellUndeclared(int controlId, const char* className) const;

    const app::LanguageFile& languageFile_;
    int templateNumber_;
    QString fault_;
};

}  // namespace dialogs
