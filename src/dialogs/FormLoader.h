#pragma once

#include <QByteArray>
#include <QString>
#include <QWidget>

namespace dialogs {

/// The dynamic property that carries a control's number in a form.
inline constexpr const char* kControlIdProperty = "controlId";
/// The dynamic property that carries a dialog's template number.
inline constexpr const char* kTemplateNumberProperty = "templateNumber";

/// A dynamic property of a form's button box: what its OK button says, where that is not "OK".
inline constexpr const char* kOkTextProperty = "okText";

inline constexpr int kOkControl = 1;
inline constexpr int kCancelControl = 2;

/// Builds the controls of a Designer form into the dialog, which stands for the form's outermost widget: its
/// title, layout and connections become the dialog's own. OK and Cancel of a button box get the control ids 1
/// and 2 when the form gives them none. Empty, or what is wrong with the form; the dialog is then without
/// controls.
QString loadForm(QWidget& dialog, const QByteArray& form);

/// The control with this number, or null.
QWidget* findControl(const QWidget& dialog, int controlId);

}  // namespace dialogs
