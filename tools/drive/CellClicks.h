#pragma once

#include "drive/CommandServer.h"

#include <QModelIndex>
#include <QPoint>
#include <QString>
#include <optional>

class QAbstractItemModel;
class QAbstractItemView;

/// Clicks on the cells of lists, wherever these stand. GUI thread.
namespace drive {

/// A column by its title, without regard to case, or by its number; -1 when there is none.
int columnNamed(const QAbstractItemModel& model, const QString& name);

/// A point of the cell that is on the screen, to which the list is scrolled; nothing when no part can be.
std::optional<QPoint> pointOf(QAbstractItemView& view, const QModelIndex& index);

/// "left", "right", "alt" (with the Alt key held) or "double".
bool isKindOfClick(const QString& how);

/// Clicks the cell in the middle, so that a check box at its left is never hit.
Answer clickIndex(QAbstractItemView& view, const QModelIndex& index, const QString& how);

}  // namespace drive
