#pragma once

#include "drive/CommandServer.h"

class QDialog;
class QMenu;
class QMessageBox;

namespace drive {

/// What is open over the main window, and commands for it. GUI thread.

/// The front message box, dialog or menu; null when there is none. The dialog that tells of a wait for a tool
/// counts while it is visible.
QMessageBox* openMessage();
QDialog* openDialog();
QMenu* openMenu();

/// Whether a dialog or message stands open that can be answered while an operation goes on.
bool isQuestionOpen();
/// Whether what stands open keeps the user from the window; the dialog that tells of a read or an operation
/// does not.
bool isWindowBlocked();

Answer describeMessage();
/// Template number and title of the open dialog, every control that has an id, and the ids of the one with
/// the keyboard and of the button that Enter presses, where they have one.
Answer describeDialog();
Answer describeMenu();

/// Chooses the entry of the open menu as a click on it does.
Answer chooseEntry(int id);
/// Sets the state of a control of the open dialog by what a user would do to it.
Answer setControl(int id, const QString& value);
/// Ticks or unticks a row of a list or tree of the open dialog; rows are named as by rowNamed().
Answer checkRow(int id, const QString& row, bool checked);
/// Clicks a cell of a list of the open dialog, its column by title or number; how: "left", "right", "alt" or
/// "double".
Answer clickCell(int id, const QString& row, const QString& column, const QString& how);
/// Clicks the header of a column of a list of the open dialog.
Answer clickColumnHeader(int id, const QString& column);
/// Presses a button of the open dialog or message box; 1 is OK (or Yes), 2 Cancel (or No, where there is no
/// Cancel).
Answer pressButton(int id);
/// A key or a combination such as "Ctrl+D", to whatever has the keyboard.
Answer pressKey(const QString& keys);
/// Types the text character by character, to whatever has the keyboard.
Answer typeText(const QString& text);

/// Closes what menus are open, as a click outside of them does.
void closeMenus();
/// Closes the menus and cancels the front dialog or message box; a wait is ended when it can be.
void dismissFrontWindow();

}  // namespace drive
