#pragma once

#include "app/AppContext.h"
#include "platform/CommandText.h"

#include <chrono>
#include <filesystem>
#include <functional>

namespace exiftool {

/// Asked about every 20 ms on the calling thread while a tool runs; may repaint. False ends the child.
using KeepWaiting = std::function<bool(std::chrono::milliseconds sinceStart)>;

/// The one way to run a tool: write the line into a batch file of the temp folder, run it, wait for its end.
/// What comes back stands in the files that the line's redirections name; no exit code is looked at. Blocks
/// the calling thread; one run at a time.
class ToolRunner {
 public:
    explicit ToolRunner(const app::AppContext& context);

    /// What to ask while a tool runs; empty: wait without limit.
    void setKeepWaiting(KeepWaiting keepWaiting);

    /// True when the last run was ended by the KeepWaiting answer.
    bool wasStopped() const;

    /// Writes <temp>/Metadata.bat, runs it and leaves it there. 1 when the run happened, else 0.
    int RunToolLine(const platform::CommandText& command);

    /// Writes the batch file, runs it and deletes it. 1 when it was written and run, else 0.
    int RunBatchFile(const std::filesystem::path& batchFile, const platform::CommandText& command);

 private:
    int run(const platform::CommandText& command);

    const app::AppContext& context_;
    KeepWaiting keepWaiting_;
    bool wasStopped_ = false;
};

}  // namespace exiftool
