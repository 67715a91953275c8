#pragma once

#include "app/AppContext.h"
#include "tags/OutputParser.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <filesystem>

namespace exiftool {
struct TagWriteResult;
}

namespace window {

class OperationEnding;
class ReadingCommands;

/// Changing and deleting single tags of the file that the panel shows. GUI thread.
class EditingCommands {
 public:
    EditingCommands(const WindowParts& parts, ReadingCommands& reading, OperationEnding& ending)
        : parts_(parts), reading_(reading), ending_(ending) {}

    static std::span<const CommandRow<EditingCommands>> rows();

    /// A click on a value of the panel, or Enter on its row: the dialog that fits the tag, and the write.
    void EditTagFromPanel(int rowIndex, bool altHeld);
    void deleteTag(app::CommandId id);
    void deleteGroup(app::CommandId id);

 private:
    /// False, with the reason told, when the shown file is gone or no longer the one that was read.
    bool isPanelUpToDate();
    void viewRow(const tags::MetadataRow& row, int templateNumber);
    void editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record);
    bool mayWriteAfterAll(const std::filesystem::path& file);
    void writeEdit(const std::filesystem::path& file, const app::CurrentEdit& edit);
    /// Tells what became of a write. False when nothing was written.
    bool tellWrite(const exiftool::TagWriteResult& result, const QString& done);
    void readPanelAgainSoon();

    const WindowParts& parts_;
    ReadingCommands& reading_;
    OperationEnding& ending_;
};

}  // namespace window
