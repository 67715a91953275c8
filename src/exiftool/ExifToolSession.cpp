#include "exiftool/ExifToolSession.h"

#include "exiftool/LineParts.h"
#include "platform/AtomicFile.h"
#include "platform/Pipe.h"
#include "platform/Text.h"
#include "platform/UniqueFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildStream;

namespace {

/// The child has had one delay already when it is asked to end by a signal.
constexpr std::chrono::milliseconds kEndLimit{300};
constexpr std::chrono::milliseconds kKillLimit{300};
/// As much as a message can show.
constexpr std::size_t kLongestWords = 600;

/// A relative name could begin with a hyphen and be taken for an option.
std::string fileLine(const fs::path& file) {
    std::error_code error;
    const fs::path whole = file.empty() || file.is_absolute() ? file : fs::absolute(file, error);
    return error ? std::string() : platform::narrow(whole);
}

std::string quotedLine(const fs::path& file) {
    return '"' + platform::narrow(file) + "\"\n";
}

}  // namespace

ExifToolSession::~ExifToolSession() {
    CloseExifToolSession();
}

int ExifToolSession::StartExifToolSession(const fs::path& tempPath, const fs::path& exifToolPath) {
    CloseExifToolSession();
    exifToolPath_ = exifToolPath;
    platform::UniqueFile arguments =
        platform::makeUniqueFile(tempPath / "EXM", ".tmp", platform::UniqueFileWrites::AtEnd);
    if (!arguments.isOpen()) return kNoArgumentFile;
    platform::Pipe output = platform::openPipe();
    startProblem_ = std::generic_category().message(errno);
    if (!output.isOpen()) return kNoOutputPipe;
    platform::Pipe input = platform::openPipe();
    startProblem_ = std::generic_category().message(errno);
    if (!input.isOpen()) return kNoInputPipe;

    platform::ChildCommand command;
    command.program = exifToolPath;
    command.arguments = {"-stay_open", "true", "-@", platform::narrow(arguments.path)};
    command.environment = {"PERL_BADLANG=0"};
    command.input = ChildStream::to(input.readEnd.get());
    command.output = ChildStream::to(output.writeEnd.get());
    command.errors = command.output;
    command.endsWithStartingThread = true;
    const platform::ChildOutcome started = child_.start(command);
    startProblem_ = started.reason;
    if (started.kind == platform::ChildOutcome::Kind::NotStarted) return kNoChild;
    argumentFile_ = std::move(arguments.descriptor);
    outputRead_ = std::move(output.readEnd);
    inputWrite_ = std::move(input.writeEnd);
    return kStarted;
}

std::optional<std::string> ExifToolSession::lastWordsWhenEnded() {
    if (!child_.isRunning() || !child_.hasEndedWithin(std::chrono::milliseconds(0))) return std::nullopt;
    std::string words = readWhatHasCome().answer;
    words.resize(std::min(words.size(), kLongestWords));
    CloseExifToolSession();
    return words;
}

bool ExifToolSession::append(std::string_view request) {
    const std::lock_guard lock(writing_);
    return argumentFile_.isOpen() && platform::writeAll(argumentFile_.get(), request) == 0;
}

ExifToolSession::SendResult ExifToolSession::readWhatHasCome() {
    SendResult result;
    result.wasSent = true;
    std::string bytes(platform::availableBytes(outputRead_.get()), '\0');
    if (bytes.empty()) return result;
    bytes.resize(platform::readSome(outputRead_.get(), bytes).size);
    result.wasAnswered = !bytes.empty();
    result.answer = bytes.substr(0, bytes.find('\0'));
    return result;
}

std::string ExifToolSession::QueryTag(const fs::path& file, std::string_view tagName) {
    const std::string path = fileLine(file);
    if (!canStandOnLine(tagName) || !canStandOnLine(path)) return {};
    std::string request = "-q\n-S\n-";
    request.append(tagName).append("\n").append(path).append("\n-execute\n");
    if (!append(request)) return {};
    std::this_thread::sleep_until(std::chrono::steady_clock::now() + 3 * SessionDelayMs);
    return readWhatHasCome().answer;
}

ExifToolSession::SendResult ExifToolSession::SendPerFileCommand(std::string_view arguments,
                                                                const fs::path& file) {
    const std::string path = fileLine(file);
    if (!canStandOnLine(path)) return {};
    std::string request(arguments);
    request.append(path).append("\n-execute\n");
    if (!append(request)) return {};
    std::this_thread::sleep_until(std::chrono::steady_clock::now() + 2 * SessionDelayMs);
    return readWhatHasCome();
}

bool ExifToolSession::requestThumbnail(std::string_view selector, const fs::path& source,
                                       const fs::path& target) {
    if (!canStandOnLine(selector) || !canStandOnLine(platform::narrow(source)) ||
        !canStandOnLine(platform::narrow(target)))
        return false;
    std::string request = quotedLine(exifToolPath_) + "-m\n-m\n";
    request.append(selector)
        .append("\n-b\n")
        .append(quotedLine(source))
        .append(">")
        .append(quotedLine(target));
    request += "-execute\n";
    if (!append(request)) return false;
    std::this_thread::sleep_until(std::chrono::steady_clock::now() + SessionDelayMs);
    return true;
}

void ExifToolSession::CloseExifToolSession() {
    if (!argumentFile_.isOpen()) return;
    append("-stay_open\nFalse\n");
    // No longer than the delay, and a child that is quick about it saves the rest.
    child_.hasEndedWithin(SessionDelayMs);
    argumentFile_.close();
    outputRead_.close();
    inputWrite_.close();
    if (child_.hasEndedWithin(kEndLimit))
        child_.wait();
    else
        child_.stop(kKillLimit);
}

}  // namespace exiftool
