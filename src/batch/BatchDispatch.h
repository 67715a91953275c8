#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "batch/BatchTable.h"
#include "jobs/Job.h"
#include "jobs/Operation.h"
#include "tags/TagDictionary.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace batch {

/// What the operations are put together with. Owned by the main window; all of it outlives them. GUI thread.
struct BatchParts {
    const app::AppContext& context;
    const app::LanguageFile& language;
    const tags::TagDictionary& dictionary;
};

/// What the dialog of one operation is told and may note. Cleared before every operation, so that nothing of
/// the last one is left in it.
struct BatchOptions {
    app::CommandId command = 0;
    std::vector<std::filesystem::path> files;
};

/// Opens the dialog of an operation: what it leaves to be done, or nothing when it was cancelled. Stands in
/// the ui, which alone knows the dialogs.
using OpenBatchDialog =
    std::function<std::optional<jobs::Job>(const jobs::Operation& operation, BatchOptions& options)>;

/// Puts the operation of a command over the gathered files together; carrying it out is the caller's.
class BatchDispatcher {
 public:
    BatchDispatcher(const BatchParts& parts, OpenBatchDialog openDialog);

    /// operation is that of the command, or null where it is not built. Nothing when the dialog was
    /// cancelled; also for a number that is no batch command, for an operation of the window, and without
    /// files.
    std::optional<jobs::Job> BatchDispatch(app::CommandId id, const jobs::Operation* operation,
                                           const std::vector<std::filesystem::path>& files);

    const BatchOptions& options() const { return options_; }

 private:
    BatchParts parts_;
    OpenBatchDialog openDialog_;
    BatchOptions options_;
};

}  // namespace batch
