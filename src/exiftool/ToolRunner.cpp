#include "exiftool/ToolRunner.h"

#include "exiftool/LineParts.h"
#include "exiftool/ReportFile.h"
#include "exiftool/WarmStarter.h"
#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"
#include "platform/Text.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

namespace exiftool {

namespace fs = std::filesystem;
using platform::CommandText;

namespace {

constexpr const char* kCommonBatchFile = "Metadata.bat";
constexpr const char* kWriteBatchFile = "MetaData.bat";
constexpr const char* kFileList = "files.tmp";
constexpr mode_t kNewFileMode = 0666;
constexpr int kToolFailed = 1;

bool writeFile(const fs::path& file, int mode, std::string_view bytes) {
    const platform::FileDescriptor descriptor(
        ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | mode, kNewFileMode));
    return descriptor.isOpen() && platform::writeAll(descriptor.get(), bytes) == 0;
}

bool canStandOnLine(std::string_view name) {
    return !name.empty() && name.find_first_of(std::string_view("\n\0", 2)) == std::string_view::npos &&
           !name.ends_with('\r');
}

std::string refusalLine(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r' || c == 0; }, '?');
    return "Error: A line end in a file name cannot stand in a list of files - " + name + '\n';
}

/// What a report does not say by itself, since it was not the tool's to say; empty when all is well.
std::string problemOf(const platform::LineOutcome& line, bool hasReportGrown) {
    using Kind = platform::ChildOutcome::Kind;
    switch (line.child.kind) {
        case Kind::Killed:
            return "ExifTool was ended by signal " + std::to_string(line.child.number);
        case Kind::Stopped:
            return "ExifTool was not waited for any longer and ended";
        case Kind::NotStarted:
            return hasReportGrown ? std::string() : "ExifTool was not started: " + line.child.reason;
        case Kind::Ended:
            break;
    }
    // Its complaints got lost, as on a full disk.
    const bool isSilent = line.child.number == kToolFailed && !hasReportGrown;
    return isSilent ? "ExifTool failed" : std::string();
}

/// ExifTool writes a new file beside the old one, and refuses to when one is there already. A run that was
/// ended in the middle must not leave one that bars every later write; but it must stay when it may be the
/// only whole copy, thus when the file itself has been touched.
class LeftoverRemover {
 public:
    explicit LeftoverRemover(const fs::path& file) : file_(file), leftover_(file) {
        leftover_ += "_exiftool_tmp";
        struct stat ignored {};
        isOurs_ = ::stat(file_.c_str(), &before_) == 0 && ::lstat(leftover_.c_str(), &ignored) != 0;
    }

    void removeLeftover() const {
        struct stat now {};
        if (!isOurs_ || ::stat(file_.c_str(), &now) != 0) return;
        const bool isUntouched =
            now.st_ino == before_.st_ino && now.st_dev == before_.st_dev && now.st_size == before_.st_size &&
            now.st_mtim.tv_sec == before_.st_mtim.tv_sec && now.st_mtim.tv_nsec == before_.st_mtim.tv_nsec;
        if (isUntouched) ::unlink(leftover_.c_str());
    }

 private:
    fs::path file_;
    fs::path leftover_;
    struct stat before_ {};
    bool isOurs_ = false;
};

}  // namespace

ToolRunner::ToolRunner(const app::AppContext& context) : context_(context) {}

void ToolRunner::setKeepWaiting(KeepWaiting keepWaiting) {
    keepWaiting_ = std::move(keepWaiting);
}

void ToolRunner::setSafetyCopyFailed(SafetyCopyFailed failed) {
    safetyCopyFailed_ = std::move(failed);
}

int ToolRunner::RunToolLine(const CommandText& command) {
    return runWritten(context_.tempPath / kCommonBatchFile, command);
}

int ToolRunner::runBatchFile(const fs::path& batchFile, const CommandText& command) {
    const int result = runWritten(batchFile, command);
    std::error_code ignored;
    fs::remove(batchFile, ignored);
    return result;
}

int ToolRunner::RunOnFile(const fs::path& file, const CommandText& arguments) {
    outcome_ = {};
    if (file.empty()) return 0;
    copyForSafety(file);
    CommandText command = toolStartWithLanguage(context_).literal(" ").append(arguments).literal(" \"");
    command.outside(fileWord(file)).literal("\" 2>>\"").outside(platform::narrow(context_.reportFile));
    command.literal("\"");
    const LeftoverRemover remover(file);
    const std::uintmax_t sizeBefore = reportSize(context_);
    const int result = runBatchFile(context_.tempPath / kWriteBatchFile, command);
    tellReport(file, sizeBefore);
    if (wasCut()) remover.removeLeftover();
    return result;
}

