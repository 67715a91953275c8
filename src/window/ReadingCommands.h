#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <filesystem>

namespace window {

/// What the metadata panel shows: reading a file, reading it again, nothing. GUI thread.
class ReadingCommands {
 public:
    explicit ReadingCommands(const WindowParts& parts) : parts_(parts) {}

    static std::span<const CommandRow<ReadingCommands>> rows();

    void clearMetadata(app::CommandId id);
    void readSelection(app::CommandId id);
    void refreshPanel(app::CommandId id);
    /// Keeps what the status bar says.
    void readFileAgain(app::CommandId id);
    void openAddress(app::CommandId id);

    void fileClicked(const std::filesystem::path& file);

 private:
    CommandState ifShown(app::CommandId id) const;
    CommandState ifAddress(app::CommandId id) const;

    const WindowParts& parts_;
};

}  // namespace window
