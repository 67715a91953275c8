#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

namespace window {

class OperationEnding;
class SelectionGathering;

/// Removing and copying tags. GUI thread.
class RemovalCommands {
 public:
    RemovalCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending)
        : parts_(parts), gathering_(gathering), ending_(ending) {}

    static std::span<const CommandRow<RemovalCommands>> rows();

    void deleteAll(app::CommandId id);
    void removeTags(app::CommandId id);
    void removeGroupTypes(app::CommandId id);
    void removeFamily(app::CommandId id);
    void copyTags(app::CommandId id);
    /// Of the group of the panel's current row; without one, of all groups.
    void removeTagsFromShownFile(app::CommandId id);

 private:
    /// Shows what has changed, and the report.
    void endRemoval(bool hasRun);

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
