#pragma once

#include "window/WindowParts.h"

#include <filesystem>
#include <vector>

namespace jobs {
class QuietSuccessNotice;
}

namespace window {

class ReadingCommands;

/// What follows the work on files: the list and the panel show what has changed, and the report is read. GUI
/// thread.
class OperationEnding {
 public:
    OperationEnding(const WindowParts& parts, ReadingCommands& reading) : parts_(parts), reading_(reading) {}

    /// The report, or a quiet word when there is none.
    void ShowBatchReport();
    /// What stands in the report of an operation that did not end; nothing when it is empty.
    void showReportBeginning();
    /// After files were changed or renamed: the list and the panel are read again, and the same files are
    /// selected once the list is there.
    void showWhatChanged();
    /// The list has been read. True when that was on behalf of showWhatChanged(), and the status stays.
    bool listWasRead();

 private:
    void selectAgain();

    const WindowParts& parts_;
    ReadingCommands& reading_;
    std::vector<std::filesystem::path> selectedAgain_;  ///< once the list has been read again
    bool keepsStatus_ = false;                          ///< the next reading of the list leaves it
    jobs::QuietSuccessNotice* successNotice_ = nullptr;
};

}  // namespace window
