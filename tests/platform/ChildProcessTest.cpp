#include "platform/ChildProcess.h"

#include "platform/WatchedProcess.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::ChildCommand;
using platform::ChildOutcome;
using platform::ChildProcess;
using platform::ChildStream;
using platform::FileDescriptor;
using platform::runChild;
using support::readBytes;
using support::TemporaryFolder;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

ChildCommand shell(const std::string& script, const std::filesystem::path& output = {}) {
    ChildCommand command;
    command.program = "/bin/sh";
    command.arguments = {"-c", script, "sh"};
    if (!output.empty()) command.output = ChildStream::truncate(output);
    return command;
}

/// Waits, with a limit, until the process is gone or only waits to be collected.
bool hasEnded(pid_t process) {
    const FileDescriptor watch(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    if (!watch.isOpen()) return true;
    pollfd watched{watch.get(), POLLIN, 0};
    return ::poll(&watched, 1, 5000) == 1;
}

pid_t numberIn(const std::string& text) {
    return static_cast<pid_t>(std::stol(text));
}

}  // namespace

TEST(ChildProcess, TellsHowTheChildEnded) {
    const ChildOutcome ended = runChild(shell("exit 7"));
    EXPECT_EQ(ended.kind, ChildOutcome::Kind::Ended);
    EXPECT_EQ(ended.number, 7);
    const ChildOutcome killed = runChild(shell("kill -SEGV $$"));
    EXPECT_EQ(killed.kind, ChildOutcome::Kind::Killed);
    EXPECT_EQ(killed.number, SIGSEGV);
    ChildCommand missing;
    missing.program = "/no/such/program";
    const ChildOutcome failed = runChild(missing);
    EXPECT_EQ(failed.kind, ChildOutcome::Kind::NotStarted);
    EXPECT_EQ(failed.number, ENOENT);
    EXPECT_THAT(failed.reason, testing::HasSubstr("/no/such/program"));
}

TEST(ChildProcess, PassesBytesFolderAndEnvironment) {
    const TemporaryFolder folder;
    ChildCommand command = shell(R"(printf '%s|' "$@"; pwd; printf '%s' "$EXTRA$HOME")", folder / "out");
    for (const char* word : {"a b", "", "\xE9\xFF", "x\ny", "$(z)"}) command.arguments.emplace_back(word);
    command.workingFolder = folder.path();
    command.environment = {"EXTRA=1", "HOME=2"};
    EXPECT_EQ(runChild(command).number, 0);
    EXPECT_EQ(readBytes(folder / "out"), "a b||\xE9\xFF|x\ny|$(z)|" + folder.path().string() + "\n12");
}

TEST(ChildProcess, LeadsItsStreams) {
    const TemporaryFolder folder;
    support::writeBytes(folder / "out", "old content");
    ChildCommand command = shell("cat; echo out; echo err >&2", folder / "out");
    command.errors = ChildStream::append(folder / "err");
    runChild(command);
    runChild(command);
    EXPECT_EQ(readBytes(folder / "out"), "out\n") << "and standard input is empty";
    EXPECT_EQ(readBytes(folder / "err"), "err\nerr\n");
    command.output = ChildStream::truncate(folder / "no/out");
    command.errors = ChildStream::truncate(folder / "untouched");
    EXPECT_EQ(runChild(command).kind, ChildOutcome::Kind::NotStarted);
    EXPECT_FALSE(std::filesystem::exists(folder / "untouched"));
}

class ChildProcessRoads : public testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(BothWaysOfStarting, ChildProcessRoads, testing::Bool());

