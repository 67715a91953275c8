#include "drive/OpenWindows.h"

#include "drive/ControlState.h"

#include "app/FormLoader.h"
#include "app/Messages.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QJsonArray>
#include <QKeySequence>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest/QTest>

namespace drive {

namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;

template <typename Window>
Window* frontWindow() {
    if (auto* modal = qobject_cast<Window*>(QApplication::activeModalWidget())) return modal;
    return nullptr;
}

int entryId(const QAction& action) {
    const QVariant commandId = action.property("commandId");
    return commandId.isValid() ? commandId.toInt() : action.data().toInt();
}

QJsonArray describeEntries(const QMenu& menu) {
    QJsonArray entries;
    for (const QAction* action : menu.actions()) {
        if (!action->isVisible()) continue;
        QJsonObject entry;
        if (action->isSeparator()) {
            entry["separator"] = true;
        } else {
            entry["id"] = entryId(*action);
            entry["text"] = QString(action->text()).remove(u'&');
            entry["enabled"] = action->isEnabled();
            if (action->isCheckable()) entry["checked"] = action->isChecked();
            if (action->menu() != nullptr) entry["entries"] = describeEntries(*action->menu());
        }
        entries.append(entry);
    }
    return entries;
}

QAction* findEntry(const QMenu& menu, int id) {
    for (QAction* action : menu.actions()) {
        if (action->menu() != nullptr) {
            if (QAction* found = findEntry(*action->menu(), id)) return found;
        } else if (!action->isSeparator() && entryId(*action) == id) {
            return action;
        }
    }
    return nullptr;
}

QJsonArray buttonsOf(const QMessageBox& box) {
    QJsonArray buttons;
    for (const QAbstractButton* button : box.buttons()) {
        const auto standard = box.standardButton(const_cast<QAbstractButton*>(button));
        const auto role = box.buttonRole(const_cast<QAbstractButton*>(button));
        int id = static_cast<int>(standard);
        if (role == QMessageBox::AcceptRole || role == QMessageBox::YesRole) id = kOk;
        if (role == QMessageBox::RejectRole || role == QMessageBox::NoRole) id = kCancel;
        buttons.append(QJsonObject{{"id", id}, {"text", QString(button->text()).remove(u'&')}});
    }
    return buttons;
}

QAbstractButton* buttonOf(QDialog& dialog, int id) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        for (QAbstractButton* button : box->buttons()) {
            const auto role = box->buttonRole(button);
            const bool accepts = role == QMessageBox::AcceptRole || role == QMessageBox::YesRole;
            const bool rejects = role == QMessageBox::RejectRole || role == QMessageBox::NoRole;
            if ((id == kOk && accepts) || (id == kCancel && rejects)) return button;
            if (static_cast<int>(box->standardButton(button)) == id) return button;
        }
        return nullptr;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(app::FindControl(dialog, id))) return button;
    for (auto* box : dialog.findChildren<QDialogButtonBox*>()) {
        if (id == kOk && box->button(QDialogButtonBox::Ok) != nullptr)
            return box->button(QDialogButtonBox::Ok);
        if (id == kCancel && box->button(QDialogButtonBox::Cancel) != nullptr)
            return box->button(QDialogButtonBox::Cancel);
        if (id == kCancel && box->button(QDialogButtonBox::Close) != nullptr)
            return box->button(QDialogButtonBox::Close);
    }
    return nullptr;
}

}  // namespace

QMessageBox* openMessage() {
    return frontWindow<QMessageBox>();
}

QDialog* openDialog() {
    auto* dialog = frontWindow<QDialog>();
    return dialog == openMessage() ? nullptr : dialog;
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

Answer describeMessage() {
    const QMessageBox* box = openMessage();
    if (box == nullptr) return Answer::failed(QStringLiteral("no message box is open"));
    return {{{"title", box->windowTitle()},
             {"text", box->text()},
             {"icon", box->property(app::kMessageIconProperty).toInt()},
             {"buttons", buttonsOf(*box)}},
            {}};
}

Answer describeDialog() {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QJsonArray controls;
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        const QVariant id = widget->property(app::kControlIdProperty);
        if (id.isValid()) controls.append(describeControl(*widget, id.toInt()));
    }
    return {{{"template", dialog->property(app::kTemplateNumberProperty).toInt()},
             {"title", dialog->windowTitle()},
             {"controls", controls}},
            {}};
}

Answer describeMenu() {
    const QMenu* menu = openMenu();
    if (menu == nullptr) return Answer::failed(QStringLiteral("no menu is open"));
    return {{{"entries", describeEntries(*menu)}}, {}};
}

Answer chooseEntry(int id) {
    QMenu* menu = openMenu();
    if (menu == nullptr) return Answer::failed(QStringLiteral("no menu is open"));
    QAction* entry = findEntry(*menu, id);
    if (entry == nullptr) return Answer::failed(QStringLiteral("the menu has no entry %1").arg(id));
    if (!entry->isEnabled()) return Answer::failed(QStringLiteral("the entry is disabled"));
    menu->setActiveAction(entry);
    QTest::keyClick(menu, Qt::Key_Return);
    return {};
}

Answer setControl(int id, const QString& value) {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QWidget* control = app::FindControl(*dialog, id);
    if (control == nullptr) return Answer::failed(QStringLiteral("the dialog has no control %1").arg(id));
    return setControlState(*control, value);
}

Answer checkRow(int id, int row, bool checked) {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QWidget* control = app::FindControl(*dialog, id);
    if (control == nullptr) return Answer::failed(QStringLiteral("the dialog has no control %1").arg(id));
    return setRowChecked(*control, row, checked);
}

Answer pressButton(int id) {
    auto* dialog = frontWindow<QDialog>();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QAbstractButton* button = buttonOf(*dialog, id);
    if (button != nullptr && !button->isEnabled())
        return Answer::failed(QStringLiteral("the button is disabled"));
    if (button != nullptr)
        QTest::mouseClick(button, Qt::LeftButton);
    else if (id == kCancel)
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        return Answer::failed(QStringLiteral("the dialog has no button %1").arg(id));
    return {};
}

Answer pressKey(const QString& keys) {
    const QKeySequence sequence = QKeySequence::fromString(keys);
    if (sequence.isEmpty() || sequence[0].key() == Qt::Key_unknown)
        return Answer::failed(QStringLiteral("\"%1\" is no key").arg(keys));
    QWidget* receiver = QApplication::activePopupWidget();
    if (receiver == nullptr) receiver = QApplication::focusWidget();
    if (receiver == nullptr) receiver = QApplication::activeModalWidget();
    if (receiver == nullptr) receiver = QApplication::activeWindow();
    if (receiver == nullptr) return Answer::failed(QStringLiteral("nothing has the keyboard"));
    for (int at = 0; at < sequence.count(); ++at)
        QTest::keyClick(receiver, sequence[static_cast<uint>(at)].key(),
                        sequence[static_cast<uint>(at)].keyboardModifiers());
    return {};
}

}  // namespace drive
