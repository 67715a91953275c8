#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

namespace window {

class OperationEnding;
class SelectionGathering;

/// Adding tags and changing several at once, out of lists of tags. GUI thread.
class TagListCommands {
 public:
    TagListCommands(const WindowParts& parts, SelectionGathering& gathering, OperationEnding& ending)
        : parts_(parts), gathering_(gathering), ending_(ending) {}

    static std::span<const CommandRow<TagListCommands>> rows();

    void modifyTags(app::CommandId id);
    void addTags(app::CommandId id);
    void addTagsToShownFile(app::CommandId id);
    /// The files that the others of these commands would work on.
    void listSelectedFiles(app::CommandId id);

 private:
    CommandState ifGroupChosen(app::CommandId id) const;

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
