#pragma once

#include "app/AppContext.h"
#include "jobs/Job.h"
#include "tags/OutputParser.h"
#include "tags/TagDictionary.h"
#include "tags/TagEditContext.h"
#include "window/CommandMap.h"
#include "window/WindowParts.h"

#include <filesystem>
#include <optional>

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
    /// The value of a row of the panel with the characters that its cell shows as dots or not at all; what
    /// the cell shows where it cannot be read. Reads it from the file.
    QString wholeValueOf(const tags::MetadataRow& shown) const;
    void deleteTag(app::CommandId id);
    void deleteGroup(app::CommandId id);

 private:
    CommandState deleteTagState(app::CommandId id) const;
    CommandState deleteGroupState(app::CommandId id) const;
    app::CommandForm currentForm() const { return app::commandFormOf(parts_.context); }
    bool canDelete(const tags::MetadataRow& row) const;
    /// False, with the reason told, when the shown file is gone or no longer the one that was read.
    bool isPanelUpToDate();
    void tellGone(const std::filesystem::path& file);
    void viewRow(const tags::MetadataRow& row, const std::optional<tags::TagRecord>& record,
                 int templateNumber);
    /// False, with the reason told in front of the dialog, while an operation runs.
    bool mayWriteFrom(QWidget& dialog);
    /// False, with the reason told: in the corrected form for a file that cannot be written, before anything
    /// is typed.
    bool isWritable(const std::filesystem::path& file);
    void editRow(int rowIndex, const tags::MetadataRow& row, const tags::TagRecord& record);
    /// One value from the first dialog until it is written.
    struct Edit {
        int rowIndex = -1;
        tags::TagRecord record;
        tags::TagEditContext before;
        tags::TagEditContext after;  ///< as it was typed last
    };
    void askAndWrite(Edit edit);
    bool mayWriteAfterAll(const std::filesystem::path& file);
    /// True, and told, when the shown file has the tag of the row more than once in its group.
    bool tellIfItStandsTwice(const tags::MetadataRow& row);
    /// Whether ExifTool would delete texts in other languages with the row.
    bool hasTranslationsBeside(const tags::MetadataRow& row) const;
    /// Deletes the row and writes those texts again.
    void deleteAlone(const tags::MetadataRow& row, const std::filesystem::path& file);
    void writeEdit(Edit edit);
    jobs::Job jobOf(const std::filesystem::path& file, const app::CurrentEdit& written);
    /// The dialog with what was typed comes back and says what went wrong.
    void askAgain(Edit edit, const exiftool::Outcome& outcome);
    using Ended = std::function<void(const jobs::JobResult& result)>;
    /// Has the job on the shown file carried out.
    void begin(jobs::Job job, const Ended& ended);
    void deletionEnded(const jobs::JobResult& result, const QString& done);
    void editEnded(const jobs::JobResult& result, const Edit& edit, const app::CurrentEdit& written);
    /// The value that was to be edited could not be read.
    void tellNotRead(const std::filesystem::path& file, const QString& tag, const QString& fault);
    /// What the write has made true, and nothing before it.
    void rememberWritten(const app::CurrentEdit& edit, bool isShown);
    /// Tells what became of a write.
    void tellWrite(const jobs::JobResult& result, const QString& done);

    const WindowParts& parts_;
    ReadingCommands& reading_;
    OperationEnding& ending_;
};

}  // namespace window
