#include "browser/FileListView.h"

#include <QKeyEvent>

namespace browser {

void FileListView::keyPressEvent(QKeyEvent* event) {
    const QKeyCombination key(event->modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event->key()));
    if (key == QKeyCombination(Qt::Key_Backspace))
        Q_EMIT UpWanted();
    else if (key == (Qt::CTRL | Qt::Key_Backspace))
        Q_EMIT RootWanted();
    else if (key == (Qt::CTRL | Qt::Key_A))
        selectAll();
    else if (key == (Qt::CTRL | Qt::Key_I))
        invertSelection();
    else if (key == QKeyCombination(Qt::Key_F5))
        Q_EMIT RefreshWanted();
    else
        return GroupedListView::keyPressEvent(event);
    event->accept();
}

}  // namespace browser
