#pragma once

#include "drive/CommandServer.h"

#include <QJsonObject>

class QWidget;

namespace drive {

/// id, class, text, state and items of a control of a dialog, as JSON.
QJsonObject describeControl(const QWidget& control, int id);

/// Edits take the value as text, combo boxes as an entry's text or "#row", buttons as 0 or 1, spin boxes and
/// sliders as a number, date and time edits in ISO form, lists as the row to make current.
Answer setControlState(QWidget& control, const QString& value);

Answer setRowChecked(QWidget& control, int row, bool checked);

}  // namespace drive
