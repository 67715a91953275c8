#include "exiftool/ToolConversation.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "platform/Pipe.h"

#include <array>
#include <optional>

namespace exiftool {

using platform::ChildOutcome;
using platform::ChildStream;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

constexpr milliseconds kQuestionInterval{20};
constexpr milliseconds kSendPatience{std::chrono::seconds(10)};
constexpr std::size_t kPiece = 65536;

/// What has come, if anything; closes a stream that has come to its end.
void readInto(std::string& text, platform::FileDescriptor& stream) {
    if (!stream.isOpen() || !platform::isAnyReadableWithin({stream.get()}, milliseconds(0))) return;
    std::array<char, kPiece> buffer;
    const platform::ReadResult result = platform::readSome(stream.get(), buffer);
    text.append(buffer.data(), result.size);
    if (result.size == 0) stream.close();
}

}  // namespace

ChildOutcome ToolConversation::start(const std::filesystem::path& exifTool,
                                     std::vector<std::string> arguments) {
    platform::SocketPair input = platform::openSocketPair();
    platform::Pipe outputPipe = platform::openPipe();
    platform::Pipe errorsPipe = platform::openPipe();
    if (!input.isOpen() || !outputPipe.isOpen() || !errorsPipe.isOpen())
        return {ChildOutcome::Kind::NotStarted, 0, app::spokenText(text::kNoPipes)};
    platform::ChildCommand command;
    command.program = exifTool;
    command.arguments = std::move(arguments);
    command.environment = {"PERL_BADLANG=0"};
    command.input = ChildStream::to(input.other.get());
    command.output = ChildStream::to(outputPipe.writeEnd.get());
    command.errors = ChildStream::to(errorsPipe.writeEnd.get());
    command.endsWithStartingThread = true;
    command.letsOthersFirst = true;
    ChildOutcome outcome = child_.start(command);
    if (outcome.kind == ChildOutcome::Kind::NotStarted) return outcome;
    input_ = std::move(input.own);
    outputEnd_ = std::move(outputPipe.readEnd);
    errorsEnd_ = std::move(errorsPipe.readEnd);
    output_.clear();
    errors_.clear();
    return outcome;
}

bool ToolConversation::send(std::string_view bytes) {
    return input_.isOpen() && platform::sendAll(input_.get(), bytes, kSendPatience);
}

ToolConversation::Wait ToolConversation::collect(const std::function<bool()>& isWhole,
                                                 const std::stop_token& stop) {
    std::optional<steady_clock::time_point> patienceEnd;
    while (true) {
        if (isWhole()) return Wait::Answered;
        if (!outputEnd_.isOpen() && !errorsEnd_.isOpen()) return Wait::StreamsEnded;
        if (stop.stop_requested()) {
            if (!patienceEnd) patienceEnd = steady_clock::now() + kStopGrace;
            if (steady_clock::now() >= *patienceEnd) return Wait::Stopped;
        }
        if (!platform::isAnyReadableWithin({outputEnd_.get(), errorsEnd_.get()}, kQuestionInterval)) continue;
        readInto(output_, outputEnd_);
        readInto(errors_, errorsEnd_);
    }
}

ChildOutcome ToolConversation::waitForEnd(milliseconds limit) {
    input_.close();
    return child_.wait([limit](milliseconds since) { return since < limit; });
}

ChildOutcome ToolConversation::stop() {
    return child_.stop();
}

}  // namespace exiftool