int ToolRunner::runWriteLine(const std::vector<fs::path>& files, const CommandText& command) {
    const std::vector<LeftoverRemover> removers(files.begin(), files.end());
    const int result = RunToolLine(command);
    if (wasCut()) {
        for (const LeftoverRemover& remover : removers) remover.removeLeftover();
    }
    return result;
}

bool ToolRunner::wasCut() const {
    return std::any_of(outcome_.lines.begin(), outcome_.lines.end(), [](const platform::LineOutcome& line) {
        return line.child.kind == platform::ChildOutcome::Kind::Stopped ||
               line.child.kind == platform::ChildOutcome::Kind::Killed;
    });
}

int ToolRunner::RunHidden(const CommandText& command) {
    return run(command, {context_.exifToolPath, context_.ffmpegPath, context_.imageMagickPath});
}

int ToolRunner::runHiddenOnFile(const fs::path& file, const CommandText& command) {
    const std::uintmax_t sizeBefore = reportSize(context_);
    const int result = RunHidden(command);
    tellReport(file, sizeBefore);
    return result;
}

int ToolRunner::RunProgram(const CommandText& command) {
    return run(command, {context_.ffmpegPath, context_.imageMagickPath});
}

FileList ToolRunner::WriteFileList(const std::vector<fs::path>& files) {
    FileList list;
    if (files.empty()) return list;
    std::string lines;
    std::string refusals;
    for (const fs::path& file : files) {
        const std::string word = file.empty() ? std::string() : fileWord(file);
        if (!canStandOnLine(word)) {
            list.refused.push_back(file);
            refusals += refusalLine(word);
            continue;
        }
        copyForSafety(file);
        lines.append(word).append("\r\n");
        ++list.listed;
    }
    if (!refusals.empty() && !writeFile(context_.reportFile, O_APPEND, refusals)) untold_ += refusals;
    const fs::path path = context_.tempPath / kFileList;
    if (writeFile(path, O_TRUNC, lines)) list.path = path;
    return list;
}

void ToolRunner::copyForSafety(const fs::path& file) const {
    if (safetyCopies_.SafetyCopyEnabled == 0) return;
    const QString failure = MakeSafetyCopy(file, context_.cachePath, safetyCopies_);
    if (!failure.isEmpty() && safetyCopyFailed_) safetyCopyFailed_(failure);
}

void ToolRunner::tellReport(const fs::path& file, std::uintmax_t sizeBefore) {
    const bool hasGrown = reportSize(context_) > sizeBefore;
    std::string problem = outcome_.lines.empty() ? "The command could not be written" : std::string();
    for (const platform::LineOutcome& line : outcome_.lines) problem += problemOf(line, hasGrown);
    if (problem.empty()) return;
    const std::string told = "Error: " + problem + " - " + platform::narrow(file);
    if (!appendToReport(context_, told)) untold_ += told + '\n';
}

int ToolRunner::runWritten(const fs::path& batchFile, const CommandText& command) {
    outcome_ = {};
    if (!writeFile(batchFile, O_TRUNC, command.text())) return 0;
    return RunHidden(command);
}

int ToolRunner::run(const CommandText& command, std::vector<fs::path> tools) {
    const auto typed = context_.settings.exifTool.correctedCommands ? platform::TypedPieces::StayInside
                                                                    : platform::TypedPieces::AsTheyStand;
    platform::CommandInterpreter interpreter(std::move(tools), typed);
    if (warmStarter_ != nullptr) {
        interpreter.setChildRunner(
            [this](const platform::ChildCommand& child, const KeepWaiting& keepWaiting) {
                std::optional<platform::ChildOutcome> outcome = warmStarter_->run(child, keepWaiting);
                return outcome ? *outcome : platform::runChild(child, keepWaiting);
            });
    }
    outcome_ = interpreter.run(command, keepWaiting_);
    if (runEnded_) runEnded_();
    return outcome_.everyToolStarted() && !outcome_.wasStopped() ? 1 : 0;
}

}  // namespace exiftool
