#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QStringList>

namespace controls {

/// Pictures by name: drawings of the program's own (the value kinds, stars, group families, the program's
/// mark) first, then the Breeze icon theme, whose names are the ones of the freedesktop naming. Works without
/// a desktop session. GUI thread.

/// Chooses the drawings for light or for dark grounds, for icons already handed out too, and repaints the
/// windows. To be called once after the application object exists, and at every change of the look.
void setDarkIcons(bool dark);
bool darkIcons();

/// An icon that stays sharp at every size and follows setDarkIcons(). Null when nothing has this name.
QIcon icon(const QString& name);

bool hasIcon(const QString& name);

/// The picture in logical pixels for one device pixel ratio, for painting in delegates; kept in the pixmap
/// cache. Keeps its proportions, centred in `size`. Null when nothing has this name.
QPixmap iconPixmap(const QString& name, QSize size, qreal devicePixelRatio, QIcon::Mode mode = QIcon::Normal);

/// Names of the program's own drawings.
QStringList ownIconNames();

}  // namespace controls
