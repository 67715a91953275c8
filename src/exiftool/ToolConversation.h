#pragma once

#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace exiftool {

/// How long a tool that is to stop may take to finish what it has in hand, before it is ended.
inline constexpr std::chrono::milliseconds kStopGrace{1500};

/// One run of ExifTool whose three streams lead here. It ends with the object at the latest, and with the
/// thread that has started it. One thread.
class ToolConversation {
 public:
    ToolConversation() = default;
    ~ToolConversation() = default;
    ToolConversation(const ToolConversation&) = delete;
    ToolConversation& operator=(const ToolConversation&) = delete;

    /// Ended, with a meaningless status, once it runs; else NotStarted. Does not wait for it.
    platform::ChildOutcome start(const std::filesystem::path& exifTool, std::vector<std::string> arguments);
    bool isRunning() const { return child_.isRunning(); }

    /// To the tool's standard input. False when the tool is gone or takes nothing any more.
    [[nodiscard]] bool send(std::string_view bytes);
    void closeInput() { input_.close(); }

    enum class Wait {
        Answered,      ///< isWhole has said yes
        StreamsEnded,  ///< the tool has closed both streams, in most cases by its end
        Stopped,       ///< a stop was asked for, and the grace is over
    };
    /// Collects what the tool says until one of these; isWhole is asked after each piece.
    Wait collect(const std::function<bool()>& isWhole, const std::stop_token& stop);

    /// What has been collected and not yet been taken.
    const std::string& output() const { return output_; }
    const std::string& errors() const { return errors_; }
    std::string takeOutput() { return std::exchange(output_, {}); }
    std::string takeErrors() { return std::exchange(errors_, {}); }

    /// Blocks until the tool has ended by itself, or ends it after limit.
    platform::ChildOutcome waitForEnd(std::chrono::milliseconds limit);
    /// Ends it at once.
    platform::ChildOutcome stop();

 private:
    platform::ChildProcess child_;
    platform::FileDescriptor input_;
    platform::FileDescriptor outputEnd_;
    platform::FileDescriptor errorsEnd_;
    std::string output_;
    std::string errors_;
};

}  // namespace exiftool