TEST_P(ChildProcessRoads, GivesTheChildNothingOfOurs) {
    const TemporaryFolder folder;
    const int leaky = ::open("/dev/null", O_RDONLY);  // deliberately without the close-on-exec flag
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto pipeAction = ::signal(SIGPIPE, SIG_IGN);
    ChildCommand command = shell(
        // Looking by name opens nothing, unlike listing the folder or a pipe, whose ends the shell holds for
        // a while.
        "n=0; while [ $n -lt 64 ]; do [ -e /proc/$$/fd/$n ] && printf '%s ' $n; n=$((n + 1)); done; "
        "grep -E 'Sig(Blk|Ign)' /proc/self/status; cut -d' ' -f5 "
        "/proc/$$/stat; "
        "echo $$",
        folder / "out");
    command.endsWithStartingThread = GetParam();
    EXPECT_EQ(runChild(command).number, 0);
    ::signal(SIGPIPE, pipeAction);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ::close(leaky);
    std::istringstream answer(readBytes(folder / "out"));
    std::string line;
    std::getline(answer, line);
    EXPECT_EQ(line, "0 1 2 SigBlk:\t0000000000000000");
    std::getline(answer, line);
    // The C library ignores two signals of its own, 32 and 33.
    const auto ignored = std::stoull(line.substr(line.find('\t')), nullptr, 16);
    EXPECT_EQ(ignored & 0x7FFFFFFFU, 0U) << line;
    std::string group;
    std::string process;
    answer >> group >> process;
    EXPECT_EQ(group, process);
}

TEST_P(ChildProcessRoads, OneThatLetsOthersFirstIsNicerThanTheRest) {
    const TemporaryFolder folder;
    const auto nicenessOf = [&](bool letsOthersFirst) {
        const std::filesystem::path go = folder / "go";
        std::filesystem::remove(go);
        ChildCommand command =
            shell("while [ ! -e '" + go.string() + "' ]; do sleep 0.01; done; nice", folder / "out");
        command.endsWithStartingThread = GetParam();
        command.letsOthersFirst = letsOthersFirst;
        ChildProcess child;
        EXPECT_NE(child.start(command).kind, ChildOutcome::Kind::NotStarted);
        support::writeBytes(go, "");
        EXPECT_EQ(child.wait({}).number, 0);
        return std::stoi(readBytes(folder / "out"));
    };
    EXPECT_GT(nicenessOf(true), nicenessOf(false));
}

TEST_P(ChildProcessRoads, AProgramThatCannotStartIsAnAnswer) {
    ChildCommand command;
    command.program = "/etc/passwd";
    command.endsWithStartingThread = GetParam();
    ChildProcess child;
    const ChildOutcome outcome = child.start(command);
    EXPECT_EQ(outcome.kind, ChildOutcome::Kind::NotStarted);
    EXPECT_EQ(outcome.number, EACCES);
    EXPECT_FALSE(child.isRunning());
}

