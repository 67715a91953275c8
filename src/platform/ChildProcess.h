#pragma once

#include "platform/FileDescriptor.h"
#include "platform/ProcessId.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// Where one of a child's standard streams leads.
struct ChildStream {
    enum class Kind {
        Nowhere,     ///< the null device
        Truncate,    ///< the file, emptied or made
        Append,      ///< the end of the file, made when missing
        Descriptor,  ///< a descriptor of the caller, who keeps it and may close it after the start
    };
    Kind kind = Kind::Nowhere;
    std::filesystem::path file;
    int descriptor = -1;
    bool followsLink = true;  ///< false: a file that is a symbolic link cannot be opened

    static ChildStream truncate(std::filesystem::path file) { return {Kind::Truncate, std::move(file)}; }
    static ChildStream append(std::filesystem::path file) { return {Kind::Append, std::move(file)}; }
    static ChildStream to(int descriptor) { return {Kind::Descriptor, {}, descriptor}; }
};

struct ChildCommand {
    std::filesystem::path program;         ///< its path; nothing is searched for
    std::vector<std::string> arguments;    ///< bytes, without the program itself
    std::filesystem::path workingFolder;   ///< empty: the caller's
    std::vector<std::string> environment;  ///< "NAME=VALUE", beside and above the caller's own
    ChildStream input;
    ChildStream output;
    ChildStream errors;
    /// The child gets SIGTERM when the thread that starts it ends, thus also when this program is killed. For
    /// children that would else stay for ever; to be started from a thread that lives as long as they are
    /// needed.
    bool endsWithStartingThread = false;
    /// Who waits for input goes first where the processors do not suffice for all.
    bool letsOthersFirst = false;
};

struct ChildOutcome {
    enum class Kind {
        Ended,       ///< by itself; number is the exit status
        Killed,      ///< by a signal that was not ours; number is the signal
        NotStarted,  ///< number is the error number, reason for people
        Stopped,     ///< ended because the caller asked for it
    };
    Kind kind = Kind::NotStarted;
    int number = 0;
    std::string reason;
};

/// Asked about every 20 ms on the waiting thread. False ends the child.
using KeepWaiting = std::function<bool(std::chrono::milliseconds sinceStart)>;

/// One child, in a process group of its own, with no descriptor but its three streams, no blocked and no
/// ignored signals. No shell takes part. The object owns the child: it ends with it at the latest. One thread
/// at a time.
class ChildProcess {
 public:
    ChildProcess() = default;
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Ended, with a meaningless status, once the child runs; else NotStarted. A stream's file that cannot be
    /// opened is a failure too, and then no file of a later stream (input, output, errors) has been touched.
    ChildOutcome start(const ChildCommand& command);
    bool isRunning() const { return process_ > 0; }
    ProcessId processId() const { return process_; }  ///< 0 when none runs

    /// Blocks until the child has ended, however long that takes, or keepWaiting has said no; an empty
    /// keepWaiting never does. The end is noticed at once.
    ChildOutcome wait(const KeepWaiting& keepWaiting = {});

    /// True when the child has ended within that time, or none runs.
    bool hasEndedWithin(std::chrono::milliseconds limit);

    /// SIGTERM to the child's group, after grace SIGKILL; then waits for its end.
    ChildOutcome stop(std::chrono::milliseconds grace = std::chrono::seconds(1));

 private:
    ChildOutcome takeOutcome();
    void signalGroup(int signal) const;

    ProcessId process_ = 0;
    FileDescriptor watch_;  ///< readable when the child has ended; none on a system without such descriptors
};

/// A stream as the child is to get it, on a descriptor above the standard ones.
struct OpenedStream {
    FileDescriptor descriptor;
    int error = 0;  ///< the error number, when there is no descriptor
};

/// For those who start children by other means: what start() does with each stream, the outcome when it
/// fails or when the child has ended, and the whole environment of the child.
OpenedStream openChildStream(const ChildStream& stream, bool isInput);
ChildOutcome childNotStarted(int error, const std::string& what);
/// waitStatus: as the system gives it to the one who waits for the child.
ChildOutcome outcomeOfStatus(int waitStatus);
std::vector<std::string> childEnvironment(const ChildCommand& command);

/// start() and wait().
ChildOutcome runChild(const ChildCommand& command, const KeepWaiting& keepWaiting = {});

}  // namespace platform
