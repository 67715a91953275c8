#pragma once

#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace exiftool {

/// All waits of the session are multiples of this.
inline constexpr std::chrono::milliseconds SessionDelayMs{150};

/// The one ExifTool that lives as long as the main window: it follows an argument file to which requests are
/// appended, and answers on one pipe. There is no end mark and no framing: an answer is what has come when a
/// fixed time is over, and what comes later stands in front of the next answer. A child that has died is not
/// noticed; its answers are empty.
///
/// The child is told to end by Close() and is killed when it does not within a bounded time. When this
/// program is killed, the system ends the child. That holds for the thread that has started it: start the
/// session on the GUI thread. Requests may come from several threads; each is written as a whole, but an
/// answer may be taken by the wrong one.
class ExifToolSession {
 public:
    enum StartCode {
        kStarted = 1,
        kNoOutputPipe = 0,
        kNoInputPipe = 4,
        kNoChild = 6,
        kNoArgumentFile = 7,  ///< the temp folder cannot be written
    };

    ExifToolSession() = default;
    ~ExifToolSession();
    ExifToolSession(const ExifToolSession&) = delete;
    ExifToolSession& operator=(const ExifToolSession&) = delete;

    /// Makes the argument file EXM*.tmp in the temp folder and starts the child; does not wait for it. One of
    /// the codes.
    [[nodiscard]] int StartExifToolSession(const std::filesystem::path& tempPath,
                                           const std::filesystem::path& exifToolPath);

    /// For people, after a start that was no kStarted.
    const std::string& startProblem() const { return startProblem_; }

    /// Nothing while the child runs. When it has ended: the first of what it said that nobody has taken yet;
    /// the session is closed then.
    std::optional<std::string> lastWordsWhenEnded();

    /// The tag's line as ExifTool prints it, "Tag: value" and a line feed, up to its first zero byte; empty
    /// when there is none. tagName without its hyphen, such as "Xmp-Plus:CopyrightStatus". Blocks for three
    /// delays; an empty tag name, a closed session, and a name or path that cannot stand on a line of the
    /// argument file give an empty answer at once, and nothing is asked.
    std::string QueryTag(const std::filesystem::path& file, std::string_view tagName);

    struct SendResult {
        bool wasSent = false;      ///< false: closed, or the path cannot stand on a line of the argument file
        bool wasAnswered = false;  ///< something has come
        std::string answer;        ///< up to its first zero byte
    };

    /// One write request: arguments, each ending in a line feed, then the file. Blocks for two delays, then
    /// reads what has come, so that the pipe does not fill. An answer that came and is empty ends the dialog
    /// that asked.
    [[nodiscard]] SendResult SendPerFileCommand(std::string_view arguments,
                                                const std::filesystem::path& file);

    /// Asks for an embedded picture, selector such as "-PreviewImage", in a form that ExifTool does not
    /// understand; the caller goes on to its next way. Blocks for one delay and looks at no answer. False as
    /// in wasSent.
    [[nodiscard]] bool requestThumbnail(std::string_view selector, const std::filesystem::path& source,
                                        const std::filesystem::path& target);

    /// Tells the child to end, waits one delay, and closes everything. A second call does nothing.
    void CloseExifToolSession();

    bool isOpen() const { return argumentFile_.isOpen(); }
    platform::ProcessId childProcessId() const { return child_.processId(); }  ///< 0 when closed

 private:
    bool append(std::string_view request);
    SendResult readWhatHasCome();

    std::filesystem::path exifToolPath_;
    platform::FileDescriptor argumentFile_;
    platform::FileDescriptor outputRead_;
    platform::FileDescriptor inputWrite_;  ///< nothing is written; it keeps the child's standard input open
    platform::ChildProcess child_;
    std::string startProblem_;
    std::mutex writing_;
};

}  // namespace exiftool
