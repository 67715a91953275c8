#pragma once

#include "app/AppContext.h"
#include "platform/CommandInterpreter.h"
#include "platform/CommandText.h"

#include <chrono>
#include <filesystem>
#include <functional>

namespace exiftool {

/// Asked about every 20 ms on the calling thread while a tool runs; may repaint. False ends the child.
using KeepWaiting = platform::KeepWaiting;

/// The one way to run a tool: write the line into a batch file of the temp folder, run it, wait for its end.
/// What comes back stands in the files that the line's redirections name; no exit code is looked at. Blocks
/// the calling thread; one run at a time.
class ToolRunner {
 public:
    explicit ToolRunner(const app::AppContext& context);

    /// What to ask while a tool runs; empty: wait without limit.
    void setKeepWaiting(KeepWaiting keepWaiting);

    /// True when the last run was ended by the KeepWaiting answer.
    bool wasStopped() const { return outcome_.wasStopped(); }

    /// What became of the last run's lines, for those who want to tell more than 1 or 0. Empty when the batch
    /// file could not be written.
    const platform::CommandOutcome& lastOutcome() const { return outcome_; }

    /// Writes <temp>/Metadata.bat, runs it and leaves it there. 1 when the run happened, else 0: when the
    /// batch file cannot be written, a redirection's file cannot be opened, the tool is missing or no
    /// program, or the wait was stopped. How the tool ended does not matter.
    int RunToolLine(const platform::CommandText& command);

    /// Writes the batch file, runs it and deletes it in either case. The same answer.
    int RunBatchFile(const std::filesystem::path& batchFile, const platform::CommandText& command);

 private:
    int run(const std::filesystem::path& batchFile, const platform::CommandText& command);

    const app::AppContext& context_;
    KeepWaiting keepWaiting_;
    platform::CommandOutcome outcome_;
};

}  // namespace exiftool
