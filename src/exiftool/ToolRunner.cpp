#include "exiftool/ToolRunner.h"

#include "app/SpokenText.h"
#include "exiftool/ExifToolTexts.h"
#include "exiftool/Leftover.h"
#include "exiftool/LineParts.h"
#include "exiftool/LongArguments.h"
#include "exiftool/OutcomeJudge.h"
#include "exiftool/ReportFile.h"
#include "exiftool/WarmStarter.h"
#include "platform/FileAccess.h"
#include "platform/FileBelongings.h"
#include "platform/FileStamp.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace exiftool {

namespace fs = std::filesystem;
using platform::CommandText;
using platform::WriteMode;

namespace {

constexpr const char* kCommonBatchFile = "Metadata.bat";
constexpr const char* kWriteBatchFile = "MetaData.bat";
constexpr const char* kFileList = "files.tmp";
/// What a line of a write says where it leads its streams nowhere.
constexpr const char* kOutput = "Output.txt";
constexpr const char* kErrors = "Errors.txt";

std::string refusalLine(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\n' || c == '\r' || c == 0; }, '?');
    return "Error: " + app::spokenText(text::kLineEndInName) + " - " + name + '\n';
}

/// The line that tells most of how a command ended: the first that did not end by itself, else the last.
platform::ChildOutcome childOf(const platform::CommandOutcome& outcome) {
    platform::ChildOutcome end;
    end.reason = app::spokenText(text::kCommandNotWritten);
    for (const platform::LineOutcome& line : outcome.lines) {
        end = line.child;
        if (end.reason.empty()) end.reason = line.answer;
        if (end.kind != platform::ChildOutcome::Kind::Ended) break;
    }
    while (end.reason.ends_with('\n')) end.reason.pop_back();
    return end;
}

/// True for the tags of a file that ExifTool cannot read: the group named after it has a row for the error
/// beside the one for its version. The error's name is a word of the language that was asked for.
bool tellsOfError(const fs::path& output) {
    int rows = 0;
    platform::forEachLineOfOwnFile(output, [&](std::string_view line) {
        if (line.starts_with("[ExifTool]")) ++rows;
        return rows < 2;
    });
    return rows >= 2;
}

std::vector<platform::FileStamp> stampsOf(const std::vector<fs::path>& files) {
    std::vector<platform::FileStamp> stamps;
    stamps.reserve(files.size());
    for (const fs::path& file : files) stamps.push_back(platform::stampOf(file));
    return stamps;
}

platform::TypedPieces typedPieces(app::CommandForm form) {
    return form == app::CommandForm::Corrected ? platform::TypedPieces::StayInside
                                               : platform::TypedPieces::AsTheyStand;
}

bool isQuietCommand(app::CommandForm form, const CommandText& command) {
    return std::ranges::any_of(platform::parseCommands(command, typedPieces(form)),
                               [](const platform::ParsedCommand& line) { return isQuiet(line.words); });
}

/// Where the last of the lines leads its output.
std::optional<platform::Redirection> outputOf(app::CommandForm form, const CommandText& command) {
    const std::vector<platform::ParsedCommand> lines = platform::parseCommands(command, typedPieces(form));
    return lines.empty() ? std::nullopt : lines.back().output;
}

/// Bytes; 0 when there is none.
std::uintmax_t sizeOf(const fs::path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? 0 : size;
}

/// One file's part of the account of a process that was given several: the tool counts them together, so that
/// the file itself has to say whether it is one of those that were written.
ToolAccount shareOf(const ToolAccount& whole, std::span<const fs::path> files, std::size_t at,
                    const WriteFacts& facts) {
    std::vector<fs::path> names;
    for (const fs::path& file : files) names.emplace_back(fileWord(file));
    ToolAccount share;
    share.words = wordsOfFile(whole.words, names[at], names);
    if (!whole.counts) return share;
    ToolCounts counts;
    if (!(facts.before == facts.after))
        counts.updated = 1;
    else if (whole.counts->unchanged > 0 && share.words.find("Error") == std::string::npos)
        counts.unchanged = 1;
    else
        counts.failed = 1;
    share.counts = counts;
    return share;
}

/// A run over several files that was cut has done the first of them, and was at the first that is untouched.
void spreadCut(Outcomes& outcomes, const std::vector<platform::FileStamp>& before) {
    bool isCutFileFound = false;
    for (std::size_t at = 0; at < outcomes.size(); ++at) {
        Outcome& outcome = outcomes[at];
        if (!platform::isUntouched(before[at], platform::stampOf(outcome.file)))
            outcome.kind = OutcomeKind::Warned;
        else if (std::exchange(isCutFileFound, true))
            outcome.kind = OutcomeKind::NotBegun;
    }
}

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

Outcome ToolRunner::RunOnFile(const fs::path& file, const CommandText& arguments) {
    outcome_ = {};
    if (file.empty()) return {file, OutcomeKind::NotStarted, app::spokenText(text::kNoFile)};
    if (std::optional<Outcome> refused = copyForSafety(file)) return *refused;
    const CommandText command = lineOnFile(context_, form(), arguments, file);
    return judged({file}, command, [&] { return runBatchFile(context_.tempPath / kWriteBatchFile, command); })
        .front();
}

Outcome ToolRunner::runWriteLine(const fs::path& file, const CommandText& command) {
    return runWriteLine(std::vector<fs::path>{file}, command).front();
}

Outcomes ToolRunner::runWriteLine(const std::vector<fs::path>& files, const CommandText& command) {
    return judged(files, command, [&] { return RunToolLine(command); });
}

Outcome ToolRunner::runHiddenOnFile(const fs::path& file, const CommandText& command) {
    return judged({file}, command, [&] { return RunHidden(command); }).front();
}

Outcomes ToolRunner::judged(const std::vector<fs::path>& files, const CommandText& command, const Run& run) {
    const fs::path output = context_.tempPath / kOutput;
    const fs::path errors = context_.tempPath / kErrors;
    std::error_code ignored;
    fs::remove(output, ignored);
    fs::remove(errors, ignored);
    const std::uintmax_t reported = reportSize(context_);
    const std::vector<Leftover> leftovers(files.begin(), files.end());
    const std::vector<platform::FileStamp> before = stampsOf(files);
    std::vector<platform::FileBelongings> belongings;
    if (form() == app::CommandForm::Corrected)
        for (const fs::path& file : files) belongings.emplace_back(file);
    isCapturing_ = true;
    static_cast<void>(run());
    isCapturing_ = false;
    WriteFacts facts;
    facts.child = childOf(outcome_);
    facts.wasQuiet = isQuietCommand(form(), command);
    const bool isCut = facts.child.kind == platform::ChildOutcome::Kind::Stopped ||
                       facts.child.kind == platform::ChildOutcome::Kind::Killed;
    if (isCut) {
        for (const Leftover& leftover : leftovers) leftover.removeWhenUntouched();
    }
    const std::string said = reportFrom(context_, reported) + platform::readOwnFile(errors);
    const ToolAccount account = accountOf(platform::readOwnFile(output), said);
    Outcomes outcomes;
    for (std::size_t at = 0; at < files.size(); ++at) {
        facts.before = before[at];
        facts.after = platform::stampOf(files[at]);
        facts.account = files.size() == 1 ? account : shareOf(account, files, at, facts);
        WriteFacts own = facts;
        // The status of a process that was given several files tells of one that could not be written.
        const bool isOthers = files.size() > 1 && own.account.counts && own.account.counts->failed == 0;
        if (isOthers && own.child.kind == platform::ChildOutcome::Kind::Ended) own.child.number = 0;
        outcomes.push_back(judgeWrite(files[at], own));
    }
    if (isCut && files.size() > 1) spreadCut(outcomes, before);
    for (std::size_t at = 0; at < belongings.size(); ++at)
        outcomes[at] = withLosses(std::move(outcomes[at]), belongings[at].giveBack());
    for (Outcome& outcome : outcomes) {
        if (said.empty()) tellReport(outcome);
        addCopyFailure(outcome);
    }
    return outcomes;
}

ReadRun ToolRunner::runReadLine(const std::vector<fs::path>& files, const CommandText& command) {
    const fs::path printed = context_.tempPath / kOutput;
    const fs::path errors = context_.tempPath / kErrors;
    std::error_code ignored;
    fs::remove(printed, ignored);
    fs::remove(errors, ignored);
    const std::optional<platform::Redirection> target = outputOf(form(), command);
    const fs::path output = target ? fs::path(target->target) : printed;
    const std::uintmax_t held = target && target->append ? sizeOf(output) : 0;
    const std::uintmax_t reported = reportSize(context_);
    isCapturing_ = true;
    static_cast<void>(RunToolLine(command));
    isCapturing_ = false;
    std::string said = platform::readOwnFile(errors);
    if (output != context_.reportFile) said = reportFrom(context_, reported) + said;
    const std::string words = accountOf({}, said).words;
    std::vector<fs::path> names;
    names.reserve(files.size());
    for (const fs::path& file : files) names.emplace_back(fileWord(file));
    ReadFacts facts{.child = childOf(outcome_),
                    .words = words,
                    .hasOutput = sizeOf(output) > held,
                    .isOneOfMany = files.size() > 1};
    ReadRun run;
    for (std::size_t at = 0; at < files.size(); ++at) {
        if (facts.isOneOfMany) facts.words = wordsOfFile(words, names[at], names);
        run.outcomes.push_back(judgeRead(files[at], facts));
        if (said.empty()) tellReport(run.outcomes.back());
    }
    if (!target) run.printed = platform::readOwnFile(printed);
    return run;
}

void ToolRunner::tellReport(const Outcome& outcome) const {
    if (isWritten(outcome.kind) || outcome.kind == OutcomeKind::Unchanged || outcome.words.empty()) return;
    // Where the report cannot be written the outcome still tells it.
    static_cast<void>(appendToReport(context_, outcome.words));
}

void ToolRunner::addCopyFailure(Outcome& outcome) {
    for (const auto& [file, words] : std::exchange(copyFailures_, {})) {
        if (file != outcome.file) {
            copyFailures_.emplace_back(file, words);
            continue;
        }
        if (outcome.kind == OutcomeKind::Done || outcome.kind == OutcomeKind::Unchanged)
            outcome.kind = OutcomeKind::Warned;
        outcome.words = words + '\n' + outcome.words;
    }
}

std::string ToolRunner::lastFaultOfRead(const fs::path& output) const {
    const bool hasEnded = childOf(outcome_).kind == platform::ChildOutcome::Kind::Ended;
    return hasEnded && tellsOfError(output) ? std::string() : lastFault();
}

OutcomeKind ToolRunner::lastEnd() const {
    return endOf(childOf(outcome_));
}

std::string ToolRunner::lastFault() const {
    const platform::ChildOutcome end = childOf(outcome_);
    std::string fault = faultOf(end);
    if (!fault.empty() || end.number == 0) return fault;
    return app::spokenText(text::kEndedWithStatus, {QString::number(end.number)});
}

int ToolRunner::RunHidden(const CommandText& command) {
    return run(command, {context_.exifToolPath, context_.ffmpegPath, context_.imageMagickPath});
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
            refusals += refusalLine(word);
            list.refused.push_back({file, OutcomeKind::Failed, refusalLine(word)});
            continue;
        }
        if (std::optional<Outcome> refused = copyForSafety(file)) {
            list.refused.push_back(std::move(*refused));
            continue;
        }
        lines.append(word).append("\r\n");
        list.listed.push_back(file);
    }
    if (!refusals.empty())
        static_cast<void>(platform::writeFile(context_.reportFile, WriteMode::Append, refusals));
    const fs::path path = context_.tempPath / kFileList;
    if (platform::writeFile(path, WriteMode::Replace, lines) == 0) list.path = path;
    return list;
}

