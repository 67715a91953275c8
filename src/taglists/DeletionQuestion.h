#pragma once

class QDialog;

namespace taglists {

/// For a dialog that asks before it deletes: Enter, and the keyboard at its start, are on Cancel, so that
/// what is pressed twice too often deletes nothing.
void makeCancelDefault(const QDialog& dialog);

}  // namespace taglists
