#pragma once

#include "window/CommandMap.h"
#include "window/WindowParts.h"

namespace taglists {
struct FileRuns;
}

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

 private:
    /// The end of a dialog that wrote tags: what it changed is read again, and the report follows.
    void tagsWereWritten(const taglists::FileRuns& runs);

    const WindowParts& parts_;
    SelectionGathering& gathering_;
    OperationEnding& ending_;
};

}  // namespace window
