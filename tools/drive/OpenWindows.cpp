#include "drive/OpenWindows.h"

#include "drive/CellClicks.h"
#include "drive/ControlState.h"

#include "dialogs/FormLoader.h"
#include "dialogs/Messages.h"
#include "dialogs/ProgressDialog.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QJsonArray>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QtTest/QTest>

#include <algorithm>
#include <variant>

namespace drive {

namespace {

constexpr int kOk = 1;
constexpr int kCancel = 2;

/// The edit for the name in a file dialog and its list of file types, which come from no form and have no
/// numbers of their own.
constexpr int kFileNameControl = 1148;
constexpr int kFileTypeControl = 1136;

dialogs::ProgressDialog* visibleProgress() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* progress = qobject_cast<dialogs::ProgressDialog*>(window);
        if (progress != nullptr && progress->isVisible()) return progress;
    }
    return nullptr;
}

/// The modal dialog in front; without one the dialog of a wait, which is modeless but keeps input from all
/// else.
QDialog* frontDialog() {
    if (auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) return modal;
    return visibleProgress();
}

/// A control of a file dialog by one of these numbers; null for others.
QWidget* fileControl(const QDialog& dialog, int id) {
    if (qobject_cast<const QFileDialog*>(&dialog) == nullptr) return nullptr;
    if (id == kFileNameControl) return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (id == kFileTypeControl) return dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    return nullptr;
}

QWidget* controlOf(const QDialog& dialog, int id) {
    QWidget* control = fileControl(dialog, id);
    return control != nullptr ? control : dialogs::findControl(dialog, id);
}

/// The number of the control or of what it is a part of; 0 when it has none.
int idOf(const QDialog& dialog, const QWidget* control) {
    for (const QWidget* at = control; at != nullptr && at != &dialog; at = at->parentWidget()) {
        const QVariant id = at->property(dialogs::kControlIdProperty);
        if (id.isValid()) return id.toInt();
        for (const int fileId : {kFileNameControl, kFileTypeControl})
            if (at == fileControl(dialog, fileId)) return fileId;
    }
    return 0;
}

/// The control of the open dialog with this number and type; else why not.
template <typename Control>
std::variant<Control*, Answer> openControl(int id) {
    const QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QWidget* control = controlOf(*dialog, id);
    if (control == nullptr) return Answer::failed(QStringLiteral("the dialog has no control %1").arg(id));
    auto* wanted = qobject_cast<Control*>(control);
    if (wanted == nullptr) return Answer::failed(QStringLiteral("the control is no list"));
    return wanted;
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

/// 1 for the button that agrees, 2 for the one that gives up or, without one, that says no; another's own.
int idOfButton(const QMessageBox& box, QAbstractButton* button) {
    const auto buttons = box.buttons();
    const bool hasCancel = std::any_of(buttons.begin(), buttons.end(), [&](QAbstractButton* other) {
        return box.buttonRole(other) == QMessageBox::RejectRole;
    });
    switch (box.buttonRole(button)) {
        case QMessageBox::AcceptRole:
        case QMessageBox::YesRole:
            return kOk;
        case QMessageBox::RejectRole:
            return kCancel;
        case QMessageBox::NoRole:
            return hasCancel ? static_cast<int>(box.standardButton(button)) : kCancel;
        default:
            return static_cast<int>(box.standardButton(button));
    }
}

QJsonArray buttonsOf(const QMessageBox& box) {
    QJsonArray buttons;
    for (QAbstractButton* button : box.buttons())
        buttons.append(
            QJsonObject{{"id", idOfButton(box, button)}, {"text", QString(button->text()).remove(u'&')}});
    return buttons;
}

QAbstractButton* buttonOf(QDialog& dialog, int id) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        for (QAbstractButton* button : box->buttons())
            if (idOfButton(*box, button) == id) return button;
        return nullptr;
    }
    if (auto* button = qobject_cast<QAbstractButton*>(dialogs::findControl(dialog, id))) return button;
    for (const auto* box : dialog.findChildren<QDialogButtonBox*>())
        for (QAbstractButton* button : box->buttons()) {
            const QDialogButtonBox::ButtonRole role = box->buttonRole(button);
            if (id == kOk && role == QDialogButtonBox::AcceptRole) return button;
            if (id == kCancel && role == QDialogButtonBox::RejectRole) return button;
        }
    return nullptr;
}

QPushButton* defaultButton(const QDialog& dialog) {
    // One that has the keyboard is the one for the moment.
    if (auto* focused = qobject_cast<QPushButton*>(dialog.focusWidget());
        focused != nullptr && focused->autoDefault())
        return focused;
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->isDefault()) return button;
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

bool isQuestionOpen() {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && qobject_cast<const dialogs::ProgressDialog*>(modal) == nullptr;
}

bool isWindowBlocked() {
    return QApplication::activeModalWidget() != nullptr;
}

