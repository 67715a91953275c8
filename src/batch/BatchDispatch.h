#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "batch/BatchTable.h"
#include "exiftool/ToolRunner.h"
#include "jobs/FileProgress.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace batch {

/// What the operations work with. Owned by the main window; all of it outlives them. GUI thread.
struct BatchParts {
    app::AppContext& context;
    const app::LanguageFile& language;
    exiftool::ToolRunner& runner;
    jobs::FileProgress& progress;
};

/// What the dialog of one operation is told and may note. Cleared before every operation, so that nothing of
/// the last one is left in it.
struct BatchOptions {
    app::CommandId command = 0;
    std::vector<std::filesystem::path> files;
    exiftool::FileList fileList;  ///< <temp>/files.tmp, for the operations that work on the whole list
};

/// Opens the dialog of an operation and does its work: 1 when it ran, 0 when it was cancelled. Stands in the
/// ui, which alone knows the dialogs.
using OpenBatchDialog = std::function<int(const BatchOperation& operation, BatchOptions& options)>;

/// Runs the operation of a command over the gathered files. True when it went through to its end: the dialog
/// ran, or no file is left over. False also for a number that is no batch command, for an operation that is
/// not built or of the window, and without files.
class BatchDispatcher {
 public:
    BatchDispatcher(const BatchParts& parts, OpenBatchDialog openDialog);

    bool BatchDispatch(app::CommandId id, const std::vector<std::filesystem::path>& files);

    const BatchOptions& options() const { return options_; }

 private:
    bool runWithoutDialog(const BatchOperation& operation);

    BatchParts parts_;
    OpenBatchDialog openDialog_;
    BatchOptions options_;
};

}  // namespace batch
