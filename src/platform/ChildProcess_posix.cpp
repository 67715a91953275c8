#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <thread>

namespace platform {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kQuestionInterval{20};
constexpr milliseconds kUnaskedInterval{std::chrono::hours(1)};
constexpr milliseconds kDeathLimit{2000};
constexpr mode_t kNewFileMode = 0666;
constexpr int kStandardStreams = 3;
constexpr int kPoliteness = 5;  // of 19

/// Null-ended lists of the words for the system's calls; the command has to outlive them.
struct WordLists {
    std::string program;
    std::vector<char*> arguments;
    std::vector<char*> environment;
};

bool isOverridden(const char* variable, const std::vector<std::string>& overrides) {
    const std::string_view text(variable);
    const std::string_view name = text.substr(0, text.find('=') + 1);
    return std::any_of(overrides.begin(), overrides.end(),
                       [&](const std::string& entry) { return entry.starts_with(name); });
}

// The system's calls take pointers to mutable characters, and change none.
char* mutableText(const std::string& text) {
    return const_cast<char*>(text.c_str());
}

WordLists wordLists(const ChildCommand& command) {
    WordLists lists;
    lists.program = command.program.string();
    lists.arguments.push_back(mutableText(command.program.native()));
    for (const std::string& argument : command.arguments) lists.arguments.push_back(mutableText(argument));
    lists.arguments.push_back(nullptr);
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        if (!isOverridden(*variable, command.environment)) lists.environment.push_back(*variable);
    }
    for (const std::string& entry : command.environment) lists.environment.push_back(mutableText(entry));
    lists.environment.push_back(nullptr);
    return lists;
}

struct SpawnActions {
    SpawnActions() {
        posix_spawn_file_actions_init(&files);
        posix_spawnattr_init(&attributes);
    }
    ~SpawnActions() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};

using Streams = std::array<OpenedStream, kStandardStreams>;

int spawn(const ChildCommand& command, const Streams& streams, const WordLists& lists, pid_t& child) {
    SpawnActions actions;
    for (int i = 0; i < kStandardStreams; ++i)
        posix_spawn_file_actions_adddup2(&actions.files,
                                         streams[static_cast<std::size_t>(i)].descriptor.get(), i);
    posix_spawn_file_actions_addclosefrom_np(&actions.files, kStandardStreams);
    if (!command.workingFolder.empty())
        posix_spawn_file_actions_addchdir_np(&actions.files, command.workingFolder.c_str());

    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&actions.attributes, &none);
    posix_spawnattr_setsigdefault(&actions.attributes, &all);
    posix_spawnattr_setpgroup(&actions.attributes, 0);
    posix_spawnattr_setflags(&actions.attributes,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    return posix_spawn(&child, lists.program.c_str(), &actions.files, &actions.attributes,
                       lists.arguments.data(), lists.environment.data());
}

/// What the child does between fork and the program; only calls that are allowed there. Ends in the program,
/// or writes the error number to the report descriptor.
[[noreturn]] void becomeProgram(const ChildCommand& command, const Streams& streams, const WordLists& lists,
                                pid_t parent, int report) {
    sigset_t none;
    sigemptyset(&none);
    struct sigaction standard {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) ::sigaction(number, &standard, nullptr);
    bool succeeded = ::prctl(PR_SET_PDEATHSIG, SIGTERM) == 0 && ::setpgid(0, 0) == 0;
    // The parent may have ended before the request above.
    if (::getppid() != parent) ::_exit(1);
    for (int i = 0; succeeded && i < kStandardStreams; ++i)
        succeeded = ::dup2(streams[static_cast<std::size_t>(i)].descriptor.get(), i) >= 0;
    if (succeeded && !command.workingFolder.empty()) succeeded = ::chdir(command.workingFolder.c_str()) == 0;
    if (succeeded) {
        ::close_range(kStandardStreams, ~0U, CLOSE_RANGE_CLOEXEC);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        ::execve(lists.program.c_str(), lists.arguments.data(), lists.environment.data());
    }
    const int error = errno;
    static_cast<void>(!::write(report, &error, sizeof error));
    ::_exit(127);
}

/// posix_spawn cannot tie a child to its parent's life, so this road forks.
int forkTied(const ChildCommand& command, const Streams& streams, const WordLists& lists, pid_t& child) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return errno;
    FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t parent = ::getpid();
    child = ::fork();
    const int forkError = errno;
    if (child == 0) becomeProgram(command, streams, lists, parent, writeEnd.get());
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (child < 0) return forkError;
    writeEnd.close();
    int error = 0;
    ssize_t got = 0;
    do got = ::read(readEnd.get(), &error, sizeof error);
    while (got < 0 && errno == EINTR);
    if (got != sizeof error) return 0;
    ::waitpid(child, nullptr, 0);
    return error;
}

}  // namespace

ChildOutcome childNotStarted(int error, const std::string& what) {
    return {ChildOutcome::Kind::NotStarted, error, what + ": " + std::system_category().message(error)};
}

