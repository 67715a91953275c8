#pragma once

#include <QMessageBox>
#include <QString>
#include <functional>

namespace dialogs {

/// The numbers of the icons that a message can have.
enum class MessageIcon { None = 0, Stop = 16, Question = 32, Exclamation = 48, Information = 64 };

/// One question or message to the user.
struct Message {
    QString text;
    MessageIcon icon = MessageIcon::None;
    QString title = QStringLiteral("Tagwright");
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    /// What Enter presses; NoButton: the one that agrees. A question before something is taken away names
    /// another.
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

/// The dynamic property of a message box that carries its icon's number.
inline constexpr const char* kMessageIconProperty = "messageIcon";

/// Shows a modal message box and gives the button that ended it; closing it is Cancel where there is one. The
/// text is shown as it is, never as markup, since it can hold file names. GUI thread.
QMessageBox::StandardButton showMessage(QWidget* parent, const Message& message);

/// Puts something else in the place of the message box, such as a test's answers; empty: the box again.
using MessageAnswer = std::function<QMessageBox::StandardButton(QWidget* parent, const Message& message)>;
void setMessageAnswer(MessageAnswer answer);

}  // namespace dialogs
