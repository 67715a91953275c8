#pragma once

#include "app/LanguageFile.h"
#include "dialogs/FormLoader.h"

#include <QDialog>

namespace dialogs {

/// The base of every dialog: its form comes out of the language file by template number, its controls are
/// found by number, its light or dark look is the program's. A dialog sets its controls in its constructor,
/// does its work in accept(), and is shown with run(). GUI thread; owned by its caller, usually on the stack.
class DarkModeDialogBase : public QDialog {
    Q_OBJECT

 public:
    DarkModeDialogBase(const app::LanguageFile& languageFile, int templateNumber, QWidget* parent);

    int templateNumber() const { return templateNumber_; }

    /// False when the language file has no such form or a damaged one; run() then answers 0 at once.
    bool hasForm() const { return hasForm_; }

    /// Shows the dialog modally: 1 when it ran, 0 when it was cancelled.
    int run();

    /// The control with this number and type, or null.
    template <typename Control>
    Control* control(int controlId) const {
        return qobject_cast<Control*>(findControl(*this, controlId));
    }

 private:
    int templateNumber_;
    bool hasForm_;
};

}  // namespace dialogs