// Above the standard descriptors putting one stream in place cannot run over another.
OpenedStream openChildStream(const ChildStream& stream, bool isInput) {
    FileDescriptor opened;
    int source = stream.descriptor;
    if (stream.kind != ChildStream::Kind::Descriptor) {
        int flags = (isInput ? O_RDONLY : O_WRONLY) | O_CLOEXEC | O_NOCTTY;
        if (stream.kind == ChildStream::Kind::Truncate) flags |= O_CREAT | O_TRUNC;
        if (stream.kind == ChildStream::Kind::Append) flags |= O_CREAT | O_APPEND;
        if (!stream.followsLink) flags |= O_NOFOLLOW;
        const bool isFile = stream.kind != ChildStream::Kind::Nowhere;
        opened = FileDescriptor(::open(isFile ? stream.file.c_str() : "/dev/null", flags, kNewFileMode));
        if (!opened.isOpen()) return {{}, errno};
        if (opened.get() >= kStandardStreams) return {std::move(opened), 0};
        source = opened.get();
    }
    FileDescriptor high(::fcntl(source, F_DUPFD_CLOEXEC, kStandardStreams));
    if (!high.isOpen()) return {{}, errno};
    return {std::move(high), 0};
}

ChildOutcome outcomeOfStatus(int waitStatus) {
    if (WIFSIGNALED(waitStatus)) return {ChildOutcome::Kind::Killed, WTERMSIG(waitStatus), {}};
    return {ChildOutcome::Kind::Ended, WEXITSTATUS(waitStatus), {}};
}

std::vector<std::string> childEnvironment(const ChildCommand& command) {
    std::vector<std::string> whole;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable) {
        if (!isOverridden(*variable, command.environment)) whole.emplace_back(*variable);
    }
    whole.insert(whole.end(), command.environment.begin(), command.environment.end());
    return whole;
}

ChildProcess::~ChildProcess() {
    if (isRunning()) stop();
}

ChildOutcome ChildProcess::start(const ChildCommand& command) {
    if (isRunning()) stop();
    const std::array<const ChildStream*, kStandardStreams> wanted{&command.input, &command.output,
                                                                  &command.errors};
    Streams streams;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        streams[i] = openChildStream(*wanted[i], i == 0);
        if (streams[i].error != 0) return childNotStarted(streams[i].error, wanted[i]->file.string());
    }
    const WordLists lists = wordLists(command);
    pid_t child = 0;
    const int error = command.endsWithStartingThread ? forkTied(command, streams, lists, child)
                                                     : spawn(command, streams, lists, child);
    if (error != 0) return childNotStarted(error, command.program.string());
    // It only costs time when that fails.
    if (command.letsOthersFirst)
        static_cast<void>(::setpriority(PRIO_PROCESS, static_cast<id_t>(child), kPoliteness));
    process_ = child;
    watch_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
    return {ChildOutcome::Kind::Ended, 0, {}};
}

bool ChildProcess::hasEndedWithin(milliseconds limit) {
    if (!isRunning()) return true;
    const auto deadline = steady_clock::now() + limit;
    while (true) {
        const auto left =
            std::max(milliseconds(0), std::chrono::ceil<milliseconds>(deadline - steady_clock::now()));
        if (watch_.isOpen()) {
            pollfd watched{watch_.get(), POLLIN, 0};
            const int ready = ::poll(&watched, 1, static_cast<int>(left.count()));
            if (ready >= 0 || errno != EINTR) return ready != 0;
        } else {
            siginfo_t facts{};
            const int failed =
                ::waitid(P_PID, static_cast<id_t>(process_), &facts, WEXITED | WNOHANG | WNOWAIT);
            if (failed != 0 || facts.si_pid == process_) return true;
            if (left == milliseconds(0)) return false;
            std::this_thread::sleep_for(milliseconds(1));
        }
    }
}

ChildOutcome ChildProcess::wait(const KeepWaiting& keepWaiting) {
    const auto begin = steady_clock::now();
    const milliseconds interval = keepWaiting ? kQuestionInterval : kUnaskedInterval;
    while (!hasEndedWithin(interval)) {
        const auto since = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        if (keepWaiting && !keepWaiting(since)) return stop();
    }
    return takeOutcome();
}

ChildOutcome ChildProcess::stop(milliseconds grace) {
    if (!isRunning()) return {ChildOutcome::Kind::Stopped, 0, {}};
    signalGroup(SIGTERM);
    hasEndedWithin(grace);
    // Also when the child has ended: what it started may still run, and until the child is collected its
    // number cannot belong to another group.
    signalGroup(SIGKILL);
    // A child that sleeps in a dead network drive dies when that lets go of it, which may be never.
    if (hasEndedWithin(kDeathLimit)) takeOutcome();
    process_ = 0;
    watch_.close();
    return {ChildOutcome::Kind::Stopped, 0, {}};
}

ChildOutcome ChildProcess::takeOutcome() {
    int status = 0;
    pid_t collected = 0;
    do collected = ::waitpid(static_cast<pid_t>(process_), &status, 0);
    while (collected < 0 && errno == EINTR);
    process_ = 0;
    watch_.close();
    // Not collected: somebody told the system to forget ended children, so that nothing is known but the end.
    if (collected < 0) return {ChildOutcome::Kind::Ended, 0, {}};
    return outcomeOfStatus(status);
}

void ChildProcess::signalGroup(int signal) const {
    ::kill(static_cast<pid_t>(-process_), signal);
}

ChildOutcome runChild(const ChildCommand& command, const KeepWaiting& keepWaiting) {
    ChildProcess child;
    ChildOutcome outcome = child.start(command);
    return outcome.kind == ChildOutcome::Kind::NotStarted ? outcome : child.wait(keepWaiting);
}

}  // namespace platform
