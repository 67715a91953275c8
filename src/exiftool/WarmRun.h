#pragma once

#include "platform/ChildProcess.h"
#include "platform/Pipe.h"
#include "platform/WatchedProcess.h"

#include <chrono>
#include <optional>
#include <string>

namespace exiftool {

/// One command that a child of the warm starter runs. It has three steps, so that nothing can be run twice:
/// prepare, after which the request can be sent; isAccepted, at whose no it is certain that the child does
/// not run and never will; and run. One thread.
class WarmRun {
 public:
    /// Opens the streams. A failure is the outcome of the command.
    std::optional<platform::ChildOutcome> prepare(const platform::ChildCommand& command);

    /// The bytes for the starter, see data/warm/TagwrightWarmStarter.pm.
    const std::string& request() const { return request_; }

    enum class Answer { Accepted, Refused, Silent };
    Answer awaitAnswer(std::chrono::milliseconds limit);

    /// Lets the accepted child run and waits for its end. A child that is killed after its starter
    /// was takes its exit status with it, which is then 255.
    platform::ChildOutcome run(const platform::KeepWaiting& keepWaiting);

 private:
    void composeRequest(const platform::ChildCommand& command, int output, int errors);
    platform::ChildOutcome takeOutcome();
    platform::ChildOutcome stop();

    platform::OpenedStream output_;
    platform::OpenedStream errors_;
    platform::Pipe status_;
    platform::Pipe go_;
    std::string request_;
    platform::WatchedProcess process_;
};

}  // namespace exiftool
