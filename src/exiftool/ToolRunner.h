#pragma once

#include "app/AppContext.h"
#include "exiftool/Outcome.h"
#include "exiftool/SafetyCopy.h"
#include "platform/CommandInterpreter.h"
#include "platform/CommandText.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace exiftool {

/// Asked about every 20 ms on the thread that runs the tool. False ends the child.
using KeepWaiting = platform::KeepWaiting;

/// Gets the message of a safety copy that failed. True: the file is written all the same.
using SafetyCopyFailed = std::function<bool(const std::filesystem::path& file, const QString& message)>;

/// Has the work done on another thread and returns when it is over; how the caller waits is its own matter.
using Elsewhere = std::function<void(const std::function<void()>& work)>;

class WarmStarter;

/// What WriteFileList has done.
struct [[nodiscard]] FileList {
    std::filesystem::path
        path;  ///< <temp>/files.tmp; empty when there was nothing to list or it cannot be written
    std::vector<std::filesystem::path> listed;
    Outcomes refused;  ///< cannot stand on a line; the report names them too
};

/// What a line that only reads has brought.
struct [[nodiscard]] ReadRun {
    Outcomes outcomes;    ///< in the order of the files
    std::string printed;  ///< empty for a line that leads its output to a file
};

/// The one way to run a tool: write the line into a batch file of the temp folder, run it, wait for its end.
/// What a read brings stands in the files that the line's redirections name; what became of a write is judged
/// by the tool's own account and by the file. Blocks the calling thread; one run at a time, and one runner a
/// thread.
class ToolRunner {
 public:
    explicit ToolRunner(const app::AppContext& context);

    /// What to ask while a tool runs; empty: wait without limit.
    void setKeepWaiting(KeepWaiting keepWaiting);

    /// Who does the waiting; empty: the calling thread itself.
    void setElsewhere(Elsewhere elsewhere) { elsewhere_ = std::move(elsewhere); }

    /// Where ExifTool's lines go first; it starts them or leaves them. Not owned; null for none.
    void setWarmStarter(WarmStarter* starter) { warmStarter_ = starter; }

    /// True when the last run was ended by the KeepWaiting answer.
    bool wasStopped() const { return outcome_.wasStopped(); }

    /// What became of the last run's lines, for those who want to tell more than 1 or 0. Empty when the batch
    /// file could not be written.
    const platform::CommandOutcome& lastOutcome() const { return outcome_; }

    /// Why the last run has not brought what it was to bring: stopped, killed, not started, or an exit status
    /// that tells of failure; empty when there is nothing of the kind. For people.
    std::string lastFault() const;

    /// How the last run ended: Stopped, Killed or NotStarted, Failed by its exit status, else Done. What it
    /// has done says nobody here.
    OutcomeKind lastEnd() const;

    /// The same as lastFault for a run that was to write its answer to the file: a status of failure does not
    /// count where the answer itself tells of it, in a row of the group ExifTool, as it does of a file that
    /// it cannot read.
    std::string lastFaultOfRead(const std::filesystem::path& output) const;

    /// Writes <temp>/Metadata.bat, runs it and leaves it there. 1 when the run happened, else 0: when the
    /// batch file cannot be written, a redirection's file cannot be opened, the tool is missing or no
    /// program, or the wait was stopped. How the tool ended tells lastFault().
    [[nodiscard]] int RunToolLine(const platform::CommandText& command);

    /// Writes the batch file, runs it and deletes it in either case. The same answer.
    [[nodiscard]] int runBatchFile(const std::filesystem::path& batchFile,
                                   const platform::CommandText& command);

    /// Runs a line without a batch file; the same answer.
    [[nodiscard]] int RunHidden(const platform::CommandText& command);

    /// The same for FFmpeg and Convert, and for no other program.
    [[nodiscard]] int RunProgram(const platform::CommandText& command);

    /// The road of all writes of one file: a safety copy first when they are on, then by way of
    /// <temp>/MetaData.bat the line `"<tool>" -lang <lang> <arguments> "<file>" 2>>"<report>"`. What ExifTool
    /// complains of stands in the report, and so does what became of a tool that could not, because it was
    /// killed, stopped, or not started. A half-written file of a run that was cut is removed. In the
    /// corrected form the file keeps what the file system keeps with it (platform/FileBelongings.h).
    Outcome RunOnFile(const std::filesystem::path& file, const platform::CommandText& arguments);

    /// The same for a whole line by way of <temp>/Metadata.bat, without a safety copy.
    Outcome runWriteLine(const std::filesystem::path& file, const platform::CommandText& command);
    /// One line that writes all these files.
    [[nodiscard]] Outcomes runWriteLine(const std::vector<std::filesystem::path>& files,
                                        const platform::CommandText& command);
    /// A line that reads these files and writes nothing into them, by way of <temp>/Metadata.bat. No safety
    /// copies. Its answer is what the line leads to a file, or else what it prints.
    [[nodiscard]] ReadRun runReadLine(const std::vector<std::filesystem::path>& files,
                                      const platform::CommandText& command);
    /// Without a batch file.
    Outcome runHiddenOnFile(const std::filesystem::path& file, const platform::CommandText& command);

    /// Writes <temp>/files.tmp, one file a line, for commands that work on many files at once; takes the
    /// safety copies of all of them ahead of the run. An empty list writes nothing. A name that cannot stand
    /// on a line (a line feed in it, a carriage return at its end) is refused by name in the report; the rest
    /// goes on.
    FileList WriteFileList(const std::vector<std::filesystem::path>& files);

    /// Read anew for every copy.
    SafetyCopies& safetyCopies() { return safetyCopies_; }
    void setSafetyCopyFailed(SafetyCopyFailed failed);

    /// A copy of the file under the settings, if they are on, for the roads that do not pass through
    /// RunOnFile. One that failed is told in the outcome of the file's next run; where it is not to be
    /// written without, that is its outcome, and there is no run.
    [[nodiscard]] std::optional<Outcome> copyForSafety(const std::filesystem::path& file);

    /// Asks whoever has asked to be told of a copy that failed. Any thread, if that one's answer can be had
    /// there.
    bool mayBeWrittenWithoutCopy(const std::filesystem::path& file, const QString& failure) const {
        return !safetyCopyFailed_ || safetyCopyFailed_(file, failure);
    }

 private:
    using Run = std::function<int()>;

    app::CommandForm form() const { return app::commandFormOf(context_); }
    int runWritten(const std::filesystem::path& batchFile, const platform::CommandText& command);
    int run(const platform::CommandText& command, std::vector<std::filesystem::path> tools);
    platform::ChildOutcome runTool(const platform::ChildCommand& child, const KeepWaiting& keepWaiting) const;
    Outcomes judged(const std::vector<std::filesystem::path>& files, const platform::CommandText& command,
                    const Run& run);
    void tellReport(const Outcome& outcome) const;
    void addCopyFailure(Outcome& outcome);

    const app::AppContext& context_;
    KeepWaiting keepWaiting_;
    Elsewhere elsewhere_;
    platform::CommandOutcome outcome_;
    bool isCapturing_ = false;
    std::vector<std::pair<std::filesystem::path, std::string>> copyFailures_;
    WarmStarter* warmStarter_ = nullptr;
    SafetyCopies safetyCopies_;
    SafetyCopyFailed safetyCopyFailed_;
};

}  // namespace exiftool
