#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <functional>

namespace window {

class ReadingCommands;

/// The parts of the window, and the window as a whole: shown, hidden, closed. GUI thread.
class FrameCommands {
 public:
    /// relayout places the parts as the settings tell.
    FrameCommands(const WindowParts& parts, ReadingCommands& reading, std::function<void()> relayout)
        : parts_(parts), reading_(reading), relayout_(std::move(relayout)) {}

    static std::span<const CommandRow<FrameCommands>> rows();

    void toggleFolders(app::CommandId id);
    void toggleStatusBar(app::CommandId id);
    void toggleMetadataPanel(app::CommandId id);
    void showAbout(app::CommandId id);
    void closeWindow(app::CommandId id);
    void restart(app::CommandId id);

 private:
    CommandState foldersState(app::CommandId id) const;
    CommandState statusBarState(app::CommandId id) const;
    CommandState metadataPanelState(app::CommandId id) const;
    void setRightPanel(bool app::Settings::Lists::*flag, bool shown);

    const WindowParts& parts_;
    ReadingCommands& reading_;
    std::function<void()> relayout_;
    bool restarts_ = false;
};

}  // namespace window