Answer describeMessage() {
    const QMessageBox* box = openMessage();
    if (box == nullptr) return Answer::failed(QStringLiteral("no message box is open"));
    return {{{"title", box->windowTitle()},
             {"text", box->text()},
             {"icon", box->property(dialogs::kMessageIconProperty).toInt()},
             {"buttons", buttonsOf(*box)}},
            {}};
}

Answer describeDialog() {
    QDialog* dialog = openDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QJsonArray controls;
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        const QVariant id = widget->property(dialogs::kControlIdProperty);
        if (id.isValid()) controls.append(describeControl(*widget, id.toInt()));
    }
    for (const int id : {kFileNameControl, kFileTypeControl})
        if (const QWidget* control = fileControl(*dialog, id)) controls.append(describeControl(*control, id));
    return {{{"template", dialog->property(dialogs::kTemplateNumberProperty).toInt()},
             {"title", dialog->windowTitle()},
             {"focus", idOf(*dialog, dialog->focusWidget())},
             {"default", idOf(*dialog, defaultButton(*dialog))},
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
    const auto control = openControl<QWidget>(id);
    if (const auto* failure = std::get_if<Answer>(&control)) return *failure;
    return setControlState(*std::get<QWidget*>(control), value);
}

Answer checkRow(int id, const QString& row, bool checked) {
    const auto control = openControl<QWidget>(id);
    if (const auto* failure = std::get_if<Answer>(&control)) return *failure;
    return setRowChecked(*std::get<QWidget*>(control), row, checked);
}

Answer clickCell(int id, const QString& row, const QString& column, const QString& how) {
    const auto control = openControl<QAbstractItemView>(id);
    if (const auto* failure = std::get_if<Answer>(&control)) return *failure;
    auto* view = std::get<QAbstractItemView*>(control);
    if (!view->isVisible() || !view->isEnabled() || view->model() == nullptr)
        return Answer::failed(QStringLiteral("the list cannot be clicked"));
    const int number = rowNamed(*view->model(), row);
    if (number < 0) return Answer::failed(QStringLiteral("the list has no row \"%1\"").arg(row));
    const int section = columnNamed(*view->model(), column);
    if (section < 0) return Answer::failed(QStringLiteral("no column \"%1\"").arg(column));
    return clickIndex(*view, view->model()->index(number, section), how);
}

Answer clickColumnHeader(int id, const QString& column) {
    const auto control = openControl<QAbstractItemView>(id);
    if (const auto* failure = std::get_if<Answer>(&control)) return *failure;
    const auto* view = std::get<QAbstractItemView*>(control);
    for (auto* header : view->findChildren<QHeaderView*>()) {
        if (!header->isVisible() || header->orientation() != Qt::Horizontal) continue;
        const int section = columnNamed(*header->model(), column);
        if (section < 0) break;
        const QPoint point(header->sectionViewportPosition(section) + header->sectionSize(section) / 2,
                           header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, point);
        return {};
    }
    return Answer::failed(QStringLiteral("no column \"%1\"").arg(column));
}

Answer pressButton(int id) {
    QDialog* dialog = frontDialog();
    if (dialog == nullptr) return Answer::failed(QStringLiteral("no dialog is open"));
    QAbstractButton* button = buttonOf(*dialog, id);
    if (button != nullptr && !button->isEnabled())
        return Answer::failed(QStringLiteral("the button is disabled"));
    if (button != nullptr && !button->isVisible())
        return Answer::failed(QStringLiteral("the button is not shown"));
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

/// The offscreen platform activates a list of offers like any window, some time after it is shown. When the
/// list has closed by then, the activation would take the keyboard away from what has it.
void letPopupSettle() {
    if (QApplication::activePopupWidget() != nullptr) QCoreApplication::processEvents();
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
        letPopupSettle();
        QWidget* receiver = keyboardReceiver();
        if (receiver == nullptr) return Answer::failed(QStringLiteral("nothing has the keyboard"));
        const QKeyCombination key = sequence[static_cast<uint>(at)];
        clickKey(*receiver, key, textOfKey(key));
    }
    return {};
}

namespace {

/// What no key stands for comes out of an input method.
bool needsInputMethod(char32_t character) {
    return character > 0xff;
}

void commitText(QWidget& receiver, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&receiver, &event);
}

QKeyCombination keyOf(QChar character) {
    if (character == u'\n') return QKeyCombination(Qt::Key_Return);
    if (character == u'\t') return QKeyCombination(Qt::Key_Tab);
    const auto key = static_cast<Qt::Key>(character.toUpper().unicode());
    return QKeyCombination(character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier, key);
}

}  // namespace

Answer typeText(const QString& text) {
    for (const char32_t character : text.toUcs4()) {
        letPopupSettle();
        QWidget* receiver = keyboardReceiver();
        if (receiver == nullptr) return Answer::failed(QStringLiteral("nothing has the keyboard"));
        const QString typed = QString::fromUcs4(&character, 1);
        if (needsInputMethod(character) && receiver->testAttribute(Qt::WA_InputMethodEnabled))
            commitText(*receiver, typed);
        else
            clickKey(*receiver, keyOf(typed[0]), typed == u"\n" ? QStringLiteral("\r") : typed);
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
