#include "exiftool/WarmRun.h"

#include "platform/AtomicFile.h"
#include "platform/FileIdentity.h"
#include "platform/OwnProcess.h"
#include "platform/Text.h"

#include <array>
#include <cstring>

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
/// What a shell says of a program that has run off the range of its answers.
constexpr int kUnknownStatus = 255;

void addField(std::string& request, std::string_view bytes) {
    const auto length = static_cast<std::uint32_t>(bytes.size());
    request.append(reinterpret_cast<const char*>(&length), sizeof length).append(bytes);
}

/// Number, device and inode: whoever opens the number later can see that it still is the same.
void addDescriptor(std::string& request, int descriptor) {
    const auto identity = platform::identifyDescriptor(descriptor).value_or(platform::FileIdentity{});
    addField(request, std::to_string(descriptor));
    addField(request, std::to_string(identity.device));
    addField(request, std::to_string(identity.inode));
}

/// A letter and a number that may follow it; the letter is 0 when none came.
struct StatusMessage {
    char letter = 0;
    std::int32_t number = 0;
};

StatusMessage readMessage(int descriptor, milliseconds limit) {
    StatusMessage message;
    if (!platform::isAnyReadableWithin({descriptor}, limit)) return message;
    // Written at once, and less than what a pipe may split.
    std::array<char, 1 + sizeof message.number> bytes{};
    if (platform::readSome(descriptor, bytes).size == 0) return message;
    message.letter = bytes[0];
    std::memcpy(&message.number, &bytes[1], sizeof message.number);
    return message;
}

}  // namespace

std::optional<ChildOutcome> WarmRun::prepare(const platform::ChildCommand& command) {
    output_ = platform::openChildStream(command.output, false);
    if (output_.error != 0) return platform::childNotStarted(output_.error, command.output.file.string());
    errors_ = platform::openChildStream(command.errors, false);
    if (errors_.error != 0) return platform::childNotStarted(errors_.error, command.errors.file.string());
    status_ = platform::openPipe();
    go_ = platform::openPipe();
    if (status_.isOpen() && go_.isOpen())
        composeRequest(command, output_.descriptor.get(), errors_.descriptor.get());
    return std::nullopt;
}

void WarmRun::composeRequest(const platform::ChildCommand& command, int output, int errors) {
    const std::optional<unsigned> mask = platform::ownFileMask();
    if (!mask) return;
    std::string fields;
    addField(fields, std::to_string(platform::ownProcessId()));
    addField(fields, platform::narrow(command.workingFolder.empty() ? platform::ownWorkingFolder()
                                                                    : command.workingFolder));
    addField(fields, std::to_string(*mask));
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
    return process_.watch(message.number) ? Answer::Accepted : Answer::Refused;
}

ChildOutcome WarmRun::run(const platform::KeepWaiting& keepWaiting) {
    // With the last other holder gone, the end of the child and of the starter is seen as the end of the
    // status.
    status_.writeEnd.close();
    // Its own read end still being open, this never fails, also when the child has just been killed.
    static_cast<void>(platform::writeAll(go_.writeEnd.get(), "g"));
    go_.writeEnd.close();
    go_.readEnd.close();
    output_.descriptor.close();
    errors_.descriptor.close();
    const auto begin = steady_clock::now();
    const milliseconds interval = keepWaiting ? kQuestionInterval : kUnaskedInterval;
    // The child says that it has done all somewhat before its memory has been given back.
    while (!platform::isAnyReadableWithin({process_.descriptor(), status_.readEnd.get()}, interval)) {
        const auto since = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
        if (keepWaiting && !keepWaiting(since)) return stop();
    }
    return takeOutcome();
}

ChildOutcome WarmRun::takeOutcome() {
    const StatusMessage message = readMessage(status_.readEnd.get(), kStatusLimit);
    // A child that has done all says so itself: this one was ended, or its answer is not whole.
    if (message.letter != 'E') return {ChildOutcome::Kind::Ended, kUnknownStatus, {}};
    return platform::outcomeOfStatus(message.number);
}

ChildOutcome WarmRun::stop() {
    process_.stopGroup(kStopGrace, kDeathLimit);
    return {ChildOutcome::Kind::Stopped, 0, {}};
}

}  // namespace exiftool
