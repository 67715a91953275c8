#include "exiftool/WarmStarter.h"

#include "exiftool/WarmRun.h"
#include "platform/Pipe.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildCommand;
using platform::ChildOutcome;
using platform::ChildStream;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr const char* kModule = "TagwrightWarmStarter";
constexpr std::string_view kHello = "ready\n";
constexpr std::size_t kLongestHello = 1 << 20;
constexpr int kStarts = 4;
/// Many times what a busy machine needs for a fork.
constexpr milliseconds kAnswerLimit{1500};
constexpr milliseconds kSendPatience{500};
constexpr milliseconds kStopGrace{200};

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
    configurationBefore_ = identitiesOf(configurationFiles(exifTool_, environment_));
    platform::SocketPair requests = platform::openSocketPair();
    platform::Pipe hello = platform::openPipe();
    if (!requests.isOpen() || !hello.isOpen()) return;
    requests_ = std::move(requests.own);
    hello_ = std::move(hello.readEnd);
    command.input = ChildStream::to(requests.other.get());
    command.output = ChildStream::to(hello.writeEnd.get());
    command.errors = command.output;
    if (helper_.start(command).kind != ChildOutcome::Kind::NotStarted) state_ = State::Loading;
}

bool WarmStarter::takeHello(milliseconds limit) {
    const auto deadline = steady_clock::now() + limit;
    while (state_ == State::Loading) {
        const auto left =
            std::max(milliseconds(0), std::chrono::ceil<milliseconds>(deadline - steady_clock::now()));
        if (!platform::isAnyReadableWithin({hello_.get()}, left)) return false;
        std::array<char, 4096> buffer{};
        const platform::ReadResult got = platform::readSome(hello_.get(), buffer);
        helloBytes_.append(buffer.data(), got.size);
        const bool isWhole = got.isAtEnd();
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
    if (identitiesOf(files_) != configurationBefore_) return false;
    files_.push_back(exifTool_);
    for (const std::string& file : *loaded) {
        // Named after the working folder of one moment.
        if (!file.starts_with('/')) return false;
        files_.emplace_back(file);
    }
    loaded_ = identitiesOf(files_);
    return true;
}

bool WarmStarter::isReadyWithin(milliseconds limit) {
    const std::lock_guard lock(guard_);
    return takeHello(limit) || state_ == State::Ready;
}

platform::ProcessId WarmStarter::processId() const {
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

std::optional<ChildOutcome> WarmStarter::run(const ChildCommand& command,
                                             const platform::KeepWaiting& keepWaiting) {
    WarmRun run;
    {
        const std::lock_guard lock(guard_);
        if (state_ == State::Loading) takeHello(milliseconds(0));
        if (state_ != State::Ready || !fits(command)) return std::nullopt;
        if (identitiesOf(files_) != loaded_) {
            startAnew();
            return std::nullopt;
        }
        std::optional<ChildOutcome> failure = run.prepare(command);
        if (failure) return failure;
        if (run.request().empty()) return std::nullopt;
        const WarmRun::Answer answer = platform::sendAll(requests_.get(), run.request(), kSendPatience)
                                           ? run.awaitAnswer(kAnswerLimit)
                                           : WarmRun::Answer::Silent;
        if (answer == WarmRun::Answer::Silent) startAnew();
        if (answer != WarmRun::Answer::Accepted) return std::nullopt;
    }
    return run.run(keepWaiting);
}

}  // namespace exiftool
