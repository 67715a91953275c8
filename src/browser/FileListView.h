#pragma once

#include "controls/GroupedListView.h"

namespace browser {

/// The list of one tab: the keys that a file list has beside those of every list.
class FileListView : public controls::GroupedListView {
    Q_OBJECT

 public:
    using GroupedListView::GroupedListView;

 Q_SIGNALS:
    void UpWanted();       ///< Backspace
    void RootWanted();     ///< Ctrl+Backspace
    void RefreshWanted();  ///< F5

 protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace browser
