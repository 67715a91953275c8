#pragma once

#include "window/CommandMap.h"
#include "window/OperationEnding.h"
#include "window/WindowParts.h"

namespace window {

class SelectionGathering;

/// Removing tags that are chosen from a list, and families. GUI thread.
class RemovalCommands {
 public:
    RemovalCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending)
        : parts_(parts), gathering_(gathering), ending_(ending) {}

    static std::span<const CommandRow<RemovalCommands>> rows();

    void removeTags(app::CommandId id);
    void removeGroupTypes(app::CommandId id);
    void removeFamily(app::CommandId id);
    /// Of the group of the panel's current row; without one, of all groups.
    void removeTagsFromShownFile(app::CommandId id);

 private:
    CommandState ifAnyFile(app::CommandId id) const;
    /// Runs the dialog, and what it leaves to be done.
    template <typename Dialog>
    void askAndRemove(Dialog&& dialog, const OperationEnding::Tell& tell = {});

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
