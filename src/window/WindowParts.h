#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "exiftool/ReadCommands.h"
#include "exiftool/ToolRunner.h"
#include "jobs/OperationParts.h"
#include "tags/TagDictionary.h"

#include <QString>
#include <QWidget>
#include <filesystem>

namespace browser {
class ShellBrowser;
class TabContainer;
}  // namespace browser

namespace dialogs {
class ProgressDialog;
class Waiting;
}  // namespace dialogs

namespace jobs {
class JobRunner;
}

namespace panel {
class MetadataPanel;
}

namespace window {

class StatusBar;
class WindowFeedback;

/// What the commands of all subjects work with. Owned by the main window; all of it outlives them. GUI
/// thread.
struct WindowParts {
    QWidget& window;  ///< the parent of every dialog
    app::AppContext& context;
    const app::LanguageFile& language;
    dialogs::Waiting& waiting;
    jobs::JobRunner& jobs;
    const tags::TagDictionary& dictionary;
    exiftool::ToolRunner& runner;
    exiftool::ReadCommands& reads;
    WindowFeedback& feedback;
    jobs::OperationParts operations;
    browser::TabContainer& tabs;
    panel::MetadataPanel& panel;
    StatusBar& statusBar;

    browser::ShellBrowser& activeBrowser() const;
    bool hasSelection() const;
    /// Folders and what is neither do not count.
    bool hasSelectedFile() const;
    /// The first of the selected items; empty without a selection.
    std::filesystem::path selectedFile() const;
    /// What a command over the selection works on, as part of its text: "this file", "3 selected files".
    QString selectionText() const;
    /// The one answer of a command that finds nothing to work on: a message with what is to be chosen first.
    void tellNothingChosen(int textNumber) const;
    void showStatus(const QString& text) const;
    void focusFileList() const;
};

}  // namespace window
