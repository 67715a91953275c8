#include "drive/OpenWindows.h"

#include "drive/ControlState.h"

#include "app/FormLoader.h"
#include "app/Messages.h"
#include "app/ProgressDialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QJsonArray>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QtTest/QTest>

namespace drive {

namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;

/// The edit for the name in a file dialog, which comes from no form and has no number of its own.
constexpr int kFileNameControl = 1148;

/// The modal dialog in front; without one the dialog of a wait, which is modeless but keeps input from all
/// else.
QDialog* frontDialog() {
    if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) return modal;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* progress = qobject_cast<app::ProgressDialog*>(window);
        if (progress != nullptr && progress->isVisible()) return progress;
    }
    return nullptr;
}

QWidget* fileNameEdit(const QDialog& dialog) {
    return qobject_cast<const QFileDialog*>(&dialog) == nullptr
               ? nullptr
               : dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QWidget* controlOf(const QDialog& dialog, int id) {
    return id == kFileNameControl && fileNameEdit(dialog) != nullptr ? fileNameEdit(dialog)
                                                                     : app::FindControl(dialog, id);
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

/// The entry and, before it, the entries whose menus lead to it; empty when there is none.
QList<QAction*> wayToEntry(const QMenu& menu, int id) {
    for (QAction* action : menu.actions()) {
        if (!action->isVisible() || action->isSeparator()) continue;
        if (action->menu() != nullptr) {
            const QList<QAction*> inner = wayToEntry(*action->menu(), id);
            if (!inner.isEmpty()) return QList<QAction*>{action} + inner;
        } else if (entryId(*action) == id) {
            return {action};
        }
    }
    return {};
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
    for (const auto* box : dialog.findChildren<QDialogButtonBox*>())
        for (QAbstractButton* button : box->buttons()) {
            const QDialogButtonBox::ButtonRole role = box->buttonRole(button);
            if (id == kOk && role == QDialogButtonBox::AcceptRole) return button;
            if (id == kCancel && role == QDialogButtonBox::RejectRole) return button;
        }
    return nullptr;
}

}  // namespace

QMessageBox* openMessage() {
    return qobject_cast<QMessageBox*>(frontDialog());
}

QDialog* openDialog() {
    return openMessage() != nullptr ? nullptr : frontDialog();
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
    if (const QWidget* name = fileNameEdit(*dialog))
        controls.append(describeControl(*name, kFileNameControl));
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
    QList<QAction*> way = wayToEntry(*menu, id);
    if (way.isEmpty()) return Answer::failed(QStringLiteral("the menu has no entry %1").arg(id));
    for (const QAction* entry : way)
        if (!entry->isEnabled()) return Answer::failed(QStringLiteral("the entry is disabled"));
    QPointer<QMenu> inner = menu;
    for (QAction* entry : way) {
        inner->setActiveAction(entry);  // opens the menu behind it
        if (entry->menu() != nullptr) inner = entry->menu();
    }
    QTest::keyClick(inner.data(), Qt::Key_Return);
    return {};
}

Answer setControl(int id, const QString& value) {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QWidget* control = controlOf(*dialog, id);
    if (control == nullptr) return Answer::failed(QStringLiteral("the dialog has no control %1").arg(id));
    return setControlState(*control, value);
}

Answer checkRow(int id, int row, bool checked) {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QWidget* control = controlOf(*dialog, id);
    if (control == nullptr) return Answer::failed(QStringLiteral("the dialog has no control %1").arg(id));
    return setRowChecked(*control, row, checked);
}

Answer pressButton(int id) {
    QDialog* dialog = frontDialog();
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

namespace {

/// What has the keyboard; null when nothing has.
QWidget* keyboardReceiver() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    QDialog* dialog = frontDialog();
    QWidget* focused = QApplication::focusWidget();
    const bool kept = dialog != nullptr && (focused == nullptr || !dialog->isAncestorOf(focused));
    if (kept) return dialog->focusWidget() != nullptr ? dialog->focusWidget() : dialog;
    return focused != nullptr ? focused : QApplication::activeWindow();
}

/// The text that the key types; none with Ctrl, Alt or Meta.
QString textOfKey(QKeyCombination key) {
    if ((key.keyboardModifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) return {};
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return QStringLiteral("\r");
    if (key.key() > 0xffff) return {};
    const QString character = QChar(key.key());
    return key.keyboardModifiers().testFlag(Qt::ShiftModifier) ? character : character.toLower();
}

void clickKey(QWidget& receiver, QKeyCombination key, const QString& text) {
    const QPointer<QWidget> still = &receiver;
    QTest::sendKeyEvent(QTest::Press, still.data(), key.key(), text, key.keyboardModifiers());
    // The press may have closed what had the keyboard.
    if (still != nullptr)
        QTest::sendKeyEvent(QTest::Release, still.data(), key.key(), text, key.keyboardModifiers());
}

}  // namespace

Answer pressKey(const QString& keys) {
    const QKeySequence sequence = QKeySequence::fromString(keys);
    for (int at = 0; at < sequence.count(); ++at)
        if (sequence[static_cast<uint>(at)].key() == Qt::Key_unknown)
            return Answer::failed(QStringLiteral("\"%1\" is no key").arg(keys));
    if (sequence.isEmpty()) return Answer::failed(QStringLiteral("\"%1\" is no key").arg(keys));
    for (int at = 0; at < sequence.count(); ++at) {
        QWidget* receiver = keyboardReceiver();
        if (receiver == nullptr) return Answer::failed(QStringLiteral("nothing has the keyboard"));
        const QKeyCombination key = sequence[static_cast<uint>(at)];
        clickKey(*receiver, key, textOfKey(key));
    }
    return {};
}

Answer typeText(const QString& text) {
    for (const QChar character : text) {
        QWidget* receiver = keyboardReceiver();
        if (receiver == nullptr) return Answer::failed(QStringLiteral("nothing has the keyboard"));
        const Qt::KeyboardModifiers modifiers = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
        clickKey(*receiver, QKeyCombination(modifiers, static_cast<Qt::Key>(character.toUpper().unicode())),
                 character);
    }
    return {};
}

void closeMenus() {
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close()) return;
}

void dismissFrontWindow() {
    closeMenus();
    if (QDialog* dialog = frontDialog()) dialog->reject();
}

}  // namespace drive
