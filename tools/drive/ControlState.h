#pragma once

#include "drive/CommandServer.h"

#include <QJsonObject>

class QAbstractItemModel;
class QWidget;

namespace drive {

/// id, class, text, state and items of a control of a dialog, as JSON.
QJsonObject describeControl(const QWidget& control, int id);

/// Edits take the value as text, combo boxes as an entry's text or "#row", buttons as 0 or 1, spin boxes and
/// sliders as a number, date and time edits in ISO form, lists as the row to make current (see rowNamed).
/// What a user cannot change, hidden and read-only ones, is refused.
Answer setControlState(QWidget& control, const QString& value);

/// The row of a list by its number, by the text of its first cell, or by "second:first" where names repeat;
/// -1 when there is none.
int rowNamed(const QAbstractItemModel& model, const QString& name);

Answer setRowChecked(QWidget& control, const QString& row, bool checked);

}  // namespace drive
