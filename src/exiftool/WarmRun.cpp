#include "exiftool/WarmRun.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

namespace exiftool {

using platform::ChildOutcome;
using platform::ChildStream;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr milliseconds kQuestionInterval{20};
constexpr milliseconds kUnaskedInterval{std::chrono::hours(1)};
constexpr milliseconds kStatusLimit{1000};
constexpr milliseconds kStopGrace{1000};
constexpr milliseconds kDeathLimit{2000};

void addField(std::string& request, std::string_view bytes) {
    const auto length = static_cast<std::uint32_t>(bytes.size());
    request.append(reinterpret_cast<const char*>(&length), sizeof length).append(bytes);
}

/// Number, device and inode: whoever opens the number later can see that it still is the same.
void addDescriptor(std::string& request, int descriptor) {
    struct stat facts {};
    ::fstat(descriptor, &facts);
    addField(request, std::to_string(descriptor));
    addField(request, std::to_string(facts.st_dev));
    addField(request, std::to_string(facts.st_ino));
}

/// The only way to ask that changes nothing for other threads.
std::string umaskOfProcess() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("Umask:")) return std::to_string(std::stoi(line.substr(6), nullptr, 8));
    }
    return {};
}

bool isOneReadableWithin(std::array<pollfd, 2> watched, milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    while (true) {
        const auto left =
            std::max(milliseconds(0), std::chrono::ceil<milliseconds>(deadline - steady_clock::now()));
        const int ready = ::poll(watched.data(), watched.size(), static_cast<int>(left.count()));
        if (ready >= 0 || errno != EINTR) return ready > 0;
    }
}

bool isReadableWithin(int descriptor, milliseconds limit) {
    return isOneReadableWithin({pollfd{descriptor, POLLIN, 0}, pollfd{-1, 0, 0}}, limit);
}

/// A letter and a number that may follow it; the letter is 0 when none came.
struct StatusMessage {
    char letter = 0;
    std::int32_t number = 0;
};

StatusMessage readMessage(int descriptor, milliseconds limit) {
    StatusMessage message;
    if (!isReadableWithin(descriptor, limit)) return message;
    // Written at once, and less than what a pipe may split.
    std::array<char, 1 + sizeof message.number> bytes{};
    const ssize_t got = ::read(descriptor, bytes.data(), bytes.size());
    if (got <= 0) return message;
    message.letter = bytes[0];
    std::memcpy(&message.number, &bytes[1], sizeof message.number);
    return message;
}

}  // namespace

bool WarmRun::Pipe::open() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    readEnd = platform::FileDescriptor(ends[0]);
    writeEnd = platform::FileDescriptor(ends[1]);
    return true;
}

std::optional<ChildOutcome> WarmRun::prepare(const platform::ChildCommand& command) {
    output_ = platform::openChildStream(command.output, false);
    if (output_.error != 0) return platform::childNotStarted(output_.error, command.output.file.string());
    errors_ = platform::openChildStream(command.errors, false);
    if (errors_.error != 0) return platform::childNotStarted(errors_.error, command.errors.file.string());
    if (status_.open() && go_.open())
        composeRequest(command, output_.descriptor.get(), errors_.descriptor.get());
    return std::nullopt;
}

void WarmRun::composeRequest(const platform::ChildCommand& command, int output, int errors) {
    const std::string mask = umaskOfProcess();
    if (mask.empty()) return;
    const std::string process = std::to_string(::getpid());
    std::string fields;
    addField(fields, process);
    // The folder itself, whatever its name is by now.
    addField(fields,
             command.workingFolder.empty() ? "/proc/" + process + "/cwd" : command.workingFolder.native());
    addField(fields, mask);
    addDescriptor(fields, status_.writeEnd.get());
    addDescriptor(fields, go_.readEnd.get());
    addDescriptor(fields, output);
    addDescriptor(fields, errors);
    addField(fields, command.output.kind == ChildStream::Kind::Append ? "1" : "");
    addField(fields, command.errors.kind == ChildStream::Kind::Append ? "1" : "");
    for (const std::string& argument : command.arguments) addField(fields, argument);
    addField(request_, fields);
}

WarmRun::Answer WarmRun::awaitAnswer(milliseconds limit) {
    const StatusMessage message = readMessage(status_.readEnd.get(), limit);
    if (message.letter != 'R') return message.letter == 0 ? Answer::Silent : Answer::Refused;
    // While the child waits for its sign it cannot end, nor its number belong to another.
    watch_ = platform::FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, message.number, 0)));
    if (!watch_.isOpen()) return Answer::Refused;
    process_ = message.number;
    return Answer::Accepted;
}

ChildOutcome WarmRun::run(const platform::KeepWaiting& keepWaiting) {
    // With the last other holder gone, the end of the child and of the starter is seen as the end of the
    // status.
    status_.writeEnd.close();
    // Its own read end still being open, this never fails, also when the child has just been killed.
    static_cast<void>(!::write(go_.writeEnd.get(), "g", 1));
    go_.writeEnd.close();
    go_.readEnd.close();
    output_.descriptor.close();
    errors_.descriptor.close();
    const auto begin = steady_clock::now();
    const milliseconds interval = keepWaiting ? kQuestionInterval : kUnaskedInterval;
    // The child says that it has done all somewhat before its memory has been given back.
    while (!isOneReadableWithin({pollfd{watch_.get(), POLLIN, 0}, pollfd{status_.readEnd.get(), POLLIN, 0}},
                                interval)) {
        const auto since = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        if (keepWaiting && !keepWaiting(since)) return stop();
    }
    return takeOutcome();
}

bool WarmRun::hasEndedWithin(milliseconds limit) const {
    return isReadableWithin(watch_.get(), limit);
}

ChildOutcome WarmRun::takeOutcome() {
    const StatusMessage message = readMessage(status_.readEnd.get(), kStatusLimit);
    if (message.letter != 'E') return {ChildOutcome::Kind::Ended, 0, {}};
    if (WIFSIGNALED(message.number)) return {ChildOutcome::Kind::Killed, WTERMSIG(message.number), {}};
    return {ChildOutcome::Kind::Ended, WEXITSTATUS(message.number), {}};
}

ChildOutcome WarmRun::stop() {
    ::kill(-process_, SIGTERM);
    hasEndedWithin(kStopGrace);
    // Also when the child has ended: what it started may still run.
    ::kill(-process_, SIGKILL);
    hasEndedWithin(kDeathLimit);
    return {ChildOutcome::Kind::Stopped, 0, {}};
}

}  // namespace exiftool
