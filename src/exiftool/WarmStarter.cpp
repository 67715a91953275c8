#include "exiftool/WarmStarter.h"

#include "exiftool/WarmConditions.h"
#include "exiftool/WarmRun.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildCommand;
using platform::ChildOutcome;
using platform::ChildStream;
using platform::FileDescriptor;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char* kModule = "TagwrightWarmStarter";
constexpr std::string_view kHello = "ready\n";
constexpr std::size_t kLongestHello = 1 << 20;
constexpr int kStarts = 4;
/// Many times what a busy machine needs for a fork.
constexpr milliseconds kAnswerLimit{1500};
constexpr milliseconds kSendLimit{500};
constexpr milliseconds kStopGrace{200};

bool isReadyFor(int descriptor, short event, milliseconds limit) {
    pollfd watched{descriptor, event, 0};
    int ready = 0;
    do ready = ::poll(&watched, 1, static_cast<int>(limit.count()));
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

/// The fields of a message; nothing when it is not whole.
std::optional<std::vector<std::string>> fieldsOf(std::string_view bytes) {
    std::vector<std::string> fields;
    while (!bytes.empty()) {
        std::uint32_t length = 0;
        if (bytes.size() < sizeof length) return std::nullopt;
        std::memcpy(&length, bytes.data(), sizeof length);
        bytes.remove_prefix(sizeof length);
        if (bytes.size() < length) return std::nullopt;
        fields.emplace_back(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return fields;
}

}  // namespace

WarmStarter::~WarmStarter() {
    Stop();
}

void WarmStarter::Start(const fs::path& exifTool, const fs::path& folder, std::string_view language) {
    const std::lock_guard lock(guard_);
    stop();
    exifTool_ = exifTool;
    folder_ = folder;
    language_ = language;
    startsLeft_ = kStarts;
    start();
}

void WarmStarter::Stop() {
    const std::lock_guard lock(guard_);
    startsLeft_ = 0;
    stop();
}

void WarmStarter::stop() {
    state_ = State::Off;
    requests_.close();
    hello_.close();
    helloBytes_.clear();
    if (helper_.isRunning()) helper_.stop(kStopGrace);
}

void WarmStarter::startAnew() {
    stop();
    start();
}

void WarmStarter::start() {
    const std::optional<PerlStart> perl = perlStartOf(exifTool_);
    if (!perl || startsLeft_ <= 0) return;
    --startsLeft_;
    ChildCommand command;
    command.program = perl->program;
    command.arguments = perl->arguments;
    command.arguments.insert(
        command.arguments.end(),
        {"-I" + folder_.string(), std::string("-M") + kModule + '=' + language_, exifTool_.string()});
    command.environment = {"PERL_BADLANG=0"};
    environment_ = platform::childEnvironment(command);
    if (!canRunWarmIn(environment_)) return;
    configurationStamp_ = stampOf(configurationFiles(exifTool_, environment_));
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return;
    requests_ = FileDescriptor(ends[0]);
    const FileDescriptor input(ends[1]);
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    hello_ = FileDescriptor(ends[0]);
    const FileDescriptor output(ends[1]);
    ::fcntl(hello_.get(), F_SETFL, O_NONBLOCK);
    command.input = ChildStream::to(input.get());
    command.output = ChildStream::to(output.get());
    command.errors = command.output;
    if (helper_.start(command).kind != ChildOutcome::Kind::NotStarted) state_ = State::Loading;
}

bool WarmStarter::takeHello(milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    while (state_ == State::Loading) {
        const auto left =
            std::max(milliseconds(0), std::chrono::ceil<milliseconds>(deadline - steady_clock::now()));
        if (!isReadyFor(hello_.get(), POLLIN, left)) return false;
        std::array<char, 4096> buffer{};
        const ssize_t got = ::read(hello_.get(), buffer.data(), buffer.size());
        if (got < 0 && (errno == EAGAIN || errno == EINTR)) continue;
        if (got > 0) helloBytes_.append(buffer.data(), static_cast<std::size_t>(got));
        const bool isWhole = got == 0;
        if (!isWhole && helloBytes_.size() <= kLongestHello) continue;
        if (isWhole && readHello(helloBytes_)) {
            state_ = State::Ready;
        } else {
            // The loading has printed something, which every run of its own prints too, or has failed.
            startsLeft_ = 0;
            stop();
        }
    }
    return state_ == State::Ready;
}

/// "ready" and what was loaded; nothing else.
bool WarmStarter::readHello(std::string_view hello) {
    if (!hello.starts_with(kHello)) return false;
    const std::optional<std::vector<std::string>> loaded = fieldsOf(hello.substr(kHello.size()));
    if (!loaded) return false;
    files_ = configurationFiles(exifTool_, environment_);
    // A configuration that was changed during the loading may be the one or the other.
    if (stampOf(files_) != configurationStamp_) return false;
    files_.push_back(exifTool_);
    for (const std::string& file : *loaded) {
        // Named after the working folder of one moment.
        if (!file.starts_with('/')) return false;
        files_.emplace_back(file);
    }
    stamp_ = stampOf(files_);
    return true;
}

bool WarmStarter::isReadyWithin(milliseconds limit) {
    const std::lock_guard lock(guard_);
    return takeHello(limit) || state_ == State::Ready;
}

pid_t WarmStarter::processId() const {
    const std::lock_guard lock(guard_);
    return helper_.processId();
}

bool WarmStarter::fits(const ChildCommand& command) {
    const bool hasUsualStreams = command.input.kind == ChildStream::Kind::Nowhere &&
                                 command.output.kind != ChildStream::Kind::Descriptor &&
                                 command.errors.kind != ChildStream::Kind::Descriptor;
    return command.program == exifTool_ && hasUsualStreams && !command.endsWithStartingThread &&
           canRunWarm(command.arguments) && platform::childEnvironment(command) == environment_;
}

bool WarmStarter::send(const std::string& request) {
    std::string_view left = request;
    while (!left.empty()) {
        const ssize_t sent = ::send(requests_.get(), left.data(), left.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) left.remove_prefix(static_cast<std::size_t>(sent));
        if (sent >= 0 || errno == EINTR) continue;
        if (errno != EAGAIN || !isReadyFor(requests_.get(), POLLOUT, kSendLimit)) return false;
    }
    return true;
}

std::optional<ChildOutcome> WarmStarter::run(const ChildCommand& command,
                                             const platform::KeepWaiting& keepWaiting) {
    WarmRun run;
    {
        const std::lock_guard lock(guard_);
        if (state_ == State::Loading) takeHello(milliseconds(0));
        if (state_ != State::Ready || !fits(command)) return std::nullopt;
        if (stampOf(files_) != stamp_) {
            startAnew();
            return std::nullopt;
        }
        std::optional<ChildOutcome> failure = run.prepare(command);
        if (failure) return failure;
        if (run.request().empty()) return std::nullopt;
        const WarmRun::Answer answer =
            send(run.request()) ? run.awaitAnswer(kAnswerLimit) : WarmRun::Answer::Silent;
        if (answer == WarmRun::Answer::Silent) startAnew();
        if (answer != WarmRun::Answer::Accepted) return std::nullopt;
    }
    return run.run(keepWaiting);
}

}  // namespace exiftool
