#pragma once

#include "app/AppContext.h"
#include "exiftool/SafetyCopy.h"
#include "platform/CommandInterpreter.h"
#include "platform/CommandText.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace exiftool {

/// Asked about every 20 ms on the calling thread while a tool runs; may repaint. False ends the child.
using KeepWaiting = platform::KeepWaiting;

/// Gets the message of a safety copy that failed, for a box titled "Error"; the write goes on when it
/// returns.
using SafetyCopyFailed = std::function<void(const QString& message)>;

class WarmStarter;

/// What WriteFileList has done.
struct FileList {
    std::filesystem::path
        path;  ///< <temp>/files.tmp; empty when there was nothing to list or it cannot be written
    std::size_t listed = 0;
    std::vector<std::filesystem::path> refused;  ///< cannot stand on a line; the report names them
};

/// The one way to run a tool: write the line into a batch file of the temp folder, run it, wait for its end.
/// What comes back stands in the files that the line's redirections name; no exit code is looked at. Blocks
/// the calling thread; one run at a time.
class ToolRunner {
 public:
    explicit ToolRunner(const app::AppContext& context);

    /// What to ask while a tool runs; empty: wait without limit.
    void setKeepWaiting(KeepWaiting keepWaiting);

    /// What to call when a run has ended, whichever way; empty: nothing.
    void setRunEnded(std::function<void()> runEnded) { runEnded_ = std::move(runEnded); }

    /// Where ExifTool's lines go first; it starts them or leaves them. Not owned; null for none.
    void setWarmStarter(WarmStarter* starter) { warmStarter_ = starter; }

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
    int runBatchFile(const std::filesystem::path& batchFile, const platform::CommandText& command);

    /// The road of all writes of one file: a safety copy first when they are on, then by way of
    /// <temp>/MetaData.bat the line `"<tool>" -lang <lang> <arguments> "<file>" 2>>"<report>"`. What ExifTool
    /// complains of stands in the report, and so does what became of a tool that could not, because it was
    /// killed, stopped, or not started. An empty path runs nothing and gives 0; else the same answer.
    int RunOnFile(const std::filesystem::path& file, const platform::CommandText& arguments);

    /// RunToolLine for a line that writes these files: a half-written one of a run that was cut is removed,
    /// as RunOnFile does. Makes no safety copies.
    int runWriteLine(const std::vector<std::filesystem::path>& files, const platform::CommandText& command);

    /// Runs a line without a batch file; the same answer.
    int RunHidden(const platform::CommandText& command);

    /// RunHidden for a line that works on this file and leads its error stream to the report.
    int runHiddenOnFile(const std::filesystem::path& file, const platform::CommandText& command);

    /// What the report should say of the runs on files since the last call but could not, because it cannot
    /// be written; one line a run. An operation that leaves neither report nor this went well.
    std::string takeUntold() { return std::exchange(untold_, {}); }

    /// The same for FFmpeg and Convert, and for no other program.
    int RunProgram(const platform::CommandText& command);

    /// Writes <temp>/files.tmp, one file a line, for commands that work on many files at once; takes the
    /// safety copies of all of them ahead of the run. An empty list writes nothing. A name that cannot stand
    /// on a line (a line feed in it, a carriage return at its end) is refused by name in the report; the rest
    /// goes on.
    FileList WriteFileList(const std::vector<std::filesystem::path>& files);

    /// Read anew for every copy.
    SafetyCopies& safetyCopies() { return safetyCopies_; }
    void setSafetyCopyFailed(SafetyCopyFailed failed);

    /// A copy of the file under the settings, if they are on, for the roads that do not pass through
    /// RunOnFile.
    void copyForSafety(const std::filesystem::path& file) const;

 private:
    bool wasCut() const;
    int runWritten(const std::filesystem::path& batchFile, const platform::CommandText& command);
    int run(const platform::CommandText& command, std::vector<std::filesystem::path> tools);
    void tellReport(const std::filesystem::path& file, std::uintmax_t sizeBefore);

    const app::AppContext& context_;
    KeepWaiting keepWaiting_;
    std::function<void()> runEnded_;
    platform::CommandOutcome outcome_;
    std::string untold_;
    WarmStarter* warmStarter_ = nullptr;
    SafetyCopies safetyCopies_;
    SafetyCopyFailed safetyCopyFailed_;
};

}  // namespace exiftool
