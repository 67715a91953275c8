#pragma once

#include "exiftool/WarmConditions.h"
#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace exiftool {

/// Runs ExifTool without its start-up time: a helper in Perl compiles the installed ExifTool once and forks a
/// child for each command (data/warm/TagwrightWarmStarter.pm). One command is still one process with streams,
/// folder and exit status of its own; nothing is kept between commands. Whatever could be told from a run of
/// its own is left to the caller to start directly: while the helper loads, when ExifTool is no Perl script,
/// for arguments, an environment, a configuration or an ExifTool other than those that were loaded, and when
/// the helper has died or does not answer. Then it is started anew, a few times, in the background.
///
/// The helper ends with the object, and when this program is killed by the end of its input. Any thread;
/// commands of several threads run side by side.
class WarmStarter {
 public:
    WarmStarter() = default;
    ~WarmStarter();
    WarmStarter(const WarmStarter&) = delete;
    WarmStarter& operator=(const WarmStarter&) = delete;

    /// Starts the helper and does not wait for it. Without effect where ExifTool is no Perl script. folder:
    /// where the helper lies, <install>/warm. language: ExifTool's code of the language to have ready.
    void Start(const std::filesystem::path& exifTool, const std::filesystem::path& folder,
               std::string_view language);

    /// Ends the helper. What its children do goes on to its end.
    void Stop();

    /// The outcome of the command, as platform::runChild gives it; nothing when the caller is to start it, in
    /// which case nothing has been run.
    std::optional<platform::ChildOutcome> run(const platform::ChildCommand& command,
                                              const platform::KeepWaiting& keepWaiting);

    /// True when commands are taken, after at most that time.
    bool isReadyWithin(std::chrono::milliseconds limit);

    platform::ProcessId processId() const;  ///< of the helper; 0 when there is none

 private:
    enum class State { Off, Loading, Ready };

    void start();
    void stop();
    void startAnew();
    bool takeHello(std::chrono::milliseconds limit);
    bool readHello(std::string_view hello);
    bool fits(const platform::ChildCommand& command);

    mutable std::mutex guard_;
    State state_ = State::Off;
    int startsLeft_ = 0;
    std::filesystem::path exifTool_;
    std::filesystem::path folder_;
    std::string language_;
    platform::ChildProcess helper_;
    platform::FileDescriptor requests_;
    platform::FileDescriptor hello_;
    std::string helloBytes_;
    std::vector<std::string> environment_;  ///< that the helper was started with
    /// What it has loaded, and the configuration that it might have.
    std::vector<std::filesystem::path> files_;
    Identities configurationBefore_;  ///< from before its start
    Identities loaded_;               ///< of files_
};

}  // namespace exiftool