TEST_P(ChildProcessRoads, StreamsMayBeDescriptorsEvenWithOurStandardOnesClosed) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const int input = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    ChildCommand command = shell("echo out; echo err >&2");
    command.output = ChildStream::to(ends[1]);
    command.errors = command.output;
    command.endsWithStartingThread = GetParam();
    EXPECT_EQ(runChild(command).number, 0);
    if (input >= 0) ::dup2(input, STDIN_FILENO);
    ::close(input);
    ::close(ends[1]);
    char buffer[100];
    std::string all;
    for (ssize_t got = 0; (got = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        all.append(buffer, static_cast<std::size_t>(got));
    ::close(ends[0]);
    EXPECT_EQ(all, "out\nerr\n");
}

TEST(ChildProcess, NoticesTheEndAtOnce) {
    int unasked = 0;
    for (int i = 0; i < 15; ++i) {
        ChildCommand command;
        command.program = "/bin/true";
        bool asked = false;
        runChild(command, [&](auto) { return asked = true; });
        if (!asked) ++unasked;
    }
    EXPECT_GT(unasked, 0) << "an end is noticed before it is time for a question";
}

TEST(ChildProcess, AsksWhileItWaitsAndEndsTheChildOnNo) {
    int questions = 0;
    const auto begin = Clock::now();
    const ChildOutcome outcome = runChild(shell("exec sleep 100"), [&](std::chrono::milliseconds since) {
        EXPECT_GE(since, questions * 15ms);
        return ++questions < 4;
    });
    EXPECT_EQ(outcome.kind, ChildOutcome::Kind::Stopped);
    EXPECT_EQ(questions, 4);
    EXPECT_LT(Clock::now() - begin, 5s);
}

TEST(ChildProcess, EndsAChildThatIgnoresTheRequestAndWhatItStarted) {
    const TemporaryFolder folder;
    ChildCommand command = shell(
        "trap '' TERM; (trap '' TERM; sleep 100) & echo $! > \"$1\"; echo ready; while :; do wait; done");
    command.arguments.push_back((folder / "grandchild").string());
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    command.output = ChildStream::to(ends[1]);
    ChildProcess child;
    ASSERT_NE(child.start(command).kind, ChildOutcome::Kind::NotStarted);
    ::close(ends[1]);
    char ready = 0;
    ASSERT_EQ(::read(ends[0], &ready, 1), 1);
    EXPECT_EQ(child.stop(50ms).kind, ChildOutcome::Kind::Stopped);
    EXPECT_FALSE(child.isRunning());
    EXPECT_TRUE(hasEnded(numberIn(readBytes(folder / "grandchild"))));
    ::close(ends[0]);
}

TEST(ChildProcess, TheOwnerTakesTheChildWithIt) {
    pid_t process = 0;
    {
        ChildProcess child;
        child.start(shell("exec sleep 100"));
        process = static_cast<pid_t>(child.processId());
        ASSERT_GT(process, 0);
        EXPECT_FALSE(child.hasEndedWithin(0ms));
    }
    EXPECT_EQ(::kill(process, 0), -1);
}

TEST(ChildProcess, ATiedChildEndsWhenItsStarterIsKilled) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const pid_t starter = ::fork();
    if (starter == 0) {
        ChildProcess child;
        ChildCommand command = shell("exec sleep 100");
        command.endsWithStartingThread = true;
        child.start(command);
        const auto process = static_cast<pid_t>(child.processId());
        if (::write(ends[1], &process, sizeof process) != sizeof process) ::_exit(1);
        ::pause();
    }
    pid_t process = 0;
    ASSERT_EQ(::read(ends[0], &process, sizeof process), static_cast<ssize_t>(sizeof process));
    ASSERT_GT(process, 0);
    ::kill(starter, SIGKILL);
    ::waitpid(starter, nullptr, 0);
    EXPECT_TRUE(hasEnded(process));
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(ChildProcess, AnOutputOf200MegabytesGoesToItsFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(runChild(shell("head -c 200000000 /dev/zero", folder / "out")).number, 0);
    EXPECT_EQ(std::filesystem::file_size(folder / "out"), 200'000'000U);
}

TEST(ChildProcess, WorksWhereEndedChildrenAreForgotten) {
    const auto before = ::signal(SIGCHLD, SIG_IGN);
    EXPECT_EQ(runChild(shell("exit 3")).kind, ChildOutcome::Kind::Ended);
    ::signal(SIGCHLD, before);
}

TEST(WatchedProcess, AGroupIsEndedOnlyWhileItsFirstProcessLives) {
    const struct {
        const char* script;
        bool hasEnded;
    } cases[] = {
        {"sleep 100 & echo $! >\"$1\"; wait", false},
        {"sleep 100 & echo $! >\"$1\"; trap '' TERM; while :; do wait; done", false},
        // Another process could have its number by now, and another group that of its group.
        {"sleep 100 & echo $! >\"$1\"", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.script);
        const TemporaryFolder folder;
        ChildCommand command = shell(row.script);
        command.arguments.push_back((folder / "number").string());
        ChildProcess child;
        ASSERT_NE(child.start(command).kind, ChildOutcome::Kind::NotStarted);
        platform::WatchedProcess watched;
        ASSERT_TRUE(watched.watch(child.processId()));
        const auto limit = Clock::now() + 5s;
        std::error_code error;
        while (std::filesystem::file_size(folder / "number", error) < 2 || error)
            ASSERT_LT(Clock::now(), limit);
        const pid_t other = numberIn(readBytes(folder / "number"));
        if (row.hasEnded) {
            EXPECT_EQ(child.wait().kind, ChildOutcome::Kind::Ended);
        }
        watched.stopGroup(100ms, 2000ms);
        if (row.hasEnded) {
            EXPECT_EQ(::kill(other, SIGKILL), 0) << "it was not asked to end";
        } else {
            EXPECT_EQ(child.wait().kind, ChildOutcome::Kind::Killed);
            EXPECT_TRUE(hasEnded(other));
        }
    }
}