std::optional<Outcome> ToolRunner::copyForSafety(const fs::path& file) {
    if (safetyCopies_.SafetyCopyEnabled == 0) return std::nullopt;
    const QString failure = MakeSafetyCopy(file, context_.cachePath, safetyCopies_);
    if (failure.isEmpty()) return std::nullopt;
    if (!mayBeWrittenWithoutCopy(file, failure)) {
        Outcome refused = withoutCopy(file, failure);
        tellReport(refused);
        return refused;
    }
    copyFailures_.emplace_back(file, "Warning: " + failure.toStdString() + " - " + platform::narrow(file));
    return std::nullopt;
}

int ToolRunner::runWritten(const fs::path& batchFile, const CommandText& command) {
    outcome_ = {};
    if (platform::writeFile(batchFile, WriteMode::Replace, command.text()) != 0) return 0;
    return RunHidden(command);
}

platform::ChildOutcome ToolRunner::runTool(const platform::ChildCommand& child,
                                           const KeepWaiting& keepWaiting) const {
    if (warmStarter_ != nullptr) {
        if (std::optional<platform::ChildOutcome> outcome = warmStarter_->run(child, keepWaiting))
            return *outcome;
    }
    if (child.program != context_.exifToolPath) return platform::runChild(child, keepWaiting);
    const LongArguments arguments(child.arguments, context_.tempPath);
    platform::ChildCommand command = child;
    command.arguments = arguments.arguments();
    return platform::runChild(command, keepWaiting);
}

int ToolRunner::run(const CommandText& command, std::vector<fs::path> tools) {
    platform::CommandInterpreter interpreter(std::move(tools), typedPieces(form()));
    interpreter.setOwnFolders({context_.tempPath, context_.reportFile.parent_path()});
    interpreter.setChildRunner([this](const platform::ChildCommand& child, const KeepWaiting& keepWaiting) {
        return runTool(child, keepWaiting);
    });
    if (isCapturing_) interpreter.setUnredirected(context_.tempPath / kOutput, context_.tempPath / kErrors);
    if (elsewhere_)
        elsewhere_([&] { outcome_ = interpreter.run(command, keepWaiting_); });
    else
        outcome_ = interpreter.run(command, keepWaiting_);
    return outcome_.everyToolStarted() && !outcome_.wasStopped() ? 1 : 0;
}

}  // namespace exiftool
