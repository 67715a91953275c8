#pragma once

#include "jobs/Job.h"
#include "window/WindowParts.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace jobs {
class QuietSuccessNotice;
}

namespace window {

class ReadingCommands;

/// The way of an operation through the window: it is begun, and once it has ended the list and the panel show
/// what has changed, and what became of the files is told. GUI thread.
class OperationEnding {
 public:
    using Tell = std::function<void(const jobs::JobResult& result)>;

    OperationEnding(const WindowParts& parts, ReadingCommands& reading) : parts_(parts), reading_(reading) {}

    /// Whether none runs; if one does, the user has been told.
    [[nodiscard]] bool isFree();
    /// Whether an operation can begin now; if not, the user has been told why: another one is running, or the
    /// report cannot be written. Puts the report of the last one away.
    [[nodiscard]] bool isReadyToBegin();
    /// Files that were gathered for the next job and cannot be worked on.
    void leaveOut(exiftool::Outcomes leftOut) { leftOut_ = std::move(leftOut); }

    /// Has the job carried out, and returns. tell says at its end what became of it; without one
    /// ShowBatchReport does. Nothing happens for a job without files.
    void carryOut(jobs::Job job, Tell tell = {});

    /// A quiet word when every file is done, else the report. Both are made from the outcomes.
    void ShowBatchReport(const jobs::JobResult& result);
    /// What stands in the report of an operation that was not begun; nothing when it is empty.
    void showReportBeginning();
    /// The list of the active tab has been read. True when that was because an operation has ended, and the
    /// status stays.
    bool listWasRead();

 private:
    void ended(const jobs::JobResult& result, const Tell& tell);
    /// The lists that show the files and the panel are read again, the same files selected, under whatever
    /// name they now have.
    void showWhatChanged(const jobs::JobResult& result);
    void readPanelAgain();

    const WindowParts& parts_;
    ReadingCommands& reading_;
    exiftool::Outcomes leftOut_;
    int tabOfBeginning_ = -1;   ///< by its id; may be closed by now
    bool keepsStatus_ = false;  ///< the next reading of the active list leaves it
    jobs::QuietSuccessNotice* successNotice_ = nullptr;
};

}  // namespace window
