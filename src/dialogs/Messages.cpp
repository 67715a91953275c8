#include "dialogs/Messages.h"

#include <utility>

namespace dialogs {

namespace {

MessageAnswer& currentAnswer() {
    static MessageAnswer answer;
    return answer;
}

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Stop:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

QMessageBox::StandardButton showMessage(QWidget* parent, const Message& message) {
    if (currentAnswer()) return currentAnswer()(parent, message);
    QMessageBox box(boxIcon(message.icon), message.title, message.text, message.buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(message.defaultButton);
    box.setProperty(kMessageIconProperty, static_cast<int>(message.icon));
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void setMessageAnswer(MessageAnswer answer) {
    currentAnswer() = std::move(answer);
}

}  // namespace dialogs
