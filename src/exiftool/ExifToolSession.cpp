#include "exiftool/ExifToolSession.h"

#include "platform/AtomicFile.h"
#include "platform/Text.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <thread>

namespace exiftool {

namespace fs = std::filesystem;
using platform::ChildStream;
using platform::FileDescriptor;

namespace {

constexpr const char* kArgumentFilePattern = "EXMXXXXXX.tmp";
constexpr int kPatternTail = 4;
/// The child has had one delay already when it is asked to end by a signal.
constexpr std::chrono::milliseconds kEndLimit{300};
constexpr std::chrono::milliseconds kKillLimit{300};

struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;
    bool isOpen() const { return readEnd.isOpen(); }
};

Pipe openPipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return {};
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

/// ExifTool takes one argument a line and drops returns before the line's end.
bool canStandOnLine(std::string_view text) {
    return !text.empty() && text.find_first_of(std::string_view("\n\0", 2)) == std::string_view::npos &&
           !text.ends_with('\r');
}

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
    std::string name = (tempPath / kArgumentFilePattern).string();
    FileDescriptor arguments(::mkostemps(name.data(), kPatternTail, O_APPEND | O_CLOEXEC));
    if (!arguments.isOpen()) return kNoArgumentFile;
    Pipe output = openPipe();
    if (!output.isOpen()) return kNoOutputPipe;
    Pipe input = openPipe();
    if (!input.isOpen()) return kNoInputPipe;

    platform::ChildCommand command;
    command.program = exifToolPath;
    command.arguments = {"-stay_open", "true", "-@", name};
    command.environment = {"PERL_BADLANG=0"};
    command.input = ChildStream::to(input.readEnd.get());
    command.output = ChildStream::to(output.writeEnd.get());
    command.errors = command.output;
    command.endsWithStartingThread = true;
    if (child_.start(command).kind == platform::ChildOutcome::Kind::NotStarted) return kNoChild;
    argumentFile_ = std::move(arguments);
    outputRead_ = std::move(output.readEnd);
    inputWrite_ = std::move(input.writeEnd);
    return kStarted;
}

bool ExifToolSession::append(std::string_view request) {
    const std::lock_guard lock(writing_);
    return argumentFile_.isOpen() && platform::writeAll(argumentFile_.get(), request) == 0;
}

ExifToolSession::SendResult ExifToolSession::readWhatHasCome() {
    SendResult result;
    result.wasSent = true;
    int available = 0;
    if (::ioctl(outputRead_.get(), FIONREAD, &available) != 0 || available <= 0) return result;
    std::string bytes(static_cast<std::size_t>(available), '\0');
    ssize_t got = 0;
    do got = ::read(outputRead_.get(), bytes.data(), bytes.size());
    while (got < 0 && errno == EINTR);
    result.wasAnswered = got > 0;
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
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
