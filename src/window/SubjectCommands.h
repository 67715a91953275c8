#pragma once

#include "window/BrowseCommands.h"
#include "window/CommandMap.h"
#include "window/EditingCommands.h"
#include "window/ExportCommands.h"
#include "window/FrameCommands.h"
#include "window/OperationCommands.h"
#include "window/OperationEnding.h"
#include "window/PayloadCommands.h"
#include "window/ReadingCommands.h"
#include "window/RemovalCommands.h"
#include "window/SelectionGathering.h"
#include "window/TagListCommands.h"
#include "window/WindowParts.h"

#include <functional>
#include <string_view>

namespace window {

/// The subjects of the window's commands, and the map in which all of them are registered. A new subject is a
/// member, a line in the constructor and a line in the table of the source. GUI thread.
class SubjectCommands {
 public:
    /// relayout places the parts of the window as the settings tell; chosen is told when the action of a
    /// command is chosen. The parts outlive it.
    SubjectCommands(const WindowParts& parts, const std::function<void()>& relayout,
                    const CommandMap::Handler& chosen);
    SubjectCommands(const SubjectCommands&) = delete;
    SubjectCommands& operator=(const SubjectCommands&) = delete;

    /// Whether a subject has a handler for the number; can be asked without a window.
    static bool isBuilt(app::CommandId id);
    /// The subject that does the command, by the name of its class; empty when none does.
    static std::string_view subjectOf(app::CommandId id);

    CommandMap& map() { return map_; }
    ReadingCommands& reading() { return reading_; }
    BrowseCommands& browse() { return browse_; }
    EditingCommands& editing() { return editing_; }
    OperationEnding& ending() { return ending_; }

 private:
    CommandMap map_;
    ReadingCommands reading_;
    BrowseCommands browse_;
    OperationEnding ending_;
    SelectionGathering gathering_;
    FrameCommands frame_;
    ExportCommands exports_;
    EditingCommands editing_;
    RemovalCommands removals_;
    TagListCommands tagLists_;
    PayloadCommands payloads_;
    OperationCommands operations_;
};

}  // namespace window
