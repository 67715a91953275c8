#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <QTimer>
#include <filesystem>

namespace window {

/// What the metadata panel shows: reading a file, reading it again, nothing. GUI thread.
class ReadingCommands {
 public:
    explicit ReadingCommands(const WindowParts& parts);

    static std::span<const CommandRow<ReadingCommands>> rows();

    void clearMetadata(app::CommandId id);
    void readSelection(app::CommandId id);
    void refreshPanel(app::CommandId id);
    /// Keeps what the status bar says.
    void readFileAgain(app::CommandId id);
    void openAddress(app::CommandId id);

    void fileClicked(const std::filesystem::path& file);
    /// In the corrected form the panel follows the selection: a file that is not selected any more is not
    /// shown, and the one in view is read when the selection has rested for a moment.
    void selectionChanged();
    /// The active tab goes to that folder.
    void folderLeft(const std::filesystem::path& next);
    /// The active tab shows a folder: another one, or the same read again. keepsStatus: the status bar says
    /// something that is to be read.
    void folderShown(bool keepsStatus);
    /// Whether the selection may still lead to a read.
    bool isResting() const { return rest_.isActive(); }

 private:
    bool followsSelection() const;
    /// Clears the panel when its file is not selected any more.
    void dropWhatIsNotInView();
    void readRested();
    CommandState ifShown(app::CommandId id) const;
    CommandState ifAddress(app::CommandId id) const;

    const WindowParts& parts_;
    QTimer rest_;
    bool isQuiet_ = false;  ///< the next read that the selection leads to
};

}  // namespace window
